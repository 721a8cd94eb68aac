// SPDX-License-Identifier: MIT
#pragma once

#include "bridge/commandhelp.h"
#include "editor/completion.h"
#include "editor/pythoncaret.h"

#include <QHash>
#include <QSet>
#include <QStringList>

class DeclaredNames;

// Python's completions: names in reach, members, modules and the flags of Maya's commands. What the
// names are is asked of the host's Python, which gets no more of the text than it can parse in the
// time that there is.
class PythonCompletion : public CompletionSource
{
public:
    Completions completionsAt(const QTextCursor &caret) override;

private:
    std::vector<Completion> namesAt(const PythonContext &context, const PythonCaret &caret);
    std::vector<Completion> membersAt(const PythonContext &context, const PythonCaret &caret) const;
    std::vector<Completion> flagsFor(const PythonCall &call, const QString &path);
    QList<CommandFlag> flagsOf(const QString &command);
    const std::vector<Completion> &otherBuiltIns();
    CompletionKind wordKind(const QString &name);

    QHash<QString, QList<CommandFlag>> m_flags; // of the commands that were asked for
    QSet<QString> m_keywords;                   // empty until they are first asked for
    QSet<QString> m_builtIns;
    std::vector<Completion> m_otherBuiltIns;
};
