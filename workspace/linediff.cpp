// SPDX-License-Identifier: MIT
#include "workspace/linediff.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

// Lines removed and added together. Time and memory grow with its square.
const int mostChanges = 1000;
const int mostSteps = 20000000; // comparisons of lines

// The greedy search for the shortest way from one list to the other: on diagonal k (lines taken of
// `before` less those of `after`) the furthest point that so many changes lead to.
class ShortestEdit
{
public:
    ShortestEdit(const QStringList &before, const QStringList &after)
        : m_before(before), m_after(after)
    {
    }

    // Nothing when it takes too many changes.
    std::vector<DiffLine> lines()
    {
        m_furthest.assign(2 * mostChanges + 3, 0);
        for (int changes = 0; changes <= mostChanges && m_steps < mostSteps; ++changes) {
            m_history.push_back(m_furthest);
            if (search(changes))
                return wayBack(changes);
        }
        return std::vector<DiffLine>();
    }

private:
    static int place(int diagonal) { return diagonal + mostChanges + 1; }

    // Whether the way to a diagonal adds a line, coming from the one above.
    static bool addsLine(const std::vector<int> &furthest, int diagonal, int changes)
    {
        return diagonal == -changes || (diagonal != changes && furthest[place(diagonal - 1)] <
                                                                   furthest[place(diagonal + 1)]);
    }

    // True when the end is reached.
    bool search(int changes)
    {
        for (int diagonal = -changes; diagonal <= changes; diagonal += 2) {
            int x = addsLine(m_furthest, diagonal, changes) ? m_furthest[place(diagonal + 1)]
                                                            : m_furthest[place(diagonal - 1)] + 1;
            const int start = x;
            while (x < m_before.size() && x - diagonal < m_after.size() &&
                   m_before.at(x) == m_after.at(x - diagonal))
                ++x;
            m_steps += x - start + 1;
            m_furthest[place(diagonal)] = x;
            if (x >= m_before.size() && x - diagonal >= m_after.size())
                return true;
        }
        return false;
    }

    std::vector<DiffLine> wayBack(int changes)
    {
        std::vector<DiffLine> lines;
        int x = int(m_before.size());
        int y = int(m_after.size());
        for (; changes > 0; --changes) {
            const std::vector<int> &furthest = m_history[changes];
            const bool adds = addsLine(furthest, x - y, changes);
            const int lastX = furthest[place(x - y + (adds ? 1 : -1))];
            const int lastY = lastX - (x - y + (adds ? 1 : -1));
            while (x > lastX + (adds ? 0 : 1) && y > lastY + (adds ? 1 : 0)) {
                lines.push_back({DiffKind::Same, m_before.at(--x)});
                --y;
            }
            if (adds)
                lines.push_back({DiffKind::Added, m_after.at(--y)});
            else
                lines.push_back({DiffKind::Removed, m_before.at(--x)});
        }
        while (x > 0)
            lines.push_back({DiffKind::Same, m_before.at(--x)});
        std::reverse(lines.begin(), lines.end());
        return lines;
    }

    const QStringList &m_before;
    const QStringList &m_after;
    qint64 m_steps = 0;
    std::vector<int> m_furthest;
    std::vector<std::vector<int>> m_history; // before the search with so many changes
};

void append(std::vector<DiffLine> *lines, DiffKind kind, const QStringList &texts)
{
    for (const QString &text : texts)
        lines->push_back({kind, text});
}

int sameAtStart(const QStringList &before, const QStringList &after)
{
    const int common = int(std::min(before.size(), after.size()));
    int same = 0;
    while (same < common && before.at(same) == after.at(same))
        ++same;
    return same;
}

int sameAtEnd(const QStringList &before, const QStringList &after, int most)
{
    int same = 0;
    while (same < most && before.at(before.size() - 1 - same) == after.at(after.size() - 1 - same))
        ++same;
    return same;
}

DiffLine skipped(int count)
{
    const QString text = QCoreApplication::translate("LineDiff", "%1 unchanged lines");
    return {DiffKind::Skipped, text.arg(count)};
}

} // namespace

std::vector<DiffLine> lineDiff(const QStringList &before, const QStringList &after)
{
    const int start = sameAtStart(before, after);
    const int end = sameAtEnd(before, after, int(std::min(before.size(), after.size())) - start);
    const QStringList removed = before.mid(start, before.size() - start - end);
    const QStringList added = after.mid(start, after.size() - start - end);

    std::vector<DiffLine> lines;
    append(&lines, DiffKind::Same, before.mid(0, start));
    const std::vector<DiffLine> middle = ShortestEdit(removed, added).lines();
    if (middle.empty()) {
        append(&lines, DiffKind::Removed, removed);
        append(&lines, DiffKind::Added, added);
    }
    lines.insert(lines.end(), middle.begin(), middle.end());
    append(&lines, DiffKind::Same, before.mid(before.size() - end));
    return lines;
}

std::vector<DiffLine> withContext(const std::vector<DiffLine> &lines, int context)
{
    const int size = int(lines.size());
    std::vector<bool> isShown(lines.size(), false);
    for (int i = 0; i < size; ++i) {
        if (lines[i].kind == DiffKind::Same)
            continue;
        for (int near = std::max(0, i - context); near <= std::min(size - 1, i + context); ++near)
            isShown[near] = true;
    }
    std::vector<DiffLine> result;
    int hidden = 0;
    for (int i = 0; i < size; ++i) {
        hidden += isShown[i] ? 0 : 1;
        if (hidden > 0 && (isShown[i] || i == size - 1))
            result.push_back(skipped(hidden));
        if (!isShown[i])
            continue;
        hidden = 0;
        result.push_back(lines[i]);
    }
    return result;
}
