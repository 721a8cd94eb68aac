// SPDX-License-Identifier: MIT
#include "output/outputbacklog.h"

#include <algorithm>

namespace {

// Characters. Few enough that inserting can stop within a frame, and that whole parts can be
// dropped without keeping much over the limit.
const int partSize = 4096;

// What QTextCursor::insertText() starts a new block at; a text frame's ends are among them.
bool isLineBreak(QChar character)
{
    switch (character.unicode()) {
    case '\n':
    case '\r':
    case 0x2029:
    case 0xfdd0:
    case 0xfdd1:
        return true;
    default:
        return false;
    }
}

// Line breaks are counted as "\n" alone. Most texts have no other and are shared.
QString withPlainLineBreaks(const QString &text)
{
    const auto isOther = [](QChar c) { return isLineBreak(c) && c != QLatin1Char('\n'); };
    if (std::none_of(text.begin(), text.end(), isOther))
        return text;
    QString plain = text;
    plain.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    std::replace_if(plain.begin(), plain.end(), isOther, QLatin1Char('\n'));
    return plain;
}

// The end of a part that begins at `from`: after a line break where there is one in reach, so that
// no part ends inside a line or a surrogate pair without need.
int partEnd(const QString &text, int from)
{
    const int size = int(text.size());
    if (size - from <= partSize)
        return size;
    const int before = int(text.lastIndexOf(QLatin1Char('\n'), from + partSize - 1));
    if (before >= from)
        return before + 1;
    const int after = int(text.indexOf(QLatin1Char('\n'), from + partSize));
    return after < 0 ? size : after + 1;
}

// Where the last `lineBreaks` line breaks of the text begin; 0 when it has fewer.
int tailStart(const QString &text, int lineBreaks)
{
    int position = int(text.size());
    for (int i = 0; i < lineBreaks && position > 0; ++i)
        position = int(text.lastIndexOf(QLatin1Char('\n'), position - 1));
    return std::max(0, position);
}

} // namespace

void OutputBacklog::add(const QString &text, int lineLimit)
{
    const QString plain = withPlainLineBreaks(text);
    int from = lineLimit > 0 ? tailStart(plain, lineLimit) : 0;
    while (from < plain.size()) {
        const int end = partEnd(plain, from);
        const QString part = plain.mid(from, end - from);
        addPart(part, int(part.count(QLatin1Char('\n'))));
        from = end;
    }
    drop(lineLimit);
}

// Short texts share a part, or each message of a burst would be inserted by itself.
void OutputBacklog::addPart(const QString &text, int lineBreaks)
{
    if (m_parts.empty() || m_parts.back().text.size() + text.size() > partSize)
        m_parts.emplace_back();
    Part &last = m_parts.back();
    last.text += text;
    last.lineBreaks += lineBreaks;
    m_lineBreaks += lineBreaks;
    m_size += int(text.size());
}

// A document of n lines loses everything that n line breaks follow:
//
// "a\n" "b\n" "c\n"    with a limit of 2: the first part may go, and the last one never does
void OutputBacklog::drop(int lineLimit)
{
    while (lineLimit > 0 && m_parts.size() > 1 &&
           m_lineBreaks - m_parts.front().lineBreaks >= lineLimit)
        takePart();
}

QString OutputBacklog::takePart()
{
    const Part part = m_parts.front();
    m_parts.pop_front();
    m_lineBreaks -= part.lineBreaks;
    m_size -= int(part.text.size());
    return part.text;
}

void OutputBacklog::clear()
{
    *this = OutputBacklog();
}
