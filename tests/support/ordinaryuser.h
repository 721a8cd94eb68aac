// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>

#include <unistd.h>

// While it lives, the program has no more rights than others when it was started by root.
class OrdinaryUser
{
public:
    OrdinaryUser() : m_before(geteuid())
    {
        if (m_before == 0)
            m_changed = seteuid(nobody) == 0;
    }
    ~OrdinaryUser()
    {
        if (m_changed && seteuid(m_before) != 0)
            abort();
    }
    static const uid_t nobody = 65534;

private:
    uid_t m_before;
    bool m_changed = false;
};
