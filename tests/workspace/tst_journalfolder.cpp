// SPDX-License-Identifier: MIT
#include "workspace/journalfolder.h"

#include "tests/support/datatable.h"
#include "tests/support/scratchdir.h"
#include "tests/support/testmain.h"
#include "workspace/edcodeview.h"

#include <QDir>
#include <QFileInfo>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <memory>

#include <sys/wait.h>
#include <unistd.h>

namespace {

void writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(bytes);
}

WorkspaceState stateOf(const QStringList &files)
{
    WorkspaceState state;
    for (const QString &file : files)
        state.openTabs << "0," + file + ",1,2,0";
    state.indexA = 0;
    return state;
}

QStringList filesOf(const WorkspaceState &state)
{
    QStringList files;
    for (const QString &entry : state.openTabs)
        files << entry.section(',', 1, 1);
    return files;
}

// Another program with a session that has one journal and one tab.
class OtherProgram
{
public:
    explicit OtherProgram(const QString &directory)
    {
        int ready[2];
        if (pipe(ready) != 0)
            return;
        m_process = fork();
        if (m_process == 0) {
            JournalFolder folder(directory);
            writeFile(folder.newJournalPath(), "kept");
            const char answer =
                folder.storeTabs(stateOf(QStringList() << "/other.mel")) ? 'y' : 'n';
            _exit(write(ready[1], &answer, 1) == 1 ? pause() : 1);
        }
        char answer = 'n';
        m_isReady = read(ready[0], &answer, 1) == 1 && answer == 'y';
        ::close(ready[0]);
        ::close(ready[1]);
    }
    ~OtherProgram() { kill(); }

    bool isReady() const { return m_isReady; }
    void kill()
    {
        if (m_process > 0 && ::kill(m_process, SIGKILL) == 0)
            waitpid(m_process, nullptr, 0);
        m_process = 0;
    }

private:
    pid_t m_process = 0;
    bool m_isReady = false;
};

} // namespace

class TestJournalFolder : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void foldersArePrivate();
    void foreignFoldersAreLeftAlone();
    void aLostLockIsTakenAgain();
    void damagedJournalsAreKeptForAWhile();
    void theLivingAreLeftAlone();
    void twoSessionsNeverTakeTheSameDead();
    void cleanEndsLeaveOnlyJournals();
    void tabsAreThoseOfTheLatest_data();
    void tabsAreThoseOfTheLatest();
    void buffersOfTheSettingsAreKept();

private:
    QStringList sessions() const
    {
        return QDir(m_dir->file("journal")).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    }

    std::unique_ptr<ScratchDir> m_dir;
};

void TestJournalFolder::init()
{
    m_dir = std::make_unique<ScratchDir>();
    EdCodeView::setBufferDirectory(QDir(m_dir->path()));
}

void TestJournalFolder::foldersArePrivate()
{
    JournalFolder folder(m_dir->path());
    QVERIFY(folder.isValid());
    QVERIFY(folder.storeTabs(WorkspaceState()));
    const QString journal = folder.newJournalPath();
    QVERIFY(journal != folder.newJournalPath());
    const QString session = QFileInfo(journal).path();
    const QFile::Permissions others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                                      QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    for (const char *name : {"", "/..", "/lock", "/tabs"})
        QVERIFY2(!(QFileInfo(session + name).permissions() & others), name);
    QVERIFY(!JournalFolder(m_dir->file("missing")).isValid());
}

void TestJournalFolder::foreignFoldersAreLeftAlone()
{
    QVERIFY(QDir(m_dir->path()).mkdir("elsewhere"));
    QVERIFY(QFile::link(m_dir->file("elsewhere"), m_dir->file("journal")));
    JournalFolder folder(m_dir->path());
    QVERIFY(!folder.isValid() && !folder.storeTabs(WorkspaceState()));
    QVERIFY(QDir(m_dir->file("elsewhere"))
                .entryList(QDir::NoDotAndDotDot | QDir::AllEntries)
                .isEmpty());
}

void TestJournalFolder::aLostLockIsTakenAgain()
{
    JournalFolder folder(m_dir->path());
    const QString session = QFileInfo(folder.newJournalPath()).path();
    QVERIFY(QFile::remove(session + "/lock"));
    QCOMPARE(folder.placeFor(session + "/1.journal"), session + "/1.journal");
    QVERIFY(JournalFolder(m_dir->path()).deadSessions().empty());
    QVERIFY(QDir().rename(session, session + "-moved"));
    QVERIFY(folder.placeFor(session + "/1.journal") != session + "/1.journal");
    QVERIFY(folder.isValid());
}

