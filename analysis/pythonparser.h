// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/baseparser.h"
#include "analysis/indentstack.h"

#include <vector>

// Finds the imports, classes, functions and the main block of a Python script, and what its
// compiler would say about indentation, brackets and strings. One scan without a grammar: where it
// is wrong about a valid script, whoever shows the errors asks the interpreter first.
class PythonParser : public BaseParser
{
public:
    void parse(const QString &text, const QString &filePath) override;
    // All three only while the preferences ask for diagnostics of Python.
    void addError(const QString &message, int start, int end) override;
    void addWarning(const QString &message, int start, int end) override;
    void addTodo(const QString &message, int start, int end) override;

private:
    // A stretch of the text, the end exclusive.
    struct Span
    {
        int start;
        int end;
    };
    using Spans = std::vector<Span>;

    void scan();
    bool scanLineStart(ushort unit);
    void scanUnit(ushort unit);

    void startLine();
    bool endsOpenBrackets();
    int nextToken(int from);
    void reportOpenBracket();

    Indent currentIndent() const;
    void checkIndent();
    void indentError(const char *message);
    void warnOfMixedIndent(const Indent &indent);
    void resetBlocks();
    void resetBlocksAtMargin();

    void colon();
    bool decorator();
    bool definition();
    OutlineKind methodKind() const;
    bool classDefinition();
    bool mainBlock();
    int mainBlockEnd(char quote) const;
    bool import();
    bool importAs(const Span &module, int aliasStart);
    bool importList(int start);
    bool fromImport();
    Span restOfStatement(int start) const;
    Span trimmed(Span span) const;
    Spans listed(const Span &span) const;
    bool isPath(const Span &span) const;
    QString text(const Span &span) const;
    void addNames(OutlineKind kind, const Spans &names, int searchStart, const QString &suffix);
    void addItem(OutlineKind kind, const QString &name, int position);

    void string();
    void tripleQuoted(char quote);
    void comment();

    bool m_atLineStart = true;
    int m_lineStart = 0;
    int m_indentStart = 0;
    int m_tokenSearchedFrom = 0; // what nextToken() found last
    int m_token = -1;
    IndentStack m_blocks;
    bool m_blockExpected = false;
    Spans m_decorators; // of the lines directly above
    bool m_indentErrorReported = false;
    bool m_mixedIndentReported = false;
};
