// SPDX-License-Identifier: MIT
#include "tests/licensing/issuer.h"
#include "tests/support/datatable.h"
#include "tests/support/scratchdir.h"
#include "tests/support/testmain.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>

class TestLicenseFile : public QObject
{
    Q_OBJECT

private slots:
    void whatWasIssuedIsValid_data();
    void whatWasIssuedIsValid();
    void everyChangedCharacterIsNoticed();
    void brokenTextsAreNamed_data();
    void brokenTextsAreNamed();
    void licensesOfOthersAreRefused();
    void lastDayIsValid();
    void filesAreReadWithCare();
    void theToolSignsWhatTheProgramAccepts();
    void theToolKeepsSecretKeys();

private:
    Issuer m_issuer;
};

namespace {

const QDate today(2030, 6, 15);

LicenseAnswer check(const QByteArray &text, const QByteArray &key)
{
    return checkLicense(QString::fromUtf8(text), key, today);
}

} // namespace

void TestLicenseFile::whatWasIssuedIsValid_data()
{
    QTest::addColumn<QByteArray>("text");

    const QByteArray text = m_issuer.license("Ada L\xc3\xb6velace", QDate(2030, 12, 31));
    const QByteArray spaced = QByteArray(text).replace("\n", "  \n\n");
    row("as-it-is", text);
    row("windows-line-ends", QByteArray(text).replace("\n", "\r\n"));
    row("mark-and-blanks", "\xef\xbb\xbf\n " + spaced);
    row("broken-line", QByteArray(text).insert(text.size() - 30, '\n'));
    row("no-end-of-line", text.trimmed());
}

void TestLicenseFile::whatWasIssuedIsValid()
{
    QFETCH(QByteArray, text);
    const LicenseAnswer answer = check(text, m_issuer.publicKey());
    QCOMPARE(answer.problem, QString());
    QCOMPARE(answer.license.name, QString::fromUtf8("Ada L\xc3\xb6velace"));
    QCOMPARE(answer.license.contact, QString("ada@example.org"));
    QCOMPARE(answer.license.expires, QDate(2030, 12, 31));
}

// Nor is any part of the text enough.
void TestLicenseFile::everyChangedCharacterIsNoticed()
{
    const QByteArray text = m_issuer.license("Ada", QDate(2030, 12, 31)).trimmed();
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i) != '\n') {
            QByteArray changed = text;
            changed[i] = text.at(i) == 'x' ? 'y' : 'x';
            QVERIFY2(!check(changed, m_issuer.publicKey()).problem.isEmpty(), changed);
        }
        QVERIFY2(!check(text.left(i), m_issuer.publicKey()).problem.isEmpty(), text.left(i));
    }
}

void TestLicenseFile::brokenTextsAreNamed_data()
{
    columns<QByteArray, QString>("text", "problem");

    const QByteArray good = m_issuer.license("Ada");
    const QString foreign = "This is no license of Corvane Editor.";
    const QString damaged = "The license is incomplete or damaged.";
    const QString changed = "The license was changed, or was not issued for this program.";
    row("empty", QByteArray(), foreign);
    row("binary",
        QByteArray("\x7f"
                   "ELF\0\0\xff\xfe",
                   8),
        foreign);
    row("foreign", QByteArray("Other license\nName: Ada\n"), foreign);
    row("title-only", QByteArray("Corvane Editor license"), damaged);
    row("truncated", good.left(good.size() - 20), damaged);
    row("signature-is-none", good.left(good.indexOf("Sig")) + "Signature: ?", damaged);
    row("longer-signature", good.trimmed() + "AAAA", damaged);
    row("another-name", QByteArray(good).replace("Ada", "Bob"), changed);
    row("without-expiry", m_issuer.license("Ada", today).replace("2030", "never"), changed);
    row("key-of-others", Issuer().license("Ada"), changed);
}

