// SPDX-License-Identifier: MIT
#pragma once

#include "standin/host/session.h"
#include "tests/support/scratchdir.h"

#include <maya/MMessage.h>

#include <QString>
#include <QStringList>

#include <memory>

// A session with a user folder of its own, whose messages are recorded the way a plug-in gets
// them. MEL texts run with display off unless said otherwise.
class TestSession
{
public:
    explicit TestSession(const standin::SessionOptions &options = standin::SessionOptions());
    ~TestSession();

    standin::Session *operator->() { return m_session.get(); }
    standin::Session &operator*() { return *m_session; }
    ScratchDir &folder() { return m_folder; }

    // Ends the session and starts another one with the same user folder.
    void restart();

    bool run(const QString &text) { return execute(text).ok; }
    mel::Outcome execute(const QString &text);
    // The value as text; "(failed)" when the text fails.
    QString value(const QString &text);

    // What has arrived since the last call, each as "kind: text".
    QStringList takeMessages();

private:
    void start();
    void stop();

    ScratchDir m_folder;
    standin::SessionOptions m_options;
    std::unique_ptr<standin::Session> m_session;
    QStringList m_messages;
    MCallbackId m_callback = 0;
};
