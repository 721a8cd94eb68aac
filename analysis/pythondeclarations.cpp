// SPDX-License-Identifier: MIT
// What a line of Python declares. Each function looks from the cursor, which is at the first unit
// of the line that is not indentation, no farther than the line's end; those that others depend on
// say whether they found what they are named for.
#include "analysis/pythonparser.h"

#include "analysis/wordtree.h"

namespace {

// Behind the word and the blanks that have to follow it, or -1.
int behindWord(const SourceCursor &cursor, const char *word, int from)
{
    if (!cursor.startsWith(word, from))
        return -1;
    const int end = from + int(qstrlen(word));
    const int next = cursor.skipBlanks(end);
    return next > end ? next : -1;
}

} // namespace

// At the depth of the block that the line is in; a definition's own block opens with the line
// below.
void PythonParser::addItem(OutlineKind kind, const QString &name, int position)
{
    addOutlineItem(kind, name, position, m_blocks.depth());
}

// @staticmethod
// |            |   the text between is kept as written
void PythonParser::decorator()
{
    const int end = m_cursor.lineEnd(m_cursor.position());
    m_decorators.push_back({m_cursor.position() + 1, end});
    m_cursor.moveTo(end);
    startLine();
}

// def name(
//     |   |    name and end; the cursor is left on the unit before the end
bool PythonParser::definition()
{
    const int name = behindWord(m_cursor, "def", m_cursor.position());
    const int end = name < 0 ? name : m_cursor.skipName(name);
    if (end == name)
        return false;
    resetBlocksAtMargin(); // before the item takes its depth
    addItem(methodKind(), m_cursor.text(name, end), name);
    m_cursor.moveTo(end - 1);
    return true;
}

// Of two decorators the one nearer to the definition counts. Deliberate: they are compared as they
// are written, so a blank or an argument makes another decorator of it.
OutlineKind PythonParser::methodKind() const
{
    for (auto span = m_decorators.rbegin(); span != m_decorators.rend(); ++span) {
        if (m_cursor.isText("staticmethod", span->start, span->end))
            return StaticMethodItem;
        if (m_cursor.isText("classmethod", span->start, span->end))
            return ClassMethodItem;
    }
    return FunctionItem;
}

// Deliberate: unlike "def", the word may be followed by any white space of the line.
bool PythonParser::classDefinition()
{
    const int position = m_cursor.position();
    if (!m_cursor.startsWith("class", position))
        return false;
    const int name = m_cursor.skipLineSpace(position + 5);
    const int end = m_cursor.skipName(name);
    if (name == position + 5 || end == name)
        return false;
    resetBlocksAtMargin();
    addItem(ClassItem, m_cursor.text(name, end), name);
    m_cursor.moveTo(end - 1);
    return true;
}

// Deliberate: listed only with blanks around "==" and the name on its left.
void PythonParser::mainBlock()
{
    int end = mainBlockEnd('"');
    if (end < 0)
        end = mainBlockEnd('\'');
    if (end < 0)
        return;
    resetBlocksAtMargin();
    const QString name = QString::fromLatin1("__main__");
    addItem(MainBlockItem, name, end - int(name.size()) - 1);
    m_cursor.moveTo(end - 1);
}

// if __name__ == "__main__"
//                          |
int PythonParser::mainBlockEnd(char quote) const
{
    int next = m_cursor.position();
    for (const char *word : {"if", "__name__", "=="}) {
        next = behindWord(m_cursor, word, next);
        if (next < 0)
            return -1;
    }
    const int end = next + 10; // the name and its quotes
    const bool fits = m_cursor.at(next) == ushort(quote) &&
                      m_cursor.startsWith("__main__", next + 1) &&
                      m_cursor.at(end - 1) == ushort(quote);
    return fits ? end : -1;
}

