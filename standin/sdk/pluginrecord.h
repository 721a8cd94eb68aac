// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace standin {

// What the host and a plug-in tell each other about it; the object handed to the entry points
// refers to this. Strings are UTF-8.
struct PluginRecord
{
    std::string name; // the file's name without suffix, unless the plug-in chose another
    std::string path;
    std::string vendor = "Unknown";
    std::string version = "Unknown";
};

} // namespace standin
