// SPDX-License-Identifier: MIT
#include "editor/pythonscanner.h"

namespace {

const ScannerRules &rules()
{
    // Made at the first use and shared by all scanners.
    static const ScannerRules pythonRules(
        // opens, closes, category, may go on behind the line's end, state, whether a comment
        {{"'''", "'''", EditorText::PythonDocStrings, Enclosure::ManyLines, 3, false},
         {"\"\"\"", "\"\"\"", EditorText::PythonDocStrings, Enclosure::ManyLines, 4, false},
         {"'", "'", EditorText::PythonStrings, Enclosure::AfterBackslash, 1, false},
         {"\"", "\"", EditorText::PythonStrings, Enclosure::AfterBackslash, 2, false},
         {"#", nullptr, EditorText::PythonComments, Enclosure::ThisLine, 0, true}},
        {"False",  "None",  "True",   "and",  "as",     "assert", "break",   "class", "continue",
         "def",    "del",   "elif",   "else", "except", "exec",   "finally", "for",   "from",
         "global", "if",    "import", "in",   "is",     "lambda", "not",     "or",    "pass",
         "print",  "raise", "return", "try",  "while",  "with",   "yield"},
        EditorText::PythonNumbers);
    return pythonRules;
}

} // namespace

PythonScanner::PythonScanner(const QHash<QString, QString> &names) : LineScanner(rules(), names) {}

// What only the beginning of a line can say. An import that is continued on the next line is not
// followed there.
void PythonScanner::beginLine(int start)
{
    m_importedCommands = line().size();
    if (line().at(start) == '@')
        markDecorator(start);
    else if (line().startsWith("from", start))
        m_importedCommands = importedFrom(start + 4);
}

// @path.to.name(argument)
// |            |           the stretch, whatever its words are
void PythonScanner::markDecorator(int start)
{
    const int name = line().skipBlanks(start + 1);
    mark(start, line().skipPath(name), EditorText::PythonDecorators);
}

// from maya.cmds import ls, polyCube
//     |                |
// The line's end when it imports no commands.
int PythonScanner::importedFrom(int start) const
{
    const int module = line().skipBlanks(start);
    const int moduleEnd = line().skipPath(module);
    const bool isCmds = moduleEnd - module >= 4 && line().startsWith("cmds", moduleEnd - 4) &&
                        (moduleEnd - module == 4 || line().at(moduleEnd - 5) == '.');
    const int keyword = line().skipBlanks(moduleEnd);
    const bool imports = module > start && isCmds && line().startsWith("import", keyword);
    return imports ? keyword + 6 : line().size();
}

// What stands behind a dot is an attribute, whatever its name.
EditorText PythonScanner::wordCategory(int start, int end)
{
    const bool isAttribute = line().at(start - 1) == '.';
    const bool mayBeCommand = isAttribute ? isBehindCmds(start) : start >= m_importedCommands;
    if (mayBeCommand && isMelName(start, end))
        return EditorText::PythonMelCommands;
    const bool keyword = !isAttribute && isKeyword(start, end) && standsAlone(start, end);
    return keyword ? EditorText::PythonKeywords : EditorText::Plain;
}

// cmds.ls
//      |
bool PythonScanner::isBehindCmds(int start) const
{
    const int module = start - 5;
    return module >= 0 && line().startsWith("cmds.", module) && !line().isWord(module - 1);
}
