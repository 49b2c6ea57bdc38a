// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

/// What the code of the resource trees adds to the format version: nothing. See CMakeLists.txt.
extern const unsigned char ombrel_resourceFeatureZlib;
const unsigned char ombrel_resourceFeatureZlib = 0;
