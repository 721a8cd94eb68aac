// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace mel {

// A text being compiled or run: typed (no path) or read from a file.
// Shared by all nodes, frames and errors that may name it, so it outlives a redefinition.
struct Source
{
    std::string path; // with forward slashes; empty for typed text
    std::string text;

    bool isTyped() const { return path.empty(); }
    // Line `number`, counted from 1, with its line break if it has one.
    // Empty beyond the last line. Scans from the start, which is fine for an error message.
    std::string line(int number) const;
};

using SourcePointer = std::shared_ptr<const Source>;

// A place as run-time messages name it.
// No source stands for typed text.
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
