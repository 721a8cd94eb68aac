// SPDX-License-Identifier: MIT
#include "editor/melindent.h"

#include "editor/editblock.h"
#include "editor/edtextblockdata.h"
#include "editor/textblocks.h"

#include <QTextDocument>

#include <optional>

namespace {

const QLatin1Char openBrace('{');
const QLatin1Char closeBrace('}');

bool endsStatement(const QString &code)
{
    return code.endsWith(QLatin1Char(';')) || code.endsWith(openBrace) || code.endsWith(closeBrace);
}

// Of the nearest line above that holds anything, be it white space.
QString copiedIndentation(const QTextBlock &line)
{
    return indentationOf(nearestNonEmpty(line.previous()));
}

// The indentation for the "}" of a "{" at the place; the line is the one that asks for it.
QString statementIndentation(const TextPlace &brace, const QTextBlock &line)
{
    const QTextBlock start = nearestNonEmpty(statementStart(brace));
    return start.isValid() ? indentationOf(start) : copiedIndentation(line);
}

// Deliberate: what looks like a comment inside a string counts as well.
bool holdsComment(const QString &text)
{
    const bool isBlock = text.contains(QLatin1String("/*")) && text.contains(QLatin1String("*/"));
    return isBlock || text.contains(QLatin1String("//"));
}

bool breaksBehindBrace(const QTextBlock &line)
{
    const QString above = line.previous().text();
    return above.endsWith(openBrace) && !holdsComment(above);
}

// if (a) {
//     |
// }            only when the line break leaves nothing else to stand there
MelNewLine betweenBraces(const QTextBlock &line, const IndentStyle &style)
{
    const TextPlace brace{line.previous(), endOf(line.previous()).column - 1};
    const QString indentation = style.rewritten(statementIndentation(brace, line));
    MelNewLine newLine;
    if (line.text().trimmed().isEmpty())
        newLine.closing = QLatin1Char('\n') + indentation + closeBrace;
    if (style.autoIndent)
        newLine.indentation = style.smartIndent ? indentation + style.unit() : indentation;
    return newLine;
}

// The nearest line, from this one upwards, in which all braces are closed that are closed below. A
// line that is nothing but a brace is none, so that the one before it is found:
//
// if (a)
// {
QTextBlock balancedLine(QTextBlock block)
{
    int balance = 0;
    for (; block.isValid(); block = block.previous()) {
        const QString code = codeOf(block);
        balance += int(code.count(openBrace)) - int(code.count(closeBrace));
        const bool isLoneBrace = code == QLatin1String("{") || code == QLatin1String("}");
        if (balance >= 0 && !code.isEmpty() && !isLoneBrace)
            break;
    }
    return block;
}

// if (a ||
//     b)
// {
//     c;
// }
// |            where the statement begins that the "}" ends
std::optional<QString> behindClosedBlock(const QTextBlock &above)
{
    const TextPlace brace = matchingBracket(lastBracket(endOf(above)));
    const QTextBlock start = brace.isValid() ? statementStart(brace) : QTextBlock();
    const QTextBlock line = start == brace.block ? balancedLine(above) : nearestNonEmpty(start);
    return line.isValid() ? std::optional<QString>(indentationOf(line)) : std::nullopt;
}

// if (a)
//     b;
// |            where the statement begins, which is behind the last end of another
QString behindStatement(const QTextBlock &above)
{
    QTextBlock first = above;
    for (QTextBlock block = nearestWithCode(above.previous());
         block.isValid() && !endsStatement(codeOf(block));
         block = nearestWithCode(block.previous()))
        first = block;
    return indentationOf(first);
}

// $a =
//     $b +
//     |        only the statement's second line is indented against the one above it
std::optional<QString> insideStatement(const QTextBlock &above, const IndentStyle &style)
{
    const QTextBlock first = nearestWithCode(statementStart(endOf(above)));
    if (!first.isValid())
        return std::nullopt;
    const QTextBlock before = nearestWithCode(first.previous());
    const bool begins = !before.isValid() || endsStatement(codeOf(before));
    return begins ? indentationOf(first) + style.unit() : indentationOf(first);
}

// What the code right above asks for; nothing when there is none, or none that says anything.
std::optional<QString> smartIndentation(const QTextBlock &above, const IndentStyle &style)
{
    const QString code = codeOf(above);
    const QString before = code.left(code.size() - 1).trimmed();
    // Deliberate: "$a = $b * 2" is left alone too; each half of an end of comment counts by itself.
    if (code.isEmpty() || code.endsWith(QLatin1Char('\\')) || code.endsWith(QLatin1Char('/')) ||
        before.endsWith(QLatin1Char('*')))
        return std::nullopt;
    if (code.endsWith(openBrace))
        return indentationOf(above) + style.unit();
    if (code.endsWith(closeBrace))
        return behindClosedBlock(above);
    if (code.endsWith(QLatin1Char(';')))
        return behindStatement(above);
    const int opener = unclosedOpener(above, false);
    if (opener >= 0)
        return style.alignedBehind(above.text(), opener);
    return insideStatement(above, style);
}

// "{" is typed as it is beside other text, "}" behind other text.
bool standsAlone(const QTextCursor &cursor, QChar brace)
{
    QTextCursor end(cursor);
    end.setPosition(cursor.selectionEnd());
    const QTextBlock line = cursor.document()->findBlock(cursor.selectionStart());
    const QString before = line.text().left(cursor.selectionStart() - line.position());
    const QString behind = end.block().text().mid(end.positionInBlock());
    return before.trimmed().isEmpty() && (brace == closeBrace || behind.trimmed().isEmpty());
}

QString braceIndentation(const QTextBlock &line, QChar brace)
{
    const TextPlace opener = brace == closeBrace ? openerBefore({line, 0}, openBrace) : TextPlace();
    return opener.isValid() ? statementIndentation(opener, line) : copiedIndentation(line);
}

} // namespace

MelNewLine melNewLine(const QTextBlock &line, const IndentStyle &style)
{
    const EdTextBlockData *data = EdTextBlockData::of(line);
    if (data && data->inComment())
        return {copiedIndentation(line), QString()};
    if (style.insertClosingBrace && breaksBehindBrace(line))
        return betweenBraces(line, style);
    if (!style.autoIndent)
        return MelNewLine();
    if (style.smartIndent) {
        if (const std::optional<QString> smart = smartIndentation(line.previous(), style))
            return {*smart, QString()};
    }
    return {style.rewritten(copiedIndentation(line)), QString()};
}

bool typeMelBrace(QTextCursor &cursor, QChar brace, const IndentStyle &style)
{
    if (!standsAlone(cursor, brace))
        return false;
    // Only lines above are asked, which the highlighter knows well even in the middle of an edit.
    EditBlock edit(cursor);
    cursor.removeSelectedText();
    const QTextBlock line = cursor.block();
    const QString indentation = style.rewritten(braceIndentation(line, brace));
    cursor.setPosition(line.position());
    cursor.setPosition(line.position() + firstNonSpace(line.text()), QTextCursor::KeepAnchor);
    cursor.insertText(indentation + brace);
    return true;
}
