// SPDX-License-Identifier: MIT
#pragma once

#include "editor/completion.h"

#include <QHash>

// MEL's completions: what the host knows, what the scripts that are open declare, the variables in
// scope, keywords, and, in the call of a command, its flags.
class MelCompletion : public CompletionSource
{
public:
    void refresh(const QTextDocument *document) override;
    Completions completionsAt(const QTextCursor &caret) override;

private:
    std::vector<Completion> flagsOf(const QString &command);

    QHash<QString, std::vector<Completion>> m_flags; // of the commands that were asked for
};
