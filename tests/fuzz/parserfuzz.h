// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/baseparser.h"
#include "tests/fuzz/fuzzinput.h"

// Keeps everything that is reported, whatever the parser and the preferences make of it.
template <typename Parser>
class Recorded : public Parser
{
public:
    void addError(const QString &message, int start, int end) override
    {
        BaseParser::addError(message, start, end);
    }
    void addWarning(const QString &message, int start, int end) override
    {
        BaseParser::addWarning(message, start, end);
    }
    void addTodo(const QString &message, int start, int end) override
    {
        BaseParser::addTodo(message, start, end);
    }
};

// What of an item's name stands in the text.
inline QString writtenName(const OutlineItem &item)
{
    switch (item.kind) {
    case ImportAliasItem:
        return item.name.left(item.name.indexOf(QLatin1String(" = ")));
    case ImportedNameItem:
        return item.name.left(item.name.lastIndexOf(QLatin1String(" (")));
    default:
        return item.name;
    }
}

inline void requireOutline(const BaseParser &parser, const QString &text)
{
    for (const OutlineItem &item : parser.outlineItems()) {
        const QString name = writtenName(item);
        require(item.kind >= GlobalProcedureItem && item.kind <= ClassItem, "an item has a kind");
        require(item.depth >= 0, "no item is above the top level");
        require(!item.name.isEmpty(), "an item has a name");
        require(item.position >= 0 && text.mid(item.position, name.size()) == name,
                "an item's name stands at its position");
    }
}

inline void requireFirstPlaces(const BaseParser &parser, const QString &text)
{
    for (const OutlineItem &item : parser.outlineItems()) {
        if (item.kind != ImportItem)
            continue;
        const QString word = QString::fromLatin1("import");
        const int line = int(text.lastIndexOf(QLatin1Char('\n'), item.position)) + 1;
        const int names = int(text.indexOf(word, line) + word.size());
        require(text.indexOf(item.name, names) == item.position,
                "an imported module stands where its name is first found");
    }
}

// The parsed text is longer by a line feed than the one given.
inline void requireInside(const DiagnosticList &list, int size)
{
    require(list.starts.size() == list.count() && list.ends.size() == list.count(),
            "the three lists of diagnostics are of equal length");
    for (int i = 0; i < list.count(); ++i) {
        const int start = list.starts[i];
        const int end = list.ends[i];
        require(!list.messages[i].isEmpty(), "a diagnostic says something");
        require(start >= 0 && start <= size, "a diagnostic starts in the text");
        require(end == -1 || (end >= start && end <= size + 1), "a diagnostic ends in the text");
    }
}

inline bool sameResults(const BaseParser &a, const BaseParser &b)
{
    return a.outlineItems() == b.outlineItems() && a.errors() == b.errors() &&
           a.warnings() == b.warnings() && a.todos() == b.todos();
}

template <typename Parser>
void checkParser(const QString &text)
{
    const int size = int(text.size());
    Recorded<Parser> parser;
    parser.parse(text, QString());
    requireOutline(parser, text);
    requireInside(parser.errors(), size);
    requireInside(parser.warnings(), size);
    requireInside(parser.todos(), size);

    QString lines = text;
    lines.replace(QChar(QChar::ParagraphSeparator), QLatin1Char('\n'));
    requireFirstPlaces(parser, lines);
    Recorded<Parser> used;
    used.parse(text.mid(size / 2), QString());
    used.parse(text, QString());
    require(sameResults(parser, used), "a parser keeps nothing of the text before");

    used.parse(lines, QString());
    require(sameResults(parser, used), "a paragraph separator is a line feed");
}
