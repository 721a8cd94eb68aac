// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <vector>

// Python's code cut into statements without a grammar, for texts that are being typed and so rarely
// are valid. Positions are 0-based UTF-16 units of the text, ends are exclusive.

enum class PythonKeyword { None, Import, From, Class, Function };

// With all lines that brackets, backslashes and long strings join to it; "a; b" counts as one.
struct PythonStatement
{
    int start = 0;   // behind the indentation
    int end = 0;     // of its last line: a comment belongs to it, the line feed does not
    int codeEnd = 0; // behind the last unit that is no comment and no blank
    int indent = 0;  // in columns
    int depth = 0;   // of its block; 0 at the margin
    PythonKeyword keyword = PythonKeyword::None; // with which it begins; "async" does not count
    bool opensBlock = false;                     // ends in a colon
    bool isBroken = false;                       // goes on after its end, as "f(1," or "a." do
};

// All of them, in time linear in the text.
std::vector<PythonStatement> pythonStatements(const QString &text);

// A stretch of a text on one line, strings as "" and without comments.
struct PythonCode
{
    QString text;
    bool endsInCode = true; // not in a string or a comment
};

PythonCode pythonCode(const QString &text, int start, int end);

// f"{name} {items[0].na|me}"
//            |            |   an expression inside a string
struct PythonField
{
    int start = -1; // -1: there is none
    int end = -1;   // of the string's text
    int stringEnd = -1;
};

// The one that a position lies in, read from `start`, which lies in code.
PythonField pythonField(const QString &text, int start, int position);

// The first colon outside brackets, with which a header ends; the statement's end without one.
int headerEnd(const QString &text, const PythonStatement &statement);

// The word that a statement begins with; empty when it is none.
QString firstWord(const QString &text, const PythonStatement &statement);
// The name that a "def" or "class" defines; empty for other statements and unfinished ones.
QString definedName(const QString &text, const PythonStatement &statement);
// The name that a plain assignment binds, as "self.x" or "x"; empty for others.
QString assignedName(const QString &text, const PythonStatement &statement);

bool isPythonName(QChar unit);
