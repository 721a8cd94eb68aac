// SPDX-License-Identifier: MIT
#pragma once

#include "standin/host/pythonengine.h"
#include "standin/mel/interpreter.h"
#include "standin/sdk/hostservices.h"

#include <QStringList>

#include <deque>
#include <functional>
#include <mutex>
#include <string>

// A host without windows or event loop: records messages and keeps an idle queue that the test
// drains. The engine under test is attached after it has been made.
class FakeHost : public mel::Host, public standin::HostServices
{
public:
    FakeHost() : interpreter(*this) {}

    mel::Interpreter interpreter;
    standin::PythonEngine *python = nullptr;
    bool batch = false;

    // The messages so far as "kind|text", line breaks drawn as "\n"; forgets them.
    QStringList takeMessages();
    // The text of all Display messages so far; forgets the messages.
    QString takeDisplayed();
    bool drainIdle(); // whether there was anything

    void message(mel::MessageKind kind, const std::string &text) override { output(kind, text); }
    void deferMel(const std::string &text, mel::IdlePriority) override
    {
        executeMelOnIdle(text, false);
    }
    std::vector<std::string> deferredMel() const override { return {}; }
    std::vector<std::string> scriptPath() const override { return {"/scripts/of/the/user"}; }

    bool isBatch() const override { return batch; }
    void output(mel::MessageKind kind, const std::string &text) override;
    mel::Outcome executeMel(const std::string &text, bool display) override;
    mel::Outcome executePython(const std::string &text, bool display) override;
    void executeMelOnIdle(const std::string &text, bool display) override;
    void executePythonOnIdle(const std::string &text, bool display) override;
    mel::Outcome sourceFile(const std::string &path) override;
    void processIdle() override;
    bool registerCommand(const standin::PluginCommand &) override { return false; }
    bool deregisterCommand(const std::string &) override { return false; }
    mel::Value optionVar(const std::string &) const override { return {}; }
    void setOptionVar(const std::string &, const mel::Value &) override {}
    bool removeOptionVar(const std::string &) override { return false; }
    standin::InterfaceLookup *interfaceLookup() override { return nullptr; }

private:
    struct Message
    {
        mel::MessageKind kind;
        std::string text;
    };

    void queue(std::function<void()> work);

    std::mutex m_mutex; // messages and idle work arrive from threads of scripts
    std::deque<Message> m_messages;
    std::deque<std::function<void()>> m_idle;
};