void TestJournalFolder::damagedJournalsAreKeptForAWhile()
{
    const JournalFolder folder(m_dir->path());
    QStringList kept;
    for (int i = 0; i < 8; ++i) {
        kept << folder.keepAside(m_dir->write("1.journal", "damaged"));
        QVERIFY(QFileInfo(kept.last()).exists());
    }
    QCOMPARE(int(QDir(m_dir->file("journal")).entryList(QDir::Files).size()), 8);
    const std::filesystem::path old = kept.first().toUtf8().constData();
    std::filesystem::last_write_time(old, std::filesystem::last_write_time(old) -
                                              std::chrono::hours(24 * 31));
    folder.keepAside(m_dir->write("1.journal", "damaged"));
    QVERIFY(!QFileInfo(kept.first()).exists() && QFileInfo(kept.last()).exists());
}

void TestJournalFolder::theLivingAreLeftAlone()
{
    OtherProgram other(m_dir->path());
    QVERIFY(other.isReady());
    {
        const JournalFolder folder(m_dir->path());
        QVERIFY(folder.deadSessions().empty());
        QCOMPARE(int(sessions().size()), 2);
    }
    QCOMPARE(int(sessions().size()), 1);
    other.kill();
    JournalFolder folder(m_dir->path());
    QCOMPARE(int(folder.deadSessions().size()), 1);
    const DeadSession &dead = *folder.deadSessions().front();
    QCOMPARE(int(dead.journals().size()), 1);
    QVERIFY(dead.tabs);
    QCOMPARE(filesOf(*dead.tabs), QStringList() << "/other.mel");
}

void TestJournalFolder::twoSessionsNeverTakeTheSameDead()
{
    OtherProgram other(m_dir->path());
    other.kill();
    JournalFolder first(m_dir->path());
    JournalFolder second(m_dir->path());
    QCOMPARE(int(first.deadSessions().size()), 1);
    QVERIFY(second.deadSessions().empty());
    // One that is not recovered is there again.
    first.forgetDeadSessions();
    JournalFolder third(m_dir->path());
    QCOMPARE(int(third.deadSessions().size()), 1);
    QCOMPARE(int(third.deadSessions().front()->journals().size()), 1);
    QVERIFY(!third.deadSessions().front()->tabs);
}

void TestJournalFolder::cleanEndsLeaveOnlyJournals()
{
    {
        JournalFolder folder(m_dir->path());
        folder.storeTabs(stateOf(QStringList() << "/a.mel"));
        folder.forgetTabs();
    }
    QVERIFY(sessions().isEmpty());
    {
        JournalFolder folder(m_dir->path());
        writeFile(folder.newJournalPath(), "kept");
    }
    JournalFolder folder(m_dir->path());
    QCOMPARE(int(folder.deadSessions().size()), 1);
    QVERIFY(QFile::remove(folder.deadSessions().front()->journals().first()));
    folder.forgetDeadSessions();
    QCOMPARE(int(sessions().size()), 1); // its own
}

void TestJournalFolder::tabsAreThoseOfTheLatest_data()
{
    QTest::addColumn<int>("settingsAge"); // s
    QTest::addColumn<QStringList>("expected");

    // What only older settings tell of was closed since.
    row("settings-first", 3600, words("/a.mel /b.mel"));
    row("settings-last", -3600, words("/b.mel /c.mel /a.mel"));
}

void TestJournalFolder::tabsAreThoseOfTheLatest()
{
    QFETCH(int, settingsAge);
    QFETCH(QStringList, expected);
    {
        JournalFolder folder(m_dir->path());
        folder.storeTabs(stateOf(QStringList() << "/b.mel"));
        folder.storeTabs(stateOf(words("/a.mel /b.mel")));
    }
    JournalFolder folder(m_dir->path());
    const WorkspaceState settings = stateOf(words("/b.mel /c.mel"));
    const QDateTime storedAt = QDateTime::currentDateTime().addSecs(-settingsAge);
    QCOMPARE(filesOf(folder.tabsToRestore(settings, storedAt)), expected);
    QCOMPARE(folder.tabsToRestore(settings, storedAt).indexA, 0);
    folder.forgetDeadSessions();
    QVERIFY(folder.tabsToRestore(settings, storedAt) == settings);
}

void TestJournalFolder::buffersOfTheSettingsAreKept()
{
    {
        JournalFolder folder(m_dir->path());
        folder.storeTabs(stateOf(QStringList() << "/a.mel"));
    }
    WorkspaceState settings;
    const QString buffer = m_dir->write("corvaneEditorBuffer-0.mel", "text");
    settings.openTabs << "0," + buffer + ",0,0,1,MEL"
                      << "0," + m_dir->file("corvaneEditorBuffer-1.mel") + ",0,0,1,MEL";
    const JournalFolder folder(m_dir->path());
    QCOMPARE(filesOf(folder.tabsToRestore(settings, QDateTime())), QStringList()
                                                                       << "/a.mel" << buffer);
}

CORVANE_TEST_MAIN(TestJournalFolder)
#include "tst_journalfolder.moc"
