// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QQuickItem>

namespace om::controls {

/// Takes \a item out of the item tree.
///
/// That runs handlers, which may read properties that the record of its class holds. So a
/// destructor does it first: ~QQuickItem() would do it after the record is destroyed.
inline void leaveItemTree(QQuickItem *item)
{
    item->setParentItem(nullptr);
}

/// Takes back the calls that are queued for \a object.
///
/// A class whose queued calls use its record does this at the end of its destructor: the
/// destructors of its bases let handlers run, which may turn the event loop, and a call delivered
/// there would find the record destroyed. Qt itself takes the calls back only at the very end.
inline void dropQueuedCalls(QObject *object)
{
    QCoreApplication::removePostedEvents(object, QEvent::MetaCall);
}

} // namespace om::controls
