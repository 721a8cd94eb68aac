// SPDX-License-Identifier: MIT
#include "standin/mel/command.h"

#include "standin/mel/conversion.h"
#include "standin/mel/errors.h"

namespace mel {

namespace {

// Null when the flag is absent, or was queried and so has no arguments.
const Value *flagArgument(const Call &call, const char *flag, size_t index)
{
    const Call::FlagUse *use = call.find(flag);
    return use && index < use->arguments.size() ? &use->arguments[index] : nullptr;
}

// Arguments were converted when the words were split, so nothing is left to warn about.
class NoWarnings : public WarningSink
{
public:
    void warning(const std::string &) override {}
};

} // namespace

const Call::FlagUse *Call::find(const char *flag) const
{
    for (const FlagUse &use : flags) {
        if (use.flag->shortName == flag || use.flag->longName == flag)
            return &use;
    }
    return nullptr;
}

std::vector<const Call::FlagUse *> Call::findAll(const char *flag) const
{
    std::vector<const FlagUse *> uses;
    for (const FlagUse &use : flags) {
        if (use.flag->shortName == flag || use.flag->longName == flag)
            uses.push_back(&use);
    }
    return uses;
}

bool Call::boolean(const char *flag, bool byDefault, size_t index) const
{
    return integer(flag, byDefault ? 1 : 0, index) != 0;
}

int Call::integer(const char *flag, int byDefault, size_t index) const
{
    NoWarnings none;
    const Value *argument = flagArgument(*this, flag, index);
    return argument ? toInt(*argument, none) : byDefault;
}

double Call::number(const char *flag, double byDefault, size_t index) const
{
    NoWarnings none;
    const Value *argument = flagArgument(*this, flag, index);
    return argument ? toFloat(*argument, none) : byDefault;
}

// Numbers become text as print writes them, so a command need not care how a word was typed.
std::string Call::text(const char *flag, const std::string &byDefault, size_t index) const
{
    const Value *argument = flagArgument(*this, flag, index);
    return argument ? printText(*argument) : byDefault;
}

std::string Call::objectText(size_t index) const
{
    if (index >= objects.size())
        throw RuntimeError(argumentCountText(command));
    return printText(objects[index]);
}

std::vector<std::string> Call::objectTexts() const
{
    std::vector<std::string> texts;
    for (const Value &object : objects)
        texts.push_back(printText(object));
    return texts;
}

} // namespace mel
