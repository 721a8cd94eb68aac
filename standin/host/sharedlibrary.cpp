// SPDX-License-Identifier: MIT
#include "standin/host/sharedlibrary.h"

#include <QFile>

#include <algorithm>
#include <vector>

#include <dlfcn.h>
#include <execinfo.h>

namespace standin {

namespace {

// Where the library is mapped that the address belongs to; null when it belongs to none.
const void *baseOf(const void *address)
{
    Dl_info info;
    return dladdr(address, &info) != 0 ? info.dli_fbase : nullptr;
}

// Where the functions that are running will return to, this one first.
std::vector<void *> returnAddresses()
{
    std::vector<void *> addresses(256);
    for (;;) {
        const int count = backtrace(addresses.data(), static_cast<int>(addresses.size()));
        if (count < static_cast<int>(addresses.size())) {
            addresses.resize(count);
            return addresses;
        }
        addresses.resize(2 * addresses.size()); // the stack may be deeper
    }
}

} // namespace

SharedLibrary::~SharedLibrary()
{
    if (m_handle)
        dlclose(m_handle);
}

bool SharedLibrary::open(const QString &fileName, QString &problem)
{
    // All symbols now, so that a missing one is reported here and not by a crash later; and none of
    // them for libraries loaded after it, for plug-ins may define the same names.
    m_handle = dlopen(QFile::encodeName(fileName).constData(), RTLD_NOW | RTLD_LOCAL);
    if (!m_handle)
        problem = QString::fromLocal8Bit(dlerror());
    return m_handle;
}

void *SharedLibrary::symbol(const char *name)
{
    void *address = m_handle ? dlsym(m_handle, name) : nullptr;
    // A library's dependencies are searched too; their symbols are not this library's.
    const void *base = address ? baseOf(address) : nullptr;
    if (!m_base)
        m_base = base;
    return base == m_base ? address : nullptr;
}

bool SharedLibrary::contains(const void *address) const
{
    return m_base && baseOf(address) == m_base;
}

bool SharedLibrary::isOnStack() const
{
    const std::vector<void *> addresses = returnAddresses();
    return std::any_of(addresses.begin(), addresses.end(),
                       [this](const void *address) { return contains(address); });
}

} // namespace standin
