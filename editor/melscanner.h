// SPDX-License-Identifier: MIT
#pragma once

#include "editor/linescanner.h"

// MEL: strings in double quotes, comments of both kinds, keywords and the host's commands.
// States: 1 inside a string that a backslash continues, 2 inside a comment of several lines.
class MelScanner : public LineScanner
{
public:
    explicit MelScanner(const QHash<QString, QString> &names);

    static const std::vector<std::string_view> &keywords(); // sorted

protected:
    EditorText wordCategory(int start, int end) override;
};
