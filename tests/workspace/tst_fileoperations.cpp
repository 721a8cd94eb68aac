// SPDX-License-Identifier: MIT
#include "workspace/fileoperations.h"

#include "compat/filesystem.h"
#include "tests/support/datatable.h"
#include "tests/support/ordinaryuser.h"
#include "tests/support/scratchdir.h"
#include "tests/support/skip.h"
#include "tests/support/testmain.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>

class TestFileOperations : public QObject
{
    Q_OBJECT

private slots:
    void namesAreNoPaths_data();
    void namesAreNoPaths();
    void copiesTakeFreeNames_data();
    void copiesTakeFreeNames();
    void nothingIsReplaced();
    void foldersAreCopiedWhole();
    void readOnlyFoldersAreCopiedAsSuch();
    void whatTheUserEndsIsUndoneOrLeft();
    void copiesOfLongFilesCanBeEnded();
    void anotherLinkIsNoOtherCase();
    void foldersAreNotCopiedIntoThemselves();
    void linksAreCopiedAndDeletedAsLinks();
    void failedCopiesLeaveNothingBehind();
    void filesOfAFolderAreCountedWithoutFollowingLinks();
    void pathsWithinOthersAreLeftOut();
};

void TestFileOperations::namesAreNoPaths_data()
{
    QTest::addColumn<QString>("name");
    row("nothing", "");
    row("blanks", "  ");
    row("same-folder", ".");
    row("parent", "..");
    row("inner", "inner/x.py");
    row("outer", "../x.py");
    row("of-windows", "inner\\x.py");
}

void TestFileOperations::namesAreNoPaths()
{
    QFETCH(QString, name);
    ScratchDir dir;
    QVERIFY(QDir(dir.path()).mkpath("root/inner"));
    const QString path = dir.write("root/a.py", "text");
    QString reason;
    QCOMPARE(createFile(dir.file("root"), name, &reason), QString());
    QVERIFY(!reason.isEmpty());
    QCOMPARE(createFolder(dir.file("root"), name, &reason), QString());
    QCOMPARE(renameTo(name, path, &reason), QString());
    QCOMPARE(countFiles(dir.path(), 9).files, 1);
    QVERIFY(QFile::exists(path));
}

void TestFileOperations::copiesTakeFreeNames_data()
{
    columns<QString, QString, QString>("taken", "name", "expected");
    row("free", "b.py", "a.py", "a.py");
    row("taken", "a.py", "a.py", "a copy.py");
    row("twice", "a.py|a copy.py", "a.py", "a copy 2.py");
    row("no-suffix", "a", "a", "a copy");
    row("two-dots", "a.b.py", "a.b.py", "a.b copy.py");
    row("all-suffix", ".a", ".a", ".a copy");
}

void TestFileOperations::copiesTakeFreeNames()
{
    QFETCH(QString, taken);
    QFETCH(QString, name);
    QFETCH(QString, expected);
    ScratchDir dir;
    for (const QString &file : taken.split('|'))
        dir.write(file.toUtf8(), "");
    QCOMPARE(QFileInfo(freePath(dir.path(), name)).fileName(), expected);
}

void TestFileOperations::nothingIsReplaced()
{
    ScratchDir dir;
    const QString path = dir.write("a.py", "a");
    dir.write("b.py", "b");
    QString reason;
    QCOMPARE(createFile(dir.path(), "b.py", &reason), QString());
    QCOMPARE(createFolder(dir.path(), "b.py", &reason), QString());
    QCOMPARE(renameTo("b.py", path, &reason), QString());
    QCOMPARE(reason, QString("There is something of that name already"));
    QVERIFY(!compat::copyTree(path, dir.file("b.py"), &reason));
    QCOMPARE(dir.read("a.py"), QByteArray("a"));
    QCOMPARE(dir.read("b.py"), QByteArray("b"));
    QCOMPARE(copyInto(dir.path(), path, &reason), dir.file("a copy.py"));
    QCOMPARE(dir.read("a copy.py"), QByteArray("a"));
}

void TestFileOperations::foldersAreCopiedWhole()
{
    ScratchDir dir;
    QVERIFY(QDir(dir.path()).mkpath("from/inner/empty"));
    QVERIFY(QDir(dir.path()).mkpath("to"));
    dir.write("from/inner/.hidden", "h");
    dir.write("from/a.py", "a");
    QString reason;
    QCOMPARE(copyInto(dir.file("to"), dir.file("from/"), &reason), dir.file("to/from"));
    QCOMPARE(dir.read("to/from/inner/.hidden"), QByteArray("h"));
    QCOMPARE(dir.read("to/from/a.py"), QByteArray("a"));
    QVERIFY(QFileInfo(dir.file("to/from/inner/empty")).isDir());
}

