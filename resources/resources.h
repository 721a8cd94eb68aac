// SPDX-License-Identifier: MIT
#pragma once

// Makes ":/icons/..." and ":/python/..." available; harmless when called again. A linker drops what
// nothing refers to from a static library, so whoever shows icons calls this first.
void initResources();
