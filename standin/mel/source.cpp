// SPDX-License-Identifier: MIT
#include "standin/mel/source.h"

namespace mel {

std::string Source::line(int number) const
{
    size_t begin = 0;
    for (int line = 1; line < number; ++line) {
        const size_t lineBreak = text.find('\n', begin);
        if (lineBreak == std::string::npos)
            return {};
        begin = lineBreak + 1;
    }
    const size_t lineBreak = text.find('\n', begin);
    return text.substr(begin, lineBreak == std::string::npos ? lineBreak : lineBreak + 1 - begin);
}

std::string Place::prefix() const
{
    const std::string number = std::to_string(line);
    if (!source || source->isTyped())
        return "line " + number + ": ";
    return "file: " + source->path + " line " + number + ": ";
}

// Typed text is what came from the command window.
std::string Place::traceText() const
{
    const std::string number = std::to_string(line);
    if (!source || source->isTyped())
        return "command window: line " + number;
    return "file: " + source->path + " line " + number;
}

} // namespace mel
