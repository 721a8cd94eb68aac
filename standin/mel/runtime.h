// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/commandtable.h"
#include "standin/mel/conversion.h"
#include "standin/mel/errors.h"
#include "standin/mel/interpreter.h"
#include "standin/mel/filetable.h"
#include "standin/mel/library.h"
#include "standin/mel/namelist.h"
#include "standin/mel/procedures.h"
#include "standin/mel/random.h"
#include "standin/mel/variables.h"

#include <atomic>

namespace mel {

// A command that a script defined; the texts are by long flag name.
struct RunTimeCommand
{
    std::map<std::string, std::string> texts;
    bool isDefault = false;
};

// Everything that running code shares: tables, limits, the stack of frames, and the way out for
// messages.
// Owned by the Interpreter, which is the only part of it that the outside sees. Single-threaded but
// for interrupt().
class Runtime : public WarningSink
{
public:
    Runtime(Interpreter &owner, Host &host);

    Interpreter &interpreter;
    Host &host;
    Settings settings;
    Limits limits;
    Variables variables;
    Procedures procedures;
    CommandTable commands;
    std::map<std::string, RunTimeCommand> runTimeCommands;
    // Those not compiled yet.
    Library library;
    RandomStreams random;
    FileTable files;
    // What melInfo answers, and how much was defined when it was brought up to date.
    NameList nameList;
    unsigned listedGeneration = 0;
    // The words of a command that has run, whatever they say: the next one uses their memory.
    std::vector<Value> spareWords;

    // Counts one statement or loop round; throws when the script has to stop.
    void step()
    {
        if (--m_stepsLeft <= 0 || m_interrupted.load(std::memory_order_relaxed))
            checkSteps();
    }
    // From any thread; the script notices at its next step.
    void interrupt() { m_interrupted = true; }
    // Throws when the script has to stop; for commands that wait or loop.
    void checkInterrupt();
    bool isRunning() const { return m_depth > 0; }
    // These throw when a limit is passed.
    void checkElements(std::int64_t count) const;
    void checkTextLength(size_t bytes) const;
    void checkStack() const;

    // Runs a procedure whose parameters are bound in `callee` already.
    Value invoke(const ProcedurePointer &procedure, Frame &callee);
    // Compiles and runs at top level; errors are thrown.
    Value runText(const std::string &text);
    Value runUnit(const Unit &unit);
    // Compiles a text of library procedures and makes them known.
    void compileLibrary(const std::string &text, const std::string &origin);
    // Reads and compiles a script that is sourced from that place (line 0: by the host). Throws
    // CompileError when there is none.
    std::unique_ptr<Unit> compileFile(const std::string &name, const Place &from = {});
    bool isBeingCompiled(const std::string &name) const;

    // The procedure a call reaches while running, library and script path included. Null: none.
    ProcedurePointer findProcedure(const std::string &name, bool fromTypedText);
    // The same without loading anything from the script path.
    ProcedureEntry *knownProcedure(const std::string &name, bool fromTypedText);
    // Without the library as well.
    ProcedureEntry *definedProcedure(const std::string &name, bool fromTypedText);
    // Another number whenever a name may have come to stand for another procedure or command.
    unsigned namesGeneration() const { return procedures.generation() + commands.generation(); }
    // The path of a script, or "" when there is none.
    std::string findScript(const std::string &name) const;

    void report(MessageKind kind, const std::string &text);
    void warning(const std::string &text) override; // adds the place
    // About a text that is being compiled; its place is in the message already.
    void compileWarning(const std::string &sourceLine, const std::string &located);
    // Echoes a text as history, line break added when missing.
    void echoText(const std::string &text);
    // Shows an error as messages; returns the last one.
    std::string reportFailure(const RuntimeError &failure, bool withTrace);
    // The place of the running statement, "" without line numbers or when nothing runs.
    std::string placePrefix() const;
    // The place itself; line 0 when nothing runs.
    Place place() const;
    // Fails with a message that has its place already.
    [[noreturn]] void failLocated(const std::string &message) const;
    Frame *topFrame() const { return m_top; }

    // Evaluates for catch: 1 when it failed.
    // Nothing is undone: what the expression had changed before it failed stays changed.
    int fails(const Expression &expression, Frame &frame, bool quiet);

    // Brackets everything between entering the interpreter and leaving it again.
    // Only the outermost one resets the counters, so nested texts share one allowance.
    class Execution
    {
    public:
        explicit Execution(Runtime &runtime);
        ~Execution();
        Execution(const Execution &) = delete;
        Execution &operator=(const Execution &) = delete;

    private:
        Runtime &m_runtime;
    };

private:
    class CompileScope;

    void checkSteps();
    void startSteps();
    Value runInFrame(Frame &frame, const StatementList &statements, bool wantsValue);
    [[noreturn]] void rethrowLocated(const std::string &text, const Frame &frame) const;

    Frame *m_top = nullptr;
    int m_depth = 0; // nested executions
    int m_calls = 0; // nested procedures and texts
    int m_quiet = 0; // nested catchQuiet
    // Where the outermost execution entered; depth is measured from here.
    const char *m_stackBase = nullptr;
    // Counts down to the next look at host and limits, so that a step is one decrement.
    std::int64_t m_stepsLeft = 0;
    std::int64_t m_stepsTaken = 0;
    // Steps that the current slice began with.
    std::int64_t m_slice = 0;
    std::atomic<bool> m_interrupted{false};
    struct Compiling
    {
        std::string path;
        Place from; // where it is sourced
    };
    std::vector<Compiling> m_compiling; // outermost first
};

} // namespace mel
