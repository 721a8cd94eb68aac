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

const int longestPause = 10;    // ms that a check may take at once
const int answerInterval = 25;  // ms
const int longestWait = 120000; // ms for an answer

// Units of the longest text that is checked at once: about 250 lines, which take a few
// milliseconds. Becomes less where Python is slow, and slowly more again: it may have been busy.
const int mostAtOnce = 10000;
const int leastAtOnce = 1000;
int longestAtOnce = mostAtOnce;

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
        longestAtOnce = std::min(mostAtOnce, longestAtOnce + longestAtOnce / 16);
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
    const int size = int(m_source.size());
    if (size > leastAtOnce && clock.elapsed() > longestPause)
        longestAtOnce = std::max(leastAtOnce, size / 2);
}

void PythonSyntaxCheck::startThread()
{
    if (!m_answerFile.open() || !startPythonSyntaxThread(m_source, m_answerFile.fileName()))
        return end(SyntaxAnswer());
    m_source.clear();
    m_clock.start();
    m_timer.start();
}

// A word, the line and the message, each with a line feed, are written at once. There may be no
// answer ever: others clear the folder for temporary files, or fill the disk.
void PythonSyntaxCheck::lookForAnswer()
{
    QFile file(m_answerFile.fileName());
    if (m_clock.elapsed() > longestWait || !file.open(QIODevice::ReadOnly))
        return end(SyntaxAnswer());
    const QList<QByteArray> lines = file.readAll().split('\n');
    if (lines.size() < 4)
        return;
    SyntaxAnswer answer;
    answer.isKnown = lines.at(0) == "answer";
    answer.line = lines.at(1).toInt();
    answer.message = QString::fromUtf8(lines.at(2));
    end(answer);
}

// Without the file the thread gives up, if it has not yet.
void PythonSyntaxCheck::end(const SyntaxAnswer &answer)
{
    m_timer.stop();
    m_answerFile.remove();
    setAnswer(answer);
    emit answered();
}
