// SPDX-License-Identifier: MIT
#include "standin/mel/runtime.h"

#include "standin/mel/compiler.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace mel {

namespace {

// What cannot be asked about counts as missing.
bool isFile(const std::string &path)
{
    std::error_code ignored;
    return std::filesystem::is_regular_file(std::filesystem::u8path(path), ignored);
}

// The path itself or with the suffix that may be left out; "" when neither is a file.
std::string existing(const std::string &path)
{
    if (isFile(path))
        return path;
    return isFile(path + ".mel") ? path + ".mel" : "";
}

// Editors of other systems put the mark in front of what they save as UTF-8.
std::string withoutByteOrderMark(std::string text)
{
    const std::string_view mark = "\xEF\xBB\xBF";
    if (text.compare(0, mark.size(), mark) == 0)
        text.erase(0, mark.size());
    return text;
}

// Messages always name the suffix, whichever way the script was asked for.
std::string withSuffix(const std::string &name)
{
    const bool has = name.size() > 4 && name.compare(name.size() - 4, 4, ".mel") == 0;
    return has ? name : name + ".mel";
}

} // namespace

// Notes a file while it is compiled, so that sourcing it from within does not go round in circles.
class Runtime::CompileScope
{
public:
    CompileScope(Runtime &runtime, const std::string &path, const Place &from) : m_runtime(runtime)
    {
        m_runtime.m_compiling.push_back({path, from});
    }
    ~CompileScope() { m_runtime.m_compiling.pop_back(); }
    CompileScope(const CompileScope &) = delete;
    CompileScope &operator=(const CompileScope &) = delete;

private:
    Runtime &m_runtime;
};

// Absolute as given, else the first folder of the path that has it.
std::string Runtime::findScript(const std::string &name) const
{
    // The system would cut the name at a NUL and open another file.
    if (name.empty() || name.find('\0') != std::string::npos)
        return {};
    std::string found;
    if (std::filesystem::u8path(name).is_absolute()) {
        found = existing(name);
    } else {
        // Asked anew each time: the program may change the path while scripts run.
        for (const std::string &folder : host.scriptPath()) {
            std::string path = folder;
            if (path.empty() || path.back() != '/')
                path += '/';
            found = existing(path + name);
            if (!found.empty())
                break;
        }
    }
    // Elsewhere a backslash is a character like any other of a name.
    if constexpr (std::filesystem::path::preferred_separator == '\\')
        std::replace(found.begin(), found.end(), '\\', '/');
    return found;
}

bool Runtime::isBeingCompiled(const std::string &name) const
{
    const std::string path = findScript(name);
    return std::any_of(m_compiling.begin(), m_compiling.end(),
                       [&path](const Compiling &compiling) { return compiling.path == path; });
}

void Runtime::compileWarning(const std::string &sourceLine, const std::string &located)
{
    // Line 0 stands for a file that the program sources, which has no place to name.
    const bool sourced = !m_compiling.empty() && m_compiling.back().from.line > 0;
    report(MessageKind::Warning, sourceLine);
    report(MessageKind::Warning,
           (sourced && settings.lineNumbers ? m_compiling.back().from.prefix() : "") + located);
}

// Read as bytes: offsets and columns would shift if line ends were translated.
std::unique_ptr<Unit> Runtime::compileFile(const std::string &name, const Place &from)
{
    const std::string path = findScript(name);
    std::ifstream file(path, std::ios::binary);
    if (path.empty() || !file)
        throw CompileError("Cannot find file \"" + withSuffix(name) + "\" for source statement.");
    std::ostringstream bytes;
    bytes << file.rdbuf();
    const CompileScope scope(*this, path, from);
    checkStack();
    return compileSource(*this,
                         std::make_shared<Source>(Source{path, withoutByteOrderMark(bytes.str())}));
}

} // namespace mel
