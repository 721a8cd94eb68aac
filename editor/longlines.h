// SPDX-License-Identifier: MIT
#pragma once

// Lines of more UTF-16 units than this go without colours and without marks inside them: laying
// such a line out at every key is slow enough without.
const int longLine = 20000;
