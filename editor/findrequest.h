// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// What to look for in a document, and what to do with it. Both texts are taken as they stand; every
// kind of line break means that of the document.
struct FindRequest
{
    // Bits of `options`. Without an operation the next match is selected.
    enum Option {
        // The values of QTextDocument::FindFlag.
        Backward = 1,
        CaseSensitive = 2,
        WholeWords = 4,
        InSelection = 1024, // with ReplaceAll
        Wrap = 2048,        // at the end of the document
        // The operations.
        Replace = 4096,
        ReplaceAndFind = 8192,
        ReplaceAll = 16384
    };

    bool has(Option option) const { return (options & option) != 0; }
    bool edits() const { return has(Replace) || has(ReplaceAndFind) || has(ReplaceAll); }

    QString findText;
    QString replaceText;
    int options = 0;
};
