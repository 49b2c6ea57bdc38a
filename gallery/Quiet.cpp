// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "gallery/Quiet.h"

#include <QLatin1String>
#include <QtGlobal>

namespace om::gallery {

namespace {

QtMessageHandler printer = nullptr;
thread_local QStringList *listener = nullptr;

bool isMutter(const QString &message)
{
    // Of the controls at every start; of a session without a runtime folder; of folders that went
    // or are closed between a look at them and their watch.
    return message == QLatin1String("Registering types of Controls plugin")
        || message.startsWith(QLatin1String("QStandardPaths: "))
        || message.startsWith(QLatin1String("inotify_add_watch"));
}

void filter(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (listener) {
        listener->append(message);
    } else if (!isMutter(message)) {
        printer(type, context, message);
    }
}

} // namespace

void keepQuiet()
{
    const QtMessageHandler before = qInstallMessageHandler(filter);
    if (before != filter) {
        printer = before;
    }
}

Listening::Listening()
    : m_outer(listener)
{
    listener = &m_heard;
}

Listening::~Listening()
{
    listener = m_outer;
}

QStringList Listening::heard() const
{
    return m_heard;
}

} // namespace om::gallery
