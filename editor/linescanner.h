// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/sourcecursor.h"
#include "editor/linescan.h"

#include <QHash>
#include <QSet>
#include <QString>

#include <string_view>
#include <vector>

// A string or comment of a language.
struct Enclosure
{
    // How it goes on at the end of a line that does not close it.
    enum Extent { ThisLine, AfterBackslash, ManyLines };

    const char *open;
    const char *close; // null when the end of the line closes it
    EditorText category;
    Extent extent;
    int state; // of a line that ends inside it
    bool isComment;
};

// What of a language is a table. The longer of two enclosures that begin alike comes first; the
// keywords are sorted.
struct ScannerRules
{
    std::vector<Enclosure> enclosures;
    std::vector<std::string_view> keywords;
    EditorText keywordCategory;
    EditorText numberCategory;
};

// Tells code from strings and comments, and what to colour, one line at a time: from the line and
// the state in which the line above ended. Knows no document; keeps nothing between lines but room.
class LineScanner
{
public:
    // The keys of `names`, which must outlive the scanner, are MEL's commands.
    LineScanner(const ScannerRules &rules, const QHash<QString, QString> &names);
    virtual ~LineScanner();

    // `text` holds no line break. Fills `result`, whatever it held.
    void scan(const QString &text, int previousState, LineScan &result);

protected:
    // A whole word of ASCII characters, not behind "$" or "-". The base marks keywords.
    virtual bool markWord(int start, int end);
    // Colours what is no matter of single words.
    virtual void markLine();

    const SourceCursor &line() const { return m_line; }
    bool isMelName(int start, int end) const;
    void mark(int start, int end, EditorText category);

private:
    void markTokens();
    int markToken(int start);
    void markNumber(int start);
    bool standsAlone(int start, int end);
    bool isKeyword(int start, int end) const;

    void separate(int previousState, LineScan &result);
    const Enclosure *opening(int from, int &start) const;
    int closing(const Enclosure &enclosure, int from) const;
    void addCode(int start, int end, LineScan &result) const;
    void addSpans(LineScan &result) const;

    const ScannerRules &m_rules;
    const QHash<QString, QString> &m_names;
    SourceCursor m_line;
    std::vector<unsigned char> m_marks; // each unit's category
    int m_numberEnd = 0;
    bool m_knowsWords = false;
    QSet<QString> m_words; // what the line holds between the marks that part words
};
