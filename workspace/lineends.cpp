// SPDX-License-Identifier: MIT
#include "workspace/lineends.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>

namespace {

const int lineEndCount = 6;
const int usualCount = 3;

// Of the separator before a block: 0 for the usual kind, else the kind and firstMark. Of all
// properties this is the one that Qt does not hand on to text that is inserted beside.
const int lineEndProperty = QTextFormat::ObjectType;
const int firstMark = QTextFormat::UserObject + 1;

#ifdef Q_OS_WIN
const LineEnd systemLineEnd = LineEnd::CarriageReturnLineFeed;
#else
const LineEnd systemLineEnd = LineEnd::LineFeed;
#endif

QString charactersOf(LineEnd end)
{
    static const QString characters[lineEndCount] = {
        QLatin1String("\n"),    QLatin1String("\r\n"),  QLatin1String("\r"),
        QString(QChar(0x2029)), QString(QChar(0xFDD0)), QString(QChar(0xFDD1))};
    return characters[int(end)];
}

// Goes through the line ends of a text.
class LineEndScan
{
public:
    explicit LineEndScan(const QString &text) : m_text(text) {}

    // False at the end of the text.
    bool next()
    {
        while (m_position < m_text.size()) {
            if (take(m_text.at(m_position++).unicode()))
                return true;
        }
        return false;
    }
    LineEnd found() const { return m_found; }
    int start() const { return m_position - (m_found == LineEnd::CarriageReturnLineFeed ? 2 : 1); }
    // Behind the end that was found.
    int position() const { return m_position; }

private:
    bool take(ushort character)
    {
        switch (character) {
        case '\n':
            return take(LineEnd::LineFeed);
        case '\r':
            if (m_position == m_text.size() || m_text.at(m_position) != QLatin1Char('\n'))
                return take(LineEnd::CarriageReturn);
            ++m_position;
            return take(LineEnd::CarriageReturnLineFeed);
        case 0x2029:
            return take(LineEnd::ParagraphSeparator);
        case 0xFDD0:
            return take(LineEnd::FirstNoncharacter);
        case 0xFDD1:
            return take(LineEnd::SecondNoncharacter);
        default:
            return false;
        }
    }
    bool take(LineEnd end)
    {
        m_found = end;
        return true;
    }

    const QString &m_text;
    int m_position = 0;
    LineEnd m_found = systemLineEnd;
};

LineEnd endBefore(const QTextBlock &block, LineEnd usual)
{
    const int marked = block.charFormat().intProperty(lineEndProperty);
    return marked == 0 ? usual : static_cast<LineEnd>(marked - firstMark);
}

void markBlock(const QTextBlock &block, LineEnd end)
{
    QTextCharFormat format = block.charFormat();
    format.setProperty(lineEndProperty, firstMark + int(end));
    QTextCursor(block).setBlockCharFormat(format);
}

} // namespace

LineEnds::LineEnds() : m_usual(systemLineEnd) {}

void LineEnds::mark(QTextDocument *document, const QString &text)
{
    count(*document, text);
    if (!m_mixed)
        return;
    document->setUndoRedoEnabled(false); // the marks are no edit
    markUnusual(document, text);
    document->setUndoRedoEnabled(true);
}

void LineEnds::markByEdit(QTextDocument *document, const QString &text)
{
    count(*document, text);
    if (m_mixed)
        markUnusual(document, text);
}

void LineEnds::count(const QTextDocument &document, const QString &text)
{
    int counts[lineEndCount] = {};
    for (LineEndScan scan(text); scan.next();)
        ++counts[int(scan.found())];
    const int *commonest = std::max_element(counts, counts + usualCount);
    m_usual = *commonest == 0 ? systemLineEnd : static_cast<LineEnd>(commonest - counts);
    m_mixed = document.blockCount() - 1 != counts[int(m_usual)];
}

void LineEnds::markUnusual(QTextDocument *document, const QString &text) const
{
    QTextCursor group(document);
    group.beginEditBlock();
    QTextBlock block = document->begin();
    for (LineEndScan scan(text); scan.next();) {
        block = block.next();
        // Deliberate: the usual kind is compared too. A text may come with the marks of the place
        // where the caret was before.
        if (endBefore(block, m_usual) != scan.found())
            markBlock(block, scan.found());
    }
    group.endEditBlock();
}

QString LineEnds::usual() const
{
    return charactersOf(m_usual);
}

// By blocks: toPlainText() would turn no-break spaces into spaces.
QString LineEnds::text(const QTextDocument &document) const
{
    const QString usual = charactersOf(m_usual);
    QString joined = document.begin().text();
    for (QTextBlock block = document.begin().next(); block.isValid(); block = block.next()) {
        joined += m_mixed ? charactersOf(endBefore(block, m_usual)) : usual;
        joined += block.text();
    }
    return joined;
}

QStringList linesOf(const QString &text)
{
    QStringList lines;
    int start = 0;
    for (LineEndScan scan(text); scan.next(); start = scan.position())
        lines << text.mid(start, scan.start() - start);
    return lines << text.mid(start);
}

int lineNumber(const QString &text, int position)
{
    int line = 1;
    for (LineEndScan scan(text); scan.next() && scan.position() <= position;)
        ++line;
    return line;
}
