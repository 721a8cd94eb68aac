// SPDX-License-Identifier: MIT
// Where in a statement of Python one more keyword argument may stand. The statement is code in
// which strings and comments are masked; columns are places in it.
#pragma once

#include <QString>

// From the column out of the brackets inside a call of the function, to the outermost of them; the
// column itself where there is none, or no such call.
//   function(a, [1, |2])      function(a, |[1, 2])
int outOfBrackets(const QString &code, int column, const QString &function);

// Whether what follows the text is the first of an argument: behind "(" or ",", or behind nothing,
// as in a line of its own.
bool startsArgument(const QString &before);

// Whether an argument stands behind the column, past blanks.
bool argumentFollows(const QString &code, int column);

// From the column on, the first place that is between arguments and behind all that have no name:
//   f(|a, b, c=1)      f(a, b|, c=1)
int keywordPlace(const QString &code, int column);

// Behind the last argument in a call of the function which ends at the column, past blanks and ";";
// -1 for no such call.
int endOfArguments(const QString &code, int column, const QString &function);
