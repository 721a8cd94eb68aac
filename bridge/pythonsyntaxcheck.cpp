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

const int longestPause = 20;   // ms that a check may take at once
const int answerInterval = 25; // ms

// Units of the longest text that is checked at once: about 500 lines, which take a few
// milliseconds. Becomes less where Python is slow.
int longestAtOnce = 20000;

} // namespace

PythonSyntaxCheck::PythonSyntaxCheck(QObject *parent)
    : SyntaxCheck(parent), m_answerFile(QDir::tempPath() + QLatin1String("/corvane-check-XXXXXX"))
{
    m_timer.setInterval(answerInterval);
    connect(&m_timer, SIGNAL(timeout()), SLOT(lookForAnswer()));
}

SyntaxCheck *PythonSyntaxCheck::start(const QString &source, QObject *parent)
{
    std::unique_ptr<PythonSyntaxCheck> check(new PythonSyntaxCheck(nullptr));
    const bool started =
        source.size() <= longestAtOnce ? check->checkAtOnce(source) : check->startThread(source);
    if (!started)
        return nullptr;
    check->setParent(parent);
    return check.release();
}

bool PythonSyntaxCheck::checkAtOnce(const QString &source)
{
    QElapsedTimer clock;
    clock.start();
    setAnswer(pythonSyntaxError(source));
    if (clock.elapsed() > longestPause)
        longestAtOnce = std::min(longestAtOnce, int(source.size()) / 2);
    return answer().isKnown;
}

bool PythonSyntaxCheck::startThread(const QString &source)
{
    if (!m_answerFile.open() || !startPythonSyntaxThread(source, m_answerFile.fileName()))
        return false;
    m_timer.start();
    return true;
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
