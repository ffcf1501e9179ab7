// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <unistd.h>

namespace Tarvik {

/// While it lives, permissions count as they do for everyone, also where the tests run as root.
class OrdinaryUser {
public:
    static constexpr uid_t id = 65534;

    OrdinaryUser()
        : m_user(geteuid())
        , m_group(getegid())
    {
        if (m_user == 0)
            m_isSet = setegid(id) == 0 && seteuid(id) == 0;
    }
    ~OrdinaryUser()
    {
        if (m_user == 0)
            m_isSet = seteuid(m_user) == 0 && setegid(m_group) == 0;
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

    bool isSet() const { return m_isSet; }

private:
    uid_t m_user;
    gid_t m_group;
    bool m_isSet = true;
};

} // namespace Tarvik
