// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdlib>
#include <unistd.h>

/// Drops the rights of the superuser, for whom nothing is read-only, as long as it lives.
class AsPlainUser
{
public:
    AsPlainUser() : m_user(geteuid())
    {
        constexpr uid_t nobody = 65534;
        if (m_user == 0) m_done = seteuid(nobody) == 0;
    }
    ~AsPlainUser()
    {
        if (m_done && seteuid(m_user) != 0) std::abort();
    }
    AsPlainUser(const AsPlainUser&) = delete;
    AsPlainUser& operator=(const AsPlainUser&) = delete;

private:
    uid_t m_user;
    bool m_done = false;
};
