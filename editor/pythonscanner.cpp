// SPDX-License-Identifier: MIT
#include "editor/pythonscanner.h"

namespace {

const ScannerRules &rules()
{
    static const ScannerRules pythonRules = {
        {{"'''", "'''", EditorText::PythonDocStrings, Enclosure::ManyLines, 3, false},
         {"\"\"\"", "\"\"\"", EditorText::PythonDocStrings, Enclosure::ManyLines, 4, false},
         {"'", "'", EditorText::PythonStrings, Enclosure::AfterBackslash, 1, false},
         {"\"", "\"", EditorText::PythonStrings, Enclosure::AfterBackslash, 2, false},
         {"#", nullptr, EditorText::PythonComments, Enclosure::ThisLine, 0, true}},
        {"False",  "None",  "True",   "and",  "as",     "assert", "break",   "class", "continue",
         "def",    "del",   "elif",   "else", "except", "exec",   "finally", "for",   "from",
         "global", "if",    "import", "in",   "is",     "lambda", "not",     "or",    "pass",
         "print",  "raise", "return", "try",  "while",  "with",   "yield"},
        EditorText::PythonKeywords,
        EditorText::PythonNumbers};
    return pythonRules;
}

} // namespace

PythonScanner::PythonScanner(const QHash<QString, QString> &names) : LineScanner(rules(), names) {}

// What stands behind a dot is an attribute, whatever its name.
bool PythonScanner::markWord(int start, int end)
{
    if (line().at(start - 1) != '.')
        return LineScanner::markWord(start, end);
    if (!isBehindCmds(start) || !isMelName(start, end))
        return false;
    mark(start, end, EditorText::PythonMelCommands);
    return true;
}

// cmds.ls
//      |
bool PythonScanner::isBehindCmds(int start) const
{
    const int module = start - 5;
    return module >= 0 && line().startsWith("cmds.", module) &&
           (module == 0 || !line().isWord(module - 1));
}

void PythonScanner::markLine()
{
    const int start = line().skipBlanks(0);
    if (line().at(start) == '@')
        markDecorator(start);
    else if (line().startsWith("from", start))
        markImportedCommands(start + 4);
}

void PythonScanner::markDecorator(int start)
{
    const int name = line().skipBlanks(start + 1);
    mark(start, line().skipPath(name), EditorText::PythonDecorators);
}

// from maya.cmds import ls, polyCube
//     |
void PythonScanner::markImportedCommands(int start)
{
    const int module = line().skipBlanks(start);
    const int moduleEnd = line().skipPath(module);
    const bool isCmds = moduleEnd - module >= 4 && line().startsWith("cmds", moduleEnd - 4) &&
                        (moduleEnd - module == 4 || line().at(moduleEnd - 5) == '.');
    const int keyword = line().skipBlanks(moduleEnd);
    if (module == start || !isCmds || !line().startsWith("import", keyword))
        return;
    for (int i = keyword + 6; i < line().size();) {
        const int end = line().skipName(i);
        if (end > i && isMelName(i, end))
            mark(i, end, EditorText::PythonMelCommands);
        i = end > i ? end : i + 1;
    }
}
