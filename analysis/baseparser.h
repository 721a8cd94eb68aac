// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/diagnosticlist.h"
#include "analysis/outlineitem.h"
#include "analysis/sourcecursor.h"

#include <QFileInfo>
#include <QList>
#include <QString>

// What both script parsers share: their results, and how errors are reported. A parser scans the
// whole text at each run; its results stand until the next.
class BaseParser
{
public:
    virtual ~BaseParser();

    // `filePath` may be empty, for a buffer without a file.
    virtual void parse(const QString &text, const QString &filePath) = 0;
    virtual void clear();
    virtual void addError(const QString &message, int start, int end);
    virtual void addWarning(const QString &message, int start, int end);
    virtual void addTodo(const QString &message, int start, int end);
    // Only the first bracket that is missing or too many is an error; the later ones follow from
    // it.
    virtual void reportExpected(QChar character, int start, int end);
    virtual void reportUnexpected(QChar character, int start, int end);

    void addOutlineItem(int kind, const QString &name, int position, int depth);

    // In the order of the text.
    const QList<OutlineItem> &outlineItems() const { return m_outlineItems; }
    const DiagnosticList &errors() const { return m_errors; }
    const DiagnosticList &warnings() const { return m_warnings; }
    const DiagnosticList &todos() const { return m_todos; }
    const QFileInfo &file() const { return m_file; }

protected:
    BaseParser() = default;
    BaseParser(const BaseParser &) = default;
    BaseParser &operator=(const BaseParser &) = default;

    // The document's text as both parsers read it: line feeds between blocks and one at the end.
    static QString prepared(const QString &text);

    void setFile(const QString &path) { m_file = QFileInfo(path); }

    // Counts a closing bracket. False, after an error, when none of its kind is open.
    bool closeBracket(char bracket, int &depth);
    // From the opening quote to the closing one, or, with an error, to the end of the line. A
    // backslash before the end of a line continues the string on the next.
    void scanString();
    // Looks for a note from the cursor to `end`, or to the end of the text when that is -1.
    void noteTodo(int end);

    SourceCursor m_cursor; // on the prepared text, while parse() runs
    int m_parens = 0;      // open ones
    int m_braces = 0;
    int m_brackets = 0;

private:
    void reportBracket(const char *message, QChar character, int start, int end);

    QList<OutlineItem> m_outlineItems;
    DiagnosticList m_errors;
    DiagnosticList m_warnings;
    DiagnosticList m_todos;
    QFileInfo m_file;
    bool m_bracketErrorReported = false;
};
