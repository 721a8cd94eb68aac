// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace standin {

// What an option does once the plug-ins are loaded.
enum class StepKind {
    Mel,
    MelFile,
    Python,
    PythonFile,
    Open,
    Execute,
    PrintOutput,
    Screenshot,
    ScreenshotMain,
    Quit
};

struct Step
{
    StepKind kind;
    QString argument;
};

// The command line, read. With an error the rest is incomplete and not to be used.
struct ProgramOptions
{
    bool help = false;
    bool batch = false;
    bool log = false;
    bool closingMarks = true;
    bool loadsDefaultPlugin = true;
    bool unloadsAtQuit = true;
    QString userDirectory; // empty: the default one
    QStringList plugins;
    std::vector<Step> steps; // in the order given
    QString error;           // why the command line cannot be used; empty when it can

    bool quits() const; // by its own means, nobody is expected to be there
};

// `arguments` without the program's name.
ProgramOptions readOptions(const QStringList &arguments);
QString usageText();

} // namespace standin
