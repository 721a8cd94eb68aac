// SPDX-License-Identifier: MIT
#include "standin/mel/functions.h"

#include "standin/mel/runtime.h"

namespace mel {

namespace {

// No line break is added; what is empty makes no message.
Value print(const Arguments &call)
{
    const std::string text = printText(call.value(0));
    if (!text.empty())
        call.runtime.report(MessageKind::Display, text);
    return {};
}

// Several arguments make one text, as words of a command line do.
std::string joined(const Arguments &call)
{
    std::string text;
    for (size_t i = 0; i < call.count(); ++i)
        text += (i > 0 ? " " : "") + toString(call.value(i));
    return text;
}

// At the top level: the globals are visible, the variables of the calling procedure are not.
Value eval(const Arguments &call)
{
    return call.runtime.runText(joined(call));
}

// Shown before it runs, so that its own output follows.
Value evalEcho(const Arguments &call)
{
    const std::string text = joined(call);
    call.runtime.echoText(text);
    return call.runtime.runText(text);
}

const Function rows[] = {
    {"print", "n:a", print},
    {"eval", "?:a*", eval},
    {"evalEcho", "?:a*", evalEcho},
};

} // namespace

FunctionTable languageFunctions()
{
    return {rows, std::size(rows)};
}

} // namespace mel
