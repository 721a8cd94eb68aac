// SPDX-License-Identifier: MIT
#include "standin/program/locations.h"
#include "standin/program/options.h"
#include "standin/program/program.h"
#include "standin/program/stopsignal.h"
#include "standin/ui/theme.h"

#include <QApplication>
#include <QTimer>

#include <cstdio>
#include <memory>

namespace {

// Without the program's name; taken before Qt removes the options it knows itself.
QStringList arguments(int argc, char **argv)
{
    QStringList list;
    for (int i = 1; i < argc; ++i)
        list << QString::fromLocal8Bit(argv[i]);
    return list;
}

std::unique_ptr<QCoreApplication> newApplication(bool batch, int &argc, char **argv)
{
    if (batch)
        return std::make_unique<QCoreApplication>(argc, argv);
    auto application = std::make_unique<QApplication>(argc, argv);
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
    const std::unique_ptr<QCoreApplication> application = newApplication(options.batch, argc, argv);
    if (qgetenv("MAYA_LOCATION").isEmpty())
        qputenv("MAYA_LOCATION", standin::programRoot().toLocal8Bit());
    return run(options);
}
