// SPDX-License-Identifier: MIT
// What an editor shows beside its text: the gutter, extra selections and diagnostics.
#include "editor/edcodeedit.h"

#include "analysis/baseparser.h"
#include "compat/text.h"
#include "editor/edcodeeditlinenumbers.h"
#include "editor/edcompleter.h"
#include "editor/edhighlighter.h"
#include "editor/findreplace.h"
#include "editor/longlines.h"
#include "preferences/textformats.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
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

// Those that keyPressEvent() takes and that are no shortcuts of the window.
bool isOwnKey(const QKeyEvent &event, bool popupIsVisible)
{
    const int key = event.key();
    // Shift+Tab goes up in the popup.
    const Qt::KeyboardModifiers others =
        event.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
    if (popupIsVisible && EdCompleter::isKey(key) && !others)
        return true;
    return (event.modifiers() & ~Qt::KeypadModifier) == Qt::ControlModifier &&
           (key == Qt::Key_D || key == Qt::Key_L || key == Qt::Key_Space);
}

} // namespace

int EdCodeEdit::lineNumberWidth() const
{
    return widthForLines(blockCount());
}

int EdCodeEdit::widthForLines(int count) const
{
    const int digits = std::max(digitsOf(std::max(count, 1)), fewestDigits);
    return widthBesideNumbers +
           digits * compat::textWidth(QFontMetrics(font()), QLatin1String("9"));
}

void EdCodeEdit::updateLineNumberWidth()
{
    leaveWidthForLines(blockCount());
}

// Before there are so many: all would be laid out again when the width that is left to them becomes
// another one.
void EdCodeEdit::makeRoomForLines(int count)
{
    if (count * QFontMetrics(font()).lineSpacing() > viewport()->height())
        verticalScrollBar()->setMaximum(count);
    m_marginWidth = 0; // the margin may be the same, but the scroll bar new
    leaveWidthForLines(count);
}

// Qt lays the view out again even for the margins that it has.
void EdCodeEdit::leaveWidthForLines(int count)
{
    const int width = widthForLines(count);
    if (m_lineNumbers->width() == width && m_marginWidth == width)
        return;
    m_marginWidth = width;
    setViewportMargins(width, 0, 0, 0);
    m_lineNumbers->resize(width, m_lineNumbers->height());
}

// A key or the caret paints one line of the text, whose number stays what it is.
void EdCodeEdit::updateLineNumbers(const QRect &rect, int dy)
{
    if (dy != 0)
        m_lineNumbers->scroll(0, dy);
    else if (rect.height() >= 2 * QFontMetrics(font()).lineSpacing())
        m_lineNumbers->update(0, rect.y(), m_lineNumbers->width(), rect.height());
}

void EdCodeEdit::resizeEvent(QResizeEvent *event)
{
    QPlainTextEdit::resizeEvent(event);
    const QRect inside = contentsRect();
    m_lineNumbers->setGeometry(inside.left(), inside.top(), lineNumberWidth(), inside.height());
    highlightPage(firstVisibleBlock()); // or it would be laid out and painted twice
    updateExtraSelections();            // other lines are visible now
}

void EdCodeEdit::highlightPage(const QTextBlock &first)
{
    if (!m_highlighter || !m_highlighter->isPending())
        return;
    m_highlighter->highlightVisible(first, mostVisibleLines());
}

// Whichever way lines come into view, they are painted.
void EdCodeEdit::paintEvent(QPaintEvent *event)
{
    highlightPage(firstVisibleBlock());
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
    std::vector<LineTop> lines;
    for (int line = block.blockNumber(); block.isValid() && top <= dirty.bottom(); ++line) {
        const qreal bottom = top + blockBoundingRect(block).height();
        if (block.isVisible() && bottom >= dirty.top())
            lines.push_back({line, int(top)});
        top = bottom;
        block = block.next();
    }
    if (!lines.empty())
        paintLines(painter, lines, gutter->width());
}

void EdCodeEdit::paintLines(QPainter &painter, const std::vector<LineTop> &lines, int width) const
{
    const Icons icons = iconsBetween(lines.front().line, lines.back().line);
    const int height = QFontMetrics(font()).height();
    for (const LineTop &each : lines) {
        painter.drawText(-numberMargin, each.top, width, height, Qt::AlignRight,
                         QString::number(each.line + 1));
        if (const QImage *icon = icons.value(each.line))
            painter.drawImage(0, each.top, *icon);
    }
}

// An error is shown before a warning, and that before a note.
EdCodeEdit::Icons EdCodeEdit::iconsBetween(int first, int last) const
{
    const std::pair<const DiagnosticMarks *, const QImage *> kinds[] = {
        {&m_infos, &m_infoImage}, {&m_warnings, &m_warningImage}, {&m_errors, &m_errorImage}};
    Icons icons;
    for (const auto &[marks, image] : kinds) {
        for (int line : marks->linesBetween(first, last))
            icons.insert(line, image);
    }
    return icons;
}

void EdCodeEdit::setDiagnostics(const BaseParser &parser)
{
    m_errors.set(parser.errors(), document());
    setWarningsAndNotes(parser);
}

void EdCodeEdit::setErrors(const DiagnosticList &errors)
{
    m_errors.set(errors, document());
    applyDiagnostics();
}

