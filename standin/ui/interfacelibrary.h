// SPDX-License-Identifier: MIT
#pragma once

namespace mel {
class Interpreter;
}

namespace standin {

// The interface's MEL procedures and the global variables by which they find the main window.
void loadInterfaceLibrary(mel::Interpreter &interpreter);

} // namespace standin
