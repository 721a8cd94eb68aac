// SPDX-License-Identifier: MIT
#include "tests/standin/host/testsession.h"

#include <maya/MCommandMessage.h>
#include <maya/MQtUtil.h>

namespace {

const char *const kindNames[] = {"history", "display", "info", "warning",
                                 "error",   "result",  "trace"};

void record(const MString &text, MCommandMessage::MessageType kind, void *messages)
{
    *static_cast<QStringList *>(messages)
        << QString(kindNames[kind]) + ": " + MQtUtil::toQString(text);
}

} // namespace

TestSession::TestSession(const standin::SessionOptions &options) : m_options(options)
{
    m_options.userDirectory = m_folder.path();
    start();
}

TestSession::~TestSession()
{
    stop();
}

void TestSession::restart()
{
    stop();
    start();
}

void TestSession::start()
{
    m_session = std::make_unique<standin::Session>(m_options);
    m_callback = MCommandMessage::addCommandOutputCallback(record, &m_messages);
}

void TestSession::stop()
{
    m_session.reset();
    MMessage::removeCallback(m_callback);
}

mel::Outcome TestSession::execute(const QString &text)
{
    return m_session->executeMel(text.toUtf8().constData(), false);
}

QString TestSession::value(const QString &text)
{
    const mel::Outcome outcome = execute(text);
    const std::string shown = mel::resultText(outcome.value);
    return outcome.ok ? QString::fromUtf8(shown.c_str()) : QString("(failed)");
}

QStringList TestSession::takeMessages()
{
    QStringList taken;
    taken.swap(m_messages);
    return taken;
}
