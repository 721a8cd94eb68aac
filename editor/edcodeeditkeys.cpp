// SPDX-License-Identifier: MIT
// The keys of an editor.
#include "editor/edcodeedit.h"

#include "analysis/wordunits.h"
#include "editor/edcompleter.h"
#include "editor/editorlanguage.h"
#include "editor/linebreak.h"
#include "editor/melindent.h"
#include "preferences/preferences.h"

#include <QApplication>
#include <QKeyEvent>
#include <QToolTip>

namespace {

const Qt::KeyboardModifiers commandModifiers =
    Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;

bool isReturn(const QKeyEvent &event)
{
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

// What begins a name.
bool isLetter(QChar character)
{
    return isNameUnit(character.unicode()) && !character.isDigit();
}

// Those behind which there is nothing that could be completed.
bool endsCompletion(QChar character)
{
    return character == QLatin1Char('.') || character == QLatin1Char(' ') ||
           character == QLatin1Char('\t') || character == QChar(QChar::ParagraphSeparator);
}

} // namespace

// In this order: a key belongs to the first step that takes it.
const EdCodeEdit::KeyStep EdCodeEdit::keySteps[] = {
    &EdCodeEdit::hideToolTip,
    &EdCodeEdit::keypadEnterExecutes,
    &EdCodeEdit::plainReturnForShiftReturn,
    &EdCodeEdit::leaveKeyToPopup,
    &EdCodeEdit::returnKey,
    &EdCodeEdit::leaveSearchKeys,
    &EdCodeEdit::helpKeys,
    &EdCodeEdit::tabKeys,
    &EdCodeEdit::insertKey,
    &EdCodeEdit::homeKey,
    &EdCodeEdit::electricBrace,
    &EdCodeEdit::openingBracket,
    &EdCodeEdit::commandKeys,
    &EdCodeEdit::otherKey,
};

void EdCodeEdit::keyPressEvent(QKeyEvent *event)
{
    Key outcome = Key::Left;
    for (KeyStep step : keySteps) {
        outcome = (this->*step)(event);
        if (outcome != Key::Left)
            break;
    }
    if (outcome == Key::Typed && m_completer->isVisible())
        updateCompleter();
}

EdCodeEdit::Key EdCodeEdit::hideToolTip(QKeyEvent *)
{
    if (QToolTip::isVisible())
        QToolTip::hideText();
    return Key::Left;
}

// Pressed again as one of the window's shortcuts, and so comes back through keyPressEvent().
EdCodeEdit::Key EdCodeEdit::keypadEnterExecutes(QKeyEvent *event)
{
    const bool isKeypadEnter =
        event->key() == Qt::Key_Enter && (event->modifiers() & Qt::KeypadModifier);
    if (!isKeypadEnter || !preferences().numpadEnterExecutes ||
        (event->modifiers() & (commandModifiers | Qt::ShiftModifier)))
        return Key::Left;
    pressInstead(event->key(), Qt::ControlModifier);
    return Key::Taken;
}

// Qt would insert a line separator, which is no line break to MEL or Python.
EdCodeEdit::Key EdCodeEdit::plainReturnForShiftReturn(QKeyEvent *event)
{
    if (!isReturn(*event) || !(event->modifiers() & Qt::ShiftModifier) ||
        (event->modifiers() & (Qt::ControlModifier | Qt::MetaModifier)))
        return Key::Left;
    pressInstead(event->key(), Qt::NoModifier);
    return Key::Taken;
}

void EdCodeEdit::pressInstead(int key, Qt::KeyboardModifiers modifiers)
{
    QKeyEvent press(QEvent::KeyPress, key, modifiers);
    QApplication::sendEvent(this, &press);
}

EdCodeEdit::Key EdCodeEdit::leaveKeyToPopup(QKeyEvent *event)
{
    if (!m_completer->isVisible() || !EdCompleter::isKey(event->key()))
        return Key::Left;
    QApplication::sendEvent(m_completer, event);
    return Key::Taken;
}

// With a command modifier it is one of the window's shortcuts for executing.
EdCodeEdit::Key EdCodeEdit::returnKey(QKeyEvent *event)
{
    if (!isReturn(*event))
        return Key::Left;
    if (event->modifiers() & commandModifiers) {
        event->ignore();
        return Key::Taken;
    }
    if (isReadOnly())
        return Key::Left;
    QTextCursor cursor = textCursor();
    breakLine(cursor, m_language, indentStyle());
    setTextCursor(cursor);
    return Key::Typed;
}

EdCodeEdit::Key EdCodeEdit::leaveSearchKeys(QKeyEvent *event)
{
    if (event->key() != Qt::Key_F2 && event->key() != Qt::Key_F3)
        return Key::Left;
    event->ignore();
    return Key::Taken;
}

EdCodeEdit::Key EdCodeEdit::helpKeys(QKeyEvent *event)
{
    if (event->key() == Qt::Key_F4)
        quickHelp();
    else if (event->key() == Qt::Key_F5)
        commandDocumentation();
    else
        return Key::Left;
    return Key::Typed;
}

EdCodeEdit::Key EdCodeEdit::tabKeys(QKeyEvent *event)
{
    const bool isTab = event->key() == Qt::Key_Tab;
    if (!isTab && event->key() != Qt::Key_Backtab)
        return Key::Left;
    if (event->modifiers() & Qt::ControlModifier) {
        if (isTab)
            emit nextTabSelected();
        else
            emit previousTabSelected();
        return Key::Taken;
    }
    if (isTab)
        increaseIndent();
    else
        decreaseIndent();
    return Key::Typed;
}

// With a modifier it is a key of the clipboard.
EdCodeEdit::Key EdCodeEdit::insertKey(QKeyEvent *event)
{
    const bool isPlain = !(event->modifiers() & (commandModifiers | Qt::ShiftModifier));
    if (event->key() != Qt::Key_Insert || !isPlain)
        return Key::Left;
    toggleOverwriteMode();
    return Key::Typed;
}

EdCodeEdit::Key EdCodeEdit::homeKey(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Home || (event->modifiers() & Qt::AltModifier))
        return Key::Left;
    home(event->modifiers() & Qt::ShiftModifier, event->modifiers() & Qt::ControlModifier);
    return Key::Typed;
}

