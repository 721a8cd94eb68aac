// SPDX-License-Identifier: MIT
#include "standin/ui/userinterface.h"

#include "standin/host/scriptjobs.h"
#include "standin/host/session.h"
#include "standin/host/utf8.h"
#include "standin/ui/commandline.h"
#include "standin/ui/interfacecommands.h"
#include "standin/ui/interfacelibrary.h"
#include "standin/ui/interruptwatch.h"
#include "standin/ui/mainwindow.h"
#include "standin/ui/scripteditorwindow.h"

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QMenu>
#include <QStatusBar>
#include <QTabWidget>
#include <QToolButton>

#include <algorithm>
#include <cstring>

namespace standin {

namespace {

void addCommands(UserInterface &ui)
{
    addElementCommands(ui);
    addWindowCommands(ui);
    addMenuCommands(ui);
    addLayoutCommands(ui);
    addControlCommands(ui);
    addShelfCommands(ui);
    addScriptFieldCommands(ui);
    addDialogCommands(ui);
    addAppCommands(ui);
}

} // namespace

UserInterface::UserInterface(Session &session)
    : m_session(session), m_window(std::make_unique<MainWindow>()),
      m_interruptWatch(std::make_unique<InterruptWatch>())
{
    // First of all, so that nothing that the library prints is missed.
    connect(&session, SIGNAL(historyGrew(QString)), SLOT(keepHistory(QString)));
    connect(&session, SIGNAL(messageArrived(int, QString)), SLOT(showMessage(int, QString)));
    connect(&m_tree, SIGNAL(removed(QString)), SLOT(forgetJobsOf(QString)));
    connect(m_window->commandLine(), SIGNAL(entered(QString, int)), SLOT(runEntered(QString, int)));
    session.setInterface(this);
    session.setInterruptCheck([this] { return m_interruptWatch->interruptRequested(); });
    // Then what the library's scripts work with: the elements, the commands, the lookup above.
    addMainElements();
    addCommands(*this);
    loadInterfaceLibrary(session.mel());
    session.executeMel("initMainWindow", false);
    loadShelves();
    // The library has made elements; a user's script must not add to the last of them by chance.
    m_tree.setCurrentParent(nullptr);
    m_tree.setCurrentMenu(nullptr);
}

UserInterface::~UserInterface()
{
    // The session outlives the interface and must not call it any more.
    m_session.setInterruptCheck(nullptr);
    m_session.setInterface(nullptr);
    m_session.disconnect(this);
    // The windows die after this, one element after the other; nobody has to hear of it.
    m_tree.disconnect(this);
}

// What the library and plug-ins reach by name in the main window.
void UserInterface::addMainElements()
{
    CommandLine *line = m_window->commandLine();
    // Unlike other elements these have their objects already, and in their places.
    Element &window =
        m_tree.add(ElementKind::Window, "window", "MayaWindow", nullptr, m_window.get());
    m_tree.add(ElementKind::Layout, "shelfTabLayout", "ShelfLayout", &window, m_window->shelf());
    Element &strip = m_tree.add(ElementKind::Layout, "formLayout", "CommandLine", &window, line);
    m_tree.add(ElementKind::Control, "textField", "commandLineField", &strip, line->input());
    Element &button = m_tree.add(ElementKind::Control, "symbolButton", "cmdWndIcon", &strip,
                                 line->scriptEditorButton());
    connect(button.object, SIGNAL(clicked()), SLOT(runCommand()));
}

// Shelves that the user has saved replace those of the library.
void UserInterface::loadShelves()
{
    const QDir folder(m_session.userFolder("prefs/shelves"));
    // Deliberate: these two always exist, so that there is a shelf to put scripts on.
    QStringList names = QStringList() << "Polygons"
                                      << "Custom";
    for (const QString &file : folder.entryList(QStringList() << "shelf_*.mel", QDir::Files)) {
        m_session.sourceFile(toUtf8(folder.filePath(file)));
        const QString name = QFileInfo(file).completeBaseName().mid(int(std::strlen("shelf_")));
        if (!names.contains(name))
            names << name;
    }
    for (const QString &name : names)
        m_session.mel().call("loadShelf", {toUtf8(name)});
    // Loading brings each new tab to the front.
    m_window->shelf()->setCurrentIndex(0);
}

void UserInterface::run(const std::string &script, Language language)
{
    if (language == Language::Python)
        m_session.executePython(script, false);
    else
        m_session.executeMel(script, false);
}

// The element may be gone afterwards; its text is copied first.
void UserInterface::runScriptOf(const QObject *object, const char *key, const std::string &value)
{
    const Element *element = m_tree.find(object);
    if (!element)
        return;
    std::string script = element->text(key);
    const Language language =
        element->text("sourceType") == "python" ? Language::Python : Language::Mel;
    for (size_t at = script.find("#1"); !value.empty() && at != std::string::npos;
         at = script.find("#1", at + value.size()))
        // All marks; goes on behind what was put in.
        script.replace(at, 2, value);
    if (!script.empty())
        run(script, language);
}

void UserInterface::runCommand()
{
    runScriptOf(sender(), "command");
}

void UserInterface::runCommandWithState(bool on)
{
    runScriptOf(sender(), "command", on ? "1" : "0");
}

void UserInterface::runChangeCommand()
{
    runScriptOf(sender(), "changeCommand");
}

void UserInterface::runChangeCommandWithState(bool on)
{
    // The first script may delete the box.
    QPointer<QObject> box = sender();
    runScriptOf(box, "changeCommand", on ? "1" : "0");
    if (box)
        runScriptOf(box, on ? "onCommand" : "offCommand");
}

void UserInterface::runEnterCommand()
{
    runScriptOf(sender(), "enterCommand");
}

void UserInterface::runPostMenuCommand()
{
    runScriptOf(sender(), "postMenuCommand");
}

void UserInterface::runCloseCommand()
{
    runScriptOf(sender(), "closeCommand");
}

void UserInterface::runEntered(const QString &text, int language)
{
    if (static_cast<Language>(language) == Language::Python)
        m_session.executePython(toUtf8(text), true);
    else
        m_session.executeMel(toUtf8(text), true);
}

void UserInterface::showMessage(int kind, const QString &text)
{
    m_window->commandLine()->showMessage(static_cast<mel::MessageKind>(kind), text);
}

void UserInterface::keepHistory(const QString &shownText)
{
    // The history was cleared when it holds nothing but this piece.
    if (m_session.history().text().size() == toUtf8(shownText).size())
        m_historyPieces.clear();
    m_historyPieces.push_back({m_session.history().language(), shownText});
}

void UserInterface::forgetJobsOf(const QString &path)
{
    m_session.scriptJobs().killChildrenOf(toUtf8(path));
    // By short name too, for scripts give either.
    m_session.scriptJobs().killChildrenOf(toUtf8(path.section('|', -1)));
}

void UserInterface::openScriptEditor()
{
    if (!m_scriptEditor)
        m_scriptEditor = new ScriptEditorWindow(*this, m_window.get());
    m_scriptEditor->showNormal();
    m_scriptEditor->raise();
    m_scriptEditor->activateWindow();
}

void UserInterface::showDocumentation(const QString &page)
{
    m_lastDocumentation = page;
    m_window->statusBar()->showMessage("Documentation: " + page);
}

QWidget *UserInterface::mainWindow()
{
    return m_window.get();
}

QWidget *UserInterface::findWidget(const std::string &name,
                                   const std::vector<ElementKind> &kinds) const
{
    const Element *element = m_tree.find(name);
    const bool isWanted =
        element && std::find(kinds.begin(), kinds.end(), element->kind) != kinds.end();
    return isWanted ? element->widget() : nullptr;
}

QWidget *UserInterface::findControl(const std::string &name)
{
    return findWidget(name, {ElementKind::Control, ElementKind::Layout});
}

QWidget *UserInterface::findLayout(const std::string &name)
{
    return findWidget(name, {ElementKind::Layout});
}

QWidget *UserInterface::findWindow(const std::string &name)
{
    return findWidget(name, {ElementKind::Window});
}

QAction *UserInterface::findMenuItem(const std::string &name)
{
    const Element *element = m_tree.find(name);
    // A menu answers with the action that opens it.
    return element ? element->action() : nullptr;
}

std::string UserInterface::fullName(const QObject *object)
{
    const Element *element = m_tree.find(object);
    return element ? ElementTree::path(*element) : std::string();
}

} // namespace standin
