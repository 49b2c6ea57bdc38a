// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/PlainUser.h"

#include <QtGlobal>

#include <unistd.h>

namespace support {

namespace {

constexpr uid_t nobody = 65534;

} // namespace

PlainUser::PlainUser()
    : m_wasRoot(getuid() == 0)
{
    // The real user too: it is the one that access() asks about. The saved one leads back.
    if (m_wasRoot && setresuid(nobody, nobody, 0) != 0) {
        qFatal("PlainUser: the rights cannot be given up");
    }
}

PlainUser::~PlainUser()
{
    if (m_wasRoot && setresuid(0, 0, 0) != 0) {
        qFatal("PlainUser: the rights cannot be had back");
    }
}

} // namespace support
