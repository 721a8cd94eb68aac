// SPDX-License-Identifier: MIT
#pragma once

#include "editor/linescanner.h"

// States: 1 and 2 inside a string in single and double quotes that a backslash continues, 3 and 4
// inside a doc string in three single and double quotes.
class PythonScanner : public LineScanner
{
public:
    explicit PythonScanner(const QHash<QString, QString> &names);

protected:
    bool markWord(int start, int end) override;
    void markLine() override;

private:
    bool isBehindCmds(int start) const;
    void markDecorator(int start);
    void markImportedCommands(int start);
};
