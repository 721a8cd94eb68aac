// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/baseparser.h"

// Finds the procedures and global variables of a MEL script, and its TODO notes. Structural errors
// are computed as well, but not kept: only the host knows MEL well enough to show errors of it.
class MelParser : public BaseParser
{
public:
    void parse(const QString &text, const QString &filePath) override;
    void addError(const QString &message, int start, int end) override;
    // Both only while the preferences ask for diagnostics of MEL.
    void addWarning(const QString &message, int start, int end) override;
    void addTodo(const QString &message, int start, int end) override;

private:
    void warnOfEmptyFirstLine();
    void scan();
    void scanUnit(ushort unit);
    void semicolon();
    void closeBrace();
    void slash();
    void lineComment();
    void blockComment();

    bool isAfterSpace() const;
    void globalDeclaration();
    bool globalProcedure(int word);
    void globalVariable(int type);
    void localProcedure();
    int typesEnd(int from) const;
    void reportNested(int matchEnd);
    void declareProcedure(OutlineKind kind, int depth, int nameStart);
    void argumentList(int nameStart);
    int argumentListEnd(int open) const;
    void body(int nameStart);

    bool m_slashSeen = false;
    int m_procedureDepth = 0; // brace depth at the last "global proc"
    bool m_insideProcedure = false;
};
