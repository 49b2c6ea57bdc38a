// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

namespace om::gallery {

/// From now on the program's terminal stays free of what says nothing to the person in front of it:
/// what the platform and the controls mutter at every start, and what image readers say of the
/// files of a folder (see Listening). All else goes where it went before.
void keepQuiet();

/// While one exists, messages of this thread are collected and not printed (after keepQuiet()).
class Listening
{
public:
    Listening();
    ~Listening();

    QStringList heard() const;

private:
    Q_DISABLE_COPY(Listening)
    QStringList m_heard;
    QStringList *const m_outer;
};

} // namespace om::gallery
