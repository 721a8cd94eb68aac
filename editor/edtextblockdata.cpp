// SPDX-License-Identifier: MIT
#include "editor/edtextblockdata.h"

#include <QTextBlock>

// Blocks of an editor's document hold nothing else.
EdTextBlockData *EdTextBlockData::of(const QTextBlock &block)
{
    return static_cast<EdTextBlockData *>(block.userData());
}

void EdTextBlockData::take(LineScan &scan, quint64 key)
{
    m_key = key;
    m_state = scan.state;
    brackets.swap(scan.brackets);
    inComment = scan.inComment;
    m_isAllCode = scan.isAllCode;
    m_codeText.swap(scan.mixedCode);
}

QString EdTextBlockData::codeText(const QTextBlock &block) const
{
    return m_isAllCode ? block.text() : m_codeText;
}

void EdTextBlockData::setCodeText(const QString &text)
{
    m_isAllCode = false;
    m_codeText = text;
}
