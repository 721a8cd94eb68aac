// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

// The messages of one category (errors, warnings or notes), in the order in which they were found:
// three lists of equal length. Offsets are 0-based UTF-16 units of the text as it was parsed; an
// end is exclusive, may equal its start, and is -1 for "to the end of the text".
struct DiagnosticList
{
    QStringList messages;
    QList<int> starts;
    QList<int> ends;

    int count() const { return int(messages.size()); }
    void add(const QString &message, int start, int end);
    void clear();
};

bool operator==(const DiagnosticList &a, const DiagnosticList &b);
