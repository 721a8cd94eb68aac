// SPDX-License-Identifier: MIT
#include "workspace/filewatch.h"

#include "tests/support/scratchdir.h"
#include "tests/support/testmain.h"
#include "workspace/safesave.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>

#include <memory>

// Waits for what the watch reports.
class Listener : public QObject
{
    Q_OBJECT

public:
    explicit Listener(FileWatch *watch)
    {
        connect(watch, SIGNAL(fileChanged(QString)), SLOT(add(QString)));
    }

    // The names of what was reported since the last call, in order; waits for the first.
    QString take()
    {
        const int longest = 5000; // ms
        QElapsedTimer clock;
        clock.start();
        while (m_names.isEmpty() && clock.elapsed() < longest)
            QTest::qWait(5);
        return takeNow();
    }
    QString takeNow()
    {
        const QString names = m_names.join(" ");
        m_names.clear();
        return names;
    }

private slots:
    void add(const QString &path) { m_names << QFileInfo(path).fileName(); }

private:
    QStringList m_names;
};

class TestFileWatch : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void everyChangeIsReportedOnce_data();
    void everyChangeIsReportedOnce();
    void removedFilesMayComeBack();
    void foldersMayComeBack();
    void targetsOfLinksAreWatched();
    void filesAreWatchedUntilTheLastLetsGo();
    void checkingFindsWhatNoNoticeTold();
    void listenersMayLetGo();

public slots:
    void letGoOfB() { m_watch->unwatch(m_dir->file("b")); }

private:
    void start(const char *name);
    void settle();
    QString path(const char *name) const { return m_dir->file(name); }
    void move(const char *from, const char *to) const;

    std::unique_ptr<ScratchDir> m_dir;
    std::unique_ptr<FileWatch> m_watch;
    std::unique_ptr<Listener> m_listener;
};

void TestFileWatch::init()
{
    m_dir = std::make_unique<ScratchDir>();
    m_watch = std::make_unique<FileWatch>();
    m_listener = std::make_unique<Listener>(m_watch.get());
    m_dir->write("other", "0");
    m_watch->watch(path("other"));
}

void TestFileWatch::cleanup()
{
    m_watch.reset();
    m_dir.reset();
}

// Watches it from now on.
void TestFileWatch::start(const char *name)
{
    m_watch->watch(path(name));
    m_watch->checkNow();
    QCOMPARE(m_listener->takeNow(), QString());
}

// Once another file's change is reported, there is nothing left to be said of what came before.
void TestFileWatch::settle()
{
    m_dir->write("other", m_dir->read("other") + "0");
    QCOMPARE(m_listener->take(), QString("other"));
}

// Replaces a file, as programs do that save.
void TestFileWatch::move(const char *from, const char *to) const
{
    QString reason;
    QVERIFY2(compat::replaceFile(path(to), path(from), &reason), qPrintable(reason));
}

void TestFileWatch::everyChangeIsReportedOnce_data()
{
    QTest::addColumn<QString>("way");

    for (const char *way : {"in-place", "replaced", "backup-first", "removed-first", "own-saving"})
        QTest::newRow(way) << way;
}

void TestFileWatch::everyChangeIsReportedOnce()
{
    QFETCH(QString, way);
    const char *name = "caf\xC3\xA9 %1 #?.mel";
    m_dir->write(name, "0");
    start(name);
    for (const char *bytes : {"1", "2", "3"}) {
        QString reason;
        if (way == "own-saving")
            QVERIFY(writeFileSafely(path(name), bytes, &reason));
        if (way == "backup-first")
            move(name, "backup");
        if (way == "removed-first")
            QVERIFY(QFile::remove(path(name)));
        if (way == "replaced") {
            m_dir->write("new", bytes);
            move("new", name);
        } else if (way != "own-saving") {
            m_dir->write(name, bytes);
            m_dir->write(name, bytes);
        }
        QCOMPARE(m_listener->take(), QString::fromUtf8(name));
        settle();
    }
}

