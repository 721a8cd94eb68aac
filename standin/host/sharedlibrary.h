// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace standin {

// A dynamic library, unloaded with this object. Knows which addresses lie in it, which is how the
// host tells what belongs to a plug-in.
class SharedLibrary
{
public:
    SharedLibrary() = default;
    ~SharedLibrary();
    SharedLibrary(const SharedLibrary &) = delete;
    SharedLibrary &operator=(const SharedLibrary &) = delete;

    // Binds all symbols at once and keeps them to itself; on failure `problem` gets the linker's
    // text.
    bool open(const QString &fileName, QString &problem);

    // Leaves the library mapped when this object dies.
    void keepMapped() { m_handle = nullptr; }

    // The address of an exported name, null when there is none.
    void *symbol(const char *name);

    // Whether the address lies in this library; known once a symbol has been found.
    bool contains(const void *address) const;
    // Whether a function of this library is running below the caller.
    bool isOnStack() const;

private:
    void *m_handle = nullptr;
    const void *m_base = nullptr; // where the library is mapped
};

} // namespace standin
