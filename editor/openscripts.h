// SPDX-License-Identifier: MIT
#pragma once

#include "editor/completion.h"

#include <vector>

class QTextDocument;

// What is known of the scripts that are open, of which an editor sees its own only.
class OpenScripts
{
public:
    virtual ~OpenScripts() = default;

    // What may be used in one of the documents: all procedures and global variables of its own, the
    // global ones of the others; as of when they were last parsed. In any order, some perhaps more
    // than once.
    virtual std::vector<Completion> melNamesFor(const QTextDocument *document) const = 0;
    // Where the file of a document lies; empty when that is not known.
    virtual QString folderOf(const QTextDocument *document) const
    {
        Q_UNUSED(document)
        return QString();
    }
    // Has that tell of the document as it is now, and of others as far as there is time.
    virtual void refresh(const QTextDocument *document) const { Q_UNUSED(document) }
};

// Process-wide, for the GUI thread; null, as at first, where there is no workspace. Whoever sets it
// takes it back.
void setOpenScripts(const OpenScripts *scripts);
const OpenScripts *openScripts();
