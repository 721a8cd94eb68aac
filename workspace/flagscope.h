// SPDX-License-Identifier: MIT
#pragma once

// Sets a flag for as long as it lives; then the flag is as it was before.
class FlagScope
{
public:
    explicit FlagScope(bool *flag) : m_flag(flag), m_before(*flag) { *flag = true; }
    ~FlagScope() { *m_flag = m_before; }
    FlagScope(const FlagScope &) = delete;
    FlagScope &operator=(const FlagScope &) = delete;

private:
    bool *m_flag;
    bool m_before;
};
