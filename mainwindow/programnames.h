// SPDX-License-Identifier: MIT
#pragma once

// The names the program goes by. The base name starts every file and folder of its own.
#define CORVANE_APPLICATION_NAME "Corvane Editor"
#define CORVANE_BASE_NAME "corvaneEditor"
