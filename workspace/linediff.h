// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

enum class DiffKind { Same, Removed, Added, Skipped };

struct DiffLine
{
    DiffKind kind;
    QString text;
};

// All lines of both, in order. As few as possible are removed and added; only where that would take
// long, everything between the first and the last difference is.
std::vector<DiffLine> lineDiff(const QStringList &before, const QStringList &after);

// Without the lines that are the same and further than `context` lines from any that are not. One
// line in their place, of the kind Skipped, tells how many there were.
std::vector<DiffLine> withContext(const std::vector<DiffLine> &lines, int context);
