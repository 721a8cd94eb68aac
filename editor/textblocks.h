// SPDX-License-Identifier: MIT
#pragma once

#include <QTextBlock>

#include <limits>

// What editing asks of the lines of a script, by the data that the highlighter keeps in each block.
// A block without such data counts as all code and as having no brackets.

// A place in a line; of an invalid block where there is none.
struct TextPlace
{
    QTextBlock block;
    int column = 0; // 0-based, in UTF-16 units

    bool isValid() const { return block.isValid(); }
};

const int allLines = std::numeric_limits<int>::max();

// Behind the line's last character.
TextPlace endOf(const QTextBlock &block);

// The spaces and tabs at the line's start; empty for an invalid block.
QString indentationOf(const QTextBlock &block);
// Without strings and comments, trimmed; empty for an invalid block.
QString codeOf(const QTextBlock &block);
// The block or the nearest above it that fits; invalid when there is none.
QTextBlock nearestNonEmpty(QTextBlock block);
QTextBlock nearestWithCode(QTextBlock block);

// The other one of the pair, counting only brackets of the same kind. Invalid where no bracket was
// found in code, or none that matches. Walks to the match; without one, to an end of the document,
// or over no more than `mostLines`.
TextPlace matchingBracket(const TextPlace &bracket, int mostLines = allLines);
// The opener that its closer, were it typed at the place, would match. Bounds as above.
TextPlace openerBefore(const TextPlace &place, QChar opener, int mostLines = allLines);
// The one in the line that is nearest before the place; invalid when there is none.
TextPlace lastBracket(const TextPlace &end);
// The column of the last bracket in the line that it leaves open; -1 when there is none.
int unclosedOpener(const QTextBlock &block, bool countBraces);

// The first line of the statement that goes up to the place, which is a "{" or the end of a line:
// where its code ends in ")", the line of the matching "(". Otherwise the place's own line.
QTextBlock statementStart(const TextPlace &end);
