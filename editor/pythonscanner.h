// SPDX-License-Identifier: MIT
#pragma once

#include "editor/linescanner.h"

// Python: strings, doc strings, comments, keywords, decorators, and Maya's commands where they are
// functions of the module "cmds".
// States: 1 and 2 inside a string in single and double quotes that a backslash continues, 3 and 4
// inside a doc string in three single and double quotes.
class PythonScanner : public LineScanner
{
public:
    explicit PythonScanner(const QHash<QString, QString> &names);

protected:
    void beginLine(int start) override;
    EditorText wordCategory(int start, int end) override;

private:
    void markDecorator(int start);
    int importedFrom(int start) const;
    // `start` is that of a word behind a dot.
    bool isBehindCmds(int start) const;

    int m_importedCommands = 0; // where the line begins to name some; its end when it does not
};
