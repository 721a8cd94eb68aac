// SPDX-License-Identifier: MIT
#include "compat/filelock.h"

#include "tests/support/scratchdir.h"
#include "tests/support/testmain.h"

#include <QFileInfo>
#include <QList>

#include <csignal>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using compat::FileLock;

class TestFileLock : public QObject
{
    Q_OBJECT

private slots:
    void oneHolderAtATime();
    void linksAreNotFollowed();
    void deathLetsGo();
    void identitiesTellProcessesApart();
};

void TestFileLock::oneHolderAtATime()
{
    ScratchDir dir;
    FileLock lock;
    FileLock other;
    QVERIFY(lock.take(dir.file("lock")));
    QVERIFY(!other.take(dir.file("lock")));
    QVERIFY(QFileInfo(dir.file("lock")).permissions() ==
            (QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser));
    lock.release();
    QVERIFY(other.take(dir.file("lock")));
    QVERIFY(!lock.take(dir.file("no such folder/lock")));
}

void TestFileLock::linksAreNotFollowed()
{
    ScratchDir dir;
    const QByteArray file = dir.write("file", "the user's").toLocal8Bit();
    FileLock lock;
    QVERIFY(::symlink(file.constData(), dir.file("symbolic").toLocal8Bit().constData()) == 0);
    QVERIFY(::link(file.constData(), dir.file("hard").toLocal8Bit().constData()) == 0);
    QVERIFY(::mkfifo(dir.file("pipe").toLocal8Bit().constData(), 0600) == 0);
    for (const char *name : {"symbolic", "hard", "pipe"})
        QVERIFY2(!lock.take(dir.file(name)), name);
    QCOMPARE(dir.read("file"), QByteArray("the user's"));
}

void TestFileLock::deathLetsGo()
{
    ScratchDir dir;
    int ready[2];
    QVERIFY(pipe(ready) == 0);
    const pid_t child = fork();
    if (child == 0) {
        FileLock held;
        const char answer = held.take(dir.file("lock")) ? 'y' : 'n';
        _exit(write(ready[1], &answer, 1) == 1 ? pause() : 1);
    }
    char answer = 0;
    QVERIFY(read(ready[0], &answer, 1) == 1);
    QCOMPARE(answer, 'y');
    const QByteArray identity = dir.read("lock");
    FileLock lock;
    QVERIFY(!lock.take(dir.file("lock")));
    QVERIFY(compat::mayBeAtWork(identity));
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    QVERIFY(!compat::mayBeAtWork(identity));
    QVERIFY(lock.take(dir.file("lock")));
    ::close(ready[0]);
    ::close(ready[1]);
}

void TestFileLock::identitiesTellProcessesApart()
{
    const QByteArray own = compat::processIdentity();
    const QList<QByteArray> parts = own.split(' ');
    QCOMPARE(int(parts.size()), 3);
    QVERIFY(compat::mayBeAtWork(own));
    // A later process has taken the number.
    QVERIFY(!compat::mayBeAtWork(parts.at(0) + ' ' + parts.at(1) + " 1"));
    QVERIFY(compat::mayBeAtWork("elsewhere." + parts.at(0) + ' ' + parts.at(1) + " 1"));
    QVERIFY(compat::mayBeAtWork("damaged"));
}

CORVANE_TEST_MAIN(TestFileLock)
#include "tst_filelock.moc"
