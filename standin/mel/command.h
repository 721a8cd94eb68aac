// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/value.h"

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace mel {

class Interpreter;

// A run-time error: thrown by commands, caught by the statement that runs them. The text is the
// bare message, without a place.
class RuntimeError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

// What a flag takes. Length, Angle and Time are floats without units; Name and Script are texts.
// Kinds of one type differ in what help shows and in what Python may pass.
enum class ArgumentKind {
    Boolean,
    Int,
    UnsignedInt,
    Float,
    Length,
    Angle,
    Time,
    String,
    Name,
    Script
};
// Whether a flag takes its arguments even when it is queried.
enum class QueryArgument { None, Optional, Mandatory };

// Names are written without the dash. A flag without argument kinds is a plain switch.
struct Flag
{
    std::string shortName;
    std::string longName;
    std::vector<ArgumentKind> arguments = {};
    // Told by help, and lets Python pass a list; words may always repeat a flag.
    bool multiUse = false;
    QueryArgument queryArgument = QueryArgument::None;
};

// One run of a command: the words after its name, already split into flags and objects.
// Lives for that run only; `run` must not keep it.
class Call
{
public:
    struct FlagUse
    {
        // Into the command's own list, which its caller keeps alive.
        const Flag *flag;
        std::vector<Value> arguments;
    };

    Call(Interpreter &runner, const std::string &commandName)
        : interpreter(runner), command(commandName)
    {
    }

    Interpreter &interpreter;
    const std::string &command; // its name
    bool query = false;         // -q was given
    bool edit = false;          // -e was given
    std::vector<FlagUse> flags;
    std::vector<Value> objects; // array arguments are spread, one entry per element

    // Flags are asked for by their short or long name.
    bool isSet(const char *flag) const { return find(flag) != nullptr; }
    const FlagUse *find(const char *flag) const; // the first use, null when absent
    std::vector<const FlagUse *> findAll(const char *flag) const;
    // Argument `index` of the first use, converted; the default when absent.
    bool boolean(const char *flag, bool byDefault = false, size_t index = 0) const;
    int integer(const char *flag, int byDefault = 0, size_t index = 0) const;
    double number(const char *flag, double byDefault = 0, size_t index = 0) const;
    std::string text(const char *flag, const std::string &byDefault = {}, size_t index = 0) const;

    // Objects as text; throws RuntimeError("Wrong number of arguments on call to NAME.") when
    // absent.
    std::string objectText(size_t index) const;
    std::vector<std::string> objectTexts() const;
};

enum class CommandKind { Command, RunTimeCommand };

// A command as scripts see it. `run` returns the command's value or throws RuntimeError.
struct Command
{
    std::string name;
    // May execute further text, and add or remove commands, this one included.
    std::function<Value(Call &)> run;
    std::vector<Flag> flags = {};
    bool queryable = false; // accepts -q/-query
    bool editable = false;  // accepts -e/-edit
    // The words are handed over unsplit, flags included, as Call::objects (plug-in commands,
    // which split them by a syntax of their own).
    bool rawWords = false;
    std::string objectSynopsis = {}; // what help shows after "[flags]", such as "[String...]"
    CommandKind kind = CommandKind::Command;
};

} // namespace mel
