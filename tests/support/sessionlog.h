// SPDX-License-Identifier: MIT
#pragma once

#include "standin/host/session.h"

#include <QObject>
#include <QStringList>

// Collects a session's messages as "kind text", line breaks written as "\n".
class SessionLog : public QObject
{
    Q_OBJECT

public:
    explicit SessionLog(standin::Session &session);

    // What came since the last call.
    QStringList take();

private slots:
    void add(int kind, const QString &text);

private:
    QStringList m_lines;
};
