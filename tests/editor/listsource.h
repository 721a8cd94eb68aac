// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/wordunits.h"
#include "editor/completion.h"

#include <QStringList>
#include <QTextBlock>
#include <QTextCursor>

#include <memory>

// Offers the same names everywhere, for the word before the caret.
class ListSource : public CompletionSource
{
public:
    ListSource(const QStringList &names, int *asked) : m_names(names), m_asked(asked) {}

    Completions completionsAt(const QTextCursor &caret) override
    {
        Completions found;
        const QString line = caret.block().text().left(caret.positionInBlock());
        const int size = int(line.size());
        while (found.prefixLength < size &&
               isWordUnit(line.constData(), size, size - 1 - found.prefixLength))
            ++found.prefixLength;
        for (const QString &name : m_names)
            found.items.push_back({name, CompletionKind::Command});
        if (m_asked)
            ++*m_asked;
        return found;
    }

private:
    QStringList m_names;
    int *m_asked;
};

// `names` are parted by blanks; `asked` counts the questions.
inline std::unique_ptr<CompletionSource> listSource(const QString &names, int *asked = nullptr)
{
    return std::make_unique<ListSource>(names.split(QLatin1Char(' ')), asked);
}
