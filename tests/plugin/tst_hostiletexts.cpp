// SPDX-License-Identifier: MIT
// Texts of users that look like code, on their ways into Maya: they arrive, and run nothing.
#include "bridge/forcedimports.h"
#include "bridge/mayainterface.h"
#include "bridge/melcatalogue.h"
#include "bridge/pythonanalysis.h"
#include "mainwindow/kestrowl.h"
#include "plugin/mayahandler.h"
#include "preferences/preferences.h"
#include "standin/host/idlequeue.h"
#include "standin/host/utf8.h"
#include "standin/python/python.h"
#include "standin/ui/userinterface.h"
#include "tests/support/datatable.h"
#include "tests/support/scratchdir.h"
#include "tests/support/sessionlog.h"
#include "tests/support/testmain.h"

#include <QFile>

#include <memory>
#include <random>

namespace {

const int rounds = 500;

// What ends a literal, a statement or a name somewhere, and what shows when it was run.
QStringList hostilePieces()
{
    const char mark[] = "global string $gMark; $gMark = \"ran\"; ";
    return strings({"\"", "\\", "`", "$", "$gMark", "\n", "\r", QString(QChar(0)),
                    QString(QChar(0x2029)), QString(QChar(0x2028)),
                    QString::fromUtf8("\xf0\x9f\x90\x8d")})
           << QString::fromUtf8("\xc3\xa4") << "'"
           << "\"\"\""
           << "//"
           << "/*"
           << "#"
           << "%1"
           << ";"
           << "n"
           << "x41" << QString("\"); ") + mark << QString("\\\"); ") + mark << QString("\n") + mark
           << "`eval \"$gMark = \\\"ran\\\"\"`"
           << "\"\n__import__('maya.mel').mel.eval('$gMark = \"ran\"')\n\"";
}

QString hostileText(std::mt19937 &random)
{
    static const QStringList pieces = hostilePieces();
    QString text;
    for (int left = int(random() % 12) + 1; left > 0; --left)
        text += pieces.at(int(random() % unsigned(pieces.size())));
    // Now and then a very long one, whose pieces stand at its end.
    return random() % 50 == 0 ? QString(100000, QLatin1Char('a')) + text : text;
}

// All that a file's name can hold, and no more than file systems take.
QString hostileName(std::mt19937 &random)
{
    QString name = hostileText(random);
    name.remove(QChar(0)).replace(QLatin1Char('/'), QLatin1String("_"));
    return name.right(40) + QLatin1String(".mel");
}

} // namespace

class HostileTextsTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void labelsAndScriptsReachTheShelf();
    void scriptsAreSourcedByTheirPaths();
    void textsReachPython();
    void namesAreAskedAboutAndNotRun();

private:
    QString melString(const char *text);

    ScratchDir m_folder;
    std::unique_ptr<standin::Session> m_session;
    std::unique_ptr<SessionLog> m_log;
    std::unique_ptr<standin::UserInterface> m_ui;
};

void HostileTextsTest::init()
{
    standin::SessionOptions options;
    options.userDirectory = m_folder.path();
    m_session = std::make_unique<standin::Session>(options);
    m_session->setPython(standin::createPythonEngine(*m_session, m_session->mel()));
    m_ui = std::make_unique<standin::UserInterface>(*m_session);
    m_log = std::make_unique<SessionLog>(*m_session);
    melString("global string $gMark; $gMark = \"\";");
}

void HostileTextsTest::cleanup()
{
    const QString mark = melString("global string $gMark; $gMark;");
    const QStringList messages = m_log->take();
    m_log.reset();
    m_ui.reset();
    m_session.reset();
    QCOMPARE(mark, QString());
    QCOMPARE(messages, QStringList());
}

QString HostileTextsTest::melString(const char *text)
{
    const mel::Value value = m_session->executeMel(text, false).value;
    const std::string *string = std::get_if<std::string>(&value);
    return string ? standin::toQt(*string) : QString("no string");
}

void HostileTextsTest::labelsAndScriptsReachTheShelf()
{
    std::mt19937 random(1);
    for (int i = 0; i < rounds; ++i) {
        QString label = hostileText(random);
        QString script = hostileText(random);
        melString("addNewShelfTab(\"hostile\"); shelfTabLayout -e -selectTab \"hostile\" "
                  "$gShelfTopLevel;");
        MayaInterface().scriptToShelf(label, script, i % 2 == 0);
        QVERIFY(m_session->idleQueue().processUntilEmpty());
        const standin::Element *shelf = m_ui->tree().find("hostile");
        QVERIFY(shelf && shelf->children.size() == 1);
        const standin::Element &button = *shelf->children.front();
        QCOMPARE(standin::toQt(button.text("label")), label.replace(QChar(0x2029), '\n'));
        QCOMPARE(standin::toQt(button.text("command")), script.replace(QChar(0x2029), '\n'));
        QCOMPARE(button.text("sourceType"), std::string(i % 2 == 0 ? "mel" : "python"));
        melString("deleteCurrentShelf");
    }
}

void HostileTextsTest::scriptsAreSourcedByTheirPaths()
{
    std::mt19937 random(2);
    Kestrowl window(m_folder.path(), m_folder.path());
    MayaHandler handler(&window);
    for (int i = 0; i < rounds; ++i) {
        const QByteArray number = QByteArray::number(i);
        const QString path =
            m_folder.write(hostileName(random).toUtf8().constData(),
                           "global string $gSourced; $gSourced = \"" + number + "\";");
        QVERIFY2(QFile::exists(path), qPrintable(path));
        handler.sourceScript(path);
        QCOMPARE(melString("global string $gSourced; $gSourced;"), QString::fromUtf8(number));
        QFile::remove(path);
    }
}

// A class with the name of the editor's own takes the texts.
void HostileTextsTest::textsReachPython()
{
    QVERIFY(m_session
                ->executePython("class CorvaneParser:\n"
                                "    @staticmethod\n"
                                "    def exec_statement(text):\n"
                                "        CorvaneParser.seen = text\n"
                                "        return 1\n",
                                false)
                .ok);
    std::mt19937 random(3);
    for (int i = 0; i < rounds; ++i) {
        const QString text = hostileText(random);
        QVERIFY(executePythonStatement(text));
        const mel::Value seen = m_session->executePython("CorvaneParser.seen", false).value;
        const std::string *value = std::get_if<std::string>(&seen);
        QVERIFY(value);
        QCOMPARE(standin::toQt(*value), text);
    }
}

// Whatever stands at the caret, and whatever is written in the preferences.
void HostileTextsTest::namesAreAskedAboutAndNotRun()
{
    std::mt19937 random(4);
    for (int i = 0; i < rounds; ++i) {
        const QString name = hostileText(random);
        QVERIFY2(melCommandHelp(name).kind == CommandKind::Unknown, qPrintable(name));
        QCOMPARE(commandFlags(name), QStringList());
        QCOMPARE(m_log->take(), QStringList());
        preferences().pythonForcedImports = "os" + name;
        importForcedModules();
        m_log->take(); // of names that are none, and of modules that do not exist
    }
    preferences().pythonForcedImports = QString();
}

CORVANE_TEST_MAIN(HostileTextsTest)
#include "tst_hostiletexts.moc"
