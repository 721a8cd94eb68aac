// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// A Python string literal, quotes included, whose value is `text`: the one way in which text from
// outside enters Python. Of one line, without control characters. Characters beyond ASCII stand as
// they are, which Python 3 reads as text and Python 2 as UTF-8; halves of surrogate pairs, which
// UTF-8 cannot carry, are escaped for Python 3.
QString quotedForPython(const QString &text);
