// SPDX-License-Identifier: MIT
#pragma once

#include "standin/ui/userinterface.h"
#include "tests/standin/host/testsession.h"

#include <QApplication>
#include <QEvent>

#include <optional>

// A session with its windows, nobody in front of them.
class UiSession
{
public:
    UiSession() { open(); }

    TestSession &session() { return m_session; }
    standin::UserInterface &ui() { return *m_ui; }

    // The value of a text, or its error message as "error: text".
    QString answer(const QString &text)
    {
        m_session.takeMessages();
        const QString value = m_session.value(text);
        const QStringList messages = m_session.takeMessages();
        return value == "(failed)" && !messages.isEmpty() ? messages.last() : value;
    }

    // What an element's object is; null when there is none of the name.
    template <typename Object>
    Object *object(const char *name)
    {
        const standin::Element *element = m_ui->tree().find(name);
        return element ? qobject_cast<Object *>(element->object) : nullptr;
    }

    // The objects of removed elements live until the event loop is reached; this is as good.
    static void deleteRemoved() { QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    // Ends the session and starts another one of the same user.
    void restart()
    {
        m_ui.reset();
        m_session.restart();
        open();
    }

private:
    void open()
    {
        m_ui.emplace(*m_session);
        m_ui->setUnattended(true);
    }

    TestSession m_session;
    std::optional<standin::UserInterface> m_ui;
};
