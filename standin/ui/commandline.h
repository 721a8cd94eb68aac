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
// that opens the script editor.
class CommandLine : public QWidget
{
    Q_OBJECT

public:
    explicit CommandLine(QWidget *parent = nullptr);

    QLineEdit *input() const { return m_input; }
    QToolButton *scriptEditorButton() const { return m_scriptEditorButton; }
    Language language() const { return m_language; }

    void showMessage(mel::MessageKind kind, const QString &text);

public slots:
    void switchLanguage();

signals:
    // `language` is a standin::Language.
    void entered(const QString &text, int language);

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private slots:
    void enter();

private:
    void recall(int step);

    QToolButton *m_languageButton;
    QLineEdit *m_input;
    QLineEdit *m_result;
    QToolButton *m_scriptEditorButton;
    Language m_language = Language::Mel;
    QStringList m_entered;
    int m_recalled = 0; // index into what was entered; its size: the line being written
};

} // namespace standin
