// SPDX-License-Identifier: MIT
#include "editor/melscanner.h"

namespace {

const ScannerRules &rules()
{
    // Made at the first use and shared by all scanners.
    static const ScannerRules melRules(
        // opens, closes, category, may go on behind the line's end, state, whether a comment
        {{"\"", "\"", EditorText::MelStrings, Enclosure::AfterBackslash, 1, false},
         {"/*", "*/", EditorText::MelComments, Enclosure::ManyLines, 2, true},
         {"//", nullptr, EditorText::MelComments, Enclosure::ThisLine, 0, true}},
        {"break",  "case",   "continue", "default", "do",     "else",  "false", "float", "for",
         "global", "if",     "in",       "int",     "matrix", "no",    "off",   "on",    "proc",
         "return", "string", "switch",   "true",    "vector", "while", "yes"},
        EditorText::MelNumbers);
    return melRules;
}

} // namespace

MelScanner::MelScanner(const QHash<QString, QString> &names) : LineScanner(rules(), names) {}

const std::vector<std::string_view> &MelScanner::keywords()
{
    return rules().keywords();
}

// A name that is both has the colour of the keyword.
EditorText MelScanner::wordCategory(int start, int end)
{
    const bool keyword = isKeyword(start, end);
    if ((!keyword && !isMelName(start, end)) || !standsAlone(start, end))
        return EditorText::Plain;
    return keyword ? EditorText::MelKeywords : EditorText::MelCommands;
}
