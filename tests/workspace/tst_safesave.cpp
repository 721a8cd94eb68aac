// SPDX-License-Identifier: MIT
#include "workspace/safesave.h"

#include "tests/support/filesizelimit.h"
#include "tests/support/ordinaryuser.h"
#include "tests/support/scratchdir.h"
#include "tests/support/skip.h"
#include "tests/support/testmain.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <csignal>
#include <filesystem>
#include <fcntl.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <utime.h>

namespace {

const QByteArray oldText = QByteArray("the old text\n").repeated(3000);
const QByteArray newText = QByteArray("the new text, which is longer\n").repeated(3000);

struct stat statusOf(const QString &path)
{
    struct stat status = {};
    stat(QFile::encodeName(path).constData(), &status);
    return status;
}

bool addName(const QString &path, const QString &name)
{
    return link(QFile::encodeName(path).constData(), QFile::encodeName(name).constData()) == 0;
}

// Makes a file the ordinary user's.
void own(const QString &path)
{
    const uid_t user = OrdinaryUser::nobody;
    if (geteuid() == 0 && chown(QFile::encodeName(path).constData(), user, getegid()) != 0)
        abort();
}

// Saves the two texts by turns until it is killed.
pid_t startSaving(const QString &path)
{
    const pid_t child = fork();
    if (child != 0)
        return child;
    QString error;
    while (writeFileSafely(path, newText, &error) && writeFileSafely(path, oldText, &error))
        continue;
    _exit(1);
}

QStringList namesIn(const ScratchDir &dir)
{
    return QDir(dir.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}

} // namespace

class TestSafeSave : public QObject
{
    Q_OBJECT

private slots:
    void newFilesHaveOrdinaryPermissions();
    void killedProgramsLeaveOneOfTheTexts();
    void noSizeLimitLosesTheOldText_data();
    void noSizeLimitLosesTheOldText();
    void noFullDiskLosesTheOldText();
    void permissionsOwnersAndAttributesStay();
    void rareModesAndAttributesStay();
    void leftoversOfDeadProgramsGo();
    void textsThatCannotBePutBackAreRescued();
    void linksLeadToTheSameFile();
    void linksToNamesOutsideTheLocaleAreFollowed();
    void foldersMayHavePatternsInTheirNames();
    void namesOfOneFileStayTogether();
    void foldersThatRefuseFilesAreWrittenInPlace();
    void writeProtectedFilesAreLeftAlone();
    void onlyRegularFilesAreWritten();
};

void TestSafeSave::newFilesHaveOrdinaryPermissions()
{
    ScratchDir dir;
    QString error;
    QVERIFY2(writeFileSafely(dir.file("new"), newText, &error), qPrintable(error));
    QCOMPARE(dir.read("new"), newText);
    const QString ordinary = dir.write("ordinary", "");
    QCOMPARE(statusOf(dir.file("new")).st_mode, statusOf(ordinary).st_mode);
    QVERIFY(!writeFileSafely(dir.file("missing/new"), newText, &error));
    QVERIFY(!error.isEmpty());
}

void TestSafeSave::killedProgramsLeaveOneOfTheTexts()
{
    ScratchDir dir;
    const QString path = dir.write("a.mel", oldText);
    int newTexts = 0;
    for (int round = 0; round < 200; ++round) {
        const pid_t child = startSaving(path);
        usleep(useconds_t(500 + round * 37 % 9000));
        kill(child, SIGKILL);
        int status = 0;
        waitpid(child, &status, 0);
        QVERIFY(WIFSIGNALED(status));
        const QByteArray bytes = dir.read("a.mel");
        newTexts += bytes == newText ? 1 : 0;
        QVERIFY2(bytes == newText || bytes == oldText, qPrintable(QString::number(bytes.size())));
        QFile::remove(dir.file(qPrintable(QString(".corvaneEditor-%1-0.tmp").arg(child))));
    }
    QVERIFY(newTexts > 0); // the programs did save
}

void TestSafeSave::noSizeLimitLosesTheOldText_data()
{
    QTest::addColumn<bool>("inPlace");
    QTest::newRow("replaced") << false;
    QTest::newRow("in-place") << true;
}

void TestSafeSave::noSizeLimitLosesTheOldText()
{
    QFETCH(bool, inPlace);
    ScratchDir dir;
    const QString path = dir.write("a.mel", oldText);
    if (inPlace)
        QVERIFY(addName(path, dir.file("b.mel")));
    const QStringList names = namesIn(dir);
    for (int limit = 0; limit < newText.size(); limit += 1 + limit / 3) {
        QString error;
        bool written = true;
        {
            const FileSizeLimit guard(static_cast<rlim_t>(limit));
            written = writeFileSafely(path, newText, &error);
        }
        QVERIFY(!written);
        QVERIFY(!error.isEmpty());
        QVERIFY2(dir.read("a.mel") == oldText, qPrintable(QString::number(limit)));
        QCOMPARE(namesIn(dir), names);
    }
}

void TestSafeSave::noFullDiskLosesTheOldText()
{
    ScratchDir dir;
    const QByteArray mountPoint = QFile::encodeName(dir.path());
    if (mount("none", mountPoint.constData(), "tmpfs", 0, "size=256k") != 0)
        CORVANE_SKIP("no file system can be mounted");
    const QString path = dir.write("a.mel", oldText);
    bool wasWritten = false;
    for (int filled = 256 * 1024; !wasWritten && filled > 0; filled -= 12 * 1024) {
        QFile::remove(dir.file("filler"));
        dir.write("filler", QByteArray(filled, 'x'));
        QString error;
        wasWritten = writeFileSafely(path, newText, &error);
        const bool intact = dir.read("a.mel") == (wasWritten ? newText : oldText);
        if (!intact || namesIn(dir).size() != 2 || error.isEmpty() != wasWritten)
            break;
    }
    const bool leftAlone = namesIn(dir) == (QStringList() << "a.mel"
                                                          << "filler");
    const QByteArray text = dir.read("a.mel");
    umount2(mountPoint.constData(), MNT_DETACH);
    QVERIFY(leftAlone);
    QVERIFY(wasWritten);
    QCOMPARE(text, newText);
}

void TestSafeSave::permissionsOwnersAndAttributesStay()
{
    ScratchDir dir;
    const QString path = dir.write("a.mel", oldText);
    const QByteArray name = QFile::encodeName(path);
    QCOMPARE(chmod(name.constData(), 0750), 0);
    const bool givenAway = chown(name.constData(), OrdinaryUser::nobody, 7) == 0;
    const bool tagged = setxattr(name.constData(), "user.tag", "x", 1, 0) == 0;
    const struct stat before = statusOf(path);
    QString error;
    QVERIFY2(writeFileSafely(path, newText, &error), qPrintable(error));
    QCOMPARE(dir.read("a.mel"), newText);
    const struct stat after = statusOf(path);
    QCOMPARE(int(after.st_mode), int(before.st_mode));
    QCOMPARE(int(after.st_uid), int(before.st_uid));
    QCOMPARE(int(after.st_gid), int(before.st_gid));
    QVERIFY(after.st_ino != before.st_ino); // replaced
    QCOMPARE(int(getxattr(name.constData(), "user.tag", nullptr, 0)), tagged ? 1 : -1);
    if (!givenAway)
        return;

    // A user who cannot give a file away: the group is not hers.
    QCOMPARE(chmod(QFile::encodeName(dir.path()).constData(), 0777), 0);
    const OrdinaryUser user;
    QVERIFY2(writeFileSafely(path, oldText, &error), qPrintable(error));
    QCOMPARE(dir.read("a.mel"), oldText);
    QCOMPARE(int(statusOf(path).st_gid), 7);
    QVERIFY(statusOf(path).st_ino == after.st_ino);
    QCOMPARE(namesIn(dir), QStringList() << "a.mel");
}

void TestSafeSave::rareModesAndAttributesStay()
{
    ScratchDir dir;
    const QString path = dir.write("a.mel", oldText);
    const QByteArray name = QFile::encodeName(path);
    const QByteArray longest(0x10000, 'x');
    if (setxattr(name.constData(), "user.empty", "", 0, 0) != 0)
        CORVANE_SKIP("no attributes on this file system");
    const bool isLong = setxattr(name.constData(), "user.long", longest.constData(),
                                 size_t(longest.size()), 0) == 0;
    own(path);
    own(dir.path());
    QCOMPARE(chmod(name.constData(), 04755), 0);
    const ino_t before = statusOf(path).st_ino;
    QString error = "of before";
    bool written = false;
    const mode_t mask = umask(0777); // such files cannot be opened by their names
    {
        const OrdinaryUser user;
        written = writeFileSafely(path, newText, &error);
    }
    umask(mask);
    QVERIFY2(written, qPrintable(error));
    QCOMPARE(error, QString());
    QVERIFY(statusOf(path).st_ino != before); // replaced
    QCOMPARE(int(statusOf(path).st_mode & 07777), 04755);
    QCOMPARE(int(getxattr(name.constData(), "user.empty", nullptr, 0)), 0);
    if (isLong)
        QCOMPARE(int(getxattr(name.constData(), "user.long", nullptr, 0)), int(longest.size()));
}

void TestSafeSave::leftoversOfDeadProgramsGo()
{
    const pid_t child = fork();
    if (child == 0)
        _exit(0);
    waitpid(child, nullptr, 0);
    ScratchDir dir;
    const QString dead = QString(".corvaneEditor-%1-0.tmp").arg(child);
    const QString young = QString(".corvaneEditor-%1-1.tmp").arg(child);
    const QString living = QString(".corvaneEditor-%1-0.tmp").arg(getppid());
    const QStringList names = QStringList() << dead << young << living;
    for (const QString &name : names) {
        const QString path = dir.write(qPrintable(name), "x");
        const utimbuf longAgo = {1000000000, 1000000000};
        if (name != young)
            QCOMPARE(utime(QFile::encodeName(path).constData(), &longAgo), 0);
    }
    QString error;
    QVERIFY(writeFileSafely(dir.file("a.mel"), newText, &error));
    const QStringList left = namesIn(dir);
    QVERIFY(!left.contains(dead));
    QVERIFY(left.contains(young) && left.contains(living));
}

// A disk that filled up behind a file with holes takes neither the new bytes nor the old ones.
void TestSafeSave::textsThatCannotBePutBackAreRescued()
{
    ScratchDir dir;
    const QByteArray mountPoint = QFile::encodeName(dir.path());
    if (mount("none", mountPoint.constData(), "tmpfs", 0, "size=128k") != 0)
        CORVANE_SKIP("no file system can be mounted");
    const QString path = dir.write("a.mel", "");
    const bool isReady = QFile::resize(path, newText.size()) && addName(path, dir.file("b.mel"));
    dir.write("filler", QByteArray(256 * 1024, 'x'));
    QString error;
    const bool wasWritten = writeFileSafely(path, newText, &error);
    umount2(mountPoint.constData(), MNT_DETACH);
    QVERIFY(isReady && !wasWritten);
    const QStringList rescues = QDir::temp().entryList(
        QStringList(QString("corvaneEditorRescue-%1-*").arg(getpid())), QDir::Files);
    QCOMPARE(int(rescues.size()), 1);
    QFile rescue(QDir::temp().filePath(rescues.first()));
    QVERIFY2(error.contains(rescue.fileName()), qPrintable(error));
    QCOMPARE(int(statusOf(rescue.fileName()).st_mode & 0777), 0600);
    QVERIFY(rescue.open(QIODevice::ReadOnly) && rescue.readAll() == newText);
    QVERIFY(rescue.remove());
}

void TestSafeSave::linksLeadToTheSameFile()
{
    ScratchDir dir;
    QDir(dir.path()).mkpath("real/deep");
    const QString target = dir.write("real/a.mel", oldText);
    QVERIFY(QFile::link("real/deep", dir.file("folder")));
    QVERIFY(QFile::link("../a.mel", dir.file("real/deep/first"))); // up from where the folder is
    QVERIFY(QFile::link("folder/first", dir.file("second")));
    QString error;
    QVERIFY2(writeFileSafely(dir.file("second"), newText, &error), qPrintable(error));
    QVERIFY(QFileInfo(dir.file("second")).isSymLink());
    QVERIFY(QFileInfo(dir.file("real/deep/first")).isSymLink());
    QVERIFY(!QFileInfo(target).isSymLink());
    QCOMPARE(dir.read("real/a.mel"), newText);

    QVERIFY(QFile::link("real/nothing-yet", dir.file("dangling")));
    QVERIFY2(writeFileSafely(dir.file("dangling"), newText, &error), qPrintable(error));
    QCOMPARE(dir.read("real/nothing-yet"), newText);

    QVERIFY(QFile::link("circle", dir.file("circle")));
    QVERIFY(!writeFileSafely(dir.file("circle"), newText, &error));
    QVERIFY(!error.isEmpty());
}

// The first file is there, the second is not yet.
void TestSafeSave::linksToNamesOutsideTheLocaleAreFollowed()
{
    for (const bool exists : {true, false}) {
        ScratchDir dir;
        const QByteArray name = "caf\xE9.mel"; // no UTF-8
        const QByteArray target = QFile::encodeName(dir.path()) + "/" + name;
        if (exists) {
            const int file = ::open(target.constData(), O_CREAT | O_WRONLY, 0644);
            QVERIFY(file >= 0);
            ::close(file);
        }
        QCOMPARE(symlink(name.constData(), QFile::encodeName(dir.file("link")).constData()), 0);
        QString error;
        QVERIFY2(writeFileSafely(dir.file("link"), newText, &error), qPrintable(error));
        QCOMPARE(dir.read("link"), newText);
        struct stat status = {};
        QCOMPARE(lstat(target.constData(), &status), 0);
        QCOMPARE(int(status.st_size), int(newText.size()));
        // Nothing of a similar name. Versions of Qt differ in what they list.
        const std::filesystem::directory_iterator entries(
            QFile::encodeName(dir.path()).constData());
        QCOMPARE(int(std::distance(entries, std::filesystem::directory_iterator())), 2);
        unlink(target.constData()); // Qt cannot
    }
}

void TestSafeSave::foldersMayHavePatternsInTheirNames()
{
    ScratchDir dir;
    QVERIFY(QDir(dir.path()).mkdir("%1 %2 %3"));
    const QString path = dir.write("%1 %2 %3/a.mel", oldText);
    const ino_t before = statusOf(path).st_ino;
    QString error;
    QVERIFY2(writeFileSafely(path, newText, &error), qPrintable(error));
    QCOMPARE(dir.read("%1 %2 %3/a.mel"), newText);
    QVERIFY(statusOf(path).st_ino != before); // replaced, as in any folder
}

void TestSafeSave::namesOfOneFileStayTogether()
{
    ScratchDir dir;
    const QString path = dir.write("a.mel", oldText);
    QVERIFY(addName(path, dir.file("b.mel")));
    QString error;
    QVERIFY2(writeFileSafely(path, newText, &error), qPrintable(error));
    QCOMPARE(dir.read("b.mel"), newText);
    QVERIFY2(writeFileSafely(path, "short", &error), qPrintable(error));
    QCOMPARE(dir.read("b.mel"), QByteArray("short"));
    const QStringList rescues(QString("corvaneEditorRescue-%1-*").arg(getpid()));
    QCOMPARE(QDir::temp().entryList(rescues), QStringList());
}

void TestSafeSave::foldersThatRefuseFilesAreWrittenInPlace()
{
    ScratchDir dir;
    const QString path = dir.write("a.mel", oldText);
    QVERIFY(QFile::setPermissions(path, QFile::Permissions(0x6666)));
    const QByteArray folder = QFile::encodeName(dir.path());
    QCOMPARE(chmod(folder.constData(), 0555), 0);
    QString error;
    {
        const OrdinaryUser user;
        QVERIFY2(writeFileSafely(path, newText, &error), qPrintable(error));
        QCOMPARE(dir.read("a.mel"), newText);
        QVERIFY(!writeFileSafely(dir.file("new"), newText, &error));
        QVERIFY(!error.isEmpty());
    }
    QCOMPARE(chmod(folder.constData(), 0755), 0);
}

void TestSafeSave::writeProtectedFilesAreLeftAlone()
{
    ScratchDir dir;
    const QString path = dir.write("a.mel", oldText);
    QCOMPARE(chmod(QFile::encodeName(path).constData(), 0444), 0);
    QCOMPARE(chmod(QFile::encodeName(dir.path()).constData(), 0777), 0);
    QString error;
    const OrdinaryUser user;
    QVERIFY(!writeFileSafely(path, newText, &error));
    QVERIFY(!error.isEmpty());
    QCOMPARE(dir.read("a.mel"), oldText);
}

void TestSafeSave::onlyRegularFilesAreWritten()
{
    ScratchDir dir;
    const QString pipe = dir.file("pipe");
    QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    const QStringList paths = QStringList() << dir.path() << pipe << "/dev/null";
    for (const QString &path : paths) {
        QString error;
        QVERIFY(!writeFileSafely(path, newText, &error)); // a pipe nobody reads would wait
        QCOMPARE(error, QString("This is not a regular file"));
    }
}

CORVANE_TEST_MAIN(TestSafeSave)
#include "tst_safesave.moc"
