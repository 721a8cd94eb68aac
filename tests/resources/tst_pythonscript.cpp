// SPDX-License-Identifier: MIT
#include "resources/resources.h"
#include "tests/support/testmain.h"

#include <QFile>
#include <QObject>

class TestPythonScript : public QObject
{
    Q_OBJECT

private slots:
    void scriptIsPartOfThePlugin();
};

void TestPythonScript::scriptIsPartOfThePlugin()
{
    initResources();
    QFile script(":/python/corvane_parser.py");
    QVERIFY(script.open(QIODevice::ReadOnly));
    const QByteArray text = script.readAll();
    QVERIFY(text.contains("\nclass CorvaneParser("));
    // Python 2 refuses other characters without an encoding line, and text with such a line.
    for (int i = 0; i < text.size(); ++i)
        QVERIFY2(text.at(i) > 0, text.mid(i, 20).constData());
}

CORVANE_TEST_MAIN(TestPythonScript)
#include "tst_pythonscript.moc"
