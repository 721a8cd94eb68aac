// SPDX-License-Identifier: MIT
#include "standin/mel/commandrun.h"

#include "standin/mel/nodes.h"
#include "standin/mel/runtime.h"

#include <algorithm>
#include <cctype>
#include <utility>

namespace mel {

namespace {

// A flag as written: a dash directly followed by a letter.
// A text such as "-5" is none, nor is a lone dash.
bool looksLikeFlag(const Value &word)
{
    const std::string *text = std::get_if<std::string>(&word);
    return text && text->size() > 1 && (*text)[0] == '-' &&
           std::isalpha(static_cast<unsigned char>((*text)[1]));
}

std::string_view flagName(const Value &flag)
{
    return std::string_view(std::get<std::string>(flag)).substr(1);
}

// Units are not interpreted: a length is the bare number.
Type argumentType(ArgumentKind kind)
{
    switch (kind) {
    case ArgumentKind::Boolean:
    case ArgumentKind::Int:
    case ArgumentKind::UnsignedInt:
        return Type::Int;
    case ArgumentKind::Float:
    case ArgumentKind::Length:
    case ArgumentKind::Angle:
    case ArgumentKind::Time:
        return Type::Float;
    default:
        return Type::String;
    }
}

// Splits words into the flags and objects of a Call, from left to right.
class WordSplitter
{
public:
    WordSplitter(Runtime &runtime, const Command &command, std::vector<Value> words)
        : m_runtime(runtime), m_command(command), m_words(std::move(words))
    {
    }

    void split(Call &call);

private:
    void readFlag(Call &call, const std::string &word);
    bool readMode(Call &call, std::string_view name) const;
    const Flag *findFlag(std::string_view name) const;
    bool takesArguments(const Call &call, const Flag &flag) const;
    Value argument(ArgumentKind kind);

    Runtime &m_runtime;
    const Command &m_command;
    std::vector<Value> m_words;
    size_t m_at = 0;
};

void WordSplitter::split(Call &call)
{
    // The mode decides how many arguments flags take, wherever it stands.
    for (const Value &word : m_words) {
        if (looksLikeFlag(word))
            readMode(call, flagName(word));
    }
    while (m_at < m_words.size()) {
        // Moved out: no word is looked at twice once the mode is known.
        Value &word = m_words[m_at++];
        if (looksLikeFlag(word))
            readFlag(call, std::get<std::string>(word));
        else
            call.objects.push_back(std::move(word));
    }
}

// A command that is not queryable may have a flag of its own called -q.
bool WordSplitter::readMode(Call &call, std::string_view name) const
{
    if (m_command.queryable && (name == "q" || name == "query"))
        return call.query = true;
    if (m_command.editable && (name == "e" || name == "edit"))
        return call.edit = true;
    return false;
}

// In full only: an abbreviation that is neither of the two names is unknown.
const Flag *WordSplitter::findFlag(std::string_view name) const
{
    for (const Flag &flag : m_command.flags) {
        if (name == flag.shortName || name == flag.longName)
            return &flag;
    }
    return nullptr;
}

// A queried flag names what is asked for; an argument follows only where the flag says so.
bool WordSplitter::takesArguments(const Call &call, const Flag &flag) const
{
    if (!call.query || flag.queryArgument == QueryArgument::Mandatory)
        return true;
    return flag.queryArgument == QueryArgument::Optional && m_at < m_words.size() &&
           !looksLikeFlag(m_words[m_at]);
}

Value WordSplitter::argument(ArgumentKind kind)
{
    Value &word = m_words[m_at++];
    const Type type = argumentType(kind);
    return typeOf(word) == type ? std::move(word)
                                : nodes::convertArgument(std::move(word), type, m_runtime);
}

// A flag takes the next words whatever they look like, so that a text may begin with a dash.
void WordSplitter::readFlag(Call &call, const std::string &word)
{
    const std::string_view name = std::string_view(word).substr(1);
    const Flag *flag = findFlag(name);
    if (!flag) {
        if (readMode(call, name))
            return;
        throw RuntimeError("Invalid flag '" + word + "'");
    }
    Call::FlagUse use{flag, {}};
    if (takesArguments(call, *flag)) {
        use.arguments.reserve(flag->arguments.size());
        for (const ArgumentKind kind : flag->arguments) {
            if (m_at >= m_words.size())
                throw RuntimeError("Flag '" + word + "' must be passed an argument.");
            use.arguments.push_back(argument(kind));
        }
    }
    call.flags.push_back(std::move(use));
}

// Quoted so that the echoed line could be run again.
// Flags and boolean words stay bare, as they are typed.
std::string wordText(const Value &word)
{
    const std::string *text = std::get_if<std::string>(&word);
    if (!text)
        return printText(word);
    if (looksLikeFlag(word) || booleanWord(*text) >= 0)
        return *text;
    std::string quoted = "\"";
    for (const char c : *text) {
        if (c == '"' || c == '\\')
            quoted += '\\';
        quoted += c == '\n' ? std::string("\\n") : std::string(1, c);
    }
    return quoted + "\"";
}

template <typename Element>
void appendElements(const Array<Element> &array, std::vector<Value> &words)
{
    for (const Element &element : array)
        words.emplace_back(element);
}

} // namespace

// Positional functions take arrays whole; only commands with words get them spread.
void spreadWord(Value argument, std::vector<Value> &words)
{
    switch (typeOf(argument)) {
    case Type::Ints:
        return appendElements(std::get<IntArray>(argument), words);
    case Type::Floats:
        return appendElements(std::get<FloatArray>(argument), words);
    case Type::Strings:
        return appendElements(std::get<StringArray>(argument), words);
    case Type::Vectors:
        return appendElements(std::get<VectorArray>(argument), words);
    default:
        words.push_back(std::move(argument));
    }
}

void echoCommand(Runtime &runtime, const std::string &name, const std::vector<Value> &words)
{
    if (!runtime.settings.echoCommands)
        return;
    const std::vector<std::string> &filter = runtime.settings.echoFilter;
    // Commands that run all the time would drown the others.
    if (std::find(filter.begin(), filter.end(), name) != filter.end())
        return;
    std::string text = name;
    for (const Value &word : words)
        text += " " + wordText(word);
    runtime.report(MessageKind::History, text + ";\n");
}

Value runCommand(Runtime &runtime, const Command &command, Call &call)
{
    echoCommand(runtime, command.name, call.objects);
    // A plug-in's own syntax decides; nothing is known here about its flags. Most other commands
    // run without flags, and their words stay where they are.
    const bool hasFlags =
        !command.rawWords && std::any_of(call.objects.begin(), call.objects.end(), looksLikeFlag);
    if (hasFlags)
        WordSplitter(runtime, command, std::exchange(call.objects, {})).split(call);
    return command.run(call);
}

} // namespace mel
