// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QQmlParserStatus>

#include <memory>

namespace om::controls {

/// Measures the frame rate of the window it lives in. Not an item: its window is that of the items
/// among its QObject parents.
///
/// It only listens to frames and never asks for one: in an idle window the rate stays what it was.
class FpsCounter
    : public QObject
    , public QQmlParserStatus
{
    Q_OBJECT
    Q_INTERFACES(QQmlParserStatus)
    /// Frames per second over the last 60 that were counted, computed at most once a second; 0
    /// before. A frame is counted once for each item among the QObject parents: with n of them this
    /// is n times the rate of the window.
    Q_PROPERTY(int currentFps READ currentFps NOTIFY currentFpsChanged)

public:
    explicit FpsCounter(QObject *parent = nullptr);
    ~FpsCounter() override;

    int currentFps() const;

    void classBegin() override;
    void componentComplete() override;

Q_SIGNALS:
    void currentFpsChanged();

private Q_SLOTS:
    /// One frame was swapped.
    void updateFps();
    /// Looks for a window among the parents, and again after a second while there is none.
    void findWindow();

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace om::controls
