// SPDX-License-Identifier: MIT
#include "tests/standin/python/fakehost.h"

namespace {

const char *const kindNames[] = {"history", "display", "info", "warning",
                                 "error",   "result",  "trace"};

QString qtText(const std::string &text)
{
    return QString::fromUtf8(text.data(), static_cast<int>(text.size()));
}

} // namespace

QStringList FakeHost::takeMessages()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    QStringList lines;
    for (const Message &message : m_messages) {
        QString text = qtText(message.text);
        lines << QLatin1String(kindNames[static_cast<int>(message.kind)]) + "|" +
                     text.replace("\n", "\\n");
    }
    m_messages.clear();
    return lines;
}

QString FakeHost::takeDisplayed()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    std::string text;
    for (const Message &message : m_messages) {
        if (message.kind == mel::MessageKind::Display)
            text += message.text;
    }
    m_messages.clear();
    return qtText(text);
}

bool FakeHost::drainIdle()
{
    std::deque<std::function<void()>> work;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        work.swap(m_idle);
    }
    for (const std::function<void()> &entry : work)
        entry();
    return !work.empty();
}

void FakeHost::output(mel::MessageKind kind, const std::string &text)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_messages.push_back({kind, text});
}

mel::Outcome FakeHost::executeMel(const std::string &text, bool display)
{
    return interpreter.execute(text, display);
}

mel::Outcome FakeHost::executePython(const std::string &text, bool display)
{
    return python->execute(text, display);
}

void FakeHost::executeMelOnIdle(const std::string &text, bool display)
{
    queue([=] { executeMel(text, display); });
}

void FakeHost::executePythonOnIdle(const std::string &text, bool display)
{
    queue([=] { executePython(text, display); });
}

mel::Outcome FakeHost::sourceFile(const std::string &path)
{
    return interpreter.sourceFile(path);
}

void FakeHost::processIdle()
{
    while (drainIdle()) {
    }
}

void FakeHost::queue(std::function<void()> work)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_idle.push_back(std::move(work));
}
