// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

class QQmlEngine;

namespace om::gallery {

class FolderTree;

/// Gives the engine what the gallery's QML relies on: the context property `gallery`, which is the
/// tree, and the pictures of its files; the context property `shelf`, which has not opened anything
/// yet, and its pictures. The tree has to outlive the engine.
void prepareEngine(QQmlEngine *engine, FolderTree *tree);

} // namespace om::gallery
