// SPDX-License-Identifier: MIT
#pragma once

#include "editor/linescan.h"
#include "editor/scannerrules.h"

#include <QHash>
#include <QSet>
#include <QString>

#include <vector>

// Tells code from strings and comments, and what to colour, one line at a time: from the line and
// the state in which the line above ended. Knows no document; keeps nothing between lines but room.
// Positions are 0-based UTF-16 units of the line. Takes time linear in the line.
class LineScanner
{
public:
    // The keys of `names` are MEL's commands. Both must outlive the scanner.
    LineScanner(const ScannerRules &rules, const QHash<QString, QString> &names);
    virtual ~LineScanner();

    // `text` holds no line break. Fills `result`, whatever it held. A previous state that is none
    // of the language's, as the -1 of a fresh block, counts as code.
    void scan(const QString &text, int previousState, LineScan &result);

protected:
    // Called first, with the unit that is no blank, or with the line's end when it is not in code.
    virtual void beginLine(int start);
    // Of a word of ASCII characters in code, not behind "$" or "-"; Plain when it has no colour.
    virtual EditorText wordCategory(int start, int end) = 0;

    const SourceCursor &line() const { return m_line; }
    bool isKeyword(int start, int end) const { return m_rules.isKeyword(m_line, start, end); }
    // Whether the host knows the name; false for all when there is no host.
    bool isMelName(int start, int end);
    // Deliberate: "word-1" has the colour of its word only if the line holds that alone as well.
    bool standsAlone(int start, int end);
    // From left to right; what is marked already keeps its category.
    void mark(int start, int end, EditorText category);

private:
    // From the start of a stretch of code; what lies before `from` is blank.
    void scanCode(int codeStart, int from);
    int scanWord(int start);
    void markNumber(int start);
    void noteWords();

    // Where code goes on behind the one that begins at `start`, or is carried on from the line
    // above; the line's end when it does not.
    int scanEnclosure(const Enclosure &enclosure, int start, int searchFrom);
    int closing(const Enclosure &enclosure, int from) const;
    void addCode(int start, int end);
    void addBrackets();
    void keepCode();

    const ScannerRules &m_rules;
    const QHash<QString, QString> &m_names;
    SourceCursor m_line; // the line at hand; like the next two good during scan() only
    const QString *m_text = nullptr;
    LineScan *m_result = nullptr;
    int m_markedEnd = 0;             // of the last span
    int m_numberEnd = 0;             // of the last number, which may reach into the next word: 1.2
    std::vector<Bracket> m_brackets; // of the stretch of code at hand
    int m_codeStart = 0;             // of the line's code while it is one stretch; then -1
    int m_codeSize = 0;
    QString m_code;            // room for the code of several stretches, up to m_codeSize
    QString m_word;            // room for the word that is looked up
    bool m_knowsWords = false; // of this line; collected when first asked for
    QSet<QString> m_words;     // what the line holds between the marks that part words
};
