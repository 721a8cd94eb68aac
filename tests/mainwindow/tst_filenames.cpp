// SPDX-License-Identifier: MIT
#include "mainwindow/filenames.h"
#include "tests/support/datatable.h"
#include "tests/support/testmain.h"

class TestFileNames : public QObject
{
    Q_OBJECT

private slots:
    void savedNamesGetTheSuffixOfTheFilter_data();
    void savedNamesGetTheSuffixOfTheFilter();
    void theFilterFollowsTheLanguage();
    void directoriesMayEndInASlash();
};

void TestFileNames::savedNamesGetTheSuffixOfTheFilter_data()
{
    columns<QString, QString, QString>("filter", "name", "saved");

    const QString mel("MEL file (*.mel)");
    const QString python("Python file (*.py)");
    row("mel-added", mel, "/s/tool", "/s/tool.mel");
    row("mel-kept", mel, "/s/tool.mel", "/s/tool.mel");
    row("mel-upper-case-is-another", mel, "tool.MEL", "tool.MEL.mel");
    row("python-added", python, "tool", "tool.py");
    row("python-kept", python, "tool.py", "tool.py");
    row("pyw-kept", python, "tool.pyw", "tool.pyw");
    row("python-over-mel", python, "tool.mel", "tool.mel.py");
    row("any-adds-nothing", "All types (*.*)", "tool", "tool");
    row("text-adds-nothing", "Normal text file (*.txt)", "tool", "tool");
}

void TestFileNames::savedNamesGetTheSuffixOfTheFilter()
{
    QFETCH(QString, filter);
    QFETCH(QString, name);
    QFETCH(QString, saved);
    QCOMPARE(nameWithFilterSuffix(name, filter), saved);
}

void TestFileNames::theFilterFollowsTheLanguage()
{
    const QString all("All types (*.*);;MEL file (*.mel);;Python file (*.py);;"
                      "Normal text file (*.txt)");
    QCOMPARE(saveFilters(), all);
    QCOMPARE(saveFilterForLanguage(0), QString("All types (*.*)"));
    QCOMPARE(saveFilterForLanguage(1), QString("Python file (*.py)"));
    QCOMPARE(saveFilterForLanguage(2), QString("MEL file (*.mel)"));
}

void TestFileNames::directoriesMayEndInASlash()
{
    QCOMPARE(joinedPath("/prefs", "x.ini"), QString("/prefs/x.ini"));
    QCOMPARE(joinedPath("/prefs/", "x.ini"), QString("/prefs/x.ini"));
}

CORVANE_TEST_MAIN(TestFileNames)
#include "tst_filenames.moc"
