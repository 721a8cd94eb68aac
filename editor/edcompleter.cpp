// SPDX-License-Identifier: MIT
#include "editor/edcompleter.h"

#include "analysis/wordunits.h"
#include "compat/popup.h"
#include "compat/screen.h"
#include "compat/text.h"
#include "editor/completionmodel.h"
#include "editor/editorlanguage.h"
#include "preferences/preferences.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextBlock>

#include <algorithm>
#include <cstdlib>

namespace {

const Qt::KeyboardModifiers commandModifiers =
    Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;

const int longestAnswer = 100; // ms; a longer one is not waited for again while typing
const int fewestLetters = 2;   // that mean a completion where nobody has asked for any
const int mostRows = 12;       // that are seen at once
const int fewestColumns = 24;  // of characters
const int mostColumns = 56;
const int iconWidth = 16; // pixels
const int rowMargin = 4;
const int besideText = 40; // pixels: the icon, the scroll bar and what is around them

bool isSwitchedOn(EdCompleter::Trigger trigger, int language)
{
    const Preferences &chosen = preferences();
    if (language == PythonLanguage) {
        switch (trigger) {
        case EdCompleter::OnDemand:
            return chosen.pythonCompleteOnUser;
        case EdCompleter::OnPeriod:
            return chosen.pythonCompleteOnPeriod;
        case EdCompleter::OnLetters:
            return chosen.pythonCompleteOnLetters;
        }
    }
    if (language == MelLanguage) {
        return trigger == EdCompleter::OnDemand    ? chosen.melCompleteOnUser
               : trigger == EdCompleter::OnLetters ? chosen.melCompleteOnLetters
                                                   : false;
    }
    return false;
}

// A name with the sign that some kinds of it begin with.
bool isCompletable(const QString &text)
{
    const auto belongs = [&text](int i) {
        const QChar unit = text.at(i);
        return isWordUnit(text.constData(), int(text.size()), i) ||
               (i == 0 && (unit == QLatin1Char('$') || unit == QLatin1Char('-')));
    };
    for (int i = 0; i < text.size(); ++i) {
        if (!belongs(i))
            return false;
    }
    return true;
}

// Of an action, which the popup would outlive: Ctrl+Enter executes.
bool isShortcut(const QEvent &event)
{
    if (event.type() != QEvent::ShortcutOverride)
        return false;
    const QKeyEvent &key = static_cast<const QKeyEvent &>(event);
    return EdCompleter::isKey(key.key()) && (key.modifiers() & commandModifiers);
}

// Where a list of that size goes: below the word's first letter or above it, inside the screen.
QRect placeBeside(const QRect &letter, QSize size, bool above, const QRect &screen)
{
    size = size.boundedTo(screen.size());
    const int left = std::clamp(letter.left(), screen.left(), screen.right() + 1 - size.width());
    return QRect(QPoint(left, above ? letter.top() - size.height() : letter.bottom() + 1), size);
}

// The window is never the active one, which must not show; and its frame, drawn in the colour of
// text, would be a glaring one.
QPalette popupPalette(QPalette palette)
{
    for (QPalette::ColorRole role : {QPalette::Highlight, QPalette::HighlightedText})
        palette.setColor(QPalette::Inactive, role, palette.color(QPalette::Active, role));
    QColor frame = palette.color(QPalette::WindowText);
    frame.setAlpha(90);
    palette.setColor(QPalette::WindowText, frame);
    return palette;
}

} // namespace

