// SPDX-License-Identifier: MIT
#pragma once

#include "standin/program/options.h"

namespace standin {

class UserInterface;

// Runs a step that concerns the editor's window or a picture. Returns why it failed; empty when it
// did not. The editor is reached as any script could reach it: by its command and by slot names, so
// the program needs none of its headers. Lets events in; no script may
// delete the window meanwhile.
QString runEditorStep(UserInterface &ui, const Step &step);

} // namespace standin
