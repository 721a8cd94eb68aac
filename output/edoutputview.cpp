// SPDX-License-Identifier: MIT
#include "output/edoutputview.h"

#include "compat/text.h"
#include "preferences/textcolors.h"
#include "preferences/textformats.h"

#include <QApplication>
#include <QCursor>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTextBlock>

#include <algorithm>

namespace {

const int frame = 16;            // ms; messages closer than this are a burst
const int insertionBudget = 8;   // ms of inserting per slice, so that marks and paint fit a frame
const int repaintInterval = 250; // ms; scripts that never return to the event loop are seen to run
// How far above the view a message may begin and still be coloured in it.
const int regionAbove = 30000; // characters
const int regionBelow = 30;    // pixels, so that a line that is seen by half is marked

bool isPointerInput(QEvent::Type type)
{
    return type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick ||
           type == QEvent::Wheel;
}

QTextEdit::ExtraSelection extraSelection(const OutputMark &mark, QTextDocument *document)
{
    QTextEdit::ExtraSelection selection;
    selection.format = textFormat(mark.category).charFormat();
    selection.cursor = QTextCursor(document);
    selection.cursor.setPosition(mark.start);
    selection.cursor.setPosition(mark.end, QTextCursor::KeepAnchor);
    return selection;
}

} // namespace

EdOutputView::EdOutputView(QWidget *parent) : QPlainTextEdit(parent)
{
    setReadOnly(true);
    setUndoRedoEnabled(false); // the history of a session would be kept a second time
    m_frame.setSingleShot(true);
    connect(&m_frame, SIGNAL(timeout()), SLOT(showGathered()));
    applyColors();
    // Only what is visible is marked, so whatever changes that marks anew.
    connect(verticalScrollBar(), SIGNAL(valueChanged(int)), SLOT(updateExtraSelections()));
    connect(verticalScrollBar(), SIGNAL(rangeChanged(int, int)), SLOT(updateExtraSelections()));
    connect(this, SIGNAL(selectionChanged()), SLOT(updateExtraSelections()));
    m_sinceRepaint.start();
}

void EdOutputView::appendText(const QString &text)
{
    const bool isLone =
        !m_frame.isActive() && (!m_sinceMessage.isValid() || m_sinceMessage.elapsed() >= frame);
    m_sinceMessage.start();
    // Also the lone message goes by way of the backlog, behind what may still wait there.
    m_backlog.add(text, maximumBlockCount());
    // Within a burst no frame may ever come, so the screen also follows at its own pace.
    if (isLone || m_sinceRepaint.elapsed() > repaintInterval)
        showGathered();
    else if (!m_frame.isActive() && isVisible())
        m_frame.start(frame);
}

// One slice: as much as fits into a frame, the rest in the next.
void EdOutputView::showGathered()
{
    if (m_backlog.isEmpty() || !isVisible())
        return;
    insertParts(insertionBudget);
    if (m_backlog.isEmpty())
        m_frame.stop();
    else
        m_frame.start(0); // as soon as the events that wait have had their turn
    if (m_sinceRepaint.elapsed() > repaintInterval) {
        viewport()->repaint(); // now: update() would wait for an event loop that may not come
        m_sinceRepaint.start();
    }
}

void EdOutputView::flush()
{
    if (isVisible() && !m_backlog.isEmpty())
        insertParts(-1);
}

// Inserts gathered text for about so many milliseconds, all of it for a negative number.
void EdOutputView::insertParts(int milliseconds)
{
    QElapsedTimer spent;
    spent.start();
    m_inserting = true;
    // A cursor of its own, so that the view's does not move with each part.
    QTextCursor cursor(document());
    cursor.movePosition(QTextCursor::End);
    do {
        cursor.insertText(m_backlog.takePart());
    } while (!m_backlog.isEmpty() && (milliseconds < 0 || spent.elapsed() < milliseconds));
    setTextCursor(cursor);
    scrollToNewest();
    m_inserting = false;
    updateExtraSelections();
}

