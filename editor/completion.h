// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <vector>

class QTextCursor;
class QTextDocument;

// What a completion stands for; the popup shows it by an icon.
enum class CompletionKind {
    Keyword,
    BuiltIn,
    Command,
    RuntimeCommand,
    Procedure,
    Variable,
    Argument,
    Flag,
    Module,
    Class,
    Function,
    Name // anything else
};

struct Completion
{
    QString text; // what the list shows, is searched for, and what is inserted
    CompletionKind kind = CompletionKind::Name;
};

// What may stand at a caret.
struct Completions
{
    int prefixLength = 0;          // UTF-16 units before the caret that a completion replaces
    std::vector<Completion> items; // in the order of the list; each text once
};

// Knows what may stand at the caret of a document in one language. Nothing of the user's code runs
// for it. On the GUI thread, and done within what a typist does not notice.
class CompletionSource
{
public:
    virtual ~CompletionSource() = default;

    // The user has asked, and so may wait for what is known to be brought up to date, the document
    // included; some ten milliseconds.
    virtual void refresh(const QTextDocument *document) { Q_UNUSED(document) }
    // All that may stand there, whatever was typed of it already: the popup narrows the list down
    // while the user types on. Empty in strings, comments and numbers.
    virtual Completions completionsAt(const QTextCursor &caret) = 0;
};
