// SPDX-License-Identifier: MIT
#include "standin/host/searchpath.h"
#include "tests/standin/host/testsession.h"
#include "tests/support/datatable.h"
#include "tests/support/testmain.h"

#include <maya/MTypes.h>

#include <QDir>

using standin::ModuleFolders;
using standin::parseModules;

class TestSearchPath : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void modulesGiveTheirFolders_data();
    void modulesGiveTheirFolders();
    void modulesSetVariables_data();
    void modulesSetVariables();
    void variablesAreSetOnce();
    void scriptsOfModulesAndPathsAreFound();
    void theFirstUserSetupRuns();
    void plugInsAreFoundByName();
};

void TestSearchPath::cleanup()
{
    for (const char *name : {"MAYA_MODULE_PATH", "MAYA_PLUG_IN_PATH", "MAYA_SCRIPT_PATH"})
        qputenv(name, QByteArray());
}

void TestSearchPath::modulesGiveTheirFolders_data()
{
    columns<QString, QString, QString>("text", "plugins", "scripts");
    const QString release = QString::number(MAYA_API_VERSION).left(4);
    row("absolute", "+ name 1.0 /opt/it\n", "/opt/it/plug-ins", "/opt/it/scripts");
    row("relative", "+ name 1.0 ../it", "/it/plug-ins", "/it/scripts");
    row("path-with-blanks", "+ name 1.0 /my it", "/my it/plug-ins", "/my it/scripts");
    row("windows-line-ends", "+ name 1.0 /it\r\nscripts: mel\r\n", "/it/plug-ins", "/it/mel");
    row("overrides", "+ n 1 /it\nplug-ins: bin\n[r] scripts: /s\nicons: i\nX=1", "/it/bin", "/s");
    row("condition-holds", "+ MAYAVERSION:" + release + " n 1 /it", "/it/plug-ins", "/it/scripts");
    row("other-release", "+ MAYAVERSION:1999 n 1 /it\nscripts: x", "", "");
    row("second-module-applies", "+ PLATFORM:none a 1 /a\nscripts: x\n+ b 1 /b", "/b/plug-ins",
        "/b/scripts");
    row("cut-off", "+ name", "", "");
}

void TestSearchPath::modulesGiveTheirFolders()
{
    QFETCH(QString, text);
    QFETCH(QString, plugins);
    QFETCH(QString, scripts);
    const ModuleFolders found = parseModules(text, "/modules");
    QCOMPARE(found.plugins.join(" "), plugins);
    QCOMPARE(found.scripts.join(" "), scripts);
}

void TestSearchPath::modulesSetVariables_data()
{
    columns<QString, QString>("text", "expected");
    row("value", "+ n 1 /it\nX=a = b", "X=a = b");
    row("added", "+ n 1 /it\nX+=more", "X+=more");
    row("relative", "+ n 1 ../it\nX:=lib", "X=/it/lib");
    row("relative-and-added", "+ n 1 /it\nX +:= ../lib", "X+=/lib");
    row("absolute-stays", "+ n 1 /it\nX:=/lib", "X=/lib");
    row("module-does-not-apply", "+ PLATFORM:none n 1 /it\nX=1", "");
    row("folder-with-equals-sign", "+ n 1 /it\nicons: a=b\nplug-ins: c=d", "");
}

void TestSearchPath::modulesSetVariables()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    QStringList found;
    for (const standin::ModuleVariable &variable : parseModules(text, "/modules").variables)
        found << variable.name + (variable.isAdded ? "+=" : "=") + variable.value;
    QCOMPARE(found.join(" "), expected);
}

void TestSearchPath::variablesAreSetOnce()
{
    const ScratchDir folder;
    folder.write("it.mod", "+ it 1 /it\nCORVANE_LIST+=b\nCORVANE_LIST+:=c\nCORVANE_VALUE=v:v\n");
    qputenv("MAYA_MODULE_PATH", folder.path().toUtf8());
    qputenv("CORVANE_LIST", "a:b");
    {
        const TestSession session;
    }
    const TestSession session;
    QCOMPARE(qgetenv("CORVANE_LIST"), QByteArray("a:b:/it/c"));
    QCOMPARE(qgetenv("CORVANE_VALUE"), QByteArray("v:v"));
}

void TestSearchPath::theFirstUserSetupRuns()
{
    TestSession session;
    QVERIFY(QDir(session.folder().path()).mkpath("first"));
    QVERIFY(QDir(session.folder().path()).mkpath("second"));
    session.folder().write("first/userSetup.mel", "print first; $a = 1;");
    session.folder().write("second/userSetup.mel", "print second;");
    qputenv("MAYA_SCRIPT_PATH",
            (session.folder().file("first") + ":" + session.folder().file("second")).toUtf8());
    session->runUserSetup();
    QCOMPARE(session.takeMessages(), QStringList() << "display: first");
}

void TestSearchPath::scriptsOfModulesAndPathsAreFound()
{
    TestSession session;
    QVERIFY(QDir(session.folder().path()).mkpath("modules"));
    session.folder().write("modules/it.mod", "+ it 1.0 ../it");
    QVERIFY(QDir(session.folder().path()).mkpath("it/scripts"));
    session.folder().write("it/scripts/fromModule.mel", "print 7;");
    QVERIFY(QDir(session.folder().path()).mkpath("own"));
    session.folder().write("own/fromPath.mel", "print 8;");
    qputenv("MAYA_MODULE_PATH", session.folder().file("modules").toUtf8());
    qputenv("MAYA_SCRIPT_PATH", "/nowhere:" + session.folder().file("own").toUtf8());
    QVERIFY(session->sourceFile("fromModule").ok);
    QVERIFY(session->sourceFile("fromPath.mel").ok);
    QCOMPARE(session.takeMessages(), QStringList() << "display: 7"
                                                   << "display: 8");
}

void TestSearchPath::plugInsAreFoundByName()
{
    const ScratchDir folder;
    QVERIFY(QDir(folder.path()).mkpath("bin"));
    const QString file = folder.write("bin/thing.so", "");
    qputenv("MAYA_PLUG_IN_PATH", folder.file("bin").toUtf8());
    QCOMPARE(standin::pluginFile("thing"), file);
    QCOMPARE(standin::pluginFile("thing.so"), file);
    QCOMPARE(standin::pluginFile(file), file);
    QCOMPARE(standin::pluginFile("other"), QString());
}

CORVANE_TEST_MAIN(TestSearchPath)
#include "tst_searchpath.moc"
