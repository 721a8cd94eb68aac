// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/interpreter.h"

#include <string>
#include <vector>

// A host that keeps every message as one line: the letter of its kind, a blank, and the text with
// \n, \t and \\ written out.
class RecordingHost : public mel::Host
{
public:
    void message(mel::MessageKind kind, const std::string &text) override;
    void deferMel(const std::string &text, mel::IdlePriority priority) override;
    std::vector<std::string> deferredMel() const override { return deferred; }
    std::vector<std::string> scriptPath() const override { return scripts; }
    bool interruptRequested() override;

    // What has arrived since the last call; print output in a row is joined.
    std::vector<std::string> takeMessages();

    std::vector<std::string> scripts;
    std::vector<std::string> deferred;
    int interruptAfter = -1; // questions answered with no before one with yes, -1: never

private:
    std::vector<std::string> m_messages;
};

// An interpreter with the commands that programs expect of any host.
class TestInterpreter
{
public:
    TestInterpreter();

    // The messages of running a text with display on, the echo of the text left out.
    std::vector<std::string> run(const std::string &text);
    std::string runJoined(const std::string &text); // the same, joined by " | "

    RecordingHost host;
    mel::Interpreter mel;
};
