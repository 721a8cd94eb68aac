// SPDX-License-Identifier: MIT
#pragma once

// The project hides its symbols, so a plug-in exports its entry points itself; the headers do so
// only in later releases.
#define TEST_EXPORT __attribute__((visibility("default")))
