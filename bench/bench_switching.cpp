// SPDX-License-Identifier: MIT
// Going from one tab to another, both of 100,000 lines: how long it takes until the page is
// painted, by the panes alone and in the whole window with its outline and lists.
#include "bench/measure.h"
#include "bench/samplefolder.h"
#include "bench/sampletext.h"
#include "editor/edcodeedit.h"
#include "editor/edhighlighter.h"
#include "mainwindow/kestrowl.h"
#include "workspace/edcentralwidget.h"
#include "workspace/edcodetabwidget.h"
#include "workspace/edcodeview.h"
#include "workspace/scriptdetails.h"
#include "workspace/tabentry.h"
#include "workspace/workspacestate.h"

#include <QApplication>
#include <QStringList>

#include <algorithm>
#include <vector>

namespace {

const int lines = 100000;
const int switches = 20;
const double twoFrames = 33; // milliseconds

double switchingTime(EdCentralWidget &central, int tab)
{
    return bestTime(1, [&central, tab] {
        central.pane(0)->setCurrentTab(tab);
        QApplication::processEvents();
    });
}

// Until all has its colours.
void waitUntilIdle(const EdCentralWidget &central)
{
    for (const EdCodeView *view : central.codeViews()) {
        while (view->codeEdit()->highlighter()->isPending())
            QApplication::processEvents();
    }
}

int parseCount(const EdCentralWidget &central)
{
    int count = 0;
    for (EdCodeView *view : central.codeViews())
        count += ScriptDetails::of(view).parseCount();
    return count;
}

bool measureSwitching(const char *where, EdCentralWidget &central)
{
    waitUntilIdle(central);
    switchingTime(central, 0);
    switchingTime(central, 1);
    const int parsed = parseCount(central);
    std::vector<double> times;
    for (int i = 0; i < switches; ++i)
        times.push_back(switchingTime(central, i % 2));
    std::sort(times.begin(), times.end());
    const int parsedSince = parseCount(central) - parsed;
    std::printf("%s: median %.1f ms, worst of %d %.1f ms; parsed %d times\n", where,
                times[times.size() / 2], switches, times.back(), parsedSince);
    return isAtMost("switching at worst / two frames", times.back() / twoFrames, 1) &&
           parsedSince == 0;
}

bool measurePanes(const QStringList &paths)
{
    const WorkspaceState state = tabsOf(paths, 0, 1000000, 30000);
    EdCentralWidget central;
    central.resize(900, 700);
    central.show();
    QApplication::processEvents();
    central.restore(state);
    QApplication::processEvents();
    std::printf("a restored tab is shown the first time after %.1f ms\n",
                switchingTime(central, 1));
    return measureSwitching("in the panes", central);
}

bool measureWindow(const QStringList &paths, const QString &folder)
{
    Kestrowl window(folder, folder);
    window.show();
    for (const QString &path : paths)
        window.open(path);
    return measureSwitching("in the window", *window.central());
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const SampleFolder folder;
    const QStringList paths = QStringList()
                              << folder.write(QLatin1String("a.mel"), melSample(lines))
                              << folder.write(QLatin1String("b.py"), pythonSample(lines));
    const bool ok = measurePanes(paths);
    return measureWindow(paths, folder.path()) && ok ? 0 : 1;
}
