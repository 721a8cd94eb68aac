// SPDX-License-Identifier: MIT
#include "workspace/journalfolder.h"

#include "compat/filesystem.h"
#include "workspace/journalfile.h"
#include "workspace/tabentry.h"

#include <QCoreApplication>
#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>

#include <algorithm>

namespace {

const char journalPattern[] = "*.journal";
const int daysKeptAside = 30;

QString lockPath(const QString &session)
{
    return session + QLatin1String("/lock");
}

QString tabsPath(const QString &session)
{
    return session + QLatin1String("/tabs");
}

QByteArray bytesOf(const WorkspaceState &state)
{
    QByteArray payload;
    QDataStream stream(&payload, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_4_8);
    stream << state.openTabs << qint32(state.activeView) << qint32(state.indexA)
           << qint32(state.indexB) << state.documentIds;
    return checkedRecord(payload);
}

// Nothing where there is no list, or a damaged one.
std::optional<WorkspaceState> readTabs(const QString &session)
{
    QFile file(tabsPath(session));
    int position = 0;
    const QByteArray payload =
        file.open(QIODevice::ReadOnly) ? takeRecord(file.readAll(), &position) : QByteArray();
    if (payload.isNull())
        return std::nullopt;
    QDataStream stream(payload);
    stream.setVersion(QDataStream::Qt_4_8);
    WorkspaceState state;
    qint32 numbers[3] = {};
    stream >> state.openTabs >> numbers[0] >> numbers[1] >> numbers[2] >> state.documentIds;
    state.activeView = numbers[0];
    state.indexA = numbers[1];
    state.indexB = numbers[2];
    return state;
}

QFileInfoList filesIn(const QString &session)
{
    return QDir(session).entryInfoList(QDir::Files | QDir::Hidden);
}

QDateTime lastChangeIn(const QString &session)
{
    QDateTime latest;
    for (const QFileInfo &file : filesIn(session)) {
        if (file.fileName() != QLatin1String("lock"))
            latest = std::max(latest, file.lastModified());
    }
    return latest;
}

// A folder with journals in it stays.
void removeSession(const QString &session)
{
    QFile::remove(lockPath(session));
    QDir().rmdir(session);
}

// Entries of documents that are not in the list. A path may be there several times, as that of the
// last buffer file is.
void addMissing(WorkspaceState *state, const WorkspaceState &other)
{
    QStringList paths;
    for (const QString &text : state->openTabs) {
        const std::optional<TabEntry> entry = TabEntry::parse(text);
        if (entry)
            paths << entry->path;
    }
    for (const QString &text : other.openTabs) {
        const std::optional<TabEntry> entry = TabEntry::parse(text);
        if (entry && !paths.contains(entry->path))
            state->openTabs << text;
    }
}

// What tells an entry from others wherever the caret is.
QString keyOf(const QString &text)
{
    const std::optional<TabEntry> entry = TabEntry::parse(text);
    const QChar separator(QLatin1Char('\n'));
    return entry ? QString::number(entry->pane) + separator + entry->path + separator + entry->label
                 : QString();
}

// What an older list is still good for: buffers are closed by deleting their file.
WorkspaceState onlyBuffers(const WorkspaceState &state)
{
    WorkspaceState buffers;
    for (const QString &text : state.openTabs) {
        const std::optional<TabEntry> entry = TabEntry::parse(text);
        if (entry && entry->isBuffer && entry->hasFile())
            buffers.openTabs << text;
    }
    return buffers;
}

} // namespace

QStringList DeadSession::journals() const
{
    QStringList paths;
    for (const QFileInfo &file : filesIn(path)) {
        if (QDir::match(QLatin1String(journalPattern), file.fileName()))
            paths << file.absoluteFilePath();
    }
    return paths;
}

JournalFolder::JournalFolder(const QString &directory)
    : m_root(QDir(directory).absoluteFilePath(QLatin1String("journal")))
{
    begin();
    if (compat::ensurePrivate(m_root))
        findDeadSessions();
}

JournalFolder::~JournalFolder()
{
    if (!isValid())
        return;
    m_lock.release();
    if (filesIn(m_path).size() == 1) // the lock
        removeSession(m_path);
}

// Leaves alone what is not the user's own, where somebody else might read and change texts.
void JournalFolder::begin()
{
    compat::createPrivateFolder(m_root); // most often there is one
    const int mostAttempts = 20;         // names may be taken; where locks fail, all of them do
    const bool mayBegin = compat::ensurePrivate(m_root);
    for (int i = 0; mayBegin && i < mostAttempts && !beginOnce(); ++i) {
    }
}

// With the next name that nobody has used. A session that begins elsewhere may take the folder for
// a dead one before it is locked.
bool JournalFolder::beginOnce()
{
    const QString process = QString::number(QCoreApplication::applicationPid());
    m_path = m_root + QLatin1Char('/') + process + QLatin1Char('-') + QString::number(m_count++);
    if (!compat::createPrivateFolder(m_path))
        return false;
    if (!m_lock.take(lockPath(m_path)))
        removeSession(m_path);
    return m_lock.isHeld();
}

