// SPDX-License-Identifier: MIT
#pragma once

#include "standin/host/outputhistory.h"
#include "standin/sdk/hostservices.h"
#include "standin/ui/elementtree.h"

#include <QObject>
#include <QPointer>
#include <QString>

#include <memory>
#include <string>
#include <vector>

namespace standin {

class InterruptWatch;
class MainWindow;
class Session;

// The windows of a session, the commands with which scripts build and change them, and the lookup
// that plug-ins use. Made after the session, before any plug-in is loaded, and destroyed before the
// session; of one session only one. Not made for batch sessions. Main thread only.
class UserInterface : public QObject, public InterfaceLookup
{
    Q_OBJECT

public:
    explicit UserInterface(Session &session);
    ~UserInterface() override;

    Session &session() { return m_session; }
    ElementTree &tree() { return m_tree; }
    MainWindow &window() { return *m_window; }

    // Nobody is there to answer: dialogs close at once as if they had been dismissed.
    void setUnattended(bool unattended) { m_unattended = unattended; }
    bool isUnattended() const { return m_unattended; }

    struct HistoryPiece
    {
        Language language;
        QString text;
    };
    // The history in pieces, for views that show one language only.
    const std::vector<HistoryPiece> &historyPieces() const { return m_historyPieces; }

    // The host's own one; made when it is first wanted, then only shown.
    void openScriptEditor();
    // Names the page in the help line; no browser is opened.
    void showDocumentation(const QString &page);
    QString lastDocumentation() const { return m_lastDocumentation; }

    // The lookup: short names or paths, null where there is none.
    QWidget *mainWindow() override;
    QWidget *findControl(const std::string &name) override;
    QWidget *findLayout(const std::string &name) override;
    QWidget *findWindow(const std::string &name) override;
    QAction *findMenuItem(const std::string &name) override;
    std::string fullName(const QObject *object) override;

public slots:
    // Each runs a script of the element whose object sends the signal; "#1" in the script stands
    // for the state.
    void runCommand();
    void runCommandWithState(bool on);
    void runChangeCommand();
    void runChangeCommandWithState(bool on);
    void runEnterCommand();
    void runPostMenuCommand();
    void runCloseCommand();

private slots:
    // What the command line has got; echoed, as typed text is.
    void runEntered(const QString &text, int language);
    void showMessage(int kind, const QString &text);
    void keepHistory(const QString &shownText);
    // Script jobs die with the element that was named as their parent.
    void forgetJobsOf(const QString &path);

private:
    void addMainElements();
    void loadShelves();
    void run(const std::string &script, Language language);
    void runScriptOf(const QObject *object, const char *key, const std::string &value = {});
    // Null as well when the element is of another kind than these.
    QWidget *findWidget(const std::string &name, const std::vector<ElementKind> &kinds) const;

    Session &m_session;
    // Deliberate order: the window goes first and tells the tree of every object that dies.
    ElementTree m_tree;
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<InterruptWatch> m_interruptWatch;
    QPointer<QWidget> m_scriptEditor; // a child of the window
    std::vector<HistoryPiece> m_historyPieces;
    QString m_lastDocumentation;
    bool m_unattended = false;
};

} // namespace standin
