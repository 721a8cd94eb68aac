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
const int manyNames = 10000;    // as many as Maya knows
const double wantedGrowth = 10; // milliseconds

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

// In milliseconds, with what was spent in Python apart.
struct Spent
{
    std::vector<double> inEditor;
    std::vector<double> inPython;
};

// False when the plug-in does not load.
bool measureEditor(standin::Session &session, Spent &spent)
{
    spentInPython = 0;
    const double time = showEditor(session);
    spent.inEditor.push_back(time - spentInPython);
    spent.inPython.push_back(spentInPython);
    return time >= 0;
}

void defineProcedures(standin::Session &session, int count)
{
    std::string text;
    for (int i = 0; i < count; ++i)
        text += "global proc benchProcedure" + std::to_string(i) + "() {}\n";
    session.executeMel(text, false);
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
    Spent few;
    Spent many;
    bool loads = true;
    for (int i = 0; i < rounds && loads; ++i) {
        empty.push_back(showEmptyWindow());
        loads = measureEditor(session, few);
    }
    defineProcedures(session, manyNames);
    for (int i = 0; i < rounds && loads; ++i)
        loads = measureEditor(session, many);
    if (!loads) {
        std::fprintf(stderr, "the plug-in does not load\n");
        return 1;
    }
    std::printf("empty main window: median %.1f ms\n", median(empty));
    std::printf("the editor:        median %.1f ms, the first time %.1f ms\n", median(few.inEditor),
                few.inEditor.front());
    std::printf("and in Python:     median %.1f ms, the first time %.1f ms\n", median(few.inPython),
                few.inPython.front());
    std::printf("10,000 names more: median %.1f ms\n", median(many.inEditor));
    const bool isQuick = isAtMost("the editor / empty main window",
                                  median(few.inEditor) / median(empty), wantedRatio);
    const bool staysQuick = isAtMost("10,000 names more, in milliseconds",
                                     median(many.inEditor) - median(few.inEditor), wantedGrowth);
    return isQuick && staysQuick ? 0 : 1;
}
