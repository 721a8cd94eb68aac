// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/command.h"
#include "standin/mel/host.h"
#include "standin/mel/value.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace mel {

// Bounds that keep a script from taking the host down; reaching one is a run-time error.
// Far above what real scripts need; tests lower them to reach them quickly.
struct Limits
{
    // Of procedures and texts together. The stack itself is measured too, see
    // Runtime::checkStack().
    int callDepth = 500;
    int nesting = 200;                           // of expressions and blocks in one text
    std::int64_t elements = 50 * 1000 * 1000;    // of one array
    std::int64_t textLength = 256 * 1000 * 1000; // bytes of one string
    std::int64_t steps = 0; // statements and loop rounds of one execution, 0: no limit
};

// The switches that commandEcho and stackTrace set, shared by everything that reports errors.
struct Settings
{
    bool lineNumbers = true;
    bool echoCommands = false;
    bool stackTrace = false;
    bool duplicateVariableWarnings = true; // about redeclared variables
    std::vector<std::string> echoFilter;   // commands that are not echoed
    bool helpNamesCommandType = false;     // "help -so" ends with the "Command Type" line
};

struct Outcome
{
    bool ok = false;
    Value value = {};       // of the last statement, void when it has none
    std::string error = {}; // the error message as it was reported, without a kind's heading
};

// A MEL interpreter with its global variables, procedures and commands. Single-threaded but for
// interrupt(). Executions may nest: a command may execute further text.
class Interpreter
{
public:
    explicit Interpreter(Host &host);
    ~Interpreter();
    Interpreter(const Interpreter &) = delete;
    Interpreter &operator=(const Interpreter &) = delete;

    // Compiles the whole text, then runs it at top level. With `display`, the text is echoed as a
    // History message first and a Result message follows when there is a value. Never throws.
    Outcome execute(const std::string &text, bool display = false);

    // Sources a file as the source statement does: absolute, or found on the script path, suffix
    // ".mel" optional. Shows no result.
    Outcome sourceFile(const std::string &path);

    // Runs a command or procedure with ready words ("-flag", value, ...); sourced on demand like a
    // call in a script. Reports errors as messages.
    Outcome call(const std::string &name, const std::vector<Value> &words);

    // Runs a command, never a procedure, for callers that report errors themselves: throws
    // RuntimeError with the bare message.
    Value runCommand(const std::string &name, const std::vector<Value> &words);

    // Executes a text from inside a running command: errors propagate as RuntimeError.
    Value evaluate(const std::string &text);

    // False when a command of that name exists. Adding and removing while a script runs is allowed.
    bool addCommand(Command command);
    // False when there is none of that name.
    bool removeCommand(const std::string &name);
    // Null when there is none; valid until the command is removed.
    const Command *command(const std::string &name) const;
    std::vector<std::string> commandNames() const; // sorted
    // Counts every addition and removal, so that mirrors of the list know when to look again.
    unsigned commandGeneration() const;

    bool hasProcedure(const std::string &name) const; // global ones

    // Global variables; setting one declares it with the value's type.
    std::optional<Value> globalVariable(const std::string &name) const; // name with its "$"
    // False when the variable exists with another type; it is left as it was.
    bool setGlobalVariable(const std::string &name, const Value &value);

    Settings &settings();
    Limits &limits();
    Host &host();

    // Stops the running script with a run-time error; callable from any thread.
    void interrupt();
    bool isRunning() const;
    // The place of the running statement as it stands in front of messages: "line 3: "; "" when
    // nothing runs.
    std::string placePrefix() const;

    // The library procedures of the language (startsWith, stringArrayContains, ...) are compiled
    // from MEL text; hosts add theirs the same way. `origin` is the path whatIs names.
    // Compiled at once. False when the text has an error, which has been reported as messages.
    bool defineLibrary(const std::string &text, const std::string &origin);

private:
    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace mel
