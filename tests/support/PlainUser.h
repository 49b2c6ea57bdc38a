// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

namespace support {

/// While one exists the test has the rights of a user without privileges, for whom files can be
/// unreadable: builds often run as root. Does nothing for any other user.
class PlainUser
{
public:
    PlainUser();
    ~PlainUser();

private:
    const bool m_wasRoot;
};

} // namespace support