void TestFileOperations::readOnlyFoldersAreCopiedAsSuch()
{
#ifdef Q_OS_UNIX
    ScratchDir dir;
    QVERIFY(QDir(dir.path()).mkpath("from/inner"));
    QVERIFY(QDir(dir.path()).mkpath("to"));
    dir.write("from/inner/a.py", "a");
    const QFile::Permissions mayRead(0x5555); // and enter; so may all others
    const QFile::Permissions mayWrite(0x7777);
    for (const QString &folder : {dir.path(), dir.file("to")})
        QVERIFY(QFile::setPermissions(folder, mayWrite));
    QVERIFY(QFile::setPermissions(dir.file("from/inner"), mayRead));
    {
        const OrdinaryUser user; // whom permissions bind
        QString reason;
        QCOMPARE(copyInto(dir.file("to"), dir.file("from"), &reason), dir.file("to/from"));
        QCOMPARE(dir.read("to/from/inner/a.py"), QByteArray("a"));
        QVERIFY(!(QFile::permissions(dir.file("to/from/inner")) & QFile::WriteOwner));
    }
    QVERIFY(QFile::setPermissions(dir.file("from/inner"), mayWrite));
    QVERIFY(QFile::setPermissions(dir.file("to/from/inner"), mayWrite));
#endif
}

void TestFileOperations::whatTheUserEndsIsUndoneOrLeft()
{
    ScratchDir dir;
    QVERIFY(QDir(dir.path()).mkpath("from/inner"));
    QVERIFY(QDir(dir.path()).mkpath("to"));
    for (const char *name : {"from/a.py", "from/b.py", "from/inner/c.py"})
        dir.write(name, "");
    int steps = 0;
    QString reason = "none";
    const compat::GoesOn goesOn = [&] { return steps-- > 0; };
    for (int given = 0; given < 5; ++given) {
        steps = given;
        QCOMPARE(copyInto(dir.file("to"), dir.file("from"), &reason, goesOn), QString());
        QCOMPARE(reason, QString());
        QVERIFY(!compat::isTaken(dir.file("to/from")));
    }
    steps = 2;
    QVERIFY(!compat::removeTree(dir.file("from"), &reason, goesOn));
    QCOMPARE(reason, QString());
    QVERIFY(countFiles(dir.file("from"), 99).files >= 2);
}

void TestFileOperations::copiesOfLongFilesCanBeEnded()
{
    ScratchDir dir;
    QVERIFY(QDir(dir.path()).mkpath("to"));
    const qint64 size = 40 * 1024 * 1024;
    QFile file(dir.write("a.mb", "begin"));
    QVERIFY(file.open(QIODevice::ReadWrite) && file.seek(size - 3) && file.write("end") == 3);
    file.close();
    QVERIFY(file.setPermissions(QFile::ReadOwner));
    int steps = 4;
    QString reason = "none";
    const compat::GoesOn goesOn = [&] { return steps-- > 0; };
    QCOMPARE(copyInto(dir.file("to"), file.fileName(), &reason, goesOn), QString());
    QCOMPARE(reason, QString());
    QVERIFY(!compat::isTaken(dir.file("to/a.mb")));
    steps = 100;
    QCOMPARE(copyInto(dir.file("to"), file.fileName(), &reason, goesOn), dir.file("to/a.mb"));
    const QByteArray copied = dir.read("to/a.mb");
    QVERIFY(copied.size() == size && copied.startsWith("begin") && copied.endsWith("end"));
    QCOMPARE(QFile::permissions(dir.file("to/a.mb")), QFile::permissions(file.fileName()));
}

// By the other letters of its name a file can be had only on some systems; elsewhere that may be
// another link to it.
void TestFileOperations::anotherLinkIsNoOtherCase()
{
#ifdef Q_OS_UNIX
    ScratchDir dir;
    const QString path = dir.write("a.py", "a");
    if (compat::isTaken(dir.file("A.py")))
        CORVANE_SKIP("the system does not tell case apart");
    QCOMPARE(QProcess::execute("ln", QStringList() << path << dir.file("A.py")), 0);
    QString reason;
    QCOMPARE(renameTo("A.py", path, &reason), QString());
    QCOMPARE(reason, QString("There is something of that name already"));
#endif
}

