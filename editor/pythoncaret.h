// SPDX-License-Identifier: MIT
#pragma once

#include "editor/pythonstatements.h"

#include <QString>
#include <QStringList>

#include <vector>

// A text and the statement at a place in it.
struct PythonContext
{
    // Where there is no statement an empty one is added.
    PythonContext(const QString &wholeText, int caret, const QString &ownPackage = QString());

    // Those that the statement lies in, innermost first; the depth falls by one each time.
    std::vector<int> headersAbove(int statement) const;
    // The innermost class around the current statement; -1 when there is none.
    int enclosingClass() const;

    QString text;
    QString package; // that the text belongs to, with dots; empty for none or an unknown one
    int position = 0;
    std::vector<PythonStatement> statements;
    int current = 0; // index of the one at the position

private:
    int caretDepth(int index, int indent) const;
};

// The call whose argument begins at a caret.
struct PythonCall
{
    QString function;      // with the dots in its name; empty where no argument begins
    QStringList keywords;  // that were given, before and behind the caret
    int values = 0;        // that were given before the caret without one
    bool hasValue = false; // behind the caret stands "=" already
};

// What can be completed at a caret.
struct PythonCaret
{
    enum Place {
        Nothing,
        Name,
        Member,
        Module,      // in an import
        ImportedName // of a module
    };

    Place place = Nothing;
    int prefixLength = 0; // UTF-16 units that are typed of it
    // What stands before the last dot: of members as the analysis script understands it; a package
    // or module of the other places, empty for modules at the top. Calls are left out, an item is a
    // part called "[]".
    // A module may begin with the dots of a relative import.
    QString object;
    PythonCall call;
};

PythonCaret pythonCaret(const PythonContext &context);

// A definition's arguments as they are written: "a", "*b", "c=1".
QStringList argumentParts(const QString &text, const PythonStatement &definition);
// The names of a definition's arguments, without stars and values.
QStringList argumentNames(const QString &text, const PythonStatement &definition);
// The same of arguments as they are listed: "a, *b, c=1".
QStringList argumentNames(const QString &list);
