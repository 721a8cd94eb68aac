// SPDX-License-Identifier: MIT
#include "editor/edtextblockdata.h"

#include <QTextBlock>

#include <algorithm>

// Blocks of an editor's document hold nothing else.
EdTextBlockData *EdTextBlockData::of(const QTextBlock &block)
{
    return static_cast<EdTextBlockData *>(block.userData());
}

void EdTextBlockData::take(LineScan &scan, quint64 key)
{
    m_key = key;
    m_state = scan.state;
    m_brackets.swap(scan.brackets);
    m_inComment = scan.inComment;
    m_isAllCode = scan.isAllCode;
    m_codeText.swap(scan.mixedCode);
}

QString EdTextBlockData::codeText(const QTextBlock &block) const
{
    return m_isAllCode ? block.text() : m_codeText;
}

void EdTextBlockData::trimTo(int column, const QString &code)
{
    m_key = 0;
    m_isAllCode = false;
    m_codeText = code;
    const auto isBehind = [column](const Bracket &bracket) { return bracket.column >= column; };
    m_brackets.erase(std::remove_if(m_brackets.begin(), m_brackets.end(), isBehind),
                     m_brackets.end());
}
