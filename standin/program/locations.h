// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace standin {

// Where the program finds and keeps things. Needs the application object.

// The folder above the one that holds the program; its other folders lie in there.
QString programRoot();
// The plug-in built with the program; empty when there is none.
QString defaultPlugin();
// In the user's data directory, as XDG has it. Need not exist.
QString defaultUserDirectory();

} // namespace standin
