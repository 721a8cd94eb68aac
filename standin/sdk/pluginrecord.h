// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace standin {

// What the host and a plug-in tell each other about it; the object handed to the entry points
// refers to this. Strings are UTF-8.
struct PluginRecord
{
    std::string name; // file name without suffix
    std::string path;
    std::string vendor = "Unknown";
    std::string version = "Unknown";
};

} // namespace standin