EdCodeEdit::Key EdCodeEdit::electricBrace(QKeyEvent *event)
{
    const QString typed = event->text();
    if (isReadOnly() || m_language != MelLanguage ||
        (typed != QLatin1String("{") && typed != QLatin1String("}")))
        return Key::Left;
    QTextCursor cursor = textCursor();
    if (typeMelBrace(cursor, typed.at(0), indentStyle()))
        setTextCursor(cursor);
    else
        QPlainTextEdit::keyPressEvent(event);
    return Key::Typed;
}

EdCodeEdit::Key EdCodeEdit::openingBracket(QKeyEvent *event)
{
    if (event->key() != Qt::Key_ParenLeft && event->key() != Qt::Key_BracketLeft &&
        event->key() != Qt::Key_BraceLeft)
        return Key::Left;
    QPlainTextEdit::keyPressEvent(event);
    return Key::Typed;
}

EdCodeEdit::Key EdCodeEdit::commandKeys(QKeyEvent *event)
{
    if (!(event->modifiers() & Qt::ControlModifier))
        return Key::Left;
    if (event->key() == Qt::Key_Space && !isReadOnly()) {
        m_completer->begin(EdCompleter::OnDemand, m_language);
        return Key::Taken;
    }
    if (event->modifiers() & (Qt::AltModifier | Qt::MetaModifier | Qt::ShiftModifier))
        return Key::Left;
    if (event->key() == Qt::Key_D)
        duplicateText();
    else if (event->key() == Qt::Key_L)
        deleteLines();
    else
        return Key::Left;
    return Key::Typed;
}

EdCodeEdit::Key EdCodeEdit::otherKey(QKeyEvent *event)
{
    if (m_completer->isVisible())
        hidePopupFor(*event);
    const bool startedWord = !(event->modifiers() & commandModifiers) && startsWord();
    QPlainTextEdit::keyPressEvent(event);
    if (isReadOnly())
        return Key::Taken;
    return m_completer->isVisible() ? Key::Typed : beginCompletion(event->text(), startedWord);
}

// Some keyboards, those on screens too, have only this way to type, and all of them for signs that
// are composed.
void EdCodeEdit::inputMethodEvent(QInputMethodEvent *event)
{
    const bool startedWord = startsWord();
    QPlainTextEdit::inputMethodEvent(event);
    if (!isReadOnly() && event->preeditString().isEmpty() && !m_completer->isVisible())
        beginCompletion(event->commitString(), startedWord);
}

// What is typed now. In a word that is being completed nothing starts.
bool EdCodeEdit::startsWord() const
{
    const int position = textCursor().position();
    return !m_completer->isVisible() &&
           (position == 0 || !isNameUnit(characterBefore(position).unicode()));
}

void EdCodeEdit::hidePopupFor(const QKeyEvent &event)
{
    const int position = textCursor().position();
    const bool leavesWord = event.key() == Qt::Key_Backspace && position > 0 &&
                            endsCompletion(characterBefore(position));
    if (leavesWord || event.key() == Qt::Key_Left || event.key() == Qt::Key_Right)
        m_completer->hide();
}

// Always Taken: a popup that comes up now has just been told everything.
EdCodeEdit::Key EdCodeEdit::beginCompletion(const QString &typed, bool startedWord)
{
    if (typed == QLatin1String(".") && m_language == PythonLanguage &&
        preferences().pythonCompleteOnPeriod)
        m_completer->begin(EdCompleter::OnPeriod, m_language);
    else if (startedWord && typed.size() == 1 && isLetter(typed.at(0)))
        m_completer->begin(EdCompleter::OnLetters, m_language);
    return Key::Taken;
}

QChar EdCodeEdit::characterBefore(int position) const
{
    return document()->characterAt(position - 1);
}
