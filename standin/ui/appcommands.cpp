// SPDX-License-Identifier: MIT
#include "standin/ui/interfacecommands.h"

#include "standin/host/session.h"
#include "standin/host/utf8.h"
#include "standin/mel/command.h"
#include "standin/ui/userinterface.h"

#include <maya/MGlobal.h>
#include <maya/MQtUtil.h>

#include <QApplication>
#include <QWidget>

namespace standin {

namespace {

using mel::ArgumentKind;
using mel::Value;

Value openScriptEditor(UserInterface &ui, const mel::Call &)
{
    ui.openScriptEditor();
    return {};
}

// Opens no browser: the page is named in the help line.
Value showHelp(UserInterface &ui, const mel::Call &call)
{
    const QString documentationRoot = "https://help.autodesk.com/cloudhelp/" +
                                      MQtUtil::toQString(MGlobal::mayaVersion()) +
                                      "/ENU/Maya-Tech-Docs/";
    const QString page = toQt(call.objects.empty() ? "index.html" : call.objectText(0));
    // -docs gives a path below the documentation's root, a bare object a topic to look up.
    if (call.isSet("absolute"))
        ui.showDocumentation(page);
    else if (call.isSet("docs") || call.objects.empty())
        ui.showDocumentation(documentationRoot + page);
    else
        ui.showDocumentation(documentationRoot + "index.html?topic=" + page);
    return {};
}

// Windows are painted anew; input stays waiting until the script is done.
Value refresh(UserInterface &, const mel::Call &)
{
    // Layouts first: what has changed its size is painted where it will be.
    QApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (widget->isVisible())
            // At once; update() would wait for the event loop.
            widget->repaint();
    }
    return {};
}

Value waitCursor(UserInterface &, const mel::Call &call)
{
    if (call.query)
        // Cursors stack up in Qt, so each "on" needs an "off", as in the application.
        return int(QApplication::overrideCursor() != nullptr);
    if (call.boolean("state"))
        QApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
    else
        QApplication::restoreOverrideCursor();
    return {};
}

// A command and what it does; the interface is bound when it is added.
struct CommandRow
{
    mel::Command command;
    Value (*run)(UserInterface &, const mel::Call &);
};

mel::Command command(const char *name, std::vector<mel::Flag> flags = {})
{
    mel::Command made;
    made.name = name;
    made.flags = std::move(flags);
    return made;
}

} // namespace

void addAppCommands(UserInterface &ui)
{
    CommandRow rows[] = {
        {command("openScriptEditor"), openScriptEditor},
        {command("showHelp",
                 {{"d", "docs"}, {"a", "absolute"}, {"ht", "helpTable"}, {"v", "version"}}),
         showHelp},
        {command("refresh", {{"f", "force"}, {"cv", "currentView"}}), refresh},
        {command("waitCursor", {{"st", "state", {ArgumentKind::Boolean}}}), waitCursor},
    };
    // waitCursor, the only one that can be asked.
    rows[3].command.queryable = true;
    for (CommandRow &row : rows) {
        row.command.run = [&ui, run = row.run](mel::Call &call) { return run(ui, call); };
        ui.session().mel().addCommand(row.command);
    }
}

} // namespace standin
