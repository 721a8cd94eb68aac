// SPDX-License-Identifier: MIT
#include "standin/mel/callnodes.h"

#include "standin/mel/commandrun.h"
#include "standin/mel/nodes.h"
#include "standin/mel/runtime.h"

#include <algorithm>

namespace mel::nodes {

namespace {

// To those who watch, a function is a command like any other.
void echoFunction(Runtime &runtime, const Function &function, Value *const *arguments, size_t count)
{
    std::vector<Value> words;
    for (size_t i = 0; i < count; ++i)
        words.push_back(*arguments[i]);
    echoCommand(runtime, function.name, words);
}

// The arguments, and what calls of all kinds do with them.
class CallExpression : public Expression
{
public:
    CallExpression(Type type, ExpressionList arguments, int line)
        : Expression(type), m_arguments(std::move(arguments)), m_line(line)
    {
        for (const ExpressionPointer &argument : m_arguments)
            depth = std::max(depth, argument->depth + 1);
    }

protected:
    Value callProcedure(const ProcedurePointer &procedure, Frame &frame) const;
    Value callFunction(const Function &function, Frame &frame) const;

    ExpressionList m_arguments;
    int m_line;
};

// An argument has to have a value.
void evaluate(const Expression &argument, Value &place, Frame &frame)
{
    argument.evalInto(place, frame);
    if (isVoid(place))
        failConversion(Type::Void, Type::String);
}

// Adds an argument to the first `count` words of a command; returns how many there are then. What
// stands behind is left over from another command, and only its memory is of use.
size_t addWord(const Expression &argument, std::vector<Value> &words, size_t count, Frame &frame)
{
    if (count == words.size())
        words.emplace_back();
    evaluate(argument, words[count], frame);
    if (!isArray(typeOf(words[count])))
        return count + 1;
    Value array = std::move(words[count]);
    words.resize(count);
    spreadWord(std::move(array), words);
    return words.size();
}

// Whether words may be kept for their memory: nothing large that a command was given should stay.
bool areSmall(const std::vector<Value> &words)
{
    constexpr size_t manyWords = 16;
    constexpr size_t longText = 1000;
    return words.capacity() < manyWords &&
           std::all_of(words.begin(), words.end(), [](const Value &word) {
               const std::string *text = std::get_if<std::string>(&word);
               return text ? text->capacity() < longText : !isArray(typeOf(word));
           });
}

// Fills a parameter: arrays in variables by reference, everything else by value.
// The variable has to hold an array of exactly that type: an int[] for a float[] is converted,
// hence copied, and the caller sees no change.
void bind(Slot &slot, Type type, const Expression &argument, Frame &frame)
{
    Value *variable = isArray(type) ? argument.variable(frame) : nullptr;
    if (variable && typeOf(*variable) == type) {
        slot.target = variable;
        return;
    }
    argument.evalInto(slot.value, frame);
    if (typeOf(slot.value) != type)
        slot.value = convertArgument(std::move(slot.value), type, frame.runtime);
}

// Arguments are evaluated in the caller's frame, before the callee's is on top: an error in one of
// them names the caller's line.
Value CallExpression::callProcedure(const ProcedurePointer &procedure, Frame &frame) const
{
    if (m_arguments.size() != procedure->parameters.size())
        throw RuntimeError(argumentCountText(procedure->name));
    Frame callee(frame.runtime, procedure->slots, procedure->source, m_arguments.size());
    for (size_t i = 0; i < m_arguments.size(); ++i)
        bind(callee.slots[i], procedure->parameters[i].type, *m_arguments[i], frame);
    // After the arguments, as a call among them may have named a line of its own.
    frame.line = m_line;
    return frame.runtime.invoke(procedure, callee);
}

Value CallExpression::callFunction(const Function &function, Frame &frame) const
{
    constexpr size_t usualCount = 3; // most functions take no more
    const size_t count = m_arguments.size();
    ShortList<Value, usualCount> values(count);
    ShortList<Value *, usualCount> places(count);
    for (const ExpressionPointer &argument : m_arguments) {
        // Variables are passed where they are: no copy of a long text or array for size().
        if (Value *variable = argument->variable(frame)) {
            places.add(variable);
            continue;
        }
        Value &value = values.add();
        evaluate(*argument, value, frame);
        places.add(&value);
    }
    frame.line = m_line;
    if (frame.runtime.settings.echoCommands)
        echoFunction(frame.runtime, function, places.data(), count);
    return function.run(Arguments(frame.runtime, places.data(), count));
}

// A call that was checked against a procedure; the name is still bound late, so that a
// redefinition reaches it.
class ProcedureCall : public CallExpression
{
public:
    ProcedureCall(const ProcedureEntry &entry, Type returnType, ExpressionList arguments, int line)
        : CallExpression(returnType, std::move(arguments), line), m_entry(entry)
    {
    }
    Value eval(Frame &frame) const override;

private:
    const ProcedureEntry &m_entry;
};

Value ProcedureCall::eval(Frame &frame) const
{
    // Held while it runs, as the script may redefine it meanwhile.
    const ProcedurePointer procedure = m_entry.current;
    Value value = callProcedure(procedure, frame);
    // A redefinition may return another type than the one the expression around was checked for.
    return typeOf(value) == type() ? std::move(value)
                                   : mel::convert(std::move(value), type(), frame.runtime);
}

// A built-in function, bound while compiling.
class FunctionCall : public CallExpression
{
public:
    FunctionCall(const Function &function, ExpressionList arguments, Type type, int line)
        : CallExpression(type, std::move(arguments), line), m_function(function)
    {
    }
    Value eval(Frame &frame) const override { return callFunction(m_function, frame); }

private:
    const Function &m_function;
};

// A command, or a name that nothing had when the text was compiled.
class LateCall : public CallExpression
{
public:
    LateCall(std::string name, ExpressionList arguments, int line)
        : CallExpression(Type::Dynamic, std::move(arguments), line), m_name(std::move(name))
    {
    }
    Value eval(Frame &frame) const override;

private:
    // What the name stands for; neither: a script that has not been looked for yet, or nothing.
    struct Meaning
    {
        const ProcedureEntry *procedure = nullptr;
        CommandTable::Pointer command;
        bool isFunction = false; // one that takes positional arguments
    };

