// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

class QQmlEngine;

namespace om::gallery {

class FolderTree;
class Session;

/// Gives the engine what the gallery's QML relies on: the context properties `gallery`, which is
/// the tree, `session`, `reference`, and `shelf`, which has not opened anything yet; the pictures
/// of the tree's files and of the shelf; and the QML module "ombrel.gallery". The tree and the
/// session have to outlive the engine; without a session it gets one that forgets everything.
void prepareEngine(QQmlEngine *engine, FolderTree *tree, Session *session = nullptr);

} // namespace om::gallery
