// SPDX-License-Identifier: MIT
#include "editor/lineedits.h"

#include "editor/editblock.h"

#include <QTextBlock>
#include <QTextDocument>

#include <vector>

namespace {

// Of one line. With more than these it is replaced at once, at the cost of the marks between them.
const size_t mostTabEdits = 100;

const QLatin1Char space(' ');
const QLatin1Char tab('\t');

QTextBlock firstLine(const QTextCursor &cursor)
{
    return cursor.document()->findBlock(cursor.selectionStart());
}

QTextBlock lastLine(const QTextCursor &cursor)
{
    return cursor.document()->findBlock(cursor.selectionEnd());
}

bool selectsSeveralLines(const QTextCursor &cursor)
{
    return firstLine(cursor) != lastLine(cursor);
}

void select(QTextCursor &cursor, int anchor, int position)
{
    cursor.setPosition(anchor);
    cursor.setPosition(position, QTextCursor::KeepAnchor);
}

// Calls `edit` with a cursor at the start of each selected line, and with the line's text. The
// last line is left out where the selection ends at its start.
template <typename Edit>
void editLines(QTextCursor &cursor, Edit edit)
{
    EditBlock step(cursor);
    QTextBlock end = lastLine(cursor);
    if (end.position() < cursor.selectionEnd())
        end = end.next();
    QTextCursor lineCursor(cursor.document());
    for (QTextBlock block = firstLine(cursor); block != end; block = block.next()) {
        lineCursor.setPosition(block.position());
        edit(lineCursor, block.text());
    }
}

void removeNext(QTextCursor &cursor, int count)
{
    select(cursor, cursor.position(), cursor.position() + count);
    cursor.removeSelectedText();
}

// Rewrites what the indentation already holds only when its characters do not fit.
void indentLine(QTextCursor &cursor, const QString &line, const IndentStyle &style)
{
    if (line.isEmpty())
        return;
    const QString now = leadingBlanks(line);
    const QString wanted = style.indentation(style.width(now) + style.tabSize);
    const bool fits = wanted.endsWith(now);
    cursor.insertText(fits ? wanted.left(wanted.size() - now.size()) : wanted);
    if (!fits)
        removeNext(cursor, int(now.size()));
}

// Spaces go up to a number of columns, of tabs only one does.
void unindentLine(QTextCursor &cursor, const QString &line, int columns, bool spaces)
{
    const QLatin1Char blank = spaces ? space : tab;
    const int most = qMin(int(line.size()), spaces ? columns : 1);
    int count = 0;
    while (count < most && line.at(count) == blank)
        ++count;
    removeNext(cursor, count);
}

// In tab stops of 4:
//   |a         two spaces become no tab,
//     |a       and the one that is typed leads to the same column as they would
void rewriteLeadingTabs(QTextCursor &cursor, const IndentStyle &style)
{
    const QTextBlock line = cursor.block();
    const QString now = leadingBlanks(line.text());
    const QString tabs(style.width(now) / style.tabSize, tab);
    const bool isInside =
        cursor.positionInBlock() <= now.size() && now.size() == firstNonSpace(line.text());
    if (!isInside || now == tabs)
        return;
    select(cursor, line.position(), line.position() + int(now.size()));
    cursor.insertText(tabs);
}

void insertTab(QTextCursor &cursor, const IndentStyle &style)
{
    EditBlock step(cursor);
    cursor.removeSelectedText();
    if (!style.replaceTabs) {
        rewriteLeadingTabs(cursor, style);
        cursor.insertText(QString(tab));
        return;
    }
    const int column = style.width(cursor.block().text().left(cursor.positionInBlock()));
    cursor.insertText(QString(style.nextTabStop(column) - column, space));
}

void unindentCaretLine(QTextCursor &cursor, const IndentStyle &style)
{
    EditBlock step(cursor);
    QTextCursor lineCursor(cursor.block());
    const QString line = cursor.block().text();
    const int beyondStop = style.width(line.left(firstNonSpace(line))) % style.tabSize;
    unindentLine(lineCursor, line, beyondStop > 0 ? beyondStop : style.tabSize, style.replaceTabs);
}

// Tabs side by side, and the blanks that fill them.
struct TabRun
{
    int start;
    int end;
    int blanks;
};

std::vector<TabRun> tabRuns(const QString &line, const IndentStyle &style)
{
    std::vector<TabRun> runs;
    int column = 0;
    for (int i = 0; i < line.size(); ++i) {
        if (line.at(i) != tab) {
            ++column;
            continue;
        }
        if (runs.empty() || runs.back().end != i)
            runs.push_back({i, i, 0});
        const int stop = style.nextTabStop(column);
        runs.back().blanks += stop - column;
        runs.back().end = i + 1;
        column = stop;
    }
    return runs;
}

QString withoutTabs(const QString &line, const std::vector<TabRun> &runs)
{
    QString filled;
    int end = runs.front().start;
    for (const TabRun &run : runs) {
        filled += line.mid(end, run.start - end) + QString(run.blanks, space);
        end = run.end;
    }
    return filled;
}

// From the right, so that the places of the others stay.
void fillTabs(QTextCursor &cursor, const QTextBlock &block, const IndentStyle &style)
{
    const QString line = block.text();
    const std::vector<TabRun> runs = tabRuns(line, style);
    if (runs.size() > mostTabEdits) {
        select(cursor, block.position() + runs.front().start, block.position() + runs.back().end);
        cursor.insertText(withoutTabs(line, runs));
        return;
    }
    for (auto run = runs.rbegin(); run != runs.rend(); ++run) {
        select(cursor, block.position() + run->start, block.position() + run->end);
        cursor.insertText(QString(run->blanks, space));
    }
}

// A place that survives edits of its line that keep visual columns.
struct VisualPlace
{
    QTextBlock block;
    int column;