    const Meaning &meaning(const Frame &frame) const;
    const ProcedureEntry *findProcedure(const Frame &frame) const;
    Value callCommand(const Command &command, Frame &frame) const;
    Value callBuiltIn(Frame &frame) const;

    std::string m_name;
    // Kept for as long as no name has changed its meaning, which in loops is all the time.
    mutable Meaning m_meaning;
    mutable unsigned m_generation = 0;
};

Value LateCall::eval(Frame &frame) const
{
    frame.line = m_line;
    // Copied, since the call may change what names stand for.
    if (const ProcedureEntry *known = meaning(frame).procedure)
        return callProcedure(ProcedurePointer(known->current), frame);
    if (const CommandTable::Pointer command = m_meaning.command)
        return m_meaning.isFunction ? callBuiltIn(frame) : callCommand(*command, frame);
    const ProcedurePointer loaded = frame.runtime.findProcedure(m_name, false);
    if (!loaded)
        throw RuntimeError(missingProcedureText(m_name));
    return callProcedure(loaded, frame);
}

const LateCall::Meaning &LateCall::meaning(const Frame &frame) const
{
    if (m_generation != frame.runtime.namesGeneration()) {
        m_meaning.procedure = findProcedure(frame);
        m_meaning.command = frame.runtime.commands.find(m_name);
        m_meaning.isFunction = isFunction(m_name);
        // Only now: looking for a procedure may have compiled one of the library's.
        m_generation = frame.runtime.namesGeneration();
    }
    return m_meaning;
}

// A local procedure that stands further down in the same text is out of reach; one that stands
// above was bound while compiling.
const ProcedureEntry *LateCall::findProcedure(const Frame &frame) const
{
    Runtime &runtime = frame.runtime;
    const ProcedureEntry *local =
        frame.source->isTyped() ? runtime.procedures.find(m_name).typed : nullptr;
    if (local && local->current->source != frame.source)
        return local;
    return runtime.knownProcedure(m_name, false);
}

Value LateCall::callBuiltIn(Frame &frame) const
{
    std::vector<Value> all;
    for (const ExpressionPointer &argument : m_arguments)
        all.push_back(argument->eval(frame));
    return callFunctionByName(frame.runtime, m_name, std::move(all));
}

Value LateCall::callCommand(const Command &command, Frame &frame) const
{
    Runtime &runtime = frame.runtime;
    Call call(runtime.interpreter, command.name);
    call.objects.swap(runtime.spareWords);
    size_t count = 0;
    for (const ExpressionPointer &argument : m_arguments)
        count = addWord(*argument, call.objects, count, frame);
    call.objects.resize(count);
    frame.line = m_line;
    Value value = runCommand(runtime, command, call);
    if (areSmall(call.objects))
        call.objects.swap(runtime.spareWords);
    return value;
}

} // namespace

ExpressionPointer procedureCall(const ProcedureEntry &entry, const ProcedurePointer &signature,
                                ExpressionList arguments, int line)
{
    return std::make_unique<ProcedureCall>(entry, signature->returnType, std::move(arguments),
                                           line);
}

ExpressionPointer functionCall(const Function &function, ExpressionList arguments, Type type,
                               int line)
{
    return std::make_unique<FunctionCall>(function, std::move(arguments), type, line);
}

ExpressionPointer lateCall(std::string name, ExpressionList arguments, int line)
{
    return std::make_unique<LateCall>(std::move(name), std::move(arguments), line);
}

} // namespace mel::nodes
