// SPDX-License-Identifier: MIT
#include "standin/mel/builtins.h"

#include <algorithm>

namespace mel {

namespace {

// Columns, dash included; a longer short name pushes its line to the right.
constexpr size_t shortNameWidth = 5;

const char *kindWord(ArgumentKind kind)
{
    static const char *const words[] = {"on|off", "Int",  "UnsignedInt", "Float", "Length",
                                        "Angle",  "Time", "String",      "Name",  "Script"};
    return words[static_cast<int>(kind)];
}

std::string argumentWords(const Flag &flag)
{
    std::string text;
    for (const ArgumentKind kind : flag.arguments)
        text += (text.empty() ? "" : " ") + std::string(kindWord(kind));
    if (flag.multiUse)
        text += " (multi-use)";
    if (flag.queryArgument == QueryArgument::Mandatory)
        text += " (Query Arg Mandatory)";
    if (flag.queryArgument == QueryArgument::Optional)
        text += " (Query Arg Optional)";
    return text;
}

std::string paddedLeft(const std::string &text, size_t width)
{
    return std::string(width > text.size() ? width - text.size() : 0, ' ') + text;
}

// One line: the short name against the right end of its column, then the long one.
//   -ax -axis           Length Length Length
// A note such as "(multi-use)" without arguments before it brings its own blank.
std::string flagLine(const Flag &flag, size_t longWidth)
{
    const std::string names =
        paddedLeft("-" + flag.shortName, shortNameWidth) + " -" + flag.longName;
    const std::string words = argumentWords(flag);
    if (words.empty())
        return names + "\n";
    const size_t padding = longWidth - flag.longName.size() + 1;
    return names + std::string(padding, ' ') + (words[0] == ' ' ? "" : " ") + words + "\n";
}

std::string flagLines(const Command &command)
{
    std::vector<Flag> flags = command.flags;
    // Help lists by short name, whatever order the table has.
    std::sort(flags.begin(), flags.end(),
              [](const Flag &a, const Flag &b) { return a.shortName < b.shortName; });
    size_t longWidth = 0;
    for (const Flag &flag : flags)
        longWidth = std::max(longWidth, flag.longName.size());
    std::string text = "Flags:\n";
    text += command.editable ? "   -e -edit\n" : "";
    text += command.queryable ? "   -q -query\n" : "";
    for (const Flag &flag : flags)
        text += flagLine(flag, longWidth);
    return text;
}

} // namespace

std::string helpText(const Command &command, bool namesCommandType)
{
    const bool hasFlags = !command.flags.empty();
    std::string text = "Synopsis: " + command.name + (hasFlags ? " [flags]" : "");
    text += (command.objectSynopsis.empty() ? "" : " ") + command.objectSynopsis + "\n";
    if (hasFlags)
        text += flagLines(command);
    const bool runTime = command.kind == CommandKind::RunTimeCommand;
    if (namesCommandType)
        text += std::string("\nCommand Type: ") + (runTime ? "Run Time Command" : "Command") + "\n";
    return text;
}

} // namespace mel
