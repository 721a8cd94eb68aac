// SPDX-License-Identifier: MIT
#include "standin/host/pluginloader.h"
#include "standin/sdk/hostaccess.h"
#include "tests/standin/host/testsession.h"
#include "tests/support/datatable.h"
#include "tests/support/testmain.h"

#include <maya/MTypes.h>

#include <QDir>

namespace {

QString pluginPath(const QString &name)
{
    return QDir::cleanPath(QString(TEST_PLUGIN_FOLDER "/%1.so").arg(name));
}

QString quoted(const QString &text)
{
    return "\"" + text + "\"";
}

// Whether a file is mapped into this process.
bool isMapped(const QString &file)
{
    QFile maps("/proc/self/maps");
    return maps.open(QIODevice::ReadOnly) && maps.readAll().contains(file.toUtf8());
}

} // namespace

class TestPluginLoader : public QObject
{
    Q_OBJECT

private slots:
    void goodPlugInsLoadAndUnload_data();
    void goodPlugInsLoadAndUnload();
    void badPlugInsAreRefused_data();
    void badPlugInsAreRefused();
    void aTextFileIsRefused();
    void commandsGetTheirWords_data();
    void commandsGetTheirWords();
    void anExceptionInACommandIsAnError();
    void helpShowsModesAndObjects();
    void aCommandTellsWhereItWasCalled();
    void aPlugInMayChooseItsName();
    void aPlugInIsNotUnloadedUnderItsOwnFeet();
    void whatIsLeftBehindIsReportedAndRemoved();
    void aPlugInThatRefusesStaysUntilTheEnd();
    void aLoadedPlugInIsLeftAlone();
    void plugInsAreFoundOnThePath();
    void pluginInfoAnswers();
    void quittingUnloads();
};

void TestPluginLoader::goodPlugInsLoadAndUnload_data()
{
    columns<QString, QString>("name", "command");
    row("c++-linkage", "good", "testCommand");
    row("c-linkage", "clinkage", "testCommandOfC");
}

void TestPluginLoader::goodPlugInsLoadAndUnload()
{
    QFETCH(QString, name);
    QFETCH(QString, command);
    TestSession session;
    QCOMPARE(session.value("loadPlugin " + quoted(pluginPath(name))), pluginPath(name));
    QCOMPARE(session.value(command + " -c 2 -name n a b"), QString("2:n:ab"));
    QVERIFY(session.run("unloadPlugin " + quoted(name)));
    QCOMPARE(session.takeMessages(), QStringList());
    QVERIFY(!session.run(command));
    QVERIFY(!isMapped(pluginPath(name)));
}

void TestPluginLoader::badPlugInsAreRefused_data()
{
    QTest::addColumn<QString>("error");
    row("noentrypoints", "initializePlugin function could not be found in plug-in (noentrypoints)");
    row("nouninitialize",
        "uninitializePlugin function could not be found in plug-in (nouninitialize)");
    row("otherversion",
        QString("The plug-in was built for API version 201200; this is %1 (otherversion)")
            .arg(MAYA_API_VERSION));
    row("failinginit", "(kInvalidParameter): Invalid Parameter Passed To Method (failinginit)");
    row("throwinginit", "Unhandled exception: no room (throwinginit)");
}

void TestPluginLoader::badPlugInsAreRefused()
{
    QFETCH(QString, error);
    const QString path = pluginPath(QTest::currentDataTag());
    TestSession session;
    QVERIFY(!session->plugins().load(path));
    const QStringList messages = session.takeMessages();
    QCOMPARE(messages.last(), "error: " + error);
    QCOMPARE(messages.at(messages.size() - 2), "warning: Could not load " + path + " as a plug-in");
    QVERIFY(session->plugins().names().isEmpty());
    QVERIFY(!session->mel().command("testLeftBehind"));
    QVERIFY(!isMapped(path));
}

