// SPDX-License-Identifier: MIT
#include "editor/melscanner.h"

namespace {

const ScannerRules &rules()
{
    static const ScannerRules melRules = {
        {{"\"", "\"", EditorText::MelStrings, Enclosure::AfterBackslash, 1, false},
         {"/*", "*/", EditorText::MelComments, Enclosure::ManyLines, 2, true},
         {"//", nullptr, EditorText::MelComments, Enclosure::ThisLine, 0, true}},
        {"break",  "case",   "continue", "default", "do",     "else",  "false", "float", "for",
         "global", "if",     "in",       "int",     "matrix", "no",    "off",   "on",    "proc",
         "return", "string", "switch",   "true",    "vector", "while", "yes"},
        EditorText::MelKeywords,
        EditorText::MelNumbers};
    return melRules;
}

} // namespace

MelScanner::MelScanner(const QHash<QString, QString> &names) : LineScanner(rules(), names) {}

bool MelScanner::markWord(int start, int end)
{
    if (LineScanner::markWord(start, end))
        return true;
    if (!isMelName(start, end))
        return false;
    mark(start, end, EditorText::MelCommands);
    return true;
}