// A statement with "as" behind its first module is an import of that one; any other, where "as" may
// stand later on, is a list.
bool PythonParser::import()
{
    const int start = behindWord(m_cursor, "import", m_cursor.position());
    if (start < 0)
        return false;
    const int moduleEnd = m_cursor.skipPath(start);
    const int as = m_cursor.skipBlanks(moduleEnd);
    const int alias = moduleEnd > start && as > moduleEnd ? behindWord(m_cursor, "as", as) : -1;
    return alias < 0 ? importList(start) : importAs({start, moduleEnd}, alias);
}

// import os.path as path
//                   |      aliasStart
bool PythonParser::importAs(const Span &module, int aliasStart)
{
    const Span alias = trimmed(restOfStatement(aliasStart));
    if (!isPath(alias))
        return false;
    addItem(ImportAliasItem, text(alias) + QLatin1String(" = ") + text(module), alias.start);
    return true;
}

// import os, sys as system    nothing: one part that is no path takes the others with it
bool PythonParser::importList(int start)
{
    const Spans names = listed(restOfStatement(start));
    for (const Span &name : names) {
        if (!isPath(name))
            return false;
    }
    addNames(ImportItem, names, m_cursor.position() + 6, QString());
    return true;
}

// from os import path, sep
//      | |       |          module, moduleEnd and start
void PythonParser::fromImport()
{
    const int module = behindWord(m_cursor, "from", m_cursor.position());
    const int moduleEnd = module < 0 ? module : m_cursor.skipPath(module);
    const int keyword = m_cursor.skipBlanks(moduleEnd);
    const int start =
        moduleEnd > module && keyword > moduleEnd ? behindWord(m_cursor, "import", keyword) : -1;
    if (start < 0)
        return;
    const Spans names = listed(restOfStatement(start));
    // Deliberate: a name alone is listed whatever it is, "(" too.
    for (const Span &name : names) {
        if (names.size() > 1 && !isPath(name) && !m_cursor.isText("*", name.start, name.end))
            return;
    }
    addNames(ImportedNameItem, names, keyword + 6,
             QLatin1String(" (") + text({module, moduleEnd}) + QLatin1Char(')'));
}

// Deliberate: an item stands where its text is first found, be that inside a longer name. One pass
// looks for all: a pass for each would make a long list slow.
void PythonParser::addNames(OutlineKind kind, const Spans &names, int searchStart,
                            const QString &suffix)
{
    if (names.empty())
        return;
    if (names.size() == 1) // before it are only blanks
        return addItem(kind, text(names[0]) + suffix, names[0].start);
    WordTree tree;
    std::vector<int> words;
    for (const Span &name : names)
        words.push_back(tree.add(m_cursor.sharedText(name.start, name.end)));
    tree.search(m_cursor.sharedText(searchStart, names.back().end));
    for (size_t i = 0; i < names.size(); ++i) {
        const int length = names[i].end - names[i].start;
        addItem(kind, text(names[i]) + suffix, searchStart + tree.firstEnd(words[i]) - length);
    }
}

QString PythonParser::text(const Span &span) const
{
    return m_cursor.text(span.start, span.end);
}

// From `start` to the end of the line or a comment.
PythonParser::Span PythonParser::restOfStatement(int start) const
{
    return {start, qMax(start, m_cursor.findEither('#', '\n', start))};
}

// Any white space goes, as with QString::trimmed(), but nothing is copied.
PythonParser::Span PythonParser::trimmed(Span span) const
{
    while (span.start < span.end && m_cursor.isSpace(span.start))
        ++span.start;
    while (span.start < span.end && m_cursor.isSpace(span.end - 1))
        --span.end;
    return span;
}

// The parts between commas, but for those of white space.
PythonParser::Spans PythonParser::listed(const Span &span) const
{
    Spans parts;
    int start = span.start;
    for (int i = span.start; i <= span.end; ++i) {
        if (i < span.end && m_cursor.at(i) != ',')
            continue;
        const Span part = trimmed({start, i});
        if (part.start < part.end)
            parts.push_back(part);
        start = i + 1;
    }
    return parts;
}

// Names and dots only; true for an empty stretch.
bool PythonParser::isPath(const Span &span) const
{
    return m_cursor.skipPath(span.start) >= span.end;
}
