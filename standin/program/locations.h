// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace standin {

// Where the program finds and keeps things. Needs the application object.

// The folder above the one that holds the program.
QString programRoot();
// The plug-in built with the program; empty when there is none.
QString defaultPlugin();
QString defaultUserDirectory();

} // namespace standin
