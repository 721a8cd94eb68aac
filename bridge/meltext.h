// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// A MEL string literal, quotes included, whose value is `text`: the one way in which text from
// outside enters MEL. Paragraph separators (U+2029), as selections have them, become line breaks.
// The literal is of one line; other control characters stand as they are.
QString quotedForMel(const QString &text);