void JournalFolder::findDeadSessions()
{
    for (const QFileInfo &folder :
         QDir(m_root).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks)) {
        const QString path = folder.absoluteFilePath();
        auto session = std::make_unique<DeadSession>();
        if (path == m_path || !session->lock.take(lockPath(path)))
            continue;
        session->path = path;
        if (filesIn(path).size() == 1) { // the lock: locks are open files, of which not many may be
            session->lock.release();
            removeSession(path);
            continue;
        }
        session->lastChange = lastChangeIn(path);
        session->tabs = readTabs(path);
        m_dead.push_back(std::move(session));
    }
    std::sort(m_dead.begin(), m_dead.end(),
              [](const auto &a, const auto &b) { return a->lastChange > b->lastChange; });
}

bool JournalFolder::ensure()
{
    if (m_lock.isHeldAt(lockPath(m_path)))
        return true;
    m_lock.release();
    m_storedTabs.clear();
    if (compat::ensurePrivate(m_path) && m_lock.take(lockPath(m_path)))
        return true;
    QDir().mkpath(QFileInfo(m_root).path());
    begin();
    return isValid();
}

QString JournalFolder::placeFor(const QString &journal)
{
    ensure();
    return QFileInfo(journal).path() == m_path ? journal : newJournalPath();
}

QString JournalFolder::newJournalPath()
{
    return m_path + QLatin1Char('/') + QString::number(m_count++) + QLatin1String(".journal");
}

bool JournalFolder::storeTabs(const WorkspaceState &state)
{
    const QByteArray bytes = bytesOf(state);
    if (!ensure() || m_storedTabs == bytes)
        return isValid();
    const QString path = tabsPath(m_path);
    const QString fresh = path + QLatin1String(".tmp");
    QFile file;
    QString ignored; // it is tried again with the next change
    QFile::remove(fresh);
    bool stored = compat::createFile(&file, fresh, compat::Access::UserOnly, &ignored) &&
                  file.write(bytes) == bytes.size();
    file.close();
    stored = stored && compat::replaceFileSoon(path, fresh, &ignored);
    if (stored)
        m_storedTabs = bytes;
    return stored;
}

void JournalFolder::forgetTabs()
{
    m_storedTabs.clear();
    const bool hasJournals = filesIn(m_path).size() > 2; // than the lock and the list
    if (!hasJournals)
        QFile::remove(tabsPath(m_path));
}

WorkspaceState JournalFolder::tabsToRestore(const WorkspaceState &stored,
                                            const QDateTime &storedAt) const
{
    std::vector<const DeadSession *> sessions;
    for (const auto &session : m_dead) {
        if (session->tabs)
            sessions.push_back(session.get());
    }
    if (sessions.empty())
        return stored;
    const bool isOlder =
        storedAt.isNull() || storedAt < QFileInfo(tabsPath(sessions.front()->path)).lastModified();
    WorkspaceState state = isOlder ? *sessions.front()->tabs : stored;
    for (const DeadSession *session : sessions)
        addMissing(&state, *session->tabs);
    if (isOlder)
        addMissing(&state, onlyBuffers(stored));
    state.documentIds = idsFor(state.openTabs);
    return state;
}

// Entries that look the same are in the same order everywhere.
QStringList JournalFolder::idsFor(const QStringList &openTabs) const
{
    QMap<QString, QStringList> known;
    for (const auto &session : m_dead) {
        const WorkspaceState tabs = session->tabs.value_or(WorkspaceState());
        for (int i = 0; i < tabs.openTabs.size(); ++i)
            known[keyOf(tabs.openTabs.at(i))] << tabs.documentIds.value(i);
    }
    QStringList ids;
    for (const QString &text : openTabs) {
        QStringList &candidates = known[keyOf(text)];
        ids << (candidates.isEmpty() ? QString() : candidates.takeFirst());
    }
    return ids;
}

QString JournalFolder::keepAside(const QString &journal) const
{
    const QDir root(m_root);
    const QString name = QLatin1String("damaged-%1.journal");
    QMap<int, QString> kept; // by number
    for (const QString &old : root.entryList(QStringList(name.arg(QLatin1Char('*'))), QDir::Files))
        kept[old.section(QLatin1Char('-'), 1).section(QLatin1Char('.'), 0, 0).toInt()] = old;
    const int number = kept.isEmpty() ? 0 : QList<int>(kept.keys()).last() + 1;
    const QString target = root.filePath(name.arg(number));
    if (!compat::renameFile(journal, target))
        return journal;
    const QDateTime longAgo = QDateTime::currentDateTime().addDays(-daysKeptAside);
    for (const QString &old : kept) {
        if (QFileInfo(root.filePath(old)).lastModified() < longAgo)
            QFile::remove(root.filePath(old));
    }
    return target;
}

void JournalFolder::forgetDeadSessions()
{
    for (const auto &session : m_dead) {
        for (const QFileInfo &file : filesIn(session->path)) {
            const QString name = file.fileName();
            if (name == QLatin1String("tabs") || name.endsWith(QLatin1String(".tmp")))
                QFile::remove(file.absoluteFilePath());
        }
        session->lock.release();
        removeSession(session->path);
    }
    m_dead.clear();
}
