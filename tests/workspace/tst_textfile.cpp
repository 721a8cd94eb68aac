// SPDX-License-Identifier: MIT
#include "workspace/textfile.h"

#include "tests/support/datatable.h"
#include "tests/support/localecodec.h"
#include "tests/support/scratchdir.h"
#include "tests/support/skip.h"
#include "tests/support/testmain.h"

#include <QFile>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

class TestTextFile : public QObject
{
    Q_OBJECT

private slots:
    void bytesTellTheEncoding_data();
    void bytesTellTheEncoding();
    void anyBytesAreGivenBack();
    void theLocaleComesBeforeLatin1();
    void charactersThatAreMissingAreNamed_data();
    void charactersThatAreMissingAreNamed();
    void failuresTellTheReason();
    void onlyRegularFilesAreRead();
    void filesOfTooManyLinesAreNotRead();
};

void TestTextFile::bytesTellTheEncoding_data()
{
    columns<QByteArray, int, QString>("bytes", "encoding", "text");

    const auto row = [](const char *tag, const QByteArray &bytes, TextEncoding encoding,
                        const QString &text) {
        QTest::newRow(tag) << bytes << int(encoding) << text;
    };
    const QString grin = QString::fromUtf8("a\xF0\x9F\x98\x80");
    row("empty", "", TextEncoding::Utf8, "");
    row("ends-stay", "a\r\nb\rc\n", TextEncoding::Utf8, "a\r\nb\rc\n");
    row("utf-8", "a\xF0\x9F\x98\x80", TextEncoding::Utf8, grin);
    row("two-and-three-bytes", "\xC3\xA4\xDF\xBF\xE2\x82\xAC\xEF\xBF\xBD", TextEncoding::Utf8,
        QString(QChar(0xE4)) + QChar(0x7FF) + QChar(0x20AC) + QChar(0xFFFD));
    row("last-code-point", "\xF4\x8F\xBF\xBF", TextEncoding::Utf8,
        QString(QChar(0xDBFF)) + QChar(0xDFFF));
    row("noncharacter", "\xEF\xB7\x90", TextEncoding::Utf8, QString(QChar(0xFDD0)));
    row("marked-utf-8",
        "\xEF\xBB\xBF"
        "a\xF0\x9F\x98\x80",
        TextEncoding::MarkedUtf8, grin);
    row("mark-alone", "\xEF\xBB\xBF", TextEncoding::MarkedUtf8, "");
    row("second-mark", "\xEF\xBB\xBF\xEF\xBB\xBF", TextEncoding::MarkedUtf8,
        QString(QChar(0xFEFF)));
    row("utf-16-le",
        QByteArray("\xFF\xFE"
                   "a\0\x3D\xD8\0\xDE",
                   8),
        TextEncoding::Utf16LittleEndian, grin);
    row("utf-16-be", QByteArray("\xFE\xFF\0a\xD8\x3D\xDE\0", 8), TextEncoding::Utf16BigEndian,
        grin);
    row("utf-32-le", QByteArray("\xFF\xFE\0\0a\0\0\0\0\xF6\x01\0", 12),
        TextEncoding::Utf32LittleEndian, grin);
    row("utf-32-be", QByteArray("\0\0\xFE\xFF\0\0\0a\0\x01\xF6\0", 12),
        TextEncoding::Utf32BigEndian, grin);
    row("utf-16-of-odd-size",
        "\xFF\xFE"
        "a",
        TextEncoding::Latin1,
        QString::fromLatin1("\xFF\xFE"
                            "a"));
    row("utf-16-with-stray-surrogate", "\xFE\xFF\xD8\x3D", TextEncoding::Utf16BigEndian,
        QString(QChar(0xD83D)));
    row("utf-32-beyond-the-last", QByteArray("\0\0\xFE\xFF\0\x11\0\0", 8), TextEncoding::Latin1,
        QString::fromLatin1("\0\0\xFE\xFF\0\x11\0\0", 8));
    row("latin-1", "caf\xE9", TextEncoding::Latin1, QString::fromLatin1("caf\xE9"));
    row("nulls", QByteArray("a\0b", 3), TextEncoding::Utf8, QString::fromLatin1("a\0b", 3));
    row("too-long-slash", "\xC0\xAF", TextEncoding::Latin1, QString::fromLatin1("\xC0\xAF"));
    row("too-long-three", "\xE0\x9F\xBF", TextEncoding::Latin1,
        QString::fromLatin1("\xE0\x9F\xBF"));
    row("surrogate-in-utf-8", "\xED\xA0\xBD", TextEncoding::Latin1,
        QString::fromLatin1("\xED\xA0\xBD"));
    row("beyond-the-last", "\xF4\x90\x80\x80", TextEncoding::Latin1,
        QString::fromLatin1("\xF4\x90\x80\x80"));
    row("cut-short", "a\xF0\x9F\x98", TextEncoding::Latin1, QString::fromLatin1("a\xF0\x9F\x98"));
}

void TestTextFile::bytesTellTheEncoding()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, encoding);
    QFETCH(QString, text);
    ScratchDir dir;
    TextFile file;
    QString error;
    QVERIFY2(readTextFile(dir.write("in.mel", bytes), &file, &error), qPrintable(error));
    QCOMPARE(int(file.encoding), encoding);
    QCOMPARE(file.text, text);
    QVERIFY2(writeTextFile(dir.file("out.mel"), file, &error), qPrintable(error));
    QCOMPARE(dir.read("out.mel"), bytes);
}

