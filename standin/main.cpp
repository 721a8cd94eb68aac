// SPDX-License-Identifier: MIT
#include "standin/program/locations.h"
#include "standin/program/options.h"
#include "standin/program/program.h"
#include "standin/program/stopsignal.h"
#include "standin/ui/theme.h"

#include <QApplication>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <memory>

namespace {

// Without the program's name.
QStringList arguments(int argc, char **argv)
{
    QStringList list;
    for (int i = 1; i < argc; ++i)
        list << QString::fromLocal8Bit(argv[i]);
    return list;
}

// Qt gets the program's name alone, for it would take options of its own, --plugin among them,
// wherever they stand.
std::unique_ptr<QCoreApplication> newApplication(bool batch, char **argv)
{
    static int count = 1; // Qt keeps the reference
    if (batch)
        return std::make_unique<QCoreApplication>(count, argv);
    auto application = std::make_unique<QApplication>(count, argv);
    standin::applyTheme(*application);
    // The session decides when to leave; closing the editor's window is no reason.
    application->setQuitOnLastWindowClosed(false);
    return application;
}

int run(const standin::ProgramOptions &options)
{
    standin::Program program(options);
    standin::StopSignal stopSignal([&program] { program.interruptAndLeave(); });
    QTimer::singleShot(0, &program, SLOT(start()));
    QCoreApplication::exec();
    return program.exitStatus();
}

} // namespace

int main(int argc, char **argv)
{
    const standin::ProgramOptions options = standin::readOptions(arguments(argc, argv));
    if (options.help) {
        std::fputs(standin::usageText().toUtf8().constData(), stdout);
        return 0;
    }
    if (!options.error.isEmpty()) {
        std::fprintf(stderr, "maya-standin: %s\n\n%s", options.error.toUtf8().constData(),
                     standin::usageText().toUtf8().constData());
        return 2;
    }
    const std::unique_ptr<QCoreApplication> application = newApplication(options.batch, argv);
    // Deliberate: set but empty, it stays so, to see what plug-ins do without it.
    if (!std::getenv("MAYA_LOCATION"))
        qputenv("MAYA_LOCATION", standin::programRoot().toLocal8Bit());
    return run(options);
}
