// SPDX-License-Identifier: MIT
#include "standin/ui/reporterfield.h"

#include "standin/host/session.h"
#include "standin/host/utf8.h"
#include "standin/ui/fonts.h"
#include "standin/ui/userinterface.h"

#include <QScrollBar>
#include <QTextCursor>

namespace standin {

ReporterField::ReporterField(UserInterface &ui, QWidget *parent) : QPlainTextEdit(parent), m_ui(ui)
{
    setReadOnly(true);
    // Else every message would be kept a second time, to be undone.
    setUndoRedoEnabled(false);
    setFont(codeFont());
    showHistory();
    connect(&ui.session(), SIGNAL(historyGrew(QString)), SLOT(append(QString)));
}

void ReporterField::setFilter(std::optional<Language> language)
{
    if (language == m_filter)
        return;
    m_filter = language;
    showHistory();
}

void ReporterField::showHistory()
{
    QString text;
    if (!m_filter)
        text = toQt(m_ui.session().history().text());
    else {
        for (const UserInterface::HistoryPiece &piece : m_ui.historyPieces()) {
            if (piece.language == *m_filter)
                text += piece.text;
        }
    }
    setPlainText(text);
    moveCursor(QTextCursor::End);
}

void ReporterField::append(const QString &shownText)
{
    if (m_filter && m_ui.session().history().language() != *m_filter)
        return;
    // Follows the end only when it is in sight.
    const bool follows = verticalScrollBar()->value() == verticalScrollBar()->maximum();
    // A cursor of its own, so that the user's selection stays.
    QTextCursor end(document());
    end.movePosition(QTextCursor::End);
    end.insertText(shownText);
    if (follows)
        verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}

} // namespace standin
