// SPDX-License-Identifier: MIT
#include "tests/standin/mel/recordinghost.h"

namespace {

std::string writtenOut(const std::string &text)
{
    std::string written;
    for (const char c : text) {
        if (c == '\n')
            written += "\\n";
        else if (c == '\t')
            written += "\\t";
        else
            written += c == '\\' ? std::string("\\\\") : std::string(1, c);
    }
    return written;
}

} // namespace

void RecordingHost::message(mel::MessageKind kind, const std::string &text)
{
    const char letter = "H>IWERS"[static_cast<int>(kind)];
    const bool goesOn =
        kind == mel::MessageKind::Display && !m_messages.empty() && m_messages.back()[0] == '>';
    if (goesOn)
        m_messages.back() += writtenOut(text);
    else
        m_messages.push_back(letter + (" " + writtenOut(text)));
}

void RecordingHost::deferMel(const std::string &text, mel::IdlePriority priority)
{
    deferred.push_back(text + " @" + std::to_string(static_cast<int>(priority)));
}

bool RecordingHost::interruptRequested()
{
    return interruptAfter >= 0 && interruptAfter-- == 0;
}

std::vector<std::string> RecordingHost::takeMessages()
{
    std::vector<std::string> taken;
    taken.swap(m_messages);
    return taken;
}

TestInterpreter::TestInterpreter() : mel(host)
{
    mel::Command folders;
    folders.name = "internalVar";
    folders.flags = {{"utd", "userTmpDir"}};
    folders.run = [](mel::Call &) { return mel::Value(std::string("/tmp/")); };
    mel.addCommand(folders);
}

std::vector<std::string> TestInterpreter::run(const std::string &text)
{
    mel.execute(text, true);
    std::vector<std::string> messages = host.takeMessages();
    messages.erase(messages.begin());
    return messages;
}

std::string TestInterpreter::runJoined(const std::string &text)
{
    std::string joined;
    for (const std::string &message : run(text))
        joined += (joined.empty() ? "" : " | ") + message;
    return joined;
}
