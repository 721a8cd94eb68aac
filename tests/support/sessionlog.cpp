// SPDX-License-Identifier: MIT
#include "tests/support/sessionlog.h"

SessionLog::SessionLog(standin::Session &session)
{
    connect(&session, SIGNAL(messageArrived(int, QString)), SLOT(add(int, QString)));
}

QStringList SessionLog::take()
{
    const QStringList lines = m_lines;
    m_lines.clear();
    return lines;
}

void SessionLog::add(int kind, const QString &text)
{
    static const char *const names[] = {"history", "display", "info", "warning",
                                        "error",   "result",  "trace"};
    QString shown = text;
    shown.replace(QLatin1String("\n"), QLatin1String("\\n"));
    m_lines << QLatin1String(names[kind]) + QLatin1Char(' ') + shown;
}
