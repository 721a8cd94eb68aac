// SPDX-License-Identifier: MIT
#pragma once

#include "standin/host/outputhistory.h"

#include <QPlainTextEdit>

namespace standin {

class Session;

// An input for scripts of one language; Ctrl+Enter and the keypad's Enter run the selection, or
// everything and then clear the field.
class ExecuterField : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit ExecuterField(Session &session, QWidget *parent = nullptr);

    Language language() const { return m_language; }
    void setLanguage(Language language) { m_language = language; }

public slots:
    void execute();
    void executeAll();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void run(QString text);

    Session &m_session;
    Language m_language = Language::Mel;
};

} // namespace standin
