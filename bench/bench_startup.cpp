// SPDX-License-Identifier: MIT
// From loading the plug-in to its window on the screen, against an empty main window with as many
// docks and tool bars, in turns in the same run. What Python takes meanwhile to compile the
// analysis script is its own matter: it is measured as it happens and set aside.
#include "bench/measure.h"
#include "standin/host/idlequeue.h"
#include "standin/host/pluginloader.h"
#include "standin/host/pythonengine.h"
#include "standin/host/session.h"
#include "standin/python/python.h"
#include "standin/ui/userinterface.h"

#include <QApplication>
#include <QDir>
#include <QDockWidget>
#include <QElapsedTimer>
#include <QMainWindow>
#include <QToolBar>

#include <memory>
#include <string>
#include <vector>

namespace {

const int rounds = 15;
const double wantedRatio = 3.0;

double spentInPython = 0; // milliseconds since the last reset

// The session's Python with a clock.
class TimedPython : public standin::PythonEngine
{
public:
    explicit TimedPython(std::unique_ptr<standin::PythonEngine> engine)
        : m_engine(std::move(engine))
    {
    }

    mel::Outcome execute(const std::string &text, bool display) override
    {
        QElapsedTimer clock;
        clock.start();
        mel::Outcome outcome = m_engine->execute(text, display);
        spentInPython += double(clock.nsecsElapsed()) / 1e6;
        return outcome;
    }

    void interrupt() override { m_engine->interrupt(); }

private:
    std::unique_ptr<standin::PythonEngine> m_engine;
};

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
    session.setPython(
        std::make_unique<TimedPython>(standin::createPythonEngine(session, session.mel())));
    standin::UserInterface ui(session);

    showEmptyWindow(); // fonts and styles are loaded once in either case
    std::vector<double> empty;
    std::vector<double> editor;
    std::vector<double> python;
    for (int i = 0; i < rounds; ++i) {
        empty.push_back(showEmptyWindow());
        spentInPython = 0;
        const double spent = showEditor(session);
        if (spent < 0) {
            std::fprintf(stderr, "the plug-in does not load\n");
            return 1;
        }
        editor.push_back(spent - spentInPython);
        python.push_back(spentInPython);
    }
    std::printf("empty main window: median %.1f ms\n", median(empty));
    std::printf("the editor:        median %.1f ms, the first time %.1f ms\n", median(editor),
                editor.front());
    std::printf("and in Python:     median %.1f ms, the first time %.1f ms\n", median(python),
                python.front());
    const double ratio = median(editor) / median(empty);
    return isAtMost("the editor / empty main window", ratio, wantedRatio) ? 0 : 1;
}
