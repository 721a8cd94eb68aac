// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QTextBlock>
#include <QTextLayout>
#include <QVector>
#include <QtGlobal>

namespace compat {

// What is laid over a block's text without being part of the document.
#if QT_VERSION >= QT_VERSION_CHECK(5, 6, 0)
typedef QVector<QTextLayout::FormatRange> FormatRanges;
#else
typedef QList<QTextLayout::FormatRange> FormatRanges;
#endif

inline FormatRanges layoutFormats(const QTextBlock &block)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 6, 0)
    return block.layout()->formats();
#else
    return block.layout()->additionalFormats();
#endif
}

// The document takes it for a change that has not been told to the layout yet: a call of
// QTextDocument::markContentsDirty() has to follow.
inline void setLayoutFormats(const QTextBlock &block, const FormatRanges &formats)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 6, 0)
    block.layout()->setFormats(formats);
#else
    block.layout()->setAdditionalFormats(formats);
#endif
}

} // namespace compat
