// SPDX-License-Identifier: MIT
#include "editor/codearound.h"

#include "bridge/melnametable.h"
#include "editor/editorlanguage.h"
#include "editor/longlines.h"
#include "editor/melscanner.h"
#include "editor/pythoncaret.h"
#include "editor/pythonscanner.h"

#include <QTextBlock>
#include <QTextCursor>

#include <algorithm>

namespace {

const int mostLines = 100;       // above the caret's line, and below
const QChar stringMask(0xFFFC);  // part of no name, no blank, and no sign of a language
const QChar commentMask(0x2003); // a blank, but not one that scripts have

bool isString(EditorText category)
{
    return category == EditorText::MelStrings || category == EditorText::PythonStrings ||
           category == EditorText::PythonDocStrings;
}

bool isComment(EditorText category)
{
    return category == EditorText::MelComments || category == EditorText::PythonComments;
}

// Puts masked lines together.
class MaskedLines
{
public:
    explicit MaskedLines(LineScanner *scanner) : m_scanner(scanner) {}

    void add(const QTextBlock &block)
    {
        QString line = block.text();
        m_scanner->scan(line, block.previous().userState(), m_scan);
        for (const FormatSpan &span : m_scan.spans) {
            if (isString(span.category))
                std::fill_n(line.begin() + span.start, span.length, stringMask);
            else if (isComment(span.category))
                std::fill_n(line.begin() + span.start, span.length, commentMask);
        }
        m_text += line + lineEnd();
    }

    QString text() const { return m_text.left(m_text.size() - 1); } // without the last line feed

private:
    // One within a string is a part of that.
    QChar lineEnd() const
    {
        const bool isInComment = !m_scan.spans.empty() && isComment(m_scan.spans.back().category);
        return m_scan.state == 0 || isInComment ? QChar(QLatin1Char('\n')) : stringMask;
    }

    LineScanner *m_scanner;
    LineScan m_scan;
    QString m_text;
};

QTextBlock farthest(QTextBlock block, QTextBlock (QTextBlock::*step)() const)
{
    for (int lines = 0; lines < mostLines; ++lines) {
        const QTextBlock next = (block.*step)();
        if (!next.isValid() || isLong(next))
            break;
        block = next;
    }
    return block;
}

CodeAround maskedLines(const QTextCursor &caret, const QTextBlock &last, LineScanner *scanner)
{
    const QTextBlock first = farthest(caret.block(), &QTextBlock::previous);
    MaskedLines lines(scanner);
    for (QTextBlock block = first; block != last.next(); block = block.next())
        lines.add(block);
    return {lines.text(), caret.position() - first.position(), first.position()};
}

CodeAround pythonStatement(const QTextCursor &caret)
{
    PythonScanner scanner(melNameTable());
    CodeAround code = maskedLines(caret, farthest(caret.block(), &QTextBlock::next), &scanner);
    const PythonContext context(code.text, code.caret);
    const PythonStatement &statement = context.statements[context.current];
    code.text = code.text.mid(statement.start, statement.end - statement.start);
    code.text.replace(QLatin1String("\\\n"), QLatin1String("  ")); // goes on
    code.caret -= statement.start;
    code.start += statement.start;
    return code;
}

} // namespace

bool CodeAround::isInComment(int place) const
{
    return place > 0 && text.at(place - 1) == commentMask;
}

bool CodeAround::isInString(int place) const
{
    return place > 0 && place < text.size() && text.at(place - 1) == stringMask &&
           text.at(place) == stringMask;
}

CodeAround codeAround(const QTextCursor &caret, int language)
{
    const QTextBlock line = caret.block();
    if (language == PythonLanguage && !isLong(line))
        return pythonStatement(caret);
    MelScanner scanner(melNameTable());
    if (language == MelLanguage && !isLong(line))
        return maskedLines(caret, line, &scanner);
    return {line.text(), caret.position() - line.position(), line.position()};
}
