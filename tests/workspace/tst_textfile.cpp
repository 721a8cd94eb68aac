// SPDX-License-Identifier: MIT
#include "tests/support/scratchdir.h"
#include "tests/support/testmain.h"
#include "workspace/textfile.h"

class TestTextFile : public QObject
{
    Q_OBJECT

private slots:
    void readingAndWritingIsIdentity_data();
    void readingAndWritingIsIdentity();
    void linesEndInLineFeeds();
    void otherEncodingsAreRefused();
    void failuresTellTheReason();
};

void TestTextFile::readingAndWritingIsIdentity_data()
{
    QTest::addColumn<QByteArray>("bytes");

    QTest::newRow("empty") << QByteArray();
    QTest::newRow("line-feeds") << QByteArray("a\n\nb\n");
    QTest::newRow("carriage-returns") << QByteArray("a\r\n\r\nb");
    QTest::newRow("byte-order-mark") << QByteArray("\xEF\xBB\xBF"
                                                   "a\r\nb\r\n");
    QTest::newRow("other-scripts") << QByteArray("\xC3\xA4 \xE6\x97\xA5 \xF0\x9F\x98\x80\n");
    QTest::newRow("null-character") << QByteArray("a\0b\n", 4);
}

void TestTextFile::readingAndWritingIsIdentity()
{
    QFETCH(QByteArray, bytes);
    ScratchDir dir;
    TextFile file;
    QString error;
    QVERIFY2(readTextFile(dir.write("in.mel", bytes), &file, &error), qPrintable(error));
    QVERIFY2(writeTextFile(dir.file("out.mel"), file, &error), qPrintable(error));
    QCOMPARE(dir.read("out.mel"), bytes);
}

void TestTextFile::linesEndInLineFeeds()
{
    TextFile file;
    QVERIFY(decodeText("\xEF\xBB\xBF"
                       "a\r\nb\r\n",
                       &file));
    QCOMPARE(file.text, QString("a\nb\n"));
}

void TestTextFile::otherEncodingsAreRefused()
{
    TextFile file;
    file.text = "before";
    QVERIFY(!decodeText("caf\xE9\n", &file));
    QVERIFY(!decodeText(QByteArray("\xFF\xFE"
                                   "a\0",
                                   4),
                        &file));
    QCOMPARE(file.text, QString("before"));
}

void TestTextFile::failuresTellTheReason()
{
    ScratchDir dir;
    TextFile file;
    QString error;
    QVERIFY(!readTextFile(dir.file("missing.mel"), &file, &error));
    QVERIFY(!error.isEmpty());
    error.clear();
    QVERIFY(!writeTextFile(dir.path(), file, &error));
    QVERIFY(!error.isEmpty());
}

CORVANE_TEST_MAIN(TestTextFile)
#include "tst_textfile.moc"
