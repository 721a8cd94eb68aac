// SPDX-License-Identifier: MIT
#include "bridge/mayainterface.h"
#include "tests/standin/host/testsession.h"
#include "tests/support/testmain.h"

#include <QTest>

class TestMayaInterface : public QObject
{
    Q_OBJECT

private slots:
    void theIconFolderIsBelowMaya_data();
    void theIconFolderIsBelowMaya();
};

void TestMayaInterface::theIconFolderIsBelowMaya_data()
{
    QTest::addColumn<QString>("location");
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QStringList>("messages");
    QTest::newRow("set") << "/opt/maya"
                         << "/opt/maya/icons/" << QStringList();
    QTest::newRow("missing") << ""
                             << "/icons/" << (QStringList() << "error: Failed to get icon path");
}

void TestMayaInterface::theIconFolderIsBelowMaya()
{
    QFETCH(QString, location);
    QFETCH(QString, folder);
    QFETCH(QStringList, messages);
    TestSession session;
    qputenv("MAYA_LOCATION", location.toUtf8());
    QCOMPARE(MayaInterface().iconDirectory(), folder);
    QCOMPARE(session.takeMessages(), messages);
}

CORVANE_TEST_MAIN(TestMayaInterface)
#include "tst_mayainterface.moc"
