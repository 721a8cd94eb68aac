// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace mel {

// Numbered as the host application numbers its command messages.
enum class MessageKind { History, Display, Info, Warning, Error, Result, StackTrace };

// Next comes before all others.
enum class IdlePriority { Next, Normal, Low, Lowest };

// What the interpreter needs from the program around it. The program outlives the interpreter.
class Host
{
public:
    virtual ~Host() = default;

    // One message of bare text, without heading or closing mark.
    // Called on the thread that runs the script.
    virtual void message(MessageKind kind, const std::string &text) = 0;

    // Queues MEL text for idle time, in order within one priority.
    virtual void deferMel(const std::string &text, IdlePriority priority) = 0;
    // The texts still waiting, in the order in which they will run.
    virtual std::vector<std::string> deferredMel() const = 0;

    // Folders in which scripts are looked up, first one first.
    virtual std::vector<std::string> scriptPath() const = 0;

    // Asked every few thousand steps while a script runs; true stops it with an error.
    virtual bool interruptRequested() { return false; }
};

} // namespace mel
