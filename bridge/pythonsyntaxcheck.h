// SPDX-License-Identifier: MIT
#pragma once

#include "bridge/syntaxcheck.h"

#include <QElapsedTimer>
#include <QTemporaryFile>
#include <QTimer>

// Checks a text by Maya's Python without holding up the interface: short ones at once, others in a
// thread of the interpreter's. Since the interpreter lets in one thread at a time, the answer comes
// through a file, which can be looked at without it. The thread runs none of this library's code,
// which may be unloaded meanwhile.
class PythonSyntaxCheck : public SyntaxCheck
{
    Q_OBJECT

public:
    // A starter. Null when the analysis script does not answer at once.
    static SyntaxCheck *start(const QString &source, QObject *parent);

private slots:
    void startThread();
    void lookForAnswer();

private:
    PythonSyntaxCheck(const QString &source, QObject *parent);
    void checkAtOnce();
    void end(const SyntaxAnswer &answer);

    QString m_source;            // until Python has it
    QTemporaryFile m_answerFile; // the thread gives up once it is gone
    QTimer m_timer;
    QElapsedTimer m_clock; // since the thread began
};
