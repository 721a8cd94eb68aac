// SPDX-License-Identifier: MIT
#include "compat/filetree.h"

#include "compat/nativepath.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <vector>

namespace fs = std::filesystem;

namespace compat {

namespace {

std::error_code ended()
{
    return std::make_error_code(std::errc::operation_canceled);
}

bool isEnded(const GoesOn &goesOn)
{
    return goesOn && !goesOn();
}

bool succeeds(const std::error_code &error, QString *errorMessage)
{
    *errorMessage = !error || error == ended() ? QString() : messageOf(error);
    return !error;
}

const std::uintmax_t longFile = 32 * 1024 * 1024; // bytes; with less nobody has to wait
const std::size_t slice = 1024 * 1024;

struct Closing
{
    void operator()(std::FILE *file) const { std::fclose(file); }
};
using OpenFile = std::unique_ptr<std::FILE, Closing>;

OpenFile openFile(const fs::path &path, const char *mode)
{
#ifdef _WIN32
    return OpenFile(_wfopen(path.c_str(), std::wstring(mode, mode + std::strlen(mode)).c_str()));
#else
    return OpenFile(std::fopen(path.c_str(), mode));
#endif
}

std::error_code lastError()
{
    return std::error_code(errno, std::generic_category());
}

// One copy. Everything is made exclusively, so that undoing it takes away nothing else.
class TreeCopy
{
public:
    explicit TreeCopy(const GoesOn &goesOn) : m_goesOn(goesOn) {}

    std::error_code copy(const fs::path &from, const fs::path &to);
    // Either one comes last.
    void finish() const;
    void undo() const;

private:
    struct Folder
    {
        fs::path path;
        fs::perms permissions;
    };

    std::error_code copyFile(const fs::path &from, const fs::path &to);
    std::error_code copyInSlices(const fs::path &from, const fs::path &to);
    std::error_code copyFolder(const fs::path &from, const fs::path &to, fs::perms permissions);

    const GoesOn &m_goesOn;
    std::vector<fs::path> m_made; // folders before what they hold
    std::vector<Folder> m_folders;
};

std::error_code TreeCopy::copy(const fs::path &from, const fs::path &to)
{
    if (isEnded(m_goesOn))
        return ended();
    std::error_code error;
    const fs::file_status status = fs::symlink_status(from, error);
    switch (status.type()) {
    case fs::file_type::directory:
        return copyFolder(from, to, status.permissions());
    case fs::file_type::symlink:
        fs::copy_symlink(from, to, error);
        if (!error)
            m_made.push_back(to);
        return error;
    case fs::file_type::regular:
        return copyFile(from, to);
    default: // a pipe would never end
        return error ? error : std::make_error_code(std::errc::not_supported);
    }
}

std::error_code TreeCopy::copyFile(const fs::path &from, const fs::path &to)
{
    std::error_code error;
    const std::uintmax_t size = m_goesOn ? fs::file_size(from, error) : 0;
    if (error)
        return error;
    if (size > longFile)
        return copyInSlices(from, to);
    fs::copy_file(from, to, error);
    if (error != std::errc::file_exists)
        m_made.push_back(to); // a part of it, if it failed
    return error;
}

// As the system does it a copy cannot be ended before it is whole.
std::error_code TreeCopy::copyInSlices(const fs::path &from, const fs::path &to)
{
    const OpenFile source = openFile(from, "rb");
    OpenFile target = source ? openFile(to, "wbx") : nullptr;
    if (!target)
        return lastError();
    m_made.push_back(to);
    std::error_code ignored; // of a file system without permissions
    fs::permissions(to, fs::status(from, ignored).permissions(), ignored);
    std::vector<char> bytes(slice);
    while (const std::size_t size = std::fread(bytes.data(), 1, slice, source.get())) {
        if (std::fwrite(bytes.data(), 1, size, target.get()) != size)
            return lastError();
        if (isEnded(m_goesOn))
            return ended();
    }
    if (std::ferror(source.get()) || std::fclose(target.release()) != 0)
        return lastError();
    return std::error_code();
}

std::error_code TreeCopy::copyFolder(const fs::path &from, const fs::path &to,
                                     fs::perms permissions)
{
    std::error_code error;
    // Never more open than the other one, and for now so that files can be put there.
    if (!fs::create_directory(to, from, error))
        return error ? error : std::make_error_code(std::errc::file_exists);
    m_made.push_back(to);
    m_folders.push_back({to, permissions});
    fs::permissions(to, fs::perms::owner_all, fs::perm_options::add, error);
    fs::directory_iterator entry(from, error);
    while (!error && entry != fs::directory_iterator()) {
        error = copy(entry->path(), to / entry->path().filename());
        if (!error)
            entry.increment(error);
    }
    return error;
}

void TreeCopy::finish() const
{
    std::error_code error; // of a file system without permissions
    for (auto folder = m_folders.rbegin(); folder != m_folders.rend(); ++folder)
        fs::permissions(folder->path, folder->permissions, error);
}

void TreeCopy::undo() const
{
    std::error_code error; // what others have put into a folder stays, and the folder too
    for (auto path = m_made.rbegin(); path != m_made.rend(); ++path)
        fs::remove(*path, error);
}

std::error_code removeInSteps(const fs::path &path, const GoesOn &goesOn)
{
    if (isEnded(goesOn))
        return ended();
    std::error_code error;
    std::vector<fs::path> inner; // listed first: not every file system can list and delete at once
    if (fs::symlink_status(path, error).type() == fs::file_type::directory) {
        fs::directory_iterator entry(path, error);
        for (; !error && entry != fs::directory_iterator(); entry.increment(error))
            inner.push_back(entry->path());
        if (error)
            return error;
    }
    for (const fs::path &each : inner) {
        if ((error = removeInSteps(each, goesOn)))
            return error;
    }
    fs::remove(path, error);
    return error;
}

} // namespace

bool copyTree(const QString &path, const QString &newPath, QString *errorMessage,
              const GoesOn &goesOn)
{
    TreeCopy tree(goesOn);
    const std::error_code error = tree.copy(nativePath(path), nativePath(newPath));
    if (error)
        tree.undo();
    else
        tree.finish();
    return succeeds(error, errorMessage);
}

bool removeTree(const QString &path, QString *errorMessage, const GoesOn &goesOn)
{
    return succeeds(removeInSteps(nativePath(path), goesOn), errorMessage);
}

} // namespace compat