void TestPluginLoader::aTextFileIsRefused()
{
    TestSession session;
    const QString path = session.folder().write("broken.so", "not a library\n");
    QVERIFY(!session->plugins().load(path));
    const QStringList messages = session.takeMessages();
    QVERIFY2(messages.last().startsWith("error: Unable to dynamically load : " + path + "\n"),
             qPrintable(messages.join("; ")));
    QVERIFY(messages.last().size() > ("error: Unable to dynamically load : " + path + "\n").size());
}

void TestPluginLoader::commandsGetTheirWords_data()
{
    columns<QString, QString>("text", "expected");
    row("no-words", "testCommand", "0::");
    row("function-form", "testCommand(\"-c\", 3)", "3::");
    row("array-argument", "testCommand -n last {\"x\", \"y\"}", "0:last:xy");
    row("unknown-flag", "testCommand -nope", "malformed");
    row("wrong-type", "testCommand -c three", "malformed");
    row("blanks-and-quotes", "testCommand -n \"a \\\"b\\\"\"", "0:a \"b\":");
    row("large-number", "testCommand -c 2147483647", "2147483647::");
    row("runs-itself", "testCommand -m \"testCommand -t\"; 1", "(failed)");
}

void TestPluginLoader::commandsGetTheirWords()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    TestSession session;
    QVERIFY(session->plugins().load(pluginPath("good")));
    QCOMPARE(session.value(text), expected);
}

void TestPluginLoader::anExceptionInACommandIsAnError()
{
    TestSession session;
    QVERIFY(session->plugins().load(pluginPath("good")));
    QVERIFY(!session.run("testCommand -throw"));
    QCOMPARE(session.takeMessages(),
             QStringList() << "error: line 1: Unhandled exception in command: thrown by the test");
    QCOMPARE(session.value("catchQuiet(`testCommand -t`)"), QString("1"));
}

void TestPluginLoader::helpShowsModesAndObjects()
{
    TestSession session;
    QVERIFY(session->plugins().load(pluginPath("good")));
    QCOMPARE(session.value("help -syntaxOnly testCommand"),
             QString("Synopsis: testCommand [flags] [String...]\n"
                     "Flags:\n"
                     "   -e -edit\n"
                     "   -q -query\n"
                     "   -c -count    Int\n"
                     "   -m -melText  String\n"
                     "   -n -name     String (multi-use)\n"
                     "   -t -throw\n"
                     "   -w -warn     String\n"));
}

void TestPluginLoader::aCommandTellsWhereItWasCalled()
{
    TestSession session;
    QVERIFY(session->plugins().load(pluginPath("good")));
    QVERIFY(session.run("print 1;\ntestCommand -warn careful;"));
    QCOMPARE(session.takeMessages().last(), QString("warning: line 2: careful"));
}

void TestPluginLoader::aPlugInMayChooseItsName()
{
    TestSession session;
    QVERIFY(session->plugins().load(pluginPath("renamed")));
    QCOMPARE(session->plugins().names(), QStringList() << "good");
    QCOMPARE(session.value("pluginInfo -q -command good"), QString("testAfter testBefore"));
    QVERIFY(session->plugins().load(pluginPath("renamed"))); // the same one
    QVERIFY(!session->plugins().load(pluginPath("good")));
    QVERIFY(session.run("unloadPlugin good"));

    QVERIFY(session->plugins().load(pluginPath("good")));
    session.takeMessages();
    QVERIFY(session->plugins().load(pluginPath("renamed")));
    QCOMPARE(session->plugins().names(), words("good good1"));
    QVERIFY(session->plugins().unload(pluginPath("renamed")));
    QCOMPARE(session.takeMessages(), QStringList());
}

void TestPluginLoader::aPlugInIsNotUnloadedUnderItsOwnFeet()
{
    TestSession session;
    QVERIFY(session->plugins().load(pluginPath("good")));
    QVERIFY(!session.run("testCommand -melText \"unloadPlugin good\""));
    QCOMPARE(
        session.takeMessages().first(),
        QString(
            "error: line 1: Plug-in, \"good\", cannot be unloaded because it is still in use."));
    QVERIFY(session.run("unloadPlugin good"));
}

