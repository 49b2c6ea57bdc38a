// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

class QSGNode;

namespace support {

/// Who lives: every QObject of the process, noted by way of the hooks that Qt keeps for such tools.
/// Linked into a test, the census begins before main().
///
/// "This test" is the test function, or the row of its data, that runs now.

/// The classes of the objects that were made in this test and live on, one entry an object, sorted:
/// objects of the library and of the data core, items, windows, engines, contexts, components,
/// drags and MIME data. Other objects of Qt come and go as Qt likes.
QStringList livingObjects();

/// The classes of the scene-graph textures that were made in this test and live on.
QStringList livingTextures();

/// The classes of the library's scene-graph nodes that were made in this test and live on.
QStringList livingNodes();

/// The classes of the objects whose timers are active, one entry a timer: of objects of the
/// library, and of items and timers made in this test.
QStringList activeTimers();

/// The classes of the animations that run: those that belong to the library or were made in this
/// test.
QStringList runningAnimations();

/// What filters the events of another object: "om::controls::Popup on QQuickView". Counts the
/// filters that belong to the library or to an object made in this test.
QStringList eventFilters();

/// Links SceneGraphNodes.cpp into the program, which does the rest by itself.
void watchNodes();
/// Notes what SceneGraphNodes.cpp sees come and go.
void noteNode(QSGNode *node, bool lives);

} // namespace support
