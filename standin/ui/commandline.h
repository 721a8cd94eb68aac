// SPDX-License-Identifier: MIT
#pragma once

#include "standin/host/outputhistory.h"
#include "standin/mel/host.h"

#include <QStringList>
#include <QWidget>

class QLineEdit;
class QToolButton;

namespace standin {

// The strip at the bottom of the main window: language switch, input, last message, and the button
// that opens the script editor. It runs nothing itself: what is entered goes out as a signal. The
// button's script is set from outside, as the host's own library and plug-ins expect.
class CommandLine : public QWidget
{
    Q_OBJECT

public:
    explicit CommandLine(QWidget *parent = nullptr);

    QLineEdit *input() const { return m_input; }
    QToolButton *scriptEditorButton() const { return m_scriptEditorButton; }
    Language language() const { return m_language; }

    // The last line of the message, coloured for errors and warnings; echoed scripts are not shown.
    void showMessage(mel::MessageKind kind, const QString &text);

public slots:
    // Between MEL and Python; what has been typed stays.
    void switchLanguage();

signals:
    // `language` is a standin::Language.
    void entered(const QString &text, int language);

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private slots:
    void enter();

private:
    // Goes through what was entered, up by -1 and down by 1; past either end nothing happens.
    void recall(int step);

    // Children; they go with this widget.
    QToolButton *m_languageButton;
    QLineEdit *m_input;
    QLineEdit *m_result;
    QToolButton *m_scriptEditorButton;
    Language m_language = Language::Mel;
    // Of both languages, oldest first; the same text twice running is kept once.
    QStringList m_entered;
    int m_recalled = 0; // index into what was entered; its size: the line being written
};

} // namespace standin
