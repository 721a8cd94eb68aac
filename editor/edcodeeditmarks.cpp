// SPDX-License-Identifier: MIT
// What an editor shows beside its text: the gutter, extra selections and diagnostics.
#include "editor/edcodeedit.h"

#include "analysis/baseparser.h"
#include "compat/text.h"
#include "editor/edcodeeditlinenumbers.h"
#include "editor/edhighlighter.h"
#include "editor/longlines.h"
#include "preferences/textformats.h"

#include <QHelpEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QTextBlock>
#include <QToolTip>

#include <algorithm>

namespace {

// Pixels.
const int errorBarWidth = 14;
const int numberMargin = 4; // right of the line numbers
// The error bar, the number's margin, and a gap.
const int widthBesideNumbers = 21;
const int fewestDigits = 2;

const int linesAround = 5; // beyond the view, in which diagnostics are underlined too

int digitsOf(int number)
{
    int digits = 1;
    for (; number >= 10; number /= 10)
        ++digits;
    return digits;
}

// A category without a background of its own has that of the text.
QColor groundOf(EditorText category)
{
    const QColor ground = textFormat(category).background;
    return ground.isValid() ? ground : textFormat(EditorText::Plain).background;
}

QColor inkOf(EditorText category)
{
    const QColor ink = textFormat(category).foreground;
    return ink.isValid() ? ink : textFormat(EditorText::Plain).foreground;
}

} // namespace

int EdCodeEdit::lineNumberWidth() const
{
    const int digits = std::max(digitsOf(std::max(blockCount(), 1)), fewestDigits);
    return widthBesideNumbers +
           digits * compat::textWidth(QFontMetrics(font()), QLatin1String("9"));
}

// Qt lays the view out again even for the margins that it has.
void EdCodeEdit::updateLineNumberWidth()
{
    const int width = lineNumberWidth();
    if (m_lineNumbers->width() == width && m_marginWidth == width)
        return;
    m_marginWidth = width;
    setViewportMargins(width, 0, 0, 0);
    m_lineNumbers->resize(width, m_lineNumbers->height());
}

void EdCodeEdit::updateLineNumbers(const QRect &rect, int dy)
{
    if (dy != 0)
        m_lineNumbers->scroll(0, dy);
    else
        m_lineNumbers->update(0, rect.y(), m_lineNumbers->width(), rect.height());
}

void EdCodeEdit::resizeEvent(QResizeEvent *event)
{
    QPlainTextEdit::resizeEvent(event);
    const QRect inside = contentsRect();
    m_lineNumbers->setGeometry(inside.left(), inside.top(), lineNumberWidth(), inside.height());
    updateExtraSelections(); // other lines are visible now
}

// Whichever way lines come into view, they are painted.
void EdCodeEdit::paintEvent(QPaintEvent *event)
{
    if (m_highlighter && m_highlighter->isPending()) {
        const int lines = viewport()->height() / QFontMetrics(font()).lineSpacing() + 1;
        m_highlighter->highlightVisible(firstVisibleBlock(), lines);
    }
    QPlainTextEdit::paintEvent(event);
}

void EdCodeEdit::paintLineNumbers(QWidget *gutter, const QPaintEvent &event)
{
    const QRect &dirty = event.rect();
    QPainter painter(gutter);
    painter.setFont(font());
    painter.setPen(inkOf(EditorText::LineNumbers));
    painter.fillRect(dirty, groundOf(EditorText::LineNumbers));
    painter.fillRect(dirty & QRect(0, dirty.top(), errorBarWidth, dirty.height()),
                     groundOf(EditorText::ErrorBar));

    QTextBlock block = firstVisibleBlock();
    qreal top = blockBoundingGeometry(block).translated(contentOffset()).top();
    for (int line = block.blockNumber(); block.isValid() && top <= dirty.bottom(); ++line) {
        const qreal bottom = top + blockBoundingRect(block).height();
        if (block.isVisible() && bottom >= dirty.top())
            paintLine(&painter, line, int(top), gutter->width());
        top = bottom;
        block = block.next();
    }
}

