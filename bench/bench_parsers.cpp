// SPDX-License-Identifier: MIT
// How fast the parsers scan: the Python parser against universal-ctags on the same file, the MEL
// parser against the Python parser, and either on ten times as many lines.
#include "analysis/melparser.h"
#include "analysis/pythonparser.h"
#include "bench/measure.h"
#include "bench/sampletext.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStringList>

#include <algorithm>

namespace {

const int lines = 100000;
const int rounds = 7;
const double maximumGrowth = 12.0; // of the time, for ten times as many lines

double parseTime(BaseParser &parser, const QString &text)
{
    return bestTime(rounds, [&] { parser.parse(text, QString()); });
}

// Millions of bytes in a second.
double rate(const QString &text, double milliseconds)
{
    return double(text.toUtf8().size()) / 1e3 / milliseconds;
}

// What ctags says of itself, the best of several rounds; 0 when it is not installed.
double ctagsRate(const QString &text)
{
    const QString path = QDir::tempPath() + QLatin1String("/corvane-bench-ctags.py");
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return 0;
    file.write(text.toUtf8());
    file.close();
    double best = 0;
    for (int i = 0; i < rounds; ++i) {
        QProcess ctags;
        ctags.setProcessChannelMode(QProcess::MergedChannels);
        ctags.start(QLatin1String("ctags"), QStringList()
                                                << QLatin1String("--totals") << QLatin1String("-f")
                                                << QLatin1String("/dev/null") << path);
        if (!ctags.waitForFinished())
            return 0;
        // ... scanned in 0.1 seconds (12345 kB/s)
        const QString said = QString::fromUtf8(ctags.readAll());
        const int start =
            int(said.indexOf(QLatin1Char('('), said.indexOf(QLatin1String("seconds"))));
        best = std::max(best, said.mid(start + 1).section(QLatin1Char(' '), 0, 0).toDouble() / 1e3);
    }
    QFile::remove(path);
    return best;
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QString python = pythonSample(lines);
    const QString mel = melSample(lines);
    PythonParser pythonParser;
    MelParser melParser;
    const double pythonTime = parseTime(pythonParser, python);
    const double melTime = parseTime(melParser, mel);
    std::printf("Python parser: %.0f MB/s, MEL parser: %.0f MB/s\n", rate(python, pythonTime),
                rate(mel, melTime));
    bool ok = isAtLeast("MEL / Python, bytes in the same time",
                        rate(mel, melTime) / rate(python, pythonTime), 1.0);
    ok &= isAtMost("Python, time for 100,000 lines / 10,000",
                   pythonTime / parseTime(pythonParser, pythonSample(lines / 10)), maximumGrowth);
    ok &= isAtMost("MEL, time for 100,000 lines / 10,000",
                   melTime / parseTime(melParser, melSample(lines / 10)), maximumGrowth);
    const double ctags = ctagsRate(python);
    if (ctags > 0)
        ok &= isAtLeast("Python / ctags, bytes in the same time", rate(python, pythonTime) / ctags,
                        1.0);
    else
        std::printf("universal-ctags is not installed: not compared\n");
    return ok ? 0 : 1;
}
