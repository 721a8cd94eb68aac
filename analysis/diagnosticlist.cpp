// SPDX-License-Identifier: MIT
#include "analysis/diagnosticlist.h"

void DiagnosticList::add(const QString &message, int start, int end)
{
    messages << message;
    starts << start;
    ends << end;
}

void DiagnosticList::clear()
{
    messages.clear();
    starts.clear();
    ends.clear();
}

bool operator==(const DiagnosticList &a, const DiagnosticList &b)
{
    return a.messages == b.messages && a.starts == b.starts && a.ends == b.ends;
}