void TestTextFile::anyBytesAreGivenBack()
{
    const QList<QByteArray> starts = QList<QByteArray>()
                                     << QByteArray() << "\xEF\xBB\xBF"
                                     << "\xFF\xFE" << QByteArray("\xFF\xFE\0\0", 4) << "\xFE\xFF"
                                     << QByteArray("\0\0\xFE\xFF", 4);
    const QByteArray tricky("\x00\x01 a\n\r\x7F\x80\xBF\xC2\xE0\xED\xF0\xF4\xFE\xFF\xD8\xDC\x10",
                            20);
    unsigned seed = 1;
    for (int round = 0; round < 20000; ++round) {
        QByteArray bytes = starts.at(round % starts.size());
        for (int left = round % 13; left > 0; --left) {
            seed = seed * 1103515245 + 12345;
            bytes += tricky.at(int((seed >> 16) % unsigned(tricky.size())));
        }
        QString text;
        const TextEncoding encoding = decodeText(bytes, &text);
        QByteArray again;
        QCOMPARE(encodeText(text, encoding, &again), -1);
        QVERIFY2(again == bytes, bytes.toHex().constData());
    }
}

void TestTextFile::theLocaleComesBeforeLatin1()
{
    const LocaleCodec locale("Shift_JIS");
    if (!locale.wasChanged())
        CORVANE_SKIP("the locale's encoding is fixed");
    ScratchDir dir;
    TextFile file;
    QString error;
    QVERIFY(readTextFile(dir.write("a.mel", "a\x93\xFA\n"), &file, &error));
    QCOMPARE(int(file.encoding), int(TextEncoding::Locale));
    QCOMPARE(file.text, QString::fromUtf8("a\xE6\x97\xA5\n"));
    file.text += QString::fromUtf8("\xE6\x97\xA5");
    QVERIFY(writeTextFile(dir.file("a.mel"), file, &error));
    QCOMPARE(dir.read("a.mel"), QByteArray("a\x93\xFA\n\x93\xFA"));

    file.text += QString::fromUtf8("\xF0\x9F\x98\x80");
    QVERIFY(!writeTextFile(dir.file("a.mel"), file, &error));
    QCOMPARE(error, QString::fromUtf8("Line 2 has the character '\xF0\x9F\x98\x80' (U+1F600), "
                                      "which is not in the system's encoding"));
    QVERIFY(readTextFile(dir.write("b.mel", "\x93"), &file, &error));
    QCOMPARE(int(file.encoding), int(TextEncoding::Latin1));
}

void TestTextFile::charactersThatAreMissingAreNamed_data()
{
    columns<int, QString, QString>("encoding", "text", "message");

    QTest::newRow("latin-1") << int(TextEncoding::Latin1)
                             << QString::fromUtf8("\xC3\xA4\r\n\r\n \xE2\x82\xAC \xCE\xB1")
                             << QString::fromUtf8("Line 3 has the character '\xE2\x82\xAC' "
                                                  "(U+20AC), which is not in ISO 8859-1");
    const QString stray = QString("a\rb") + QChar(0xDE00);
    QTest::newRow("utf-8") << int(TextEncoding::Utf8) << stray
                           << "Line 2 has the character U+DE00, which is not in UTF-8";
    QTest::newRow("utf-32") << int(TextEncoding::Utf32BigEndian) << stray
                            << "Line 2 has the character U+DE00, which is not in UTF-32";
}

void TestTextFile::charactersThatAreMissingAreNamed()
{
    QFETCH(int, encoding);
    QFETCH(QString, text);
    QFETCH(QString, message);
    ScratchDir dir;
    const QString path = dir.write("a.mel", "old");
    const TextFile file = {text, static_cast<TextEncoding>(encoding)};
    QString error;
    QVERIFY(!writeTextFile(path, file, &error));
    QCOMPARE(error, message);
    QCOMPARE(dir.read("a.mel"), QByteArray("old"));
}

void TestTextFile::failuresTellTheReason()
{
    ScratchDir dir;
    TextFile file;
    file.text = "before";
    QString error;
    QVERIFY(!readTextFile(dir.file("missing.mel"), &file, &error));
    QVERIFY(!error.isEmpty());
    QCOMPARE(file.text, QString("before"));
    error.clear();
    QVERIFY(!writeTextFile(dir.path(), file, &error));
    QVERIFY(!error.isEmpty());
}

void TestTextFile::onlyRegularFilesAreRead()
{
    ScratchDir dir;
    TextFile file;
    QString error;
    QVERIFY(!readTextFile(dir.path(), &file, &error));
    QCOMPARE(error, QString("This is a folder"));

    QFile large(dir.write("large.mel", ""));
    QVERIFY(large.open(QIODevice::ReadWrite) && large.resize(256 * 1024 * 1024 + 1));
    QVERIFY(!readTextFile(large.fileName(), &file, &error));
    QCOMPARE(error, QString("The file is larger than 256 MB"));
#ifdef Q_OS_UNIX
    const QString pipe = dir.file("pipe");
    QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    const QStringList paths = QStringList() << pipe << "/dev/zero";
    for (const QString &path : paths) {
        QVERIFY(!readTextFile(path, &file, &error));
        QCOMPARE(error, QString("This is not a regular file"));
    }
#endif
}

void TestTextFile::filesOfTooManyLinesAreNotRead()
{
    const int most = 4000000;
    const QList<QByteArray> ends = QList<QByteArray>() << "\n"
                                                       << "\r"
                                                       << "\r\n";
    for (const QByteArray &end : ends) {
        ScratchDir dir;
        TextFile file;
        QString error;
        const QString path = dir.write("a.mel", end.repeated(most));
        QVERIFY2(readTextFile(path, &file, &error), qPrintable(error));
        dir.write("a.mel", end.repeated(most + 1));
        QVERIFY(!readTextFile(path, &file, &error));
        QCOMPARE(error, QString("The file has more than 4 million lines"));
    }
}

CORVANE_TEST_MAIN(TestTextFile)
#include "tst_textfile.moc"
