// SPDX-License-Identifier: MIT
#pragma once

#include "editor/linescanner.h"
#include "tests/fuzz/fuzzinput.h"

#include <QStringList>

#include <algorithm>
#include <set>

// What the properties have to know of a language.
struct ScannedLanguage
{
    int lastState;
    int commentState;                   // in which a line begins inside a comment; -2 for none
    std::vector<EditorText> enclosures; // strings and comments
};

inline const QHash<QString, QString> &fuzzNames()
{
    static const QHash<QString, QString> names = [] {
        QHash<QString, QString> table;
        for (const char *name : {"ls", "polyCube", "in", "2d"})
            table.insert(QString::fromLatin1(name), QString::fromLatin1(name));
        return table;
    }();
    return names;
}

inline bool isSame(const LineScan &a, const LineScan &b)
{
    return a.state == b.state && a.inComment == b.inComment && a.isAllCode == b.isAllCode &&
           a.mixedCode == b.mixedCode && a.brackets == b.brackets && a.spans == b.spans;
}

// The line without its strings and comments.
inline QString codeOf(QString line, const LineScan &scan, const ScannedLanguage &language)
{
    for (auto span = scan.spans.rbegin(); span != scan.spans.rend(); ++span) {
        if (std::count(language.enclosures.begin(), language.enclosures.end(), span->category))
            line.remove(span->start, span->length);
    }
    return line;
}

inline void requireSpans(const LineScan &scan, int size)
{
    int end = 0;
    EditorText category = EditorText::Plain;
    for (const FormatSpan &span : scan.spans) {
        require(span.category != EditorText::Plain, "a span has a colour");
        require(span.length > 0 && span.start >= end && span.length <= size - span.start,
                "spans lie in the line, each behind the one before");
        require(span.start > end || span.category != category,
                "no span touches one of its own category");
        end = span.start + span.length;
        category = span.category;
    }
}

inline void requireBrackets(const LineScan &scan, const QString &line)
{
    std::set<int> columns;
    for (const Bracket &bracket : scan.brackets) {
        require(bracket.column >= 0 && bracket.column < line.size(), "brackets lie in the line");
        require(line.at(bracket.column) == bracket.character,
                "a bracket is where it is said to be");
        columns.insert(bracket.column);
    }
    const auto isBracket = [](QChar unit) { return QString::fromLatin1("(){}[]").contains(unit); };
    const QString code = scan.code(line);
    const auto count = std::count_if(code.begin(), code.end(), isBracket);
    require(columns.size() == scan.brackets.size() && count == std::ptrdiff_t(columns.size()),
            "each bracket of the code is listed once");
}

inline void requireLine(const LineScan &scan, const QString &line, int before,
                        const ScannedLanguage &language)
{
    require(scan.state >= 0 && scan.state <= language.lastState,
            "the state is one of the language");
    require(scan.inComment == (before == language.commentState), "the state tells of a comment");
    requireSpans(scan, int(line.size()));
    require(scan.code(line) == codeOf(line, scan, language),
            "code is what is no string or comment");
    requireBrackets(scan, line);
}

template <typename Scanner>
void checkScanner(const QString &text, const ScannedLanguage &language)
{
    std::vector<TightText> lines;
    for (const QString &line : text.split(QLatin1Char('\n')))
        lines.emplace_back(line);
    Scanner scanner(fuzzNames());
    std::vector<int> states(1, -1);
    std::vector<LineScan> scans(lines.size());
    for (size_t i = 0; i < lines.size(); ++i) {
        scanner.scan(lines[i].text(), states.back(), scans[i]);
        requireLine(scans[i], lines[i].text(), states.back(), language);
        states.push_back(scans[i].state);
    }
    LineScan again; // holds another line's results each time
    for (size_t i = lines.size(); i-- > 0;) {
        scanner.scan(lines[i].text(), states[i], again);
        require(isSame(again, scans[i]), "a line's results do not depend on the line before");
        Scanner(fuzzNames()).scan(lines[i].text(), states[i], again);
        require(isSame(again, scans[i]), "a new scanner gives the same results");
    }
}
