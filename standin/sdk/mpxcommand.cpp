// SPDX-License-Identifier: MIT
#include "standin/sdk/commandrun.h"
#include "standin/sdk/convert.h"
#include "standin/sdk/hostaccess.h"
#include "standin/sdk/hostservices.h"
#include "standin/sdk/standinaccess.h"

#include <maya/MGlobal.h>
#include <maya/MPxCommand.h>

#include <exception>
#include <memory>
#include <string>
#include <variant>

namespace standin {

namespace {

// The command that is running: its syntax and its value so far. Runs nest, and so do these objects,
// which live on the stack of runCommand(). Main thread only.
class CommandRun
{
public:
    explicit CommandRun(const MSyntax &commandSyntax) : syntax(commandSyntax), m_outer(current)
    {
        current = this;
    }
    ~CommandRun() { current = m_outer; }
    CommandRun(const CommandRun &) = delete;
    CommandRun &operator=(const CommandRun &) = delete;

    // Owned by the registration, which the interpreter keeps to the end of the run.
    const MSyntax &syntax;
    mel::Value result;

    static CommandRun *current; // null when none runs

private:
    CommandRun *m_outer;
};

CommandRun *CommandRun::current = nullptr;

void setCurrentResult(const mel::Value &value)
{
    if (CommandRun::current)
        CommandRun::current->result = value;
}

// A first value stands alone; a second one of its type makes an array of the two.
template <class Item>
void appendItem(mel::Value &value, const Item &item)
{
    if (mel::isVoid(value))
        value = item;
    else if (const Item *first = std::get_if<Item>(&value))
        value = mel::Array<Item>{*first, item};
    else if (auto *items = std::get_if<mel::Array<Item>>(&value))
        items->edit().push_back(item);
}

template <class Item>
void appendToCurrentResult(const Item &item)
{
    if (CommandRun::current)
        appendItem(CommandRun::current->result, item);
}

// Exceptions end here: the interpreter that called is another library's code.
mel::Value doIt(MPxCommand &command, const MArgList &arguments, const CommandRun &run)
{
    MStatus status;
    try {
        status = command.doIt(arguments);
    } catch (const std::exception &failure) {
        throw mel::RuntimeError(std::string("Unhandled exception in command: ") + failure.what());
    } catch (...) {
        throw mel::RuntimeError("Unhandled exception in command.");
    }
    if (status.error())
        throw mel::RuntimeError(utf8(status.errorString()));
    return run.result;
}

// The message, with the place of the script in front of it where that is wanted.
MString placed(const MString &message, bool showLineNumber)
{
    const bool hasPlace = showLineNumber && hostServices();
    return hasPlace ? apiString(hostServices()->scriptPlace()) + message : message;
}

} // namespace

mel::Value runCommand(void *(*creator)(), const MSyntax &syntax,
                      const std::vector<mel::Value> &words)
{
    MArgList arguments;
    for (const mel::Value &word : words)
        addWord(arguments, word);
    // A void pointer to the class itself, by the plug-in's `new`; it is deleted here through the
    // virtual destructor, so the plug-in's own delete runs.
    const std::unique_ptr<MPxCommand> command(static_cast<MPxCommand *>(creator()));
    if (!command)
        throw mel::RuntimeError("The command could not be created.");
    // Only now: the run is about doIt() alone, not about the creator.
    const CommandRun run(syntax);
    return doIt(*command, arguments, run);
}

} // namespace standin

using namespace standin;

STANDIN_API_OPEN

MPxCommand::MPxCommand() = default;
MPxCommand::~MPxCommand() = default;

// A command that overrides nothing does nothing, and cannot be undone.
MStatus MPxCommand::doIt(const MArgList &)
{
    return MS::kSuccess;
}

MStatus MPxCommand::redoIt()
{
    return MS::kSuccess;
}

MStatus MPxCommand::undoIt()
{
    return MS::kSuccess;
}

bool MPxCommand::isUndoable() const
{
    return false;
}

bool MPxCommand::hasSyntax() const
{
    return false;
}

MSyntax MPxCommand::syntax() const
{
    return CommandRun::current ? CommandRun::current->syntax : MSyntax();
}

MStatus MPxCommand::setHistoryOn(bool on)
{
    m_isHistoryOn = on;
    return MS::kSuccess;
}

MStatus MPxCommand::setCommandString(const MString &text)
{
    m_commandString = text;
    return MS::kSuccess;
}

void MPxCommand::displayInfo(const MString &message)
{
    MGlobal::displayInfo(message);
}

void MPxCommand::displayWarning(const MString &message, bool showLineNumber)
{
    MGlobal::displayWarning(placed(message, showLineNumber));
}

void MPxCommand::displayError(const MString &message, bool showLineNumber)
{
    MGlobal::displayError(placed(message, showLineNumber));
}

void MPxCommand::setResult(bool value)
{
    // The language has no bool.
    setCurrentResult(value ? 1 : 0);
}

void MPxCommand::setResult(int value)
{
    setCurrentResult(value);
}

void MPxCommand::setResult(double value)
{
    setCurrentResult(value);
}

void MPxCommand::setResult(const char *value)
{
    setCurrentResult(std::string(value ? value : ""));
}

void MPxCommand::setResult(const MString &value)
{
    setCurrentResult(utf8(value));
}

void MPxCommand::setResult(const MStringArray &value)
{
    setCurrentResult(utf8List(value));
}

void MPxCommand::appendToResult(bool value)
{
    appendToCurrentResult(value ? 1 : 0);
}

void MPxCommand::appendToResult(int value)
{
    appendToCurrentResult(value);
}

void MPxCommand::appendToResult(double value)
{
    appendToCurrentResult(value);
}

void MPxCommand::appendToResult(const char *value)
{
    appendToResult(MString(value));
}

void MPxCommand::appendToResult(const MString &value)
{
    appendToCurrentResult(utf8(value));
}

void MPxCommand::appendToResult(const MStringArray &value)
{
    for (unsigned int i = 0; i < value.length(); ++i)
        appendToResult(value[i]);
}

void MPxCommand::clearResult()
{
    setCurrentResult(mel::Value());
}

STANDIN_API_CLOSE
