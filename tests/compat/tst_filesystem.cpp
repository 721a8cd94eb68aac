// SPDX-License-Identifier: MIT
#include "compat/filesystem.h"

#include "tests/support/scratchdir.h"
#include "tests/support/testmain.h"

#include <QFile>
#include <QFileInfo>

class TestFileSystem : public QObject
{
    Q_OBJECT

private slots:
    void renamingNeverReplaces();
};

void TestFileSystem::renamingNeverReplaces()
{
    ScratchDir dir;
    const QString path = dir.write("a", "old");
    const QString taken = dir.write("b", "other");
    QVERIFY(!compat::renameFile(path, taken));
    QCOMPARE(dir.read("a"), QByteArray("old"));
    QCOMPARE(dir.read("b"), QByteArray("other"));
    QVERIFY(compat::renameFile(path, dir.file("c")));
    QCOMPARE(dir.read("c"), QByteArray("old"));
    QVERIFY(!QFile::exists(path));
#ifdef Q_OS_UNIX
    // A link is renamed itself, and one that leads nowhere is in the way too.
    QVERIFY(QFile::link("missing", dir.file("link")));
    QVERIFY(!compat::renameFile(dir.file("c"), dir.file("link")));
    QVERIFY(compat::renameFile(dir.file("link"), dir.file("other link")));
    QVERIFY(QFileInfo(dir.file("other link")).isSymLink());
#endif
}

CORVANE_TEST_MAIN(TestFileSystem)
#include "tst_filesystem.moc"
