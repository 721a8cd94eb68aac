// SPDX-License-Identifier: MIT
#pragma once

#include <QTextBlock>
#include <QTextLayout>
#include <QtGlobal>

// What a highlighter has applied to the block.
inline auto layoutFormats(const QTextBlock &block)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 6, 0)
    return block.layout()->formats();
#else
    return block.layout()->additionalFormats();
#endif
}
