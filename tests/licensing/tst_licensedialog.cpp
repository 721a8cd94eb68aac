// SPDX-License-Identifier: MIT
#include "licensing/license.h"
#include "licensing/licensedialog.h"
#include "tests/licensing/issuer.h"
#include "tests/support/modalanswer.h"
#include "tests/support/scratchdir.h"
#include "tests/support/testmain.h"

#include <QLabel>
#include <QSignalSpy>

#include <climits>

class TestLicenseDialog : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void aLicenseLiftsTheLimits();
    void whatIsWrongChangesNothing();
    void storedLicensesAreCheckedAgain();

private:
    Issuer m_issuer;
};

static QString text(const LicenseDialog &dialog, const char *label)
{
    return dialog.findChild<QLabel *>(label)->text();
}

void TestLicenseDialog::init()
{
    setLicenseKey(m_issuer.publicKey());
    restoreLicense(QString());
    QVERIFY(isDemo() && !savingAllowed() && tabLimit() == 4 && !currentLicense());
}

void TestLicenseDialog::aLicenseLiftsTheLimits()
{
    const ScratchDir dir;
    LicenseDialog dialog;
    QSignalSpy changed(&dialog, SIGNAL(licenseChanged(QString)));
    QVERIFY(text(dialog, "state").startsWith("This is a demo"));
    const QByteArray license = m_issuer.license("Ada <b>", QDate::currentDate());
    ModalAnswer file("Open");
    file.enter(dir.write("license.txt", license));
    dialog.chooseFile();
    QVERIFY(file.wasAsked());
    QCOMPARE(text(dialog, "problem"), QString());
    QVERIFY2(text(dialog, "state").startsWith("Licensed to Ada <b> (ada@example.org)."),
             qPrintable(text(dialog, "state")));
    QVERIFY(!isDemo() && savingAllowed() && tabLimit() == INT_MAX);
    QCOMPARE(changed.value(0).value(0).toString().toUtf8(), license);
}

void TestLicenseDialog::whatIsWrongChangesNothing()
{
    const ScratchDir dir;
    LicenseDialog dialog;
    QSignalSpy changed(&dialog, SIGNAL(licenseChanged(QString)));
    dialog.useFile(dir.write("good", m_issuer.license("Ada")));
    for (const QByteArray &bad :
         {m_issuer.license("Bob", QDate::currentDate().addDays(-1)), Issuer().license("Eve"),
          QByteArray("\0\1\2", 3), m_issuer.license("Ada").left(60)}) {
        dialog.useFile(dir.write("bad", bad));
        QVERIFY(text(dialog, "problem").contains("bad: "));
        QCOMPARE(currentLicense()->name, QString("Ada"));
    }
    QCOMPARE(int(changed.size()), 1);
    dialog.useFile(dir.file("good"));
    QCOMPARE(text(dialog, "problem"), QString());
}

void TestLicenseDialog::storedLicensesAreCheckedAgain()
{
    const QString good = QString::fromUtf8(m_issuer.license("Ada"));
    QCOMPARE(restoreLicense(good), QString());
    QVERIFY(!isDemo());
    setLicenseKey(Issuer().publicKey());
    QVERIFY(restoreLicense(good).startsWith("The license was changed"));
    QVERIFY(isDemo());
}

CORVANE_TEST_MAIN(TestLicenseDialog)
#include "tst_licensedialog.moc"
