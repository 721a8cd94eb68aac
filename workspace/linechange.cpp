// SPDX-License-Identifier: MIT
#include "workspace/linechange.h"

#include "workspace/linediff.h"
#include "workspace/lineends.h"

#include <QStringList>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>
#include <vector>

namespace {

LineChange difference(const QTextDocument &document, const QStringList &lines)
{
    const int before = document.blockCount();
    const int after = int(lines.size());
    const int common = std::min(before, after);
    LineChange change;
    QTextBlock block = document.begin();
    while (change.first < common && block.text() == lines.at(change.first)) {
        block = block.next();
        ++change.first;
    }
    int behind = 0;
    block = document.lastBlock();
    while (behind < common - change.first && block.text() == lines.at(after - 1 - behind)) {
        block = block.previous();
        ++behind;
    }
    change.removed = before - behind - change.first;
    change.added = after - behind - change.first;
    return change;
}

int startOf(int line, const QTextDocument &document)
{
    return document.findBlockByNumber(line).position();
}

// Before the separator.
int endOf(int line, const QTextDocument &document)
{
    const QTextBlock block = document.findBlockByNumber(line);
    return block.position() + block.length() - 1;
}

void replace(int from, int to, const QString &text, QTextDocument *document)
{
    QTextCursor cursor(document);
    cursor.setPosition(from);
    cursor.setPosition(to, QTextCursor::KeepAnchor);
    cursor.insertText(text);
}

void removeLines(int first, int last, QTextDocument *document)
{
    // Of the separators around the last lines there is only the one before them.
    if (last == document->blockCount() - 1)
        replace(endOf(first - 1, *document), endOf(last, *document), QString(), document);
    else
        replace(startOf(first, *document), startOf(last + 1, *document), QString(), document);
}

void insertLines(int first, const QString &lines, QTextDocument *document)
{
    if (first == 0) {
        replace(0, 0, lines + QLatin1Char('\n'), document);
        return;
    }
    // Not before the line behind, whose block would then be that of the first new line.
    const int end = endOf(first - 1, *document);
    replace(end, end, QLatin1Char('\n') + lines, document);
}

void make(const LineChange &change, const QStringList &lines, QTextDocument *document)
{
    const QString added = lines.join(QLatin1String("\n"));
    const int last = change.first + change.removed - 1;
    if (change.removed == 0 && change.added == 0)
        return;
    if (change.added == 0)
        removeLines(change.first, last, document);
    else if (change.removed == 0)
        insertLines(change.first, added, document);
    else
        replace(startOf(change.first, *document), endOf(last, *document), added, document);
}

struct Replacement
{
    LineChange change;
    QStringList lines; // that come
};

std::vector<Replacement> replacementsOf(const QTextDocument &document, const QString &text)
{
    QStringList before;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        before << block.text();
    std::vector<Replacement> replacements;
    int line = 0;
    bool isInside = false;
    for (const DiffLine &diff : lineDiff(before, linesOf(text))) {
        const bool isSame = diff.kind == DiffKind::Same;
        if (!isSame && !isInside)
            replacements.push_back({{line, 0, 0}, QStringList()});
        isInside = !isSame;
        line += diff.kind == DiffKind::Added ? 0 : 1;
        if (diff.kind == DiffKind::Removed)
            ++replacements.back().change.removed;
        if (diff.kind != DiffKind::Added)
            continue;
        ++replacements.back().change.added;
        replacements.back().lines << diff.text;
    }
    return replacements;
}

} // namespace

LineChange changeLines(QTextDocument *document, const QString &text)
{
    const QStringList lines = linesOf(text);
    const LineChange change = difference(*document, lines);
    make(change, lines.mid(change.first, change.added), document);
    return change;
}

void changeLinesClosely(QTextDocument *document, const QString &text)
{
    const std::vector<Replacement> replacements = replacementsOf(*document, text);
    QTextCursor group(document);
    group.beginEditBlock();
    // From the end on, so that the numbers of the lines before stay right.
    for (auto it = replacements.rbegin(); it != replacements.rend(); ++it)
        make(it->change, it->lines, document);
    group.endEditBlock();
}
