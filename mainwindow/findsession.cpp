// SPDX-License-Identifier: MIT
#include "mainwindow/findsession.h"

#include "editor/edcodeedit.h"
#include "editor/findreplacedialog.h"

#include <algorithm>

namespace {

const int pauseBeforeCount = 200;  // milliseconds
const int distanceFromCorner = 24; // pixels

} // namespace

FindSession::FindSession(QWidget *window) : QObject(window), m_window(window)
{
    m_pause.setSingleShot(true);
    m_pause.setInterval(pauseBeforeCount);
    connect(&m_pause, SIGNAL(timeout()), SLOT(count()));
}

FindReplaceDialog *FindSession::dialog()
{
    if (m_dialog)
        return m_dialog;
    m_dialog = new FindReplaceDialog(m_window);
    connect(m_dialog, SIGNAL(findReplaceSelected(QString, QString, int)), m_window,
            SLOT(findReplace(QString, QString, int)));
    connect(m_dialog, SIGNAL(replaceSelected(QString)), m_window, SLOT(replace(QString)));
    connect(m_dialog, SIGNAL(typed(bool)), SLOT(keepPlace(bool)));
    connect(m_dialog, SIGNAL(searchChanged()), SLOT(updateMarks()));
    placeDialog();
    return m_dialog;
}

// Where it hides little of the text.
void FindSession::placeDialog()
{
    m_dialog->adjustSize();
    const int x = m_window->width() - m_dialog->width() - distanceFromCorner;
    m_dialog->move(m_window->mapToGlobal(QPoint(std::max(x, 0), distanceFromCorner)));
}

void FindSession::setEditor(EdCodeEdit *edit)
{
    if (!edit || m_edit != edit)
        dropMessage();
    if (m_edit && m_edit != edit) {
        m_edit->disconnect(this);
        m_edit->markMatches(FindRequest());
    }
    if (edit && m_edit != edit)
        connect(edit, SIGNAL(textChanged()), SLOT(followText()));
    m_edit = edit;
    updateMarks(); // also when the last one has gone
}

void FindSession::openDialog()
{
    const QString selected = m_edit ? m_edit->textCursor().selectedText() : QString();
    dropMessage();
    const bool isOneLine = !selected.contains(QChar(QChar::ParagraphSeparator));
    dialog()->openFor(isOneLine ? selected : QString());
}

void FindSession::repeat(int options)
{
    if (m_dialog && !m_dialog->search().findText.isEmpty())
        m_dialog->find(options, true);
    else
        openDialog();
}

void FindSession::closeDialog()
{
    if (m_dialog)
        m_dialog->close();
}

void FindSession::showMessage(const QString &message)
{
    m_message = message;
    m_messageRevision = revision();
    if (m_dialog)
        m_dialog->showMessage(message);
}

void FindSession::dropMessage()
{
    if (m_message.isEmpty())
        return;
    emit messageOutdated(m_message);
    showMessage(QString());
}

int FindSession::revision() const
{
    return m_edit ? m_edit->document()->revision() : 0;
}

bool FindSession::isSeen() const
{
    return m_dialog && m_dialog->isVisible();
}

// A search goes on behind what is selected. While its text is typed, that is what the beginning of
// the text has found, and most likely the place of the whole.
void FindSession::keepPlace(bool backward)
{
    if (!m_edit)
        return;
    QTextCursor cursor = m_edit->textCursor();
    cursor.setPosition(backward ? cursor.selectionEnd() : cursor.selectionStart());
    m_edit->setTextCursor(cursor);
}

void FindSession::updateMarks()
{
    if (m_edit)
        m_edit->markMatches(isSeen() ? m_dialog->search() : FindRequest());
    countLater();
}

// Colours count as a change too.
void FindSession::followText()
{
    if (revision() != m_messageRevision)
        dropMessage();
    countLater();
}

void FindSession::countLater()
{
    if (isSeen())
        m_pause.start();
}

void FindSession::count()
{
    if (!isSeen())
        return;
    const FindRequest search = m_dialog->search();
    const bool isAsked = m_edit && !search.findText.isEmpty();
    m_dialog->showCount(isAsked ? m_edit->matchCount(search) : -1);
}
