// SPDX-License-Identifier: MIT
#include "standin/mel/interpreter.h"

#include "standin/mel/builtins.h"
#include "standin/mel/callnodes.h"
#include "standin/mel/commandrun.h"
#include "standin/mel/function.h"
#include "standin/mel/nodes.h"
#include "standin/mel/runtime.h"
#include "standin/mel/statements.h"

#include <algorithm>

namespace mel {

// Keeps the runtime's many headers out of the public one.
struct Interpreter::State : Runtime
{
    using Runtime::Runtime;
};

namespace {

// Showing it would be an empty line of history.
bool isEmptyArray(const Value &value)
{
    return std::visit(
        [](const auto &held) {
            using Held = std::decay_t<decltype(held)>;
            constexpr bool array =
                std::is_same_v<Held, IntArray> || std::is_same_v<Held, FloatArray> ||
                std::is_same_v<Held, StringArray> || std::is_same_v<Held, VectorArray>;
            if constexpr (array)
                return held.empty();
            return false;
        },
        value);
}

// Runs something inside the interpreter. Whatever goes wrong becomes messages and the outcome.
template <typename Run>
Outcome guarded(Runtime &runtime, Run run)
{
    Outcome outcome;
    try {
        // Inside the try, so that it ends before the failure is reported.
        const Runtime::Execution execution(runtime);
        outcome.value = run();
        outcome.ok = true;
    } catch (const RuntimeError &error) {
        outcome.error = runtime.reportFailure(error, true);
    } catch (const std::exception &error) {
        outcome.error = runtime.reportFailure(RuntimeError(failureText(error)), true);
    }
    return outcome;
}

} // namespace

Interpreter::Interpreter(Host &host) : m_state(std::make_unique<State>(*this, host))
{
    // Before the program can add its own, so that none of the language's names can be taken.
    addBuiltInCommands(*m_state);
}

Interpreter::~Interpreter() = default;

Outcome Interpreter::execute(const std::string &text, bool display)
{
    if (display)
        m_state->echoText(text);
    Outcome outcome = guarded(*m_state, [&] { return m_state->runText(text); });
    // Nothing to show is no message at all, not an empty one.
    if (display && outcome.ok && !isVoid(outcome.value) && !isEmptyArray(outcome.value))
        m_state->report(MessageKind::Result, resultText(outcome.value));
    return outcome;
}

Outcome Interpreter::sourceFile(const std::string &path)
{
    return guarded(*m_state, [&] {
        m_state->runUnit(*m_state->compileFile(path));
        return Value();
    });
}

Outcome Interpreter::call(const std::string &name, const std::vector<Value> &words)
{
    return guarded(*m_state, [&] {
        ExpressionList arguments;
        for (const Value &word : words)
            arguments.push_back(nodes::constant(word));
        Unit unit;
        unit.source = std::make_shared<Source>();
        // Through a call node, so that it finds what a call in a script would find.
        unit.statements.push_back(
            statements::expression(nodes::lateCall(name, std::move(arguments), 1), 1));
        return m_state->runUnit(unit);
    });
}

Value Interpreter::runCommand(const std::string &name, const std::vector<Value> &words)
{
    // Held here, since the command may remove itself.
    const auto command = m_state->commands.find(name);
    if (!command)
        throw RuntimeError(missingProcedureText(name));
    const Runtime::Execution execution(*m_state);
    // Functions take positional values; everything else gets words.
    if (isFunction(name))
        return callFunctionByName(*m_state, name, words);
    Call call(*this, command->name);
    for (const Value &word : words)
        spreadWord(word, call.objects);
    return mel::runCommand(*m_state, *command, call);
}

// The execution around it goes on counting steps and calls.
Value Interpreter::evaluate(const std::string &text)
{
    const Runtime::Execution execution(*m_state);
    return m_state->runText(text);
}

bool Interpreter::addCommand(Command command)
{
    return m_state->commands.add(std::move(command));
}

bool Interpreter::removeCommand(const std::string &name)
{
    return m_state->commands.remove(name);
}

const Command *Interpreter::command(const std::string &name) const
{
    return m_state->commands.find(name).get();
}

std::vector<std::string> Interpreter::commandNames() const
{
    std::vector<std::string> names = m_state->commands.names();
    std::sort(names.begin(), names.end());
    return names;
}

unsigned Interpreter::commandGeneration() const
{
    return m_state->commands.generation();
}

// Those of the library count before anything has called them.
bool Interpreter::hasProcedure(const std::string &name) const
{
    return m_state->library.find(name) || m_state->procedures.find(name).global;
}

std::optional<Value> Interpreter::globalVariable(const std::string &name) const
{
    const GlobalVariable *variable = m_state->variables.find(name);
    return variable ? std::optional<Value>(variable->value) : std::nullopt;
}

bool Interpreter::setGlobalVariable(const std::string &name, const Value &value)
{
    GlobalVariable *variable = m_state->variables.find(name);
    if (!variable) {
        m_state->variables.declare(name, typeOf(value), value);
        return true;
    }
    if (variable->type != Type::Dynamic && variable->type != typeOf(value))
        return false;
    // Compiled code refers to the variable itself, so it sees the new value at once.
    variable->value = value;
    return true;
}

Settings &Interpreter::settings()
{
    return m_state->settings;
}

Limits &Interpreter::limits()
{
    return m_state->limits;
}

Host &Interpreter::host()
{
    return m_state->host;
}

void Interpreter::interrupt()
{
    m_state->interrupt();
}

bool Interpreter::isRunning() const
{
    return m_state->isRunning();
}

std::string Interpreter::placePrefix() const
{
    // With the line whatever the settings say: the caller decides whether to show it.
    return m_state->topFrame() ? m_state->place().prefix() : "";
}

bool Interpreter::defineLibrary(const std::string &text, const std::string &origin)
{
    const auto compile = [&] {
        m_state->compileLibrary(text, origin);
        return Value();
    };
    return guarded(*m_state, compile).ok;
}

} // namespace mel
