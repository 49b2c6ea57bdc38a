// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

class QObject;

namespace om::controls {

/// Takes the object that a DragVisualIncubator makes.
class DragVisualHost
{
public:
    /// \a object has been created; none of its bindings has been evaluated.
    virtual void adoptVisual(QObject *object) = 0;

protected:
    ~DragVisualHost() = default;
};

} // namespace om::controls
