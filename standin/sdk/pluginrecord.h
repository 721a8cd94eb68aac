// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace standin {

// What the host and a plug-in tell each other about it. The host owns it for as long as the plug-in
// is loaded; the object handed to the entry points refers to it. Strings are UTF-8.
struct PluginRecord
{
    std::string name; // the file's name without suffix, unless the plug-in chose another
    std::string path; // of the file; also names the plug-in as owner of its commands
    std::string vendor = "Unknown";
    std::string version = "Unknown";
};

} // namespace standin
