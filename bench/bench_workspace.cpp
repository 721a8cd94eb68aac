// SPDX-License-Identifier: MIT
// What restored tabs cost that nobody has looked at yet, against reading their files.
#include "bench/measure.h"
#include "bench/sampletext.h"
#include "workspace/edcentralwidget.h"
#include "workspace/tabentry.h"
#include "workspace/textfile.h"
#include "workspace/workspacestate.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QStringList>

#include <algorithm>

namespace {

const int tabs = 30;
const int linesOfTab = 20000;
const int rounds = 7;

// Written once, removed with the folder at the end.
class Files
{
public:
    Files()
    {
        m_folder.mkpath(m_folder.path());
        for (int i = 0; i < tabs; ++i)
            write(QString::fromLatin1("tab%1.%2").arg(i).arg(QLatin1String(i % 2 ? "py" : "mel")),
                  i % 2 ? pythonSample(linesOfTab) : melSample(linesOfTab));
    }
    ~Files()
    {
        for (const QString &name : m_folder.entryList(QDir::Files))
            m_folder.remove(name);
        m_folder.rmdir(m_folder.path());
    }
    Files(const Files &) = delete;
    Files &operator=(const Files &) = delete;

    QString write(const QString &name, const QString &text) const
    {
        QFile file(m_folder.filePath(name));
        if (file.open(QIODevice::WriteOnly))
            file.write(text.toUtf8());
        return file.fileName();
    }
    QStringList paths() const
    {
        QStringList paths;
        for (const QString &name : m_folder.entryList(QStringList(QLatin1String("tab*"))))
            paths << m_folder.filePath(name);
        return paths;
    }

private:
    QDir m_folder =
        QDir(QDir::tempPath() +
             QString::fromLatin1("/corvane-bench-%1").arg(QApplication::applicationPid()));
};

double readingTime(const QStringList &paths)
{
    return bestTime(rounds, [&paths] {
        for (const QString &path : paths) {
            TextFile file;
            QString reason;
            readTextFile(path, &file, &reason);
        }
    });
}

WorkspaceState stateOf(const QStringList &paths)
{
    WorkspaceState state;
    for (const QString &path : paths) {
        TabEntry entry;
        entry.path = path;
        entry.cursorPosition = 5000;
        entry.scrollValue = 100;
        state.openTabs << entry.text();
    }
    state.indexA = 0;
    return state;
}

// Until the one in front is painted.
double restoringTime(const QStringList &paths)
{
    const WorkspaceState state = stateOf(paths);
    double best = 1e9;
    for (int i = 0; i < rounds; ++i) {
        EdCentralWidget centre;
        centre.resize(900, 700);
        best = std::min(best, bestTime(1, [&] {
                            centre.restore(state);
                            centre.show();
                            QApplication::processEvents();
                        }));
    }
    return best;
}

bool measureRestoring(const Files &files)
{
    const QStringList paths = files.paths();
    const double reading = readingTime(paths);
    const double restoring = restoringTime(paths);
    const double one = restoringTime(paths.mid(0, 1));
    std::printf("%d tabs of %d lines are restored in %.1f ms, one in %.1f ms, their files read in "
                "%.1f ms\n",
                tabs, linesOfTab, restoring, one, reading);
    return isAtMost("tabs that are not shown / reading the files", (restoring - one) / reading, 3);
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const Files files;
    return measureRestoring(files) ? 0 : 1;
}
