// SPDX-License-Identifier: MIT
// From loading the plug-in to its window on the screen, against an empty main window with as many
// docks and tool bars, in turns in the same run. What Maya's interpreters take meanwhile to list
// their commands and to compile the analysis script is measured by itself and set aside.
#include "bench/measure.h"
#include "bridge/melcatalogue.h"
#include "bridge/pythonanalysis.h"
#include "standin/host/idlequeue.h"
#include "standin/host/pluginloader.h"
#include "standin/host/session.h"
#include "standin/python/python.h"
#include "standin/ui/userinterface.h"

#include <QApplication>
#include <QDir>
#include <QDockWidget>
#include <QElapsedTimer>
#include <QMainWindow>
#include <QToolBar>

#include <vector>

namespace {

const int rounds = 15;
const double wantedRatio = 3.0;

double showEmptyWindow()
{
    QElapsedTimer clock;
    clock.start();
    QMainWindow window;
    for (int i = 0; i < 6; ++i) {
        auto *dock = new QDockWidget(QString::number(i), &window);
        dock->setWidget(new QWidget);
        window.addDockWidget(Qt::LeftDockWidgetArea, dock);
    }
    for (int i = 0; i < 4; ++i)
        window.addToolBar(QString::number(i));
    window.resize(1100, 760);
    window.show();
    QApplication::processEvents();
    return double(clock.nsecsElapsed()) / 1e6;
}

double showEditor(standin::Session &session)
{
    QElapsedTimer clock;
    clock.start();
    if (!session.plugins().load(QString::fromUtf8(PLUGIN_FILE)))
        return -1;
    session.executeMel("corvaneEditor", false);
    QApplication::processEvents();
    const double spent = double(clock.nsecsElapsed()) / 1e6;
    session.plugins().unload(QLatin1String("corvaneEditor"));
    session.idleQueue().processUntilEmpty();
    return spent;
}

// The same calls as those of the plug-in, with a catalogue of this program's own.
double askInterpreters()
{
    QElapsedTimer clock;
    clock.start();
    loadMelCatalogue();
    loadPythonAnalysis();
    return double(clock.nsecsElapsed()) / 1e6;
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    standin::SessionOptions options;
    options.userDirectory = QDir::tempPath() + QLatin1String("/corvane-bench-startup");
    standin::Session session(options);
    session.setPython(standin::createPythonEngine(session, session.mel()));
    standin::UserInterface ui(session);

    showEmptyWindow(); // fonts and styles are loaded once in either case
    std::vector<double> empty;
    std::vector<double> interpreters;
    std::vector<double> editor;
    for (int i = 0; i < rounds; ++i) {
        empty.push_back(showEmptyWindow());
        interpreters.push_back(askInterpreters());
        editor.push_back(showEditor(session));
        if (editor.back() < 0) {
            std::fprintf(stderr, "the plug-in does not load\n");
            return 1;
        }
    }
    std::printf("empty main window:  median %.1f ms\n", median(empty));
    std::printf("the editor:         median %.1f ms, the first time %.1f ms\n", median(editor),
                editor.front());
    std::printf("of it interpreters: median %.1f ms\n", median(interpreters));
    const double own = median(editor) - median(interpreters);
    return isAtMost("the rest / empty main window", own / median(empty), wantedRatio) ? 0 : 1;
}
