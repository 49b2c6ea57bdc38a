// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QThreadPool>

#include <atomic>
#include <functional>
#include <memory>

namespace om::gallery {

/// Work that is done on another thread, one job after the other, with its results brought back to
/// the thread of this object.
class ShelfJobs : public QObject
{
    Q_OBJECT

public:
    explicit ShelfJobs(QObject *parent = nullptr);
    /// Waits for the jobs; their results are dropped.
    ~ShelfJobs() override;

    /// How many have been started whose results have not come back.
    int count() const { return m_count; }
    /// Becomes true when the jobs that are started until then are given up: long work asks it.
    std::shared_ptr<std::atomic_bool> cancelled() const { return m_cancelled; }
    /// Waits for the job that runs, and drops it and those that wait with their results.
    void cancelAll();

    /// Runs `work` on the other thread, and `done` with its result on this one.
    template<typename Result>
    void run(std::function<Result()> work, std::function<void(const Result &)> done)
    {
        start([this, cancelled = m_cancelled, work = std::move(work), done = std::move(done)] {
            const Result result = work();
            // This object waits for its thread before it goes.
            QMetaObject::invokeMethod(
                this,
                [this, cancelled, done, result] {
                    if (!*cancelled) {
                        finish([&] { done(result); });
                    }
                },
                Qt::QueuedConnection);
        });
    }

Q_SIGNALS:
    /// A job has begun, or its result has been taken.
    void changed();

private:
    void start(std::function<void()> job);
    void finish(const std::function<void()> &done);

    // One for all jobs until they are cancelled.
    std::shared_ptr<std::atomic_bool> m_cancelled;
    QThreadPool m_threads;
    int m_count = 0;
};

} // namespace om::gallery
