// SPDX-License-Identifier: MIT
#include "standin/ui/executerfield.h"

#include "standin/host/session.h"
#include "standin/host/utf8.h"
#include "standin/ui/fonts.h"

#include <QKeyEvent>
#include <QTextCursor>

namespace standin {

ExecuterField::ExecuterField(Session &session, QWidget *parent)
    : QPlainTextEdit(parent), m_session(session)
{
    setFont(codeFont());
    setLineWrapMode(QPlainTextEdit::NoWrap);
}

void ExecuterField::execute()
{
    if (textCursor().hasSelection()) {
        run(textCursor().selectedText());
        return;
    }
    // Nothing is lost by clearing: what runs is echoed in the history.
    const QString text = toPlainText();
    clear();
    run(text);
}

void ExecuterField::executeAll()
{
    run(toPlainText());
}

// Queued, for the script may delete this field.
void ExecuterField::run(QString text)
{
    // Selected text has this character for a line break.
    text.replace(QChar::ParagraphSeparator, '\n');
    if (m_language == Language::Mel)
        m_session.executeMelOnIdle(toUtf8(text), true);
    else
        m_session.executePythonOnIdle(toUtf8(text), true);
}

void ExecuterField::keyPressEvent(QKeyEvent *event)
{
    // The two keys differ in code: Return is the one among the letters.
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool isKeypad = event->key() == Qt::Key_Enter;
    if (isKeypad || (isReturn && (event->modifiers() & Qt::ControlModifier)))
        execute();
    else
        QPlainTextEdit::keyPressEvent(event);
}

} // namespace standin
