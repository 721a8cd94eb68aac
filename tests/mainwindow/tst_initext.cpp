// SPDX-License-Identifier: MIT
#include "mainwindow/initext.h"
#include "tests/support/testmain.h"

class IniTextTest : public QObject
{
    Q_OBJECT

private slots:
    void objectsAreFoundInEveryDisguise_data();
    void objectsAreFoundInEveryDisguise();
};

void IniTextTest::objectsAreFoundInEveryDisguise_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<bool>("accepted");

    QTest::newRow("text") << QByteArray("a text, another; \"quoted\"") << true;
    QTest::newRow("bytes") << QByteArray("@ByteArray(\\0\\x1\\x40)") << true;
    QTest::newRow("object") << QByteArray("@Variant(\\0\\0\\0\\x46)") << false;
    QTest::newRow("date") << QByteArray("@DateTime(\\0\\0\\0\\x10)") << false;
    QTest::newRow("text-that-looks-like-one") << QByteArray("@@Variant(\\0)") << true;
    QTest::newRow("both") << QByteArray("@@Variant(\\0), @Variant(\\0)") << false;
    QTest::newRow("in-a-list") << QByteArray("1, @Variant(\\0)") << false;
    QTest::newRow("hexadecimal") << QByteArray("\\x40Variant(\\0)") << false;
    QTest::newRow("octal") << QByteArray("\\100Variant(\\0)") << false;
    QTest::newRow("beyond-16-bits") << QByteArray("\\x10040Variant(\\0)") << false;
    QTest::newRow("many-digits") << QByteArray("\\x00000000000000000040Variant(\\0)") << false;
    QTest::newRow("quotes") << QByteArray("\"@Var\"  ia\"nt\"(\\0)") << false;
    QTest::newRow("line-continued") << QByteArray("@Var\\\niant(\\0)") << false;
    QTest::newRow("line-continued-lfcr") << QByteArray("@Var\\\n\riant(\\0)") << false;
    QTest::newRow("unknown-escape") << QByteArray("@Var\\iiant(\\0)") << false;
    QTest::newRow("mark-of-utf8-within") << QByteArray("@Vari\\x61\xef\xbb\xbfnt(\\0)") << false;
    QTest::newRow("mark-of-utf8-before") << QByteArray("\xef\xbb\xbf@Variant(\\0)") << false;
    QTest::newRow("half-a-mark") << QByteArray("@Vari\xef\xbbnt(\\0)") << true;
    QTest::newRow("within-a-path") << QByteArray("\"0,/home/@Variant(1)/a.mel,0,0,0\"") << true;
    QTest::newRow("behind-a-path") << QByteArray("/@Variant(1), @Variant(\\0)") << false;
    QTest::newRow("null") << QByteArray("a\0b", 3) << false;
    QTest::newRow("ends-in-backslash") << QByteArray("a\\") << true;
    QTest::newRow("ends-in-escape") << QByteArray("a\\x") << true;
}

void IniTextTest::objectsAreFoundInEveryDisguise()
{
    QFETCH(QByteArray, value);
    QFETCH(bool, accepted);
    QCOMPARE(isIniText("[group]\nkey=" + value), accepted);
}

CORVANE_TEST_MAIN(IniTextTest)
#include "tst_initext.moc"
