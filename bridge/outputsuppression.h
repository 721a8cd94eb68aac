// SPDX-License-Identifier: MIT
#pragma once

// While on, the output callback drops every message of Maya: what runs is the editor's own doing.
// One switch for the process, off at first, for the GUI thread. It does not nest: off is off.
void setOutputSuppressed(bool suppressed);
bool isOutputSuppressed();