    int position() const { return block.position() + column; }
};

VisualPlace visualPlace(const QTextDocument &document, int position, const IndentStyle &style)
{
    const QTextBlock block = document.findBlock(position);
    return {block, style.width(block.text().left(position - block.position()))};
}

} // namespace

void increaseIndent(QTextCursor &cursor, const IndentStyle &style)
{
    if (!selectsSeveralLines(cursor))
        return insertTab(cursor, style);
    editLines(cursor, [&style](QTextCursor &lineCursor, const QString &line) {
        indentLine(lineCursor, line, style);
    });
}

void decreaseIndent(QTextCursor &cursor, const IndentStyle &style)
{
    if (!selectsSeveralLines(cursor))
        return unindentCaretLine(cursor, style);
    editLines(cursor, [&style](QTextCursor &lineCursor, const QString &line) {
        unindentLine(lineCursor, line, style.tabSize, style.replaceTabs);
    });
}

void duplicateText(QTextCursor &cursor)
{
    const int anchor = cursor.anchor();
    const int position = cursor.position();
    QString copy = cursor.selectedText();
    int end = cursor.selectionEnd();
    if (!cursor.hasSelection()) {
        const QTextBlock line = cursor.block();
        copy = QLatin1Char('\n') + line.text();
        end = line.position() + line.length() - 1;
    }
    cursor.setPosition(end);
    cursor.insertText(copy);
    select(cursor, anchor, position);
}

void deleteLines(QTextCursor &cursor)
{
    const QTextBlock last = lastLine(cursor);
    const int behind = last.position() + last.length();
    // The document's last line has no break that could go as well.
    select(cursor, firstLine(cursor).position(), last.next().isValid() ? behind : behind - 1);
    cursor.removeSelectedText();
}

void convertTabsToSpaces(QTextCursor &cursor, const IndentStyle &style)
{
    const QTextDocument &document = *cursor.document();
    const VisualPlace anchor = visualPlace(document, cursor.anchor(), style);
    const VisualPlace caret = visualPlace(document, cursor.position(), style);
    {
        EditBlock step(cursor);
        QTextCursor edit(cursor);
        for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
            fillTabs(edit, block, style);
    }
    select(cursor, anchor.position(), caret.position());
}

int homePosition(const QTextCursor &cursor)
{
    const QTextBlock line = cursor.block();
    const int start = line.position();
    const int text = start + firstNonSpace(line.text());
    return cursor.position() == text ? start : text;
}
