// SPDX-License-Identifier: MIT
#include "standin/program/options.h"

#include <optional>

namespace standin {

namespace {

using Setter = void (*)(ProgramOptions &, const QString &);

// Reading, help and checks walk the same table.
struct OptionRow
{
    const char *name;
    const char *argument; // what follows it, null when nothing does
    const char *help;
    Setter set; // null for steps
    // A row has either a setter or a step.
    std::optional<StepKind> step = {};
};

void setMessages(ProgramOptions &options, const QString &form)
{
    options.closingMarks = form == "up-to-2022";
    if (!options.closingMarks && form != "from-2023")
        options.error = "--messages takes up-to-2022 or from-2023, not " + form;
}

// In the order in which the help shows them.
const OptionRow rows[] = {
    {"--help", nullptr, "print this text",
     [](ProgramOptions &options, const QString &) { options.help = true; }},
    {"--batch", nullptr, "no interface at all; leave when everything has run",
     [](ProgramOptions &options, const QString &) { options.batch = true; }},
    {"--plugin", "FILE", "load a plug-in (may be repeated) in place of the default one",
     [](ProgramOptions &options, const QString &file) { options.plugins << file; }},
    {"--no-plugin", nullptr, "load no plug-in",
     [](ProgramOptions &options, const QString &) { options.loadsDefaultPlugin = false; }},
    {"--keep-plugins", nullptr, "leave without unloading the plug-ins, as Maya may",
     [](ProgramOptions &options, const QString &) { options.unloadsAtQuit = false; }},
    {"--user-dir", "DIR", "folder that holds prefs/, scripts/, plug-ins/ and modules/",
     [](ProgramOptions &options, const QString &folder) { options.userDirectory = folder; }},
    {"--log", nullptr, "print every message as KIND<TAB>TEXT",
     [](ProgramOptions &options, const QString &) { options.log = true; }},
    {"--messages", "FORM", "form of shown messages: up-to-2022 or from-2023", setMessages},
    {"--mel", "TEXT", "run MEL", nullptr, StepKind::Mel},
    {"--mel-file", "FILE", "run a file of MEL", nullptr, StepKind::MelFile},
    {"--python", "TEXT", "run Python", nullptr, StepKind::Python},
    {"--python-file", "FILE", "run a file of Python", nullptr, StepKind::PythonFile},
    {"--open", "FILE", "show the editor and open the file in it", nullptr, StepKind::Open},
    {"--execute", nullptr, "execute the document in the editor", nullptr, StepKind::Execute},
    {"--print-output", nullptr, "print the editor's output history", nullptr,
     StepKind::PrintOutput},
    {"--screenshot", "FILE", "save a picture of the editor's window", nullptr,
     StepKind::Screenshot},
    {"--screenshot-main", "FILE", "save a picture of the main window", nullptr,
     StepKind::ScreenshotMain},
    {"--quit", nullptr, "leave: run quit jobs, unload the plug-ins, save preferences", nullptr,
     StepKind::Quit},
};

const OptionRow *rowFor(const QString &name)
{
    for (const OptionRow &row : rows) {
        if (name == row.name)
            return &row;
    }
    return nullptr;
}

// Batch sessions have no window to show, to fill or to save.
bool needsInterface(StepKind kind)
{
    return kind != StepKind::Mel && kind != StepKind::MelFile && kind != StepKind::Python &&
           kind != StepKind::PythonFile && kind != StepKind::Quit;
}

void checkForBatch(ProgramOptions &options)
{
    for (const Step &step : options.steps) {
        if (options.batch && needsInterface(step.kind))
            options.error = "--batch has no editor to open, execute or save a picture of";
    }
}

} // namespace

bool ProgramOptions::quits() const
{
    for (const Step &step : steps) {
        if (step.kind == StepKind::Quit)
            return true;
    }
    // A batch session leaves when its steps are done.
    return batch;
}

ProgramOptions readOptions(const QStringList &arguments)
{
    ProgramOptions options;
    // The first mistake ends the reading.
    for (int i = 0; i < arguments.size() && options.error.isEmpty(); ++i) {
        const QString &name = arguments.at(i);
        const OptionRow *row = rowFor(name);
        if (!row)
            options.error = "unknown option: " + name;
        else if (row->argument && i + 1 == arguments.size())
            options.error = name + " needs " + row->argument;
        else {
            // Whatever it looks like: a text may begin with a dash.
            const QString argument = row->argument ? arguments.at(++i) : QString();
            if (row->step)
                options.steps.push_back({*row->step, argument});
            else
                row->set(options, argument);
        }
    }
    if (options.error.isEmpty())
        checkForBatch(options);
    return options;
}

QString usageText()
{
    QString text = "Usage: maya-standin [OPTION]...\n"
                   "Options that do something run in the order given, once the plug-ins are "
                   "loaded.\n\n";
    for (const OptionRow &row : rows) {
        QString name = row.name;
        if (row.argument)
            name += QString(" ") + row.argument;
        text += "  " + name.leftJustified(24) + row.help + "\n";
    }
    return text + "\nMAYA_LOCATION is the program's folder unless it is set; set to nothing, it "
                  "stays so.\nExit status: 1 when an error message arrived, 2 for a bad command "
                  "line, else 0.\n";
}

} // namespace standin
