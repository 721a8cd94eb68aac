// SPDX-License-Identifier: MIT
// Kills a program that types into its documents, over and over, and looks at what comes back. The
// program is this one with an argument.
#include "workspace/edcodeview.h"

#include "editor/edcodeedit.h"
#include "tests/support/scratchdir.h"
#include "tests/support/testmain.h"
#include "tests/workspace/editorsession.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QMap>
#include <QProcess>
#include <QTimer>

#include <cstdio>
#include <random>

namespace {

const int filesAndBuffers = 5; // of each

// Says what it restores and what it types, a line each.
class Typist : public QObject
{
    Q_OBJECT

public:
    explicit Typist(const QString &directory) : m_session(directory)
    {
        m_session.restoreTabs();
        m_session.recover();
        if (m_session.codeViews().isEmpty())
            begin(directory);
        for (EdCodeView *view : m_session.codeViews()) {
            say(view, view->text());
            m_counts << int(view->text().count(' '));
            view->codeEdit()->moveCursor(QTextCursor::End);
        }
        say(nullptr, "restored");
        m_clock.start();
        connect(&m_timer, SIGNAL(timeout()), SLOT(type()));
        m_timer.start(12);
    }

private slots:
    void type()
    {
        const int at = m_keys++ % int(m_counts.size());
        EdCodeView *view = m_session.codeViews().at(at);
        view->replace(QString("%1 ").arg(++m_counts[at]));
        say(view, QString("%1 %2").arg(m_clock.elapsed()).arg(m_counts.at(at)));
    }

private:
    void begin(const QString &directory)
    {
        for (int i = 0; i < filesAndBuffers; ++i) {
            const QString path = QString("%1/%2.mel").arg(directory).arg(i);
            QFile(path).open(QIODevice::WriteOnly);
            m_session.open(path);
            m_session.newBuffer("MEL");
        }
        m_session.storeTabs();
    }
    static void say(const EdCodeView *view, const QString &text)
    {
        const QString name = view ? view->fileInfo().fileName() : QString("all");
        puts(qPrintable(name + "|" + text));
        fflush(stdout);
    }

    EditorSession m_session;
    QList<int> m_counts;
    int m_keys = 0;
    QElapsedTimer m_clock;
    QTimer m_timer;
};

QString counting(int last)
{
    QString text;
    for (int i = 1; i <= last; ++i)
        text += QString("%1 ").arg(i);
    return text;
}

} // namespace

class TestCrash : public QObject
{
    Q_OBJECT

private slots:
    void nothingIsLost();

private:
    void checkRestored(QProcess *program, const QMap<QString, int> &safe);
    // Kills the program after a while of typing; returns what has to be safe by then.
    QMap<QString, int> killTyping(QProcess *program, int after, QMap<QString, int> safe);
};

void TestCrash::checkRestored(QProcess *program, const QMap<QString, int> &safe)
{
    QMap<QString, QString> texts;
    int documents = 0;
    for (;;) {
        QVERIFY(program->canReadLine() || program->waitForReadyRead(20000));
        if (!program->canReadLine())
            continue;
        const QString line = QString::fromUtf8(program->readLine()).remove('\n');
        if (line == "all|restored")
            break;
        texts[line.section('|', 0, 0)] = line.section('|', 1);
        ++documents;
    }
    QCOMPARE(documents, 2 * filesAndBuffers);
    QCOMPARE(int(texts.size()), documents);
    for (const QString &name : texts.keys()) {
        const int count = int(texts[name].count(' '));
        QCOMPARE(texts[name], counting(count));
        QVERIFY2(count >= safe.value(name),
                 qPrintable(QString("%1: %2 of %3").arg(name).arg(count).arg(safe.value(name))));
    }
}

QMap<QString, int> TestCrash::killTyping(QProcess *program, int after, QMap<QString, int> safe)
{
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < after)
        program->waitForReadyRead(10);
    program->kill();
    program->waitForFinished();
    const QList<QByteArray> lines = program->readAllStandardOutput().split('\n');
    qint64 end = 0;
    for (int i = 0; i + 1 < lines.size(); ++i)
        end = QString::fromUtf8(lines.at(i)).section('|', 1).section(' ', 0, 0).toLongLong();
    const int delay = 2000; // ms
    for (int i = 0; i + 1 < lines.size(); ++i) {
        const QString line = QString::fromUtf8(lines.at(i));
        const QString key = line.section('|', 1);
        if (key.section(' ', 0, 0).toLongLong() <= end - delay)
            safe[line.section('|', 0, 0)] = key.section(' ', 1, 1).toInt();
    }
    return safe;
}

void TestCrash::nothingIsLost()
{
    const ScratchDir dir;
    std::mt19937 random(11);
    QMap<QString, int> safe;
    const int rounds = qMax(6, qgetenv("CORVANE_CRASHES").toInt());
    const QStringList arguments = QStringList() << "--type" << dir.path();
    for (int round = 0; round < rounds; ++round) {
        // One that is killed at its start, perhaps while it recovers.
        QProcess starting;
        starting.start(QCoreApplication::applicationFilePath(), arguments);
        if (round > 0 && starting.waitForStarted())
            starting.waitForReadyRead(int(random() % 100));
        starting.kill();
        starting.waitForFinished();

        QProcess program;
        program.start(QCoreApplication::applicationFilePath(), arguments);
        checkRestored(&program, safe);
        if (QTest::currentTestFailed())
            return;
        safe = killTyping(&program, 200 + int(random() % 3000), safe);
    }
    QVERIFY(int(safe.size()) == 2 * filesAndBuffers);
}

int main(int argc, char **argv)
{
    if (argc == 3 && QByteArray(argv[1]) == "--type") {
        QApplication application(argc, argv);
        const QString directory = QString::fromLocal8Bit(argv[2]);
        EdCodeView::setBufferDirectory(QDir(directory));
        Typist typist(directory);
        return QApplication::exec();
    }
    TestCrash tests;
    return runTests(tests, argc, argv);
}

#include "tst_crash.moc"
