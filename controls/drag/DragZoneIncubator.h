// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QQmlIncubator>

namespace om::controls {

class DragZone;

/// Makes the drag visual of a DragZone, while the drag runs.
class DragZoneIncubator : public QQmlIncubator
{
public:
    explicit DragZoneIncubator(DragZone *dragZone);
    ~DragZoneIncubator() override;

protected:
    void setInitialState(QObject *object) override;

private:
    DragZone *const m_dragZone;
};

} // namespace om::controls
