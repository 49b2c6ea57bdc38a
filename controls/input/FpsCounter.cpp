// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/input/FpsCounter.h"

#include "controls/input/FrameRateMeter.h"
#include "controls/support/Teardown.h"

#include <QDateTime>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTimer>
#include <QVector>

namespace om::controls {

namespace {

constexpr int retryInterval = 1000;

} // namespace

class FpsCounter::Private
{
public:
    explicit Private(FpsCounter *counter)
        : q(counter)
    {
    }

    FpsCounter *const q;
    FrameRateMeter meter{QDateTime::currentMSecsSinceEpoch()};
    QVector<QMetaObject::Connection> watches; // of the windows' frames
};

FpsCounter::FpsCounter(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>(this))
{
}

FpsCounter::~FpsCounter()
{
    for (const QMetaObject::Connection &watch : qAsConst(d->watches)) {
        disconnect(watch);
    }
    dropQueuedCalls(this);
}

int FpsCounter::currentFps() const
{
    return d->meter.framesPerSecond();
}

void FpsCounter::classBegin() { }

void FpsCounter::componentComplete()
{
    findWindow();
}

void FpsCounter::updateFps()
{
    if (d->meter.addFrame(QDateTime::currentMSecsSinceEpoch())) {
        Q_EMIT currentFpsChanged();
    }
}

void FpsCounter::findWindow()
{
    bool found = false;
    for (QObject *ancestor = parent(); ancestor; ancestor = ancestor->parent()) {
        const auto *const item = qobject_cast<QQuickItem *>(ancestor);
        if (!item || !item->window()) {
            continue;
        }
        // One connection for each ancestor that is an item, even if they share a window: a frame
        // then takes several of the meter's 60 slots, and the rate reads that many times too high.
        // Applications rely on what they read. A signal from the render thread is queued (automatic
        // connection), so that only the counter's thread uses the meter.
        d->watches.append(
            connect(item->window(), &QQuickWindow::frameSwapped, this, &FpsCounter::updateFps));
        found = true;
    }
    if (!found) {
        QTimer::singleShot(retryInterval, this, SLOT(findWindow()));
    }
}

} // namespace om::controls
