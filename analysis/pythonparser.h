// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/baseparser.h"
#include "analysis/indentstack.h"

#include <vector>

// Finds the imports, classes, functions and the main block of a Python script, and what its
// compiler would say about indentation, brackets and strings. One scan without a grammar: where it
// is wrong about a valid script, whoever shows the errors asks the interpreter first. Takes time
// linear in the text, and does not run or import anything.
class PythonParser : public BaseParser
{
public:
    void parse(const QString &text, const QString &filePath) override;
    // All three only while the preferences ask for diagnostics of Python.
    void addError(const QString &message, int start, int end) override;
    void addWarning(const QString &message, int start, int end) override;
    void addTodo(const QString &message, int start, int end) override;

private:
    // A stretch of the text, the end exclusive; valid while the cursor is on the text.
    struct Span
    {
        int start;
        int end;
    };
    using Spans = std::vector<Span>;

    void scan();
    bool scanLineStart(ushort unit);
    void scanUnit(ushort unit);

    // Logical lines: a statement goes on while one of its brackets is open.
    void startLine();
    bool endsOpenBrackets();
    int nextToken(int from);
    void reportOpenBracket();

    // Blocks. Of a parse's errors about indentation only the first is recorded, and of its
    // warnings.
    Indent currentIndent() const;
    void checkIndent();
    void indentError(const char *message);
    void warnOfMixedIndent(const Indent &indent);
    void resetBlocks();
    void resetBlocksAtMargin();

    void colon();

    // Declarations, in a file of their own.
    void decorator();
    bool definition();
    OutlineKind methodKind() const;
    bool classDefinition();
    void mainBlock();
    int mainBlockEnd(char quote) const;
    bool import();
    bool importAs(const Span &module, int aliasStart);
    bool importList(int start);
    void fromImport();
    Span restOfStatement(int start) const;
    Span trimmed(Span span) const;
    Spans listed(const Span &span) const;
    bool isPath(const Span &span) const;
    QString text(const Span &span) const;
    void addNames(OutlineKind kind, const Spans &names, int searchStart, const QString &suffix);
    void addItem(OutlineKind kind, const QString &name, int position);

    // What may hold a bracket or a colon that means nothing.
    void string();
    void tripleQuoted(char quote);
    void comment();

    bool m_atLineStart = true;   // nothing of the line but white space was seen
    int m_lineStart = 0;         // where diagnostics of its indent begin
    int m_indentStart = 0;       // the same but for the first line, which begins at 0
    int m_tokenSearchedFrom = 0; // where nextToken() last began to search
    int m_token = -1;            // and what it found; -1 before the first search
    IndentStack m_blocks;
    bool m_blockExpected = false; // the line above ended with a colon
    Spans m_decorators;           // of the lines directly above, nearest last
    bool m_indentErrorReported = false;
    bool m_mixedIndentReported = false; // or an unindent that fits no block, which explains it
};
