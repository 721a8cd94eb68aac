// SPDX-License-Identifier: MIT
#pragma once

#include <cstdio>
#include <map>
#include <string>

namespace mel {

// The files and pipes that scripts have open, by the number scripts know them by. Those still open
// are closed with the table.
class FileTable
{
public:
    FileTable() = default;
    ~FileTable();
    FileTable(const FileTable &) = delete;
    FileTable &operator=(const FileTable &) = delete;

    // These return 0 on failure.
    // `mode` as the C library's fopen takes it.
    int open(const std::string &path, const std::string &mode);
    // Through the shell. Any mode but "r" and "w" fails.
    int openPipe(const std::string &command, const std::string &mode);
    // Throws RuntimeError for an unknown number. What the system says, 0 when all went well.
    int close(int id);

    // The file, ready for reading or writing. Throws RuntimeError for an unknown number.
    std::FILE *forReading(int id) { return prepared(id, Use::Reading); }
    std::FILE *forWriting(int id) { return prepared(id, Use::Writing); }
    // The file as it is, for calls that neither read nor write.
    std::FILE *file(int id) { return entry(id).file; }

private:
    enum class Use { None, Reading, Writing };
    struct Entry
    {
        std::FILE *file = nullptr;
        bool isPipe = false;
        // A positioning call is due when it changes.
        Use lastUse = Use::None;
    };

    Entry &entry(int id);
    std::FILE *prepared(int id, Use use);
    int add(std::FILE *file, bool isPipe);
    static int closeEntry(const Entry &entry);

    std::map<int, Entry> m_entries;
    int m_lastId = 0;
};

} // namespace mel
