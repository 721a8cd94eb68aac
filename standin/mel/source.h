// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace mel {

// A text being compiled or run: typed (no path) or read from a file.
struct Source
{
    std::string path; // with forward slashes; empty for typed text
    std::string text;

    bool isTyped() const { return path.empty(); }
    // Line `number`, counted from 1, with its line break if it has one.
    std::string line(int number) const;
};

using SourcePointer = std::shared_ptr<const Source>;

// A place as run-time messages name it.
struct Place
{
    SourcePointer source;
    int line = 0;

    // 'line 3: ' or 'file: PATH line 3: '.
    std::string prefix() const;
    // 'command window: line 3' or 'file: PATH line 3'.
    std::string traceText() const;
};

} // namespace mel
