// SPDX-License-Identifier: MIT
#include "standin/mel/builtins.h"

#include "standin/mel/pattern.h"
#include "standin/mel/runtime.h"

#include <algorithm>
#include <filesystem>
#include <functional>

#include <sys/stat.h>
#include <unistd.h>

namespace mel {

namespace {

namespace fs = std::filesystem;

// `status` follows links, `link` does not.
struct FileTest
{
    const char *flag;
    bool (*passes)(const char *path, const struct stat &status, const struct stat &link);
};

using Status = struct stat;

// r, w and x ask what this process may do, not what the permission bits say.
const FileTest fileTests[] = {
    {"d",
     [](const char *, const Status &status, const Status &) { return S_ISDIR(status.st_mode); }},
    {"e", [](const char *, const Status &, const Status &) { return true; }},
    {"f",
     [](const char *, const Status &status, const Status &) { return S_ISREG(status.st_mode); }},
    {"r", [](const char *path, const Status &, const Status &) { return access(path, R_OK) == 0; }},
    {"w", [](const char *path, const Status &, const Status &) { return access(path, W_OK) == 0; }},
    {"x", [](const char *path, const Status &, const Status &) { return access(path, X_OK) == 0; }},
    {"s", [](const char *, const Status &status, const Status &) { return status.st_size > 0; }},
    {"z", [](const char *, const Status &status, const Status &) { return status.st_size == 0; }},
    {"l", [](const char *, const Status &, const Status &link) { return S_ISLNK(link.st_mode); }},
    {"L", [](const char *, const Status &, const Status &link) { return S_ISLNK(link.st_mode); }},
    {"h", [](const char *, const Status &, const Status &link) { return S_ISLNK(link.st_mode); }},
    {"b",
     [](const char *, const Status &status, const Status &) { return S_ISBLK(status.st_mode); }},
    {"c",
     [](const char *, const Status &status, const Status &) { return S_ISCHR(status.st_mode); }},
    {"p",
     [](const char *, const Status &status, const Status &) { return S_ISFIFO(status.st_mode); }},
    {"g", [](const char *, const Status &status,
             const Status &) { return (status.st_mode & S_ISGID) != 0; }},
    {"k", [](const char *, const Status &status,
             const Status &) { return (status.st_mode & S_ISVTX) != 0; }},
    {"u", [](const char *, const Status &status,
             const Status &) { return (status.st_mode & S_ISUID) != 0; }},
};

// A missing path answers 0 to every test, -z included.
Value filetest(Runtime &, Call &call)
{
    const std::string path = call.objectText(0);
    if (call.flags.empty())
        throw RuntimeError("filetest needs a flag that says what to test.");
    // Only the first flag counts.
    const std::string &flag = call.flags.front().flag->shortName;
    Status status = {};
    Status link = {};
    const bool linkExists = lstat(path.c_str(), &link) == 0;
    const bool exists = stat(path.c_str(), &status) == 0;
    for (const FileTest &test : fileTests) {
        // A link may be asked for although what it points to is gone.
        if (flag == test.flag)
            return (exists || (linkExists && S_ISLNK(link.st_mode))) &&
                           test.passes(path.c_str(), status, link)
                       ? 1
                       : 0;
    }
    return 0;
}

// Sorted, because the order of a folder differs between file systems. A folder that cannot be read
// is empty.
Value getFileList(Runtime &, Call &call)
{
    const std::string glob = call.text("filespec", "*");
    std::vector<std::string> names;
    std::error_code failure;
    fs::directory_iterator entry(fs::u8path(call.text("folder", ".")), failure);
    for (const fs::directory_iterator end; !failure && entry != end; entry.increment(failure)) {
        const std::string name = entry->path().filename().u8string();
        if (matchesGlob(name, glob))
            names.push_back(name);
    }
    std::sort(names.begin(), names.end());
    return names;
}

// What fails says so through `failure`, which a script sees as 0, not as an error.
struct FileAction
{
    const char *flag;
    void (*run)(const fs::path &argument, const fs::path &object, std::error_code &failure);
};

// rename and move are one action here: both may change folder.
void renameFile(const fs::path &newName, const fs::path &oldName, std::error_code &failure)
{
    fs::rename(oldName, newName, failure);
}

const FileAction fileActions[] = {
    {"makeDir", [](const fs::path &path, const fs::path &,
                   std::error_code &failure) { fs::create_directories(path, failure); }},
    // Deliberate: refuses folders, which removeEmptyDir takes.
    {"delete",
     [](const fs::path &path, const fs::path &, std::error_code &failure) {
         if (fs::is_directory(path, failure) || !fs::remove(path, failure))
             failure = std::make_error_code(std::errc::invalid_argument);
     }},
    {"removeEmptyDir",
     [](const fs::path &path, const fs::path &, std::error_code &failure) {
         if (!fs::is_directory(path, failure) || !fs::remove(path, failure))
             failure = std::make_error_code(std::errc::invalid_argument);
     }},
    {"rename", renameFile},
    {"move", renameFile},
    {"copy",
     [](const fs::path &newName, const fs::path &oldName, std::error_code &failure) {
         fs::copy_file(oldName, newName, fs::copy_options::overwrite_existing, failure);
     }},
};

// The path to act on is the object; those flags that make a second one take it as their argument.
// When several are given, the first of the table wins.
Value sysFile(Runtime &, Call &call)
{
    for (const FileAction &action : fileActions) {
        if (!call.isSet(action.flag))
            continue;
        const std::string object = call.objectText(0);
        const bool hasArgument = !call.find(action.flag)->arguments.empty();
        const std::string target = hasArgument ? call.text(action.flag) : object;
        std::error_code failure;
        action.run(fs::u8path(target), fs::u8path(object), failure);
        return failure ? 0 : 1;
    }
    throw RuntimeError("sysFile needs a flag that says what to do.");
}

const CommandRow rows[] = {
    {"filetest",
     filetest,
     {{"b", ""},
      {"c", ""},
      {"d", ""},
      {"e", ""},
      {"f", ""},
      {"g", ""},
      {"h", ""},
      {"k", ""},
      {"l", ""},
      {"L", ""},
      {"p", ""},
      {"r", ""},
      {"s", ""},
      {"u", ""},
      {"w", ""},
      {"x", ""},
      {"z", ""}},
     "String"},
    {"getFileList",
     getFileList,
     {{"fld", "folder", {ArgumentKind::String}}, {"fs", "filespec", {ArgumentKind::String}}},
     ""},
    {"sysFile",
     sysFile,
     {{"cp", "copy", {ArgumentKind::String}},
      {"del", "delete"},
      {"md", "makeDir"},
      {"mov", "move", {ArgumentKind::String}},
      {"red", "removeEmptyDir"},
      {"ren", "rename", {ArgumentKind::String}}},
     "String"},
};

} // namespace

CommandRows fileCommands()
{
    return {rows, std::size(rows)};
}

} // namespace mel