void TestFileOperations::foldersAreNotCopiedIntoThemselves()
{
    ScratchDir dir;
    QVERIFY(QDir(dir.path()).mkpath("a/inner"));
    QVERIFY(QDir(dir.path()).mkpath("a b"));
    QVERIFY(QFile::link(dir.file("a/inner"), dir.file("link")));
    QString reason;
    QCOMPARE(copyInto(dir.file("a"), dir.file("a"), &reason), QString());
    QCOMPARE(copyInto(dir.file("a/inner"), dir.file("a"), &reason), QString());
    QCOMPARE(reason, QString("A folder cannot be copied into itself"));
    QCOMPARE(copyInto(dir.file("link"), dir.file("a"), &reason), QString());
    QCOMPARE(QDir(dir.file("a/inner")).entryList(QDir::NoDotAndDotDot | QDir::AllEntries),
             QStringList());
    // Whose name only begins like it.
    QCOMPARE(copyInto(dir.file("a b"), dir.file("a"), &reason), dir.file("a b/a"));
}

void TestFileOperations::linksAreCopiedAndDeletedAsLinks()
{
#ifdef Q_OS_UNIX
    ScratchDir dir;
    QVERIFY(QDir(dir.path()).mkpath("folder"));
    QVERIFY(QDir(dir.path()).mkpath("to"));
    dir.write("folder/a.py", "a");
    QVERIFY(QFile::link("..", dir.file("folder/up")));
    QVERIFY(QFile::link("missing", dir.file("dangling")));
    QVERIFY(QFile::link(dir.file("folder"), dir.file("link")));
    QString reason;
    for (const char *name : {"folder", "dangling", "link"}) {
        QVERIFY2(!copyInto(dir.file("to"), dir.file(name), &reason).isEmpty(), name);
        QVERIFY(compat::isTaken(dir.file("to") + "/" + name));
    }
    QVERIFY(compat::isLink(dir.file("to/folder/up")));
    QVERIFY(compat::isLink(dir.file("to/link")));
    QVERIFY(compat::removeTree(dir.file("to"), &reason));
    QVERIFY(!compat::isTaken(dir.file("to")));
    QVERIFY(compat::removeTree(dir.file("link"), &reason));
    QCOMPARE(dir.read("folder/a.py"), QByteArray("a"));
#endif
}

void TestFileOperations::failedCopiesLeaveNothingBehind()
{
#ifdef Q_OS_UNIX
    ScratchDir dir;
    QVERIFY(QDir(dir.path()).mkpath("from"));
    QVERIFY(QDir(dir.path()).mkpath("to"));
    dir.write("from/a.py", "a");
    // What is neither a file nor a folder cannot be copied.
    QCOMPARE(QProcess::execute("mkfifo", QStringList(dir.file("from/pipe"))), 0);
    QString reason;
    QCOMPARE(copyInto(dir.file("to"), dir.file("from"), &reason), QString());
    QVERIFY(!reason.isEmpty());
    QVERIFY(!compat::isTaken(dir.file("to/from")));
    QCOMPARE(copyInto(dir.file("to"), dir.file("gone"), &reason), QString());
    QVERIFY(!compat::isTaken(dir.file("to/gone")));
#endif
}

void TestFileOperations::filesOfAFolderAreCountedWithoutFollowingLinks()
{
    ScratchDir dir;
    QVERIFY(QDir(dir.path()).mkpath("a/inner"));
    dir.write("outside.py", "");
    dir.write("a/x.py", "");
    dir.write("a/.hidden", "");
    dir.write("a/inner/y.py", "");
    QVERIFY(QFile::link(dir.path(), dir.file("a/inner/link")));
    QCOMPARE(countFiles(dir.file("a"), 5).files, 3);
    QVERIFY(countFiles(dir.file("a"), 5).isComplete);
    QVERIFY(!countFiles(dir.file("a"), 4).isComplete); // folders take their time, too
}

void TestFileOperations::pathsWithinOthersAreLeftOut()
{
    const QStringList paths = strings({"/a/b/c.py", "/a/b", "/a/b c", "/d"});
    QCOMPARE(outermostPaths(paths), strings({"/a/b", "/a/b c", "/d"}));
}

CORVANE_TEST_MAIN(TestFileOperations)
#include "tst_fileoperations.moc"
