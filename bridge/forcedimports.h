// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// Modules that the user wants in Python's reach, by a preference.

// Imports those among the names of the user's scripts that were not imported before, once the
// preferences are applied. What is no module's name is skipped, and an import may fail: both are
// said in a warning.
void importForcedModules();

// Import statements of the valid names, a line each.
QString forcedImportLines();
