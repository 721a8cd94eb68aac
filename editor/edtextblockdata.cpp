// SPDX-License-Identifier: MIT
#include "editor/edtextblockdata.h"

#include <QTextBlock>

// Blocks of an editor's document hold nothing else.
EdTextBlockData *EdTextBlockData::of(const QTextBlock &block)
{
    return static_cast<EdTextBlockData *>(block.userData());
}
