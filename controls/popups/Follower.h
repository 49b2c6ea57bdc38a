// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QQuickItem;
QT_END_NAMESPACE

namespace om::controls {

/// An item that is moved with every frame to where another item is, without lying inside it.
///
/// Not a QObject: overlays add it to their Qt base class, and dependsOn() finds it by dynamic_cast.
class Follower
{
    Q_DISABLE_COPY(Follower)
public:
    /// The item that this one follows; null while there is none.
    virtual const QQuickItem *followedItem() const = 0;

protected:
    Follower() = default;
    ~Follower() = default;
};

} // namespace om::controls
