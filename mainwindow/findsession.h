// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>

class EdCodeEdit;
class FindReplaceDialog;

// The Find/Replace dialog of a window and what goes with it: while it is seen, the active editor
// marks the matches, and the dialog tells their number. The dialog is made when it is first asked
// for; requests of it go to the window's own slots. Owned by the window.
class FindSession : public QObject
{
    Q_OBJECT

public:
    // The window has slots findReplace(QString, QString, int) and replace(QString).
    explicit FindSession(QWidget *window);

    // Null when no document is open.
    void setEditor(EdCodeEdit *edit);
    // Looks for what is selected, if that is within a line, or else for the text of last time.
    void openDialog();
    // Finds what was looked for last, whatever the direction chosen; opens the dialog when there is
    // nothing yet. The options are those of FindRequest.
    void repeat(int options);
    void closeDialog();

public slots:
    void showMessage(const QString &message);

signals:
    // The text that it was about has changed, or is not the active one any more.
    void messageOutdated(const QString &message);

private slots:
    void keepPlace(bool backward);
    void updateMarks();
    void followText();
    void count();

private:
    bool isSeen() const;
    void countLater();
    void dropMessage();
    int revision() const;
    FindReplaceDialog *dialog();
    void placeDialog();

    QWidget *m_window;
    FindReplaceDialog *m_dialog = nullptr; // the window's child
    QPointer<EdCodeEdit> m_edit;
    QString m_message;         // the last one, while it is true
    int m_messageRevision = 0; // of the text that it is about
    QTimer m_pause;            // in typing, after which matches are counted
};
