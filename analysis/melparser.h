// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/baseparser.h"

// Finds the procedures and global variables of a MEL script, and its TODO notes. Structural errors
// are computed as well, but not kept: only the host knows MEL well enough to show errors of it. One
// scan from left to right, in time linear in the text, without a grammar.
class MelParser : public BaseParser
{
public:
    void parse(const QString &text, const QString &filePath) override;
    // Records nothing.
    void addError(const QString &message, int start, int end) override;
    // Both only while the preferences ask for diagnostics of MEL.
    void addWarning(const QString &message, int start, int end) override;
    void addTodo(const QString &message, int start, int end) override;

private:
    void warnOfEmptyFirstLine();
    void scan();
    void scanUnit(ushort unit);

    // One function for each unit that means something. The cursor is on that unit before, and after
    // on the last one that need not be looked at again.
    void semicolon();
    void closeBrace();
    void slash();
    void lineComment();
    void blockComment();

    // The same for the letters with which a declaration may begin.
    void globalDeclaration();
    void localProcedure();

    bool isAfterSpace() const;
    bool globalProcedure(int word);
    void globalVariable(int type);
    int typesEnd(int from) const;
    void reportNested(int matchEnd);
    void declareProcedure(OutlineKind kind, int depth, int nameStart);
    void argumentList(int nameStart);
    int argumentListEnd(int open) const;
    void body(int nameStart);

    bool m_slashSeen = false;       // one that may be the first half of a comment sign
    int m_procedureDepth = 0;       // brace depth at the last "global proc"
    bool m_insideProcedure = false; // from a procedure's "{" to the "}" of that depth
};
