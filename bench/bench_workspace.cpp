// SPDX-License-Identifier: MIT
// How long it takes until 30 documents are there again and the one in front is painted, against
// reading their files.
#include "bench/measure.h"
#include "bench/samplefolder.h"
#include "bench/sampletext.h"
#include "workspace/edcentralwidget.h"
#include "workspace/tabentry.h"
#include "workspace/textfile.h"
#include "workspace/workspacestate.h"

#include <QApplication>
#include <QFileInfo>
#include <QProcess>
#include <QStringList>

#include <algorithm>
#include <vector>

namespace {

// As scripts are: many short ones, a few that are very long; 4 MB in all. The one in front is
// neither.
const int linesOfTabs[] = {300,  400,  500,  600,  700,  800,  900,  1000, 1200,  1400,
                           1600, 1800, 2000, 2200, 2500, 2800, 3000, 3200, 3500,  3800,
                           4000, 4500, 5000, 5500, 6000, 7000, 8000, 9000, 15000, 20000};
const int front = 15;
const int rounds = 15;

QStringList writtenFiles(const SampleFolder &folder)
{
    QStringList paths;
    for (int lines : linesOfTabs) {
        const bool isPython = paths.size() % 2 == 1;
        const QString name = QString::fromLatin1("tab%1.%2")
                                 .arg(paths.size())
                                 .arg(QLatin1String(isPython ? "py" : "mel"));
        paths << folder.write(name, isPython ? pythonSample(lines) : melSample(lines));
    }
    return paths;
}

// Reads all of them into memory, as documents are.
double readingTime(const QStringList &paths)
{
    std::vector<TextFile> files(size_t(paths.size()));
    return bestTime(1, [&] {
        for (size_t i = 0; i < files.size(); ++i) {
            QString reason;
            readTextFile(paths.at(int(i)), &files[i], &reason);
        }
    });
}

WorkspaceState stateOf(const QStringList &paths, int index)
{
    return tabsOf(paths, index, 5000, 100);
}

// In a window that is shown already, until the document in front is painted. Colours that are not
// in view come later.
double restoringTime(const QStringList &paths, int index)
{
    const WorkspaceState state = stateOf(paths, index);
    EdCentralWidget centre;
    centre.resize(900, 700);
    centre.show();
    QApplication::processEvents();
    return bestTime(1, [&] {
        centre.restore(state);
        QApplication::processEvents();
    });
}

// What a process does that has done the same to one file, so that fonts and code are there.
double timeOf(const QString &task, const QStringList &paths)
{
    const bool reads = task == QLatin1String("reading");
    const QStringList others = paths.mid(1);
    for (const QString &path : paths.mid(0, 1))
        reads ? readingTime(QStringList(path)) : restoringTime(QStringList(path), 0);
    return reads ? readingTime(others)
                 : restoringTime(others, std::min(front, int(others.size()) - 1));
}

// In a process of its own, as it is when the program starts: used memory is faster than new.
double timeInProcess(const char *task, const QStringList &paths)
{
    double best = 1e9;
    for (int i = 0; i < rounds; ++i) {
        QProcess process;
        process.start(QApplication::applicationFilePath(),
                      QStringList(QLatin1String(task)) + paths);
        process.waitForFinished(60000);
        best = std::min(best, process.readAllStandardOutput().trimmed().toDouble());
    }
    return best;
}

bool measureRestoring(const QString &first, const QStringList &paths)
{
    double megabytes = 0;
    for (const QString &path : paths)
        megabytes += double(QFileInfo(path).size()) / 1e6;
    const double reading = timeInProcess("reading", QStringList(first) + paths);
    const double all = timeInProcess("restoring", QStringList(first) + paths);
    const double one = timeInProcess("restoring", QStringList(first) + paths.mid(front, 1));
    const int unseen = int(paths.size()) - 1;
    std::printf("%d tabs, %.1f MB in all, are restored in %.1f ms, the one in front by itself in "
                "%.1f ms\n",
                unseen + 1, megabytes, all, one);
    std::printf("their files are read in %.1f ms; a tab that is not seen takes %.2f ms\n", reading,
                (all - one) / unseen);
    return isAtMost("restoring all tabs / reading their files", all / reading, 3);
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const QStringList arguments = application.arguments().mid(1);
    if (!arguments.isEmpty()) {
        std::printf("%.3f\n", timeOf(arguments.first(), arguments.mid(1)));
        return 0;
    }
    const SampleFolder folder;
    const QStringList paths = writtenFiles(folder);
    const QString other = folder.write(QLatin1String("other.mel"), melSample(2000));
    return measureRestoring(other, paths) ? 0 : 1;
}
