// SPDX-License-Identifier: MIT
#pragma once

#include <QTextBlock>
#include <QTextLayout>
#include <QtGlobal>

namespace compat {

// What a highlighter has laid over the block's text; a QList or a QVector.
inline auto layoutFormats(const QTextBlock &block)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 6, 0)
    return block.layout()->formats();
#else
    return block.layout()->additionalFormats();
#endif
}

} // namespace compat
