// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/DragWatch.h"
#include "tests/support/Gesture.h"
#include "tests/support/QmlView.h"

#include <QObject>

#include <memory>

/// Documents to be dragged with the real pointer out of both sources: the base of the tests that do
/// so. The document of a test is data/documents.qml, with the source that its row names.
class DocumentDragTest : public QObject
{
protected:
    /// A row for each of the two sources.
    static void sources();
    /// The type of the source in the row that runs; a zone where a test has none.
    static QByteArray typeName();

    void loadScene();
    void closeScene();

    QObject *source() const;
    /// The visual of the drag that runs; null while there is none.
    QQuickItem *visual() const;
    bool isActive() const;
    /// The place of the row that is pressed, on the screen.
    QPoint row() const;
    /// Presses on the row and moves until \a over has seen the drag.
    support::Gesture &dragOver(support::Gesture &gesture, const QPoint &over);
    /// A whole drag from the other row onto the area that takes anything.
    void nextDragWorks();

    std::unique_ptr<support::QmlView> m_view;
    std::unique_ptr<support::DragWatch> m_watch;
};
