// SPDX-License-Identifier: MIT
#pragma once

#include "compat/filelock.h"
#include "workspace/workspacestate.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

// What a session that ended left behind. It is locked, so that no other session takes it up too.
struct DeadSession
{
    QString path; // its folder
    compat::FileLock lock;
    QDateTime lastChange;
    std::optional<WorkspaceState> tabs; // nothing after an end at which the settings were written

    // Absolute paths of the journals that are still there.
    QStringList journals() const;
};

// Where the running plug-in keeps its journals: a private folder of its own, locked while it is in
// use, beside those of other sessions. Sessions that are at work are left alone; the others are
// taken up when this one begins.
class JournalFolder
{
public:
    // Below the directory, which must exist.
    explicit JournalFolder(const QString &directory);
    // Lets go of the folder and leaves the journals in it.
    ~JournalFolder();
    JournalFolder(const JournalFolder &) = delete;
    JournalFolder &operator=(const JournalFolder &) = delete;

    // False when no folder could be made; there is then no journal.
    bool isValid() const { return m_lock.isHeld(); }
    // Makes the folder again where somebody tidied up. Returns isValid().
    bool ensure();
    // A path for a journal, never the same one.
    QString newJournalPath();
    // That of a journal, or a new one where its folder went and another had to be made.
    QString placeFor(const QString &journal);
    // Keeps the list of open documents, in case there is no time to write the settings. False when
    // it cannot be written.
    bool storeTabs(const WorkspaceState &state);
    // For the session's end, once the settings have the list. It stays if journals do, as it tells
    // whose they are.
    void forgetTabs();

    // The one that was at work last comes first.
    const std::vector<std::unique_ptr<DeadSession>> &deadSessions() const { return m_dead; }
    // The documents that were open, from what the settings say and what dead sessions say. Those
    // that no session tells of but the older settings were closed.
    WorkspaceState tabsToRestore(const WorkspaceState &stored, const QDateTime &storedAt) const;
    // Puts a journal that cannot be read where nobody looks for journals; returns the new path, or
    // the old one when that fails. Of those only the last few are kept.
    QString keepAside(const QString &journal) const;
    // Removes what is left of the dead sessions, except journals.
    void forgetDeadSessions();

private:
    void begin();
    bool beginOnce();
    void findDeadSessions();
    QStringList idsFor(const QStringList &openTabs) const;

    QString m_root; // with the folders of all sessions
    QString m_path; // of this session's folder
    compat::FileLock m_lock;
    int m_count = 0;         // of journals
    QByteArray m_storedTabs; // as they are in the list
    std::vector<std::unique_ptr<DeadSession>> m_dead;
};
