// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QQmlIncubator>

namespace om::controls {

class DragArea;

/// Makes the drag visual of a DragArea, while the drag runs.
class DragAreaIncubator : public QQmlIncubator
{
public:
    explicit DragAreaIncubator(DragArea *area);
    ~DragAreaIncubator() override;

protected:
    void setInitialState(QObject *object) override;

private:
    DragArea *const m_area;
};

} // namespace om::controls