EdCompleter::EdCompleter(QPlainTextEdit *editor)
    : QListView(editor), m_editor(editor), m_model(new CompletionModel(this))
{
    setObjectName(QLatin1String("completer"));
    setWindowFlags(compat::popupFlags());
    setUpdatesEnabled(true); // the editor's parent may be made without; a window is not told later
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFocusPolicy(Qt::NoFocus); // the caret stays in the editor
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setUniformItemSizes(true);
    setTextElideMode(Qt::ElideMiddle); // long names often differ at their ends only
    setIconSize(QSize(iconWidth, iconWidth));
    setEditTriggers(NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setModel(m_model);
    connect(m_editor, SIGNAL(cursorPositionChanged()), SLOT(followText()));
    connect(m_editor, SIGNAL(selectionChanged()), SLOT(followText()));
    for (QScrollBar *bar : {editor->verticalScrollBar(), editor->horizontalScrollBar()})
        connect(bar, SIGNAL(actionTriggered(int)), SLOT(hide())); // by the user
    connect(this, SIGNAL(clicked(QModelIndex)), SLOT(chooseClicked(QModelIndex)));
}

EdCompleter::~EdCompleter() = default;

void EdCompleter::setSource(std::unique_ptr<CompletionSource> source)
{
    hide();
    m_source = std::move(source);
}

void EdCompleter::begin(Trigger trigger, int language)
{
    m_language = language;
    m_isUnasked = trigger == OnLetters;
    hide();
    const bool isUnwanted = trigger == OnLetters && m_lettersOff;
    if (!m_source || isUnwanted || !isSwitchedOn(trigger, language))
        return;
    if (trigger == OnDemand)
        m_source->refresh(m_editor->document());
    Completions found = ask();
    m_start = m_editor->textCursor().position() - found.prefixLength;
    m_beganEmpty = found.prefixLength == 0;
    m_model->setCompletions(std::move(found.items));
    m_isAbove = false;
    updateCompletions();
}

Completions EdCompleter::ask()
{
    QElapsedTimer clock;
    clock.start();
    Completions found = m_source->completionsAt(m_editor->textCursor());
    m_lettersOff = clock.elapsed() > longestAnswer;
    if (m_lettersOff && !m_saidLettersOff && isSwitchedOn(OnLetters, m_language)) {
        m_saidLettersOff = true;
        emit lettersSwitchedOff();
    }
    return found;
}

void EdCompleter::updateCompletions()
{
    if (!isInWord())
        return hide();
    const QString typed = typedText();
    if (isVisible() && typed == m_narrowedBy)
        return;
    m_narrowedBy = typed;
    m_model->narrow(typed);
    if (offersNothingNew(typed))
        return hide();
    setCurrentIndex(m_model->index(0));
    place();
    show();
}

bool EdCompleter::isInWord() const
{
    const QTextCursor caret = m_editor->textCursor();
    if (caret.hasSelection() || caret.position() < m_start || m_start < caret.block().position())
        return false;
    const QString typed = typedText();
    return typed.isEmpty() ? m_beganEmpty : isCompletable(typed);
}

QString EdCompleter::typedText() const
{
    const QTextCursor caret = m_editor->textCursor();
    const int column = m_start - caret.block().position();
    return caret.block().text().mid(column, caret.position() - m_start);
}

bool EdCompleter::offersNothingNew(const QString &typed) const
{
    const int count = m_model->rowCount();
    return count == 0 || (count == 1 && m_model->completion(0).text == typed);
}

// Not all that is typed comes as a key: input methods commit text, and it can be pasted.
void EdCompleter::followText()
{
    if (isVisible())
        updateCompletions();
}

void EdCompleter::hideOutsideWord()
{
    if (isVisible() && !isInWord())
        hide();
}

// On one side of the line for as long as it is visible, however many rows there are.
void EdCompleter::place()
{
    QTextCursor start = m_editor->textCursor();
    start.setPosition(m_start);
    const QWidget *view = m_editor->viewport();
    QRect letter = m_editor->cursorRect(start);
    letter.moveLeft(std::clamp(letter.left(), 0, view->width()));
    letter.moveTopLeft(view->mapToGlobal(letter.topLeft()));
    const QRect screen = compat::availableGeometry(m_editor);
    const int above = letter.top() - screen.top();
    const int below = screen.bottom() - letter.bottom();
    if (!isVisible()) {
        setPalette(popupPalette(QApplication::palette(this)));
        setFont(m_editor->font());
        m_model->setRowHeight(std::max(fontMetrics().height(), iconWidth) + rowMargin);
        m_isAbove = sizeOfRows(mostRows).height() > below && above > below;
    }
    QSize size = sizeOfRows(std::min(m_model->rowCount(), mostRows));
    size.setHeight(std::min(size.height(), m_isAbove ? above : below));
    setGeometry(placeBeside(letter, size, m_isAbove, screen));
}

// As wide for a few rows as for all, so that it does not change with every letter.
QSize EdCompleter::sizeOfRows(int rows) const
{
    const int columns = std::clamp(m_model->longestText(), fewestColumns, mostColumns);
    const int textWidth = compat::textWidth(fontMetrics(), QString(columns, QLatin1Char('m')));
    const int frame = 2 * frameWidth();
    return QSize(textWidth + besideText + frame, rows * m_model->rowHeight() + frame);
}

bool EdCompleter::isKey(int key)
{
    switch (key) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        return true;
    default:
        return false;
    }
}