void TestPluginLoader::whatIsLeftBehindIsReportedAndRemoved()
{
    TestSession session;
    QVERIFY(session->plugins().load(pluginPath("leaking")));
    const size_t callbacks = standin::liveCallbacks().size();
    QVERIFY(session->plugins().unload("leaking"));
    QCOMPARE(standin::liveCallbacks().size(), callbacks - 1);
    QCOMPARE(session.takeMessages(),
             QStringList()
                 << "error: Plug-in, \"leaking\", left a callback behind; it has been removed.");
    QVERIFY(session.run("print \"still alive\""));
}

void TestPluginLoader::aPlugInThatRefusesStaysUntilTheEnd()
{
    TestSession session;
    QVERIFY(session->plugins().load(pluginPath("failinguninit")));
    QVERIFY(!session->plugins().unload("failinguninit"));
    QVERIFY(session.run("testStays"));
    session->quit();
    QCOMPARE(session.takeMessages().last(),
             QString("error: Plug-in, \"failinguninit\", left the command \"testStays\" behind; it "
                     "has been removed."));
    QVERIFY(session->plugins().names().isEmpty());
    QVERIFY(!session.run("testStays"));
}

void TestPluginLoader::aLoadedPlugInIsLeftAlone()
{
    TestSession session;
    QVERIFY(session->plugins().load(pluginPath("good")));
    QVERIFY(session->plugins().load(pluginPath("good")));
    QVERIFY(session->plugins().load("good"));
    QCOMPARE(session->plugins().names(), QStringList() << "good");
    const QString copy = session.folder().file("good.so");
    QVERIFY(QFile::copy(pluginPath("good"), copy));
    QVERIFY(!session->plugins().load(copy));
    QVERIFY(session.run("testCommand"));
}

void TestPluginLoader::plugInsAreFoundOnThePath()
{
    TestSession session;
    qputenv("MAYA_PLUG_IN_PATH", "/nowhere:" TEST_PLUGIN_FOLDER);
    QVERIFY(session.run("loadPlugin good"));
    QVERIFY(session.run("unloadPlugin \"good.so\""));
    qputenv("MAYA_PLUG_IN_PATH", QByteArray());
    QVERIFY(!session.run("loadPlugin good"));
    QVERIFY(QDir(session.folder().path()).mkpath("plug-ins"));
    QVERIFY(QFile::copy(pluginPath("good"), session.folder().file("plug-ins/good.so")));
    QVERIFY(session.run("loadPlugin good; unloadPlugin good"));
    session->quit();

    standin::SessionOptions options;
    options.pluginFolders << TEST_PLUGIN_FOLDER;
    TestSession other(options);
    QVERIFY(other.run("loadPlugin good"));
}

void TestPluginLoader::pluginInfoAnswers()
{
    TestSession session;
    QCOMPARE(session.value("pluginInfo -q -loaded \"good\""), QString("0"));
    QVERIFY(!session.run("pluginInfo -q -version \"good\""));
    QVERIFY(session->plugins().load(pluginPath("good")));
    QCOMPARE(session.value("pluginInfo -q -loaded \"good\""), QString("1"));
    QCOMPARE(session.value("pluginInfo -q -listPlugins"), QString("good"));
    QCOMPARE(session.value("pluginInfo -q -path \"good\""), pluginPath("good"));
    QCOMPARE(session.value("pluginInfo -q -vendor \"good\""), QString("Corvane tests"));
    QCOMPARE(session.value("pluginInfo -q -version \"good\""), QString("1.2"));
    QCOMPARE(session.value("pluginInfo -q -command \"good\""), QString("testCommand"));
}

void TestPluginLoader::quittingUnloads()
{
    TestSession session;
    QVERIFY(session->plugins().load(pluginPath("clinkage")));
    QVERIFY(session->plugins().load(pluginPath("good")));
    session.run("scriptJob -event \"quitApplication\" \"print `testCommand -c 1`\"");
    session->quit();
    QCOMPARE(session.takeMessages(), QStringList() << "display: 1::");
    QVERIFY(session->plugins().names().isEmpty());
}

CORVANE_TEST_MAIN(TestPluginLoader)
#include "tst_pluginloader.moc"
