// SPDX-License-Identifier: MIT
#include "standin/mel/filetable.h"

#include "standin/mel/command.h"

namespace mel {

// A pipe waits for its command here, so that no child outlives the interpreter.
FileTable::~FileTable()
{
    for (const auto &entry : m_entries)
        closeEntry(entry.second);
}

int FileTable::closeEntry(const Entry &entry)
{
    return entry.isPipe ? pclose(entry.file) : std::fclose(entry.file);
}

int FileTable::add(std::FILE *file, bool isPipe)
{
    if (!file)
        return 0;
    // Numbers start at 1, since 0 means failure, and are never given out again: a stale one fails.
    m_entries[++m_lastId] = {file, isPipe, Use::None};
    return m_lastId;
}

int FileTable::open(const std::string &path, const std::string &mode)
{
    return add(std::fopen(path.c_str(), mode.c_str()), false);
}

// The C library leaves other modes undefined.
int FileTable::openPipe(const std::string &command, const std::string &mode)
{
    return mode == "r" || mode == "w" ? add(popen(command.c_str(), mode.c_str()), true) : 0;
}

int FileTable::close(int id)
{
    const int status = closeEntry(entry(id));
    m_entries.erase(id);
    return status;
}

FileTable::Entry &FileTable::entry(int id)
{
    const auto found = m_entries.find(id);
    if (found == m_entries.end())
        throw RuntimeError("Invalid file id: " + std::to_string(id) + ".");
    return found->second;
}

std::FILE *FileTable::prepared(int id, Use use)
{
    Entry &used = entry(id);
    // Changing between reading and writing is only defined with a positioning call between them.
    if (used.lastUse != Use::None && used.lastUse != use && !used.isPipe)
        std::fseek(used.file, 0, SEEK_CUR);
    used.lastUse = use;
    return used.file;
}

} // namespace mel
