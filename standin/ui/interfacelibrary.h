// SPDX-License-Identifier: MIT
#pragma once

namespace mel {
class Interpreter;
}

namespace standin {

// The interface's MEL procedures and the global variables by which they find the main window.
// Called after the commands that the scripts use have been added.
void loadInterfaceLibrary(mel::Interpreter &interpreter);

} // namespace standin