// To the left as well: the caret behind a long line may have drawn the view to the right.
void EdOutputView::scrollToNewest()
{
    verticalScrollBar()->setValue(verticalScrollBar()->maximum());
    horizontalScrollBar()->setValue(horizontalScrollBar()->minimum());
}

void EdOutputView::clearText()
{
    m_frame.stop();
    m_backlog.clear(); // or it would appear in the empty view
    clear();
    updateExtraSelections();
}

void EdOutputView::setLineLimit(int lines)
{
    flush();
    setMaximumBlockCount(lines);
}

void EdOutputView::setTabWidth(int columns)
{
    m_tabWidth = columns;
    applyTextOption();
}

// Never wraps: a trace is read by its line beginnings, and layout is cheaper.
void EdOutputView::applyTextOption()
{
    QTextOption option = document()->defaultTextOption();
    option.setWrapMode(QTextOption::NoWrap);
    compat::setTabStop(option, m_tabWidth * compat::blankWidth(font()));
    document()->setDefaultTextOption(option);
}

void EdOutputView::applyColors()
{
    setFont(outputFont());
    applyTextOption(); // tab stops go by the font
    setTextColors(this, textFormat(OutputText::Plain), textFormat(OutputText::Selected));
    updateExtraSelections();
}

void EdOutputView::updateExtraSelections()
{
    if (m_inserting)
        return;
    QList<QTextEdit::ExtraSelection> selections;
    for (const OutputMark &mark : visibleMarks())
        selections << extraSelection(mark, document());
    setExtraSelections(selections);
}

// Messages first, so that the occurrences of a word lie on top of them.
std::vector<OutputMark> EdOutputView::visibleMarks() const
{
    if (document()->isEmpty())
        return {};
    const int top = cursorForPosition(QPoint(0, 0)).position();
    const int bottom = cursorForPosition(QPoint(0, height() + regionBelow)).position();
    OutputRegion region(*document(), std::max(0, top - regionAbove), bottom);
    std::vector<OutputMark> marks = region.messages();
    if (!isSelectionDragged()) {
        const auto words = region.occurrences(textCursor().selectedText());
        marks.insert(marks.end(), words.begin(), words.end());
    }
    return marks;
}

// While the mouse still pulls at a selection, marks of its words would only flicker. Asks for where
// the pointer is rather than for this view's own state: a drag that began elsewhere counts too.
bool EdOutputView::isSelectionDragged() const
{
    if (!(QApplication::mouseButtons() & Qt::LeftButton))
        return false;
    const QWidget *under = QApplication::widgetAt(QCursor::pos());
    // The name that Qt gives the viewport of every scroll area.
    return under && under->objectName() == QLatin1String("qt_scrollarea_viewport");
}

// What the user does comes after all that arrived before it: shown later, that text would take the
// new selection or scroll position away again.
bool EdOutputView::viewportEvent(QEvent *event)
{
    if (isPointerInput(event->type()))
        flush();
    return QPlainTextEdit::viewportEvent(event);
}

void EdOutputView::keyPressEvent(QKeyEvent *event)
{
    flush();
    QPlainTextEdit::keyPressEvent(event);
}

// The view counts as visible already, so what it gathered while hidden is there when it is painted.
void EdOutputView::showEvent(QShowEvent *event)
{
    showGathered();
    QPlainTextEdit::showEvent(event);
}

// Who looks at the newest line goes on doing so, also when all lines were in view for a while.
void EdOutputView::resizeEvent(QResizeEvent *event)
{
    const bool showsNewest = verticalScrollBar()->value() == verticalScrollBar()->maximum();
    QPlainTextEdit::resizeEvent(event);
    if (showsNewest)
        verticalScrollBar()->setValue(verticalScrollBar()->maximum());
    updateExtraSelections();
}

void EdOutputView::mouseReleaseEvent(QMouseEvent *event)
{
    QPlainTextEdit::mouseReleaseEvent(event);
    // The drag is over: its words are marked now.
    updateExtraSelections();
}
