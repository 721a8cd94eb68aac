// SPDX-License-Identifier: MIT
#include "tests/support/caretnotation.h"

#include <QTextBlock>
#include <QTextDocument>

namespace {

// Takes the mark out of the text; the position where it was.
int take(QString &text, QChar mark)
{
    const int position = int(text.indexOf(mark));
    Q_ASSERT(position >= 0);
    text.remove(position, 1);
    return position;
}

// As the blocks hold it: the document would report no-break spaces as spaces.
QString textOf(const QTextDocument &document)
{
    QString text = document.begin().text();
    for (QTextBlock block = document.begin().next(); block.isValid(); block = block.next())
        text += QLatin1Char('\n') + block.text();
    return text;
}

} // namespace

QTextCursor setDrawing(QTextDocument *document, const QString &drawing)
{
    const bool isCaret = drawing.contains(QLatin1Char('|'));
    QString text = drawing;
    int position = take(text, QLatin1Char(isCaret ? '|' : ']'));
    int anchor = position;
    if (!isCaret) {
        anchor = take(text, QLatin1Char('['));
        position -= anchor < position ? 1 : 0;
    }
    document->setPlainText(text);
    QTextCursor cursor(document);
    cursor.setPosition(anchor);
    cursor.setPosition(position, QTextCursor::KeepAnchor);
    return cursor;
}

QString drawing(const QTextCursor &cursor)
{
    QString text = textOf(*cursor.document());
    if (!cursor.hasSelection())
        return text.insert(cursor.position(), QLatin1Char('|'));
    const bool isForwards = cursor.anchor() < cursor.position();
    text.insert(cursor.selectionEnd(), QLatin1Char(isForwards ? ']' : '['));
    return text.insert(cursor.selectionStart(), QLatin1Char(isForwards ? '[' : ']'));
}
