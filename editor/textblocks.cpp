// SPDX-License-Identifier: MIT
#include "editor/textblocks.h"

#include "editor/edtextblockdata.h"
#include "editor/indentstyle.h"

#include <algorithm>
#include <string_view>

namespace {

using Brackets = std::vector<Bracket>;

constexpr std::string_view allKinds("()[]{}");

// "()" for either of them.
std::string_view pairOf(QChar bracket)
{
    return allKinds.substr(allKinds.find(bracket.toLatin1()) / 2 * 2, 2);
}

// Those of some kinds by their columns, which is not how they are stored.
Brackets bracketsOf(const QTextBlock &block, std::string_view kinds)
{
    Brackets found;
    const EdTextBlockData *data = EdTextBlockData::of(block);
    if (!data)
        return found;
    for (const Bracket &bracket : data->brackets()) {
        if (kinds.find(bracket.character.toLatin1()) != std::string_view::npos)
            found.push_back(bracket);
    }
    std::sort(found.begin(), found.end(),
              [](const Bracket &a, const Bracket &b) { return a.column < b.column; });
    return found;
}

// The same without those at and behind the place, when it is in this line.
Brackets bracketsBefore(const TextPlace &place, const QTextBlock &block, std::string_view kinds)
{
    Brackets found = bracketsOf(block, kinds);
    while (block == place.block && !found.empty() && found.back().column >= place.column)
        found.pop_back();
    return found;
}

TextPlace closerBehind(const TextPlace &opener, std::string_view pair, int mostLines)
{
    int depth = 0;
    int lines = 0;
    for (QTextBlock block = opener.block; block.isValid() && lines <= mostLines;
         block = block.next(), ++lines) {
        for (const Bracket &bracket : bracketsOf(block, pair)) {
            if (block == opener.block && bracket.column <= opener.column)
                continue;
            if (bracket.character == QLatin1Char(pair[0]))
                ++depth;
            else if (depth-- == 0)
                return {block, bracket.column};
        }
    }
    return TextPlace();
}

// Code has lost its columns, so what is behind the place is told by its braces.
QString codeUpTo(const TextPlace &place)
{
    QString code = codeOf(place.block);
    for (const Bracket &brace : bracketsOf(place.block, "{")) {
        if (brace.column >= place.column)
            code.truncate(code.lastIndexOf(QLatin1Char('{')));
    }
    return code.trimmed();
}

// if
//     (a ||      a line that begins like this goes on from the one above
//      b)
QTextBlock oneUpFromParenthesis(const QTextBlock &block)
{
    const bool goesOn = codeOf(block).startsWith(QLatin1Char('(')) && block.previous().isValid();
    return goesOn ? block.previous() : block;
}

} // namespace

TextPlace endOf(const QTextBlock &block)
{
    return {block, block.length() - 1};
}

QString indentationOf(const QTextBlock &block)
{
    return leadingBlanks(block.text());
}

QString codeOf(const QTextBlock &block)
{
    const EdTextBlockData *data = EdTextBlockData::of(block);
    return (data ? data->codeText(block) : block.text()).trimmed();
}

QTextBlock nearestNonEmpty(QTextBlock block)
{
    while (block.isValid() && block.text().isEmpty())
        block = block.previous();
    return block;
}

QTextBlock nearestWithCode(QTextBlock block)
{
    while (block.isValid() && codeOf(block).isEmpty())
        block = block.previous();
    return block;
}

TextPlace matchingBracket(const TextPlace &bracket, int mostLines)
{
    for (const Bracket &stored : bracketsOf(bracket.block, allKinds)) {
        if (stored.column != bracket.column)
            continue;
        const std::string_view pair = pairOf(stored.character);
        return stored.character == QLatin1Char(pair[0])
                   ? closerBehind(bracket, pair, mostLines)
                   : openerBefore(bracket, QLatin1Char(pair[0]), mostLines);
    }
    return TextPlace();
}

TextPlace openerBefore(const TextPlace &place, QChar opener, int mostLines)
{
    int depth = 0;
    int lines = 0;
    for (QTextBlock block = place.block; block.isValid() && lines <= mostLines;
         block = block.previous(), ++lines) {
        const Brackets brackets = bracketsBefore(place, block, pairOf(opener));
        for (auto bracket = brackets.rbegin(); bracket != brackets.rend(); ++bracket) {
            if (bracket->character != opener)
                ++depth;
            else if (depth-- == 0)
                return {block, bracket->column};
        }
    }
    return TextPlace();
}

TextPlace lastBracket(const TextPlace &end)
{
    const Brackets brackets = bracketsBefore(end, end.block, allKinds);
    return brackets.empty() ? TextPlace() : TextPlace{end.block, brackets.back().column};
}

// f(a, g(b), [c]
//  |             brackets that are closed are passed over, each kind by itself
int unclosedOpener(const QTextBlock &block, bool countBraces)
{
    const Brackets brackets = bracketsOf(block, countBraces ? "()[]{}" : "()[]");
    int depths[allKinds.size()] = {};
    for (auto bracket = brackets.rbegin(); bracket != brackets.rend(); ++bracket) {
        const std::string_view pair = pairOf(bracket->character);
        int &depth = depths[allKinds.find(pair)];
        if (bracket->character == QLatin1Char(pair[1]))
            ++depth;
        else if (depth-- == 0)
            return bracket->column;
    }
    return -1;
}

QTextBlock statementStart(const TextPlace &end)
{
    TextPlace codeEnd = end;
    QString code = codeUpTo(end);
    if (code.isEmpty()) {
        codeEnd = endOf(nearestWithCode(end.block.previous()));
        code = codeOf(codeEnd.block);
    }
    if (!code.endsWith(QLatin1Char(')')))
        return end.block;
    const TextPlace opener = matchingBracket(lastBracket(codeEnd));
    return opener.isValid() ? oneUpFromParenthesis(opener.block) : end.block;
}
