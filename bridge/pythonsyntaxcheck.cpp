// SPDX-License-Identifier: MIT
#include "bridge/pythonsyntaxcheck.h"

#include "bridge/pythonanalysis.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QList>

#include <algorithm>
#include <memory>

namespace {

const int longestPause = 10;   // ms that a check may take at once
const int answerInterval = 25; // ms

// Units of the longest text that is checked at once: about 250 lines, which take a few
// milliseconds. Becomes less where Python is slow.
int longestAtOnce = 10000;

} // namespace

PythonSyntaxCheck::PythonSyntaxCheck(const QString &source, QObject *parent)
    : SyntaxCheck(parent), m_source(source),
      m_answerFile(QDir::tempPath() + QLatin1String("/corvane-check-XXXXXX"))
{
    m_timer.setInterval(answerInterval);
    connect(&m_timer, SIGNAL(timeout()), SLOT(lookForAnswer()));
}

SyntaxCheck *PythonSyntaxCheck::start(const QString &source, QObject *parent)
{
    std::unique_ptr<PythonSyntaxCheck> check(new PythonSyntaxCheck(source, parent));
    if (source.size() > longestAtOnce) {
        // Even to hand a long text over takes its time, which the caller has used up on parsing.
        QTimer::singleShot(0, check.get(), SLOT(startThread()));
        return check.release();
    }
    check->checkAtOnce();
    return check->answer().isKnown ? check.release() : nullptr;
}

void PythonSyntaxCheck::checkAtOnce()
{
    QElapsedTimer clock;
    clock.start();
    setAnswer(pythonSyntaxError(m_source));
    if (clock.elapsed() > longestPause)
        longestAtOnce = std::min(longestAtOnce, int(m_source.size()) / 2);
}

void PythonSyntaxCheck::startThread()
{
    if (m_answerFile.open() && startPythonSyntaxThread(m_source, m_answerFile.fileName())) {
        m_source.clear();
        m_timer.start();
        return;
    }
    setAnswer(SyntaxAnswer());
    emit answered();
}

// "answer", the line and the message, each with a line feed, are written at once.
void PythonSyntaxCheck::lookForAnswer()
{
    QFile file(m_answerFile.fileName());
    if (!file.open(QIODevice::ReadOnly))
        return;
    const QList<QByteArray> lines = file.readAll().split('\n');
    if (lines.size() < 4)
        return;
    m_timer.stop();
    SyntaxAnswer answer;
    answer.isKnown = true;
    answer.line = lines.at(1).toInt();
    answer.message = QString::fromUtf8(lines.at(2));
    setAnswer(answer);
    emit answered();
}
