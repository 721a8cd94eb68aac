// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>

class QLineEdit;

// Answers the next modal dialog that a test's call opens, and keeps what the dialog said. To be
// made before the call; a dialog that never comes leaves wasAsked() false.
class ModalAnswer : public QObject
{
    Q_OBJECT

public:
    // Clicks the button of this text, or closes the dialog for a text that no button has.
    explicit ModalAnswer(const QString &button);

    // What is entered before: the text of an input dialog, the number, the path of a file dialog,
    // the name of a colour.
    void enter(const QString &input) { m_input = input; }

    // Answers the dialog that follows as well; it is then the one that the functions below tell of.
    void thenPress(const QString &button) { m_nextButton = button; }

    bool wasAsked() const { return !m_title.isNull(); }
    QString title() const { return m_title; }
    // The message or the label.
    QString text() const { return m_text; }
    // Of the text that an input dialog offers, what typing replaces and what is seen.
    QString selection() const { return m_selection; }
    bool showsWholeText() const { return m_showsWholeText; }
    // Of a message.
    Qt::TextFormat textFormat() const { return m_textFormat; }
    // Their texts in alphabetical order: platforms place them differently.
    QStringList buttons() const { return m_buttons; }
    // The one that Return presses.
    QString defaultButton() const { return m_defaultButton; }

private slots:
    void answer();

private:
    bool turnToNext();
    void readDialog(QDialog *dialog);
    void readField(const QLineEdit *field);
    void enterInput(QDialog *dialog);
    void press(QDialog *dialog);

    QString m_button;
    QString m_nextButton;
    QString m_input;
    QString m_title;
    QString m_text;
    QString m_selection;
    bool m_showsWholeText = false;
    Qt::TextFormat m_textFormat = Qt::AutoText;
    QStringList m_buttons;
    QString m_defaultButton;
    QPointer<QDialog> m_dialog; // null before and after it
    int m_attempts = 0;
};
