// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/shelf/ShelfJobs.h"

#include <QRunnable>

namespace om::gallery {

namespace {

class Job : public QRunnable
{
public:
    explicit Job(std::function<void()> work)
        : m_work(std::move(work))
    {
    }
    void run() override { m_work(); }

private:
    const std::function<void()> m_work;
};

} // namespace

ShelfJobs::ShelfJobs(QObject *parent)
    : QObject(parent)
    , m_cancelled(std::make_shared<std::atomic_bool>(false))
{
    m_threads.setMaxThreadCount(1);
}

ShelfJobs::~ShelfJobs()
{
    *m_cancelled = true;
    m_threads.waitForDone();
}

void ShelfJobs::cancelAll()
{
    *m_cancelled = true;
    m_threads.waitForDone();
    m_cancelled = std::make_shared<std::atomic_bool>(false);
    m_count = 0;
}

void ShelfJobs::start(std::function<void()> job)
{
    ++m_count;
    Q_EMIT changed();
    m_threads.start(new Job(std::move(job)));
}

void ShelfJobs::finish(const std::function<void()> &done)
{
    --m_count;
    done();
    Q_EMIT changed();
}

} // namespace om::gallery