void TestFileWatch::removedFilesMayComeBack()
{
    start("later"); // not there yet
    m_dir->write("later", "1");
    QCOMPARE(m_listener->take(), QString("later"));
    for (int i = 0; i < 2; ++i) {
        QVERIFY(QFile::remove(path("later")));
        QCOMPARE(m_listener->take(), QString("later"));
        m_dir->write("later", "1");
        QCOMPARE(m_listener->take(), QString("later"));
    }
    m_dir->write("later", "2");
    QCOMPARE(m_listener->take(), QString("later"));
}

void TestFileWatch::foldersMayComeBack()
{
    QVERIFY(QDir(m_dir->path()).mkpath("folder/inner"));
    m_dir->write("folder/inner/a", "1");
    start("folder/inner/a");
    for (int i = 0; i < 2; ++i) {
        move("folder", "elsewhere");
        m_watch->checkNow(); // whoever moves folders above tells nobody
        QCOMPARE(m_listener->take(), QString("a"));
        move("elsewhere", "folder");
        QCOMPARE(m_listener->take(), QString("a"));
        m_dir->write("folder/inner/a", QByteArray::number(i));
        QCOMPARE(m_listener->take(), QString("a"));
    }
    QVERIFY(QFile::remove(path("folder/inner/a")));
    QVERIFY(QDir(m_dir->path()).rmpath("folder/inner"));
    QCOMPARE(m_listener->take(), QString("a"));
    QVERIFY(QDir(m_dir->path()).mkpath("folder/inner"));
    settle();
    m_dir->write("folder/inner/a", "back");
    QCOMPARE(m_listener->take(), QString("a"));
}

void TestFileWatch::targetsOfLinksAreWatched()
{
#ifdef Q_OS_UNIX
    QVERIFY(QDir(m_dir->path()).mkdir("target"));
    m_dir->write("target/a", "1");
    m_dir->write("target/b", "1");
    QVERIFY(QFile::link(path("target/a"), path("link")));
    start("link");
    for (const char *bytes : {"2", "3"}) {
        m_dir->write("target/new", bytes);
        move("target/new", "target/a");
        QCOMPARE(m_listener->take(), QString("link"));
        m_dir->write("target/a", "in place");
        QCOMPARE(m_listener->take(), QString("link"));
    }
    QVERIFY(QFile::remove(path("target/a")));
    QCOMPARE(m_listener->take(), QString("link"));
    m_dir->write("target/a", "back");
    QCOMPARE(m_listener->take(), QString("link"));
    QVERIFY(QFile::link(path("target/b"), path("new-link")));
    move("new-link", "link");
    QCOMPARE(m_listener->take(), QString("link"));
    m_dir->write("target/b", "2");
    QCOMPARE(m_listener->take(), QString("link"));
#endif
}

void TestFileWatch::filesAreWatchedUntilTheLastLetsGo()
{
    m_dir->write("a", "0");
    start("a");
    start("a");
    m_watch->unwatch(path("a"));
    m_dir->write("a", "1");
    QCOMPARE(m_listener->take(), QString("a"));
    m_watch->unwatch(path("a"));
    m_watch->unwatch(path("a"));
    m_dir->write("a", "2");
    settle();
    m_watch->watch(path("a")); // knows only what comes from now on
    settle();
}

void TestFileWatch::checkingFindsWhatNoNoticeTold()
{
    m_dir->write("a", "one");
    m_dir->write("b", "two");
    m_watch->watch(path("a"));
    m_watch->watch(path("b"));
    m_dir->write("a", "more"); // before any event can come
    move("a", "b");
    m_watch->checkNow();
    QCOMPARE(m_listener->takeNow(), QString("a b"));
    m_watch->checkNow();
    QCOMPARE(m_listener->takeNow(), QString());
}

void TestFileWatch::listenersMayLetGo()
{
    connect(m_watch.get(), SIGNAL(fileChanged(QString)), SLOT(letGoOfB()));
    start("a");
    start("b");
    m_dir->write("a", "1");
    m_dir->write("b", "1");
    m_watch->checkNow();
    QCOMPARE(m_listener->takeNow(), QString("a"));
}

CORVANE_TEST_MAIN(TestFileWatch)
#include "tst_filewatch.moc"
