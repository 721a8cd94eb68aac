// SPDX-License-Identifier: MIT
#pragma once

// The names the program goes by. The base name starts every file and folder of its own. Macros, so
// that they can be parts of longer literals.
#define CORVANE_APPLICATION_NAME "Corvane Editor"
#define CORVANE_BASE_NAME "corvaneEditor"