void EdCodeEdit::setWarningsAndNotes(const BaseParser &parser)
{
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
    m_searchedText.clear();
    // Colours came or went, which Qt tells as a change too.
    if (charsRemoved == charsAdded && document()->revision() == m_revision)
        return;
    m_revision = document()->revision();
    m_completer->hideOutsideWord();
    const int addedLines = blockCount() - m_blockCount;
    m_blockCount = blockCount();
    bool changesGutter = addedLines != 0;
    for (DiagnosticMarks *marks : {&m_errors, &m_warnings, &m_infos})
        changesGutter |= marks->shift(position, charsRemoved, charsAdded, addedLines);
    if (changesGutter)
        m_lineNumbers->update();
    // Most changes move the caret, and everything is marked anew; the others are seen to later.
    if (!m_markedSearch.findText.isEmpty() && !m_matchesAreOld)
        QMetaObject::invokeMethod(this, "markChangedMatches", Qt::QueuedConnection);
    m_matchesAreOld = true;
}

void EdCodeEdit::markChangedMatches()
{
    if (m_matchesAreOld)
        updateExtraSelections();
}

// All kinds are made anew at every call; only what is visible is marked.
void EdCodeEdit::updateExtraSelections()
{
    // While it is cleared, which scrolls the view, a document has put its cursors aside, and takes
    // up again even those that went meanwhile. So the old selections stay for the moment.
    if (m_marksText && document()->isEmpty()) {
        QMetaObject::invokeMethod(this, "forgetMarkedText", Qt::QueuedConnection);
        return;
    }
    m_marksText = !document()->isEmpty();
    m_matchesAreOld = false;
    m_extraSelections.clear();
    if (!m_extraSelectionsEnabled)
        return;
    highlightCurrentLine();
    highlightMatches();
    highlightMatchedSelection();
    matchParenthesis();
    highlightErrors();
    setExtraSelections(m_extraSelections);
    if (!m_longLineSaid && isLong(textCursor().block())) {
        m_longLineSaid = true;
        emit longLineReached();
    }
}

void EdCodeEdit::forgetMarkedText()
{
    m_marksText = false;
    updateExtraSelections();
}

void EdCodeEdit::highlightCurrentLine()
{
    if (!isReadOnly())
        addCurrentLine(textCursor(), &m_extraSelections);
}

void EdCodeEdit::highlightMatches()
{
    if (!m_markedSearch.findText.isEmpty())
        addMatches(m_markedSearch, firstVisibleBlock(), lastVisibleBlock(), &m_extraSelections);
}

void EdCodeEdit::markMatches(const FindRequest &request)
{
    m_markedSearch = request;
    if (request.findText.isEmpty())
        m_searchedText.clear(); // as large as the text, and nobody is searching it any more
    updateExtraSelections();
}

int EdCodeEdit::matchCount(const FindRequest &request)
{
    return replaceableMatches(request, searchedText());
}

const QString &EdCodeEdit::searchedText()
{
    if (m_searchedText.isEmpty())
        m_searchedText = document()->toPlainText();
    return m_searchedText;
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
    if (m_errors.isEmpty() && m_warnings.isEmpty() && m_infos.isEmpty())
        return;
    const int line = firstVisibleBlock().blockNumber();
    addErrorUnderlines(m_errors, m_warnings, m_infos, line - linesAround,
                       line + mostVisibleLines() + linesAround, &m_extraSelections);
}

// Those of a page of lines without a wrap. To look for the last one in view takes many times
// longer.
int EdCodeEdit::mostVisibleLines() const
{
    return viewport()->height() / QFontMetrics(font()).lineSpacing() + 1;
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
    // An action of the host with the same keys would take them.
    if (event->type() == QEvent::ShortcutOverride &&
        isOwnKey(*static_cast<QKeyEvent *>(event), m_completer->isVisible())) {
        event->accept();
        return true;
    }
    if (event->type() == QEvent::ReadOnlyChange)
        updateExtraSelections(); // the current line is marked only where it can be edited
    if (event->type() == QEvent::ToolTip) {
        const QHelpEvent *help = static_cast<QHelpEvent *>(event);
        const QString message = messageAt(help->pos());
        if (!message.isEmpty()) {
            QToolTip::showText(help->globalPos(), message, this);
            event->ignore();
            return true;
        }
    }
    return QPlainTextEdit::event(event);
}

// The place is one of the editor, whose text begins behind the gutter. In the gutter it is the
// line that has a message, by its icon.
QString EdCodeEdit::messageAt(const QPoint &place) const
{
    const bool inGutter = place.x() < lineNumberWidth();
    const QPoint inText(inGutter ? place.x() : place.x() - lineNumberWidth(), place.y());
    const QTextCursor cursor = cursorForPosition(inText);
    if (inGutter && place.y() > cursorRect(cursor).bottom())
        return QString(); // below the last line
    for (const DiagnosticMarks *marks : {&m_errors, &m_warnings, &m_infos}) {
        if (inGutter && marks->lines().contains(cursor.blockNumber()))
            return marks->lines().value(cursor.blockNumber());
        if (const EdDiagnosticMark *mark = marks->at(cursor.position()))
            return mark->message;
    }
    return QString();
}
