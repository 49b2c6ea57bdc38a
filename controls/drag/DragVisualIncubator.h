// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QQmlIncubator>

namespace om::controls {

class DragVisualHost;

/// Makes a drag visual, while the drag runs: the body of the incubators of both document sources.
class DragVisualIncubator : public QQmlIncubator
{
public:
    /// \a host outlives the incubator.
    explicit DragVisualIncubator(DragVisualHost *host);
    ~DragVisualIncubator() override;

protected:
    void setInitialState(QObject *object) override;

private:
    DragVisualHost *const m_host;
};

} // namespace om::controls
