// SPDX-License-Identifier: MIT
#include "standin/mel/runtime.h"

#include "standin/mel/compiler.h"

#include <algorithm>
#include <cstdint>

namespace mel {

namespace {

// Well under a millisecond of plain statements, so that a stop is felt at once.
constexpr std::int64_t stepsPerSlice = 2000;

// What one interpreter may use of the program's stack before it refuses to go deeper. The rest of
// the usual 8 MB is for commands that run at the deepest point, and for the program itself.
constexpr std::ptrdiff_t stackBudget = 3 * 1024 * 1024;

const char *stackPointer()
{
// The address of a local may be that of a copy on the heap when a sanitizer watches the stack.
#if defined(__GNUC__)
    return static_cast<const char *>(__builtin_frame_address(0));
#else
    volatile char here = 0;
    return const_cast<const char *>(&here);
#endif
}

// Sets a variable for the life of a scope, exceptions included.
template <typename T>
class Restored
{
public:
    Restored(T &variable, T value) : m_variable(variable), m_old(variable) { variable = value; }
    ~Restored() { m_variable = m_old; }
    Restored(const Restored &) = delete;
    Restored &operator=(const Restored &) = delete;

private:
    T &m_variable;
    T m_old;
};

} // namespace

Runtime::Runtime(Interpreter &owner, Host &program) : interpreter(owner), host(program) {}

Runtime::Execution::Execution(Runtime &runtime) : m_runtime(runtime)
{
    if (runtime.m_depth++ == 0) {
        runtime.m_stackBase = stackPointer();
        // A request left over from an earlier script must not stop this one.
        runtime.m_interrupted = false;
        runtime.m_stepsTaken = 0;
        runtime.startSteps();
    }
}

Runtime::Execution::~Execution()
{
    --m_runtime.m_depth;
}

// Looking at the host at every step would cost more than the steps, hence slices.
void Runtime::startSteps()
{
    m_slice = stepsPerSlice;
    if (limits.steps > 0)
        m_slice = std::max<std::int64_t>(1, std::min(m_slice, limits.steps + 1 - m_stepsTaken));
    m_stepsLeft = m_slice;
}

void Runtime::checkSteps()
{
    m_stepsTaken += m_slice - m_stepsLeft;
    startSteps();
    checkInterrupt();
    if (limits.steps > 0 && m_stepsTaken > limits.steps)
        throw RuntimeError("Too many steps.");
}

void Runtime::checkInterrupt()
{
    if (m_interrupted || host.interruptRequested()) {
        // Stays set until the outermost script ends, so that no catch() can go on.
        m_interrupted = true;
        throw RuntimeError("Interrupted.");
    }
}

// Before the allocation, as a failing one may not be noticed before the memory is touched.
void Runtime::checkElements(std::int64_t count) const
{
    if (count > limits.elements)
        throw RuntimeError("Array is too large.");
}

void Runtime::checkTextLength(size_t bytes) const
{
    if (static_cast<std::int64_t>(bytes) > limits.textLength)
        throw RuntimeError("String is too long.");
}

// Counts calls, and measures the stack as well: how much of it a call needs depends on the build
// and on the expressions around it.
// The sign of the difference depends on the direction in which the stack grows.
void Runtime::checkStack() const
{
    const std::ptrdiff_t used = stackPointer() - m_stackBase;
    if (m_calls >= limits.callDepth || used > stackBudget || -used > stackBudget)
        throw RuntimeError("Stack overflow: too many nested calls.");
}

// A bare message gets its place here, from the frame in which it was thrown.
void Runtime::rethrowLocated(const std::string &text, const Frame &frame) const
{
    const LocatedError::Step step{frame.procedure ? frame.procedure->name : "",
                                  {frame.source, frame.line}};
    LocatedError located((settings.lineNumbers ? step.place.prefix() : "") + text);
    located.steps.push_back(step);
    throw located;
}

// Runs statements with their own frame on top. An error that passes through learns its place from
// the innermost frame, and each frame adds itself to the trace.
Value Runtime::runInFrame(Frame &frame, const StatementList &statements, bool wantsValue)
{
    checkStack();
    const Restored<Frame *> top(m_top, &frame);
    const Restored<int> calls(m_calls, m_calls + 1);
    try {
        for (const StatementPointer &statement : statements) {
            // A return at the top level ends the text earlier and without a value.
            if (wantsValue && statement == statements.back())
                return statement->evaluate(frame);
            if (statement->execute(frame) == Flow::Return)
                break;
        }
    } catch (LocatedError &error) {
        error.steps.push_back(
            {frame.procedure ? frame.procedure->name : "", {frame.source, frame.line}});
        throw;
        // Its place is within the text that failed, not that of the statement that ran it.
    } catch (const CompileFailure &) {
        throw;
    } catch (const std::exception &error) {
        rethrowLocated(failureText(error), frame);
    }
    // A body that runs off its end gives its caller the default.
    if (isVoid(frame.result) && frame.procedure)
        frame.result = defaultValue(frame.procedure->returnType);
    return std::move(frame.result);
}

Value Runtime::invoke(const ProcedurePointer &procedure, Frame &callee)
{
    callee.procedure = procedure.get();
    return runInFrame(callee, procedure->body, false);
}

Value Runtime::runUnit(const Unit &unit)
{
    Frame frame(*this, unit.slots, unit.source);
    return runInFrame(frame, unit.statements, true);
}

// Each text is compiled on its own: it sees the globals, never the variables of its caller.
// The stack is looked at before compiling, which needs some as well.
Value Runtime::runText(const std::string &text)
{
    checkStack();
    return runUnit(*compileSource(*this, std::make_shared<Source>(Source{"", text})));
}

// The message comes out before the script goes on, whether or not the result is looked at.
int Runtime::fails(const Expression &expression, Frame &frame, bool quiet)
{
    const int line = frame.line;
    const Restored<int> silence(m_quiet, m_quiet + (quiet ? 1 : 0));
    try {
        expression.run(frame);
        return 0;
    } catch (const LocatedError &error) {
        reportFailure(error, false);
    } catch (const CompileFailure &error) {
        reportFailure(error, false);
    } catch (const std::exception &error) {
        report(MessageKind::Error, placePrefix() + failureText(error));
    }
    // The failed expression may have called and so moved it.
    frame.line = line;
    return 1;
}

void Runtime::report(MessageKind kind, const std::string &text)
{
    // What is printed still comes out; catchQuiet only hides that something failed.
    const bool silenced =
        m_quiet > 0 && (kind == MessageKind::Error || kind == MessageKind::Warning);
    if (!silenced)
        host.message(kind, text);
}

std::string Runtime::placePrefix() const
{
    return m_top && settings.lineNumbers ? place().prefix() : "";
}

Place Runtime::place() const
{
    return m_top ? Place{m_top->source, m_top->line} : Place();
}

// No step is noted yet; each frame that the error leaves adds its own.
void Runtime::failLocated(const std::string &message) const
{
    throw LocatedError(message);
}

void Runtime::warning(const std::string &text)
{
    report(MessageKind::Warning, placePrefix() + text);
}

void Runtime::echoText(const std::string &text)
{
    const bool closed = !text.empty() && text.back() == '\n';
    report(MessageKind::History, closed ? text : text + "\n");
}

std::string Runtime::reportFailure(const RuntimeError &failure, bool withTrace)
{
    if (const auto *compiling = dynamic_cast<const CompileFailure *>(&failure))
        report(MessageKind::Error, compiling->sourceLine);
    report(MessageKind::Error, failure.what());
    const auto *located = dynamic_cast<const LocatedError *>(&failure);
    // The trace follows the message and is off unless asked for.
    if (located && !located->steps.empty() && withTrace && settings.stackTrace)
        report(MessageKind::StackTrace, located->traceText());
    return failure.what();
}

void Runtime::compileLibrary(const std::string &text, const std::string &origin)
{
    runUnit(*compileSource(*this, std::make_shared<Source>(Source{origin, text})));
}

ProcedureEntry *Runtime::definedProcedure(const std::string &name, bool fromTypedText)
{
    const Procedures::Meaning meaning = procedures.find(name);
    return fromTypedText && meaning.typed ? meaning.typed : meaning.global;
}

ProcedureEntry *Runtime::knownProcedure(const std::string &name, bool fromTypedText)
{
    if (ProcedureEntry *defined = definedProcedure(name, fromTypedText))
        return defined;
    // Out of the library while it is compiled, or it would be looked up there again and again.
    const std::optional<Library::Script> script = library.take(name);
    if (!script)
        return nullptr;
    try {
        compileLibrary(script->text, script->origin);
    } catch (...) {
        library.put(name, *script);
        throw;
    }
    return procedures.find(name).global;
}

// Sourcing a script runs its statements too, once, before the call that asked for it.
ProcedurePointer Runtime::findProcedure(const std::string &name, bool fromTypedText)
{
    const ProcedureEntry *entry = knownProcedure(name, fromTypedText);
    // A script that defines no such procedure is sourced again by the next call.
    const std::string script = entry ? std::string() : findScript(name);
    if (!script.empty()) {
        runUnit(*compileFile(script));
        entry = knownProcedure(name, fromTypedText);
    }
    return entry ? entry->current : nullptr;
}

} // namespace mel