void TestLicenseFile::brokenTextsAreNamed()
{
    QFETCH(QByteArray, text);
    const LicenseAnswer answer = check(text, m_issuer.publicKey());
    QTEST(answer.problem, "problem");
    QCOMPARE(answer.license.name, QString());
}

void TestLicenseFile::licensesOfOthersAreRefused()
{
    const QByteArray text = m_issuer.license("Ada");
    QCOMPARE(check(text, m_issuer.publicKey()).problem, QString());
    for (const QByteArray &key :
         {Issuer().publicKey(), QByteArray(), QByteArray(32, '\0'), m_issuer.publicKey().left(31)})
        QVERIFY(!check(text, key).problem.isEmpty());
}

void TestLicenseFile::lastDayIsValid()
{
    QCOMPARE(check(m_issuer.license("Ada", today), m_issuer.publicKey()).problem, QString());
    QCOMPARE(check(m_issuer.license("Ada", today.addDays(-1)), m_issuer.publicKey()).problem,
             QString("The license expired on 2030-06-14."));
}

void TestLicenseFile::filesAreReadWithCare()
{
    const ScratchDir dir;
    QString problem;
    QCOMPARE(readLicenseFile(dir.write("a", "Corvane\n"), &problem), QString("Corvane\n"));
    QCOMPARE(problem, QString());
    for (const QString &path :
         {dir.path(), dir.file("missing"), QString(), dir.write("huge", QByteArray(20000, 'x'))}) {
        problem.clear();
        QCOMPARE(readLicenseFile(path, &problem), QString());
        QVERIFY2(!problem.isEmpty(), qPrintable(path));
    }
    const QString unreadable = "/proc/self/mem"; // nothing is mapped at its start
    if (QFileInfo(unreadable).isFile()) {
        readLicenseFile(unreadable, &problem);
        QVERIFY2(problem.startsWith("The file cannot be read"), qPrintable(problem));
    }
}

static QByteArray toolOutput(const QStringList &arguments, int status = 0)
{
    QProcess tool;
    tool.start(LICENSE_TOOL, arguments);
    return tool.waitForFinished() && tool.exitCode() == status ? tool.readAllStandardOutput()
                                                               : QByteArray("failed");
}

void TestLicenseFile::theToolSignsWhatTheProgramAccepts()
{
    const ScratchDir dir;
    const QString key = dir.file("key");
    const QByteArray publicKey =
        QByteArray::fromBase64(toolOutput(QStringList() << "keys" << key).trimmed());
    const QStringList who = strings({"sign", key, "Ada", "Example Inc."});
    const LicenseAnswer answer = check(toolOutput(QStringList(who) << "2031-01-02"), publicKey);
    QCOMPARE(answer.problem, QString());
    QCOMPARE(answer.license.contact, QString("Example Inc."));
    QCOMPARE(answer.license.expires, QDate(2031, 1, 2));
    QCOMPARE(check(toolOutput(QStringList(who) << "never"), publicKey).problem, QString());
    for (const char *date : {"2031-02-30", "tomorrow", ""})
        QCOMPARE(toolOutput(QStringList(who) << date, 1), QByteArray());
    const QStringList twoLines = strings({"sign", key, "A\nB", "C", "never"});
    QCOMPARE(toolOutput(twoLines, 1), QByteArray());
}

void TestLicenseFile::theToolKeepsSecretKeys()
{
    const ScratchDir dir;
    const QString path = dir.file("key");
    toolOutput(QStringList() << "keys" << path);
    const QByteArray key = dir.read("key");
    const QFile::Permissions others = QFile::ReadGroup | QFile::ReadOther;
    QVERIFY((QFileInfo(path).permissions() & others) == 0);
    QCOMPARE(toolOutput(QStringList() << "keys" << path, 1), QByteArray());
    QCOMPARE(dir.read("key"), key);
}

CORVANE_TEST_MAIN(TestLicenseFile)
#include "tst_licensefile.moc"
