// SPDX-License-Identifier: MIT
#include "standin/ui/interfacelibrary.h"

#include "standin/host/utf8.h"
#include "standin/mel/interpreter.h"

#include <QFile>

// Outside the namespace: that is where the resource compiler puts what these call.
static void registerResources()
{
    Q_INIT_RESOURCE(standin);
    Q_INIT_RESOURCE(scripts);
}

namespace standin {

namespace {

const char *const scripts[] = {"uiRes.mel", "mainMenus.mel", "windowsMenu.mel", "shelves.mel",
                               "mainWindow.mel"};

struct GlobalRow
{
    const char *name;
    const char *value;
};

// The names that scripts of all kinds rely on.
const GlobalRow globals[] = {
    {"$gMainWindow", "MayaWindow"},
    {"$gMainWindowMenu", "mainWindowMenu"},
    {"$gShelfTopLevel", "MayaWindow|ShelfLayout"},
};

} // namespace

void loadInterfaceLibrary(mel::Interpreter &interpreter)
{
    registerResources();
    for (const GlobalRow &row : globals)
        interpreter.setGlobalVariable(row.name, std::string(row.value));
    for (const char *script : scripts) {
        QFile file(QString(":/standin/mel/") + script);
        // Part of the program, so it is there.
        file.open(QIODevice::ReadOnly);
        const QByteArray text = file.readAll();
        interpreter.defineLibrary(std::string(text.constData(), static_cast<size_t>(text.size())),
                                  toUtf8(file.fileName()));
    }
}

} // namespace standin