// An error is shown before a warning, and that before a note.
void EdCodeEdit::paintLine(QPainter *painter, int line, int top, int width) const
{
    painter->drawText(-numberMargin, top, width, QFontMetrics(font()).height(), Qt::AlignRight,
                      QString::number(line + 1));
    if (errorLines().contains(line))
        painter->drawImage(0, top, m_errorImage);
    else if (warningLines().contains(line))
        painter->drawImage(0, top, m_warningImage);
    else if (infoLines().contains(line))
        painter->drawImage(0, top, m_infoImage);
}

void EdCodeEdit::setDiagnostics(const BaseParser &parser)
{
    m_errors.set(parser.errors(), document());
    m_warnings.set(parser.warnings(), document());
    m_infos.set(parser.todos(), document());
    applyDiagnostics();
}

void EdCodeEdit::clearDiagnostics()
{
    m_errors.clear();
    m_warnings.clear();
    m_infos.clear();
    applyDiagnostics();
}

void EdCodeEdit::applyDiagnostics()
{
    m_lineNumbers->update();
    updateExtraSelections();
}

void EdCodeEdit::onContentsChange(int position, int charsRemoved, int charsAdded)
{
    const int addedLines = blockCount() - m_blockCount;
    m_blockCount = blockCount();
    for (DiagnosticMarks *marks : {&m_errors, &m_warnings, &m_infos})
        marks->shift(position, charsRemoved, charsAdded, addedLines);
}

// The caret may have moved by an edit that left it where it is in the document's eyes; whatever
// the reason, all kinds are made anew: there are never more than what is visible.
void EdCodeEdit::updateExtraSelections()
{
    m_extraSelections.clear();
    if (!m_extraSelectionsEnabled)
        return;
    highlightCurrentLine();
    highlightMatchedSelection();
    matchParenthesis();
    highlightErrors();
    setExtraSelections(m_extraSelections);
    if (textCursor().block().length() > longLine && !m_longLineSaid) {
        m_longLineSaid = true;
        emit longLineReached();
    }
}

void EdCodeEdit::highlightCurrentLine()
{
    if (!isReadOnly())
        addCurrentLine(textCursor(), &m_extraSelections);
}

void EdCodeEdit::highlightMatchedSelection()
{
    if (textCursor().hasSelection())
        addMatchedSelections(textCursor(), firstVisibleBlock(), lastVisibleBlock(),
                             &m_extraSelections);
}

void EdCodeEdit::matchParenthesis()
{
    addMatchingBrackets(textCursor(), &m_extraSelections);
}

void EdCodeEdit::highlightErrors()
{
    if (m_errors.all().empty() && m_warnings.all().empty() && m_infos.all().empty())
        return;
    addErrorUnderlines(m_errors, m_warnings, m_infos,
                       firstVisibleBlock().blockNumber() - linesAround,
                       lastVisibleBlock().blockNumber() + linesAround, &m_extraSelections);
}

QTextBlock EdCodeEdit::lastVisibleBlock() const
{
    QTextBlock block = firstVisibleBlock();
    qreal bottom = blockBoundingGeometry(block).translated(contentOffset()).bottom();
    while (block.next().isValid() && bottom < viewport()->height()) {
        block = block.next();
        bottom += blockBoundingRect(block).height();
    }
    return block;
}

bool EdCodeEdit::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const QHelpEvent *help = static_cast<QHelpEvent *>(event);
        if (showDiagnosticToolTip(help->pos(), help->globalPos())) {
            event->ignore();
            return true;
        }
    }
    return QPlainTextEdit::event(event);
}

// The place is one of the editor, whose text begins behind the gutter.
bool EdCodeEdit::showDiagnosticToolTip(const QPoint &place, const QPoint &globalPlace)
{
    QPoint inText = place;
    if (inText.x() >= lineNumberWidth())
        inText.rx() -= lineNumberWidth();
    const int position = cursorForPosition(inText).position();
    for (const DiagnosticMarks *marks : {&m_errors, &m_warnings, &m_infos}) {
        if (const EdDiagnosticMark *mark = marks->at(position)) {
            QToolTip::showText(globalPlace, mark->message, this);
            return true;
        }
    }
    return false;
}
