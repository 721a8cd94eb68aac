// SPDX-License-Identifier: MIT
#pragma once

#include "standin/host/outputhistory.h"

#include <QPlainTextEdit>

namespace standin {

class Session;

// An input for scripts of one language; Ctrl+Enter and the keypad's Enter run the selection, or
// everything and then clear the field. Scripts run at idle, echoed, and may delete the field.
class ExecuterField : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit ExecuterField(Session &session, QWidget *parent = nullptr);

    Language language() const { return m_language; }
    void setLanguage(Language language) { m_language = language; }

public slots:
    // What the keys do.
    void execute();
    // Keeps the text, whatever is selected.
    void executeAll();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    // The text is changed on the way, hence by value.
    void run(QString text);

    Session &m_session;
    Language m_language = Language::Mel;
};

} // namespace standin
