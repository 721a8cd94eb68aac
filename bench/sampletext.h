// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// Scripts of about so many lines, as people write them: comments, strings, nested blocks, calls.
QString pythonSample(int lines);
QString melSample(int lines);