// What the popup has no use for must not come back to the editor, which has handed it over.
void EdCompleter::keyPressEvent(QKeyEvent *event)
{
    event->accept();
    if (event->modifiers() & commandModifiers)
        return hide();
    switch (event->key()) {
    case Qt::Key_Tab:
        return choose(currentIndex().row(), Replaced::Word);
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return returnKey(event);
    case Qt::Key_Escape:
        return hide();
    case Qt::Key_Up:
    case Qt::Key_Backtab:
        return moveCurrent(-1);
    case Qt::Key_Down:
        return moveCurrent(1);
    case Qt::Key_PageUp:
        return moveCurrent(1 - mostRows);
    case Qt::Key_PageDown:
        return moveCurrent(mostRows - 1);
    default:
        return;
    }
}

// Whoever has typed a word to its end means the line.
void EdCompleter::returnKey(QKeyEvent *event)
{
    const int row = currentIndex().row();
    if (row < 0 || !isWholeWord(row))
        return choose(row, Replaced::Typed);
    hide();
    QApplication::sendEvent(m_editor, event);
}

// Such as no row has, too: in a list that nobody asked for or moved in, a single letter may be a
// name of its own.
bool EdCompleter::isWholeWord(int row) const
{
    const QString typed = typedText();
    const int letters = int(typed.size()) - int(typed.startsWith(QLatin1Char('$')));
    return m_model->completion(row).text == typed || (m_isUnasked && letters < fewestLetters);
}

// From one end to the other by a single row only.
void EdCompleter::moveCurrent(int rows)
{
    m_isUnasked = false;
    const int count = m_model->rowCount();
    const int row = currentIndex().row() + rows;
    const bool wraps = std::abs(rows) == 1;
    setCurrentIndex(m_model->index(wraps ? (row + count) % count : std::clamp(row, 0, count - 1)));
}

void EdCompleter::chooseClicked(const QModelIndex &index)
{
    choose(index.row(), Replaced::Typed);
}

// Receivers may change the text, and what is offered with it.
void EdCompleter::choose(int row, Replaced replaced)
{
    hide();
    if (row < 0 || row >= m_model->rowCount())
        return;
    const Completion chosen = m_model->completion(row);
    if (replaced == Replaced::Word)
        goToWordEnd();
    const QString former = typedText();
    if (former != chosen.text)
        emit activated(chosen.text, int(former.size()));
    if (chosen.kind == CompletionKind::Command)
        emit commandChosen(chosen.text);
}

void EdCompleter::goToWordEnd()
{
    QTextCursor caret = m_editor->textCursor();
    const QString line = caret.block().text();
    int column = caret.position() - caret.block().position();
    while (column < line.size() && isWordUnit(line.constData(), int(line.size()), column))
        ++column;
    caret.setPosition(caret.block().position() + column);
    m_editor->setTextCursor(caret);
}

// Only while there is something to hide.
void EdCompleter::showEvent(QShowEvent *event)
{
    m_editor->installEventFilter(this);
    m_editor->viewport()->installEventFilter(this);
    m_editor->window()->installEventFilter(this);
    QListView::showEvent(event);
}

void EdCompleter::hideEvent(QHideEvent *event)
{
    m_editor->removeEventFilter(this);
    m_editor->viewport()->removeEventFilter(this);
    m_editor->window()->removeEventFilter(this);
    QListView::hideEvent(event);
}

// Other widgets than these are those of this scroll area itself.
bool EdCompleter::eventFilter(QObject *watched, QEvent *event)
{
    const QEvent::Type type = event->type();
    bool hides = false;
    if (watched == m_editor->viewport()) // which also changes its size while typing
        hides = type == QEvent::MouseButtonPress || type == QEvent::Wheel;
    else if (watched == m_editor || watched == m_editor->window())
        hides = type == QEvent::FocusOut || type == QEvent::Hide || type == QEvent::Move ||
                type == QEvent::Resize || isShortcut(*event);
    if (hides)
        hide();
    return QListView::eventFilter(watched, event);
}
