// SPDX-License-Identifier: MIT
#include "tests/standin/python/pythontest.h"
#include "tests/support/datatable.h"
#include "tests/support/testmain.h"

#include <QObject>

// What is different when the host embeds Python 2.7; the other tests expect the texts of Python 3.
class TestPython2 : public QObject
{
    Q_OBJECT

private slots:
    void messages_data();
    void messages();
    void commandsReachTheHost();
};

void TestPython2::messages_data()
{
    columns<QString, QStringList>("text", "expected");

    row("print-statement", "print 'a', 1",
        strings({"display|a", "display| ", "display|1", "display|\\n"}));
    row("source-is-utf-8", QString::fromUtf8("print repr(u'\xC3\xA4')"),
        strings({"display|u'\\xe4'", "display|\\n"}));
    row("declared-encoding", QString::fromUtf8("# -*- coding: utf-8 -*-\nprint u'\xC3\xA4'"),
        strings({QString::fromUtf8("display|\xC3\xA4"), "display|\\n"}));
    row("message-of-another-alphabet", QString::fromUtf8("raise ValueError(u'\xC3\xA4')"),
        QStringList(QString::fromUtf8("error|ValueError: file <maya console> line 1: \xC3\xA4")));
    row("syntax-error", "print('a'",
        QStringList("error|SyntaxError: file <maya console> line 1: "
                    "unexpected EOF while parsing"));
}

void TestPython2::messages()
{
    QFETCH(QString, text);
    QFETCH(QStringList, expected);
    PythonTest python;
    QVERIFY(python.isStarted());
    python.run(text);
    QCOMPARE(python.host.takeMessages().join("\n"), expected.join("\n"));
}

void TestPython2::commandsReachTheHost()
{
    PythonTest python;
    mel::Command command;
    command.name = "answer";
    command.run = [](mel::Call &) -> mel::Value { return 42; };
    QVERIFY(python.host.interpreter.addCommand(command));
    python.run("import maya.cmds as cmds, maya.mel as mel, maya.OpenMaya");
    QCOMPARE(python.value("repr(cmds.answer()), 'answer' in dir(cmds)"), QString("('42', True)"));
    QCOMPARE(python.value("repr(mel.eval('1 + 2'))"), QString("3"));
}

CORVANE_TEST_MAIN(TestPython2)
#include "tst_python2.moc"
