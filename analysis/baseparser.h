// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/diagnosticlist.h"
#include "analysis/outlineitem.h"
#include "analysis/sourcecursor.h"

#include <QFileInfo>
#include <QList>
#include <QString>

// What both script parsers share: their results, how errors are reported, and the scans that are
// the same in both languages. A parser scans the whole text at each run; its results stand until
// the next. It knows no widget; what it records depends on the preferences, so it is for the GUI
// thread. Positions are those of DiagnosticList, and fit the editor's document as well: its blocks
// are one unit apart, like the lines of the text.
class BaseParser
{
public:
    virtual ~BaseParser();

    // Replaces the results. `filePath` names the text and is not read; empty for a buffer without a
    // file. Never fails: what cannot be understood is skipped or reported.
    virtual void parse(const QString &text, const QString &filePath) = 0;
    // Drops all results, the file among them.
    virtual void clear();
    // A parser may record these or leave them out, as the preferences say.
    virtual void addError(const QString &message, int start, int end);
    virtual void addWarning(const QString &message, int start, int end);
    virtual void addTodo(const QString &message, int start, int end);
    // Deliberate: only the first bracket that is missing or too many is an error; the later ones
    // follow from it.
    virtual void reportExpected(QChar character, int start, int end);
    virtual void reportUnexpected(QChar character, int start, int end);

    // `kind` is an OutlineKind.
    void addOutlineItem(int kind, const QString &name, int position, int depth);

    // In the order of the text.
    const QList<OutlineItem> &outlineItems() const { return m_outlineItems; }
    const DiagnosticList &errors() const { return m_errors; }
    const DiagnosticList &warnings() const { return m_warnings; }
    const DiagnosticList &todos() const { return m_todos; }
    // The file handed to parse(); none after clear().
    const QFileInfo &file() const { return m_file; }

protected:
    BaseParser() = default;
    BaseParser(const BaseParser &) = default;
    BaseParser &operator=(const BaseParser &) = default;

    // The document's text as both parsers read it: line feeds between blocks and one at the end, so
    // that every line has an end. No position moves.
    static QString prepared(const QString &text);

    void setFile(const QString &path) { m_file = QFileInfo(path); }

    // Counts a closing bracket. False, after an error, when none of its kind is open.
    bool closeBracket(char bracket, int &depth);
    // From the opening quote to the closing one, or, with an error, to the end of the line. A
    // backslash before the end of a line continues the string on the next.
    void scanString();
    // Looks for a note from the cursor to `end`, or to the end of the text when that is -1.
    void noteTodo(int end);

    SourceCursor m_cursor; // on the prepared text while parse() runs, else on none
    int m_parens = 0;      // open ones; never negative
    int m_braces = 0;
    int m_brackets = 0;

private:
    void reportBracket(const char *message, QChar character, int start, int end);

    QList<OutlineItem> m_outlineItems;
    DiagnosticList m_errors;
    DiagnosticList m_warnings;
    DiagnosticList m_todos;
    QFileInfo m_file;
    bool m_bracketErrorReported = false; // also when addError() left it out
};
