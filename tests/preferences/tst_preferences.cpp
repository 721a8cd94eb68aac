// SPDX-License-Identifier: MIT
#include "preferences/preferences.h"
#include "preferences/textformats.h"
#include "tests/support/testmain.h"

#include <QDir>
#include <QSettings>

namespace {

QString settingsPath()
{
    return QDir::tempPath() + QString::fromLatin1("/corvane-preferences-%1.ini")
                                  .arg(QCoreApplication::applicationPid());
}

void writeFile(const QByteArray &text)
{
    QFile file(settingsPath());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text);
}

void readBack()
{
    QSettings settings(settingsPath(), QSettings::IniFormat);
    readPreferences(settings);
}

} // namespace

class PreferencesTest : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QFile::remove(settingsPath()); }
    void missingFileGivesTheDefaults();
    void aFirstWriteHasEveryKey();
    void writtenValuesComeBack();
    void endOfLineMarksAlwaysStartOff();
    void damagedValuesTakeTheirDefaults_data();
    void damagedValuesTakeTheirDefaults();
    void emptyFontFamilyKeepsTheBuiltInOne();
    void theFontFamilyInUseIsWritten();
};

void PreferencesTest::missingFileGivesTheDefaults()
{
    preferences().tabSize = 2;
    preferences().saveOnExecute = false;
    readBack();
    QCOMPARE(preferences().tabSize, 4);
    QCOMPARE(preferences().outputWindowBufferSize, 5000);
    QCOMPARE(preferences().textFontSize, 9);
    QCOMPARE(preferences().saveOnExecute, true);
    QCOMPARE(preferences().defaultStateInitialized, false);
}

void PreferencesTest::aFirstWriteHasEveryKey()
{
    preferences() = Preferences();
    QSettings settings(settingsPath(), QSettings::IniFormat);
    writePreferences(settings);
    const QStringList keys = settings.allKeys();
    QCOMPARE(int(keys.size()), 5 + 1 + 37 + 1 + 11 + 4);
    for (const char *key :
         {"editor/suppressStackWindow", "outliner/sort", "preferences/outputWindowBufferSize",
          "preferences/pythonForcedImports", "project/projectDir", "tabsandspaces/pyAutoIndent",
          "fonts/outputFontSize"})
        QVERIFY2(keys.contains(QLatin1String(key)), key);
}

void PreferencesTest::writtenValuesComeBack()
{
    preferences() = Preferences();
    preferences().melTabSize = 3;
    preferences().lockTabs = true;
    preferences().pythonForcedImports = QString::fromUtf8("a.b;\xc3\xa4 \"c\";");
    {
        QSettings settings(settingsPath(), QSettings::IniFormat);
        writePreferences(settings);
    }
    preferences() = Preferences();
    readBack();
    QCOMPARE(preferences().melTabSize, 3);
    QCOMPARE(preferences().lockTabs, true);
    QCOMPARE(preferences().pythonForcedImports, QString::fromUtf8("a.b;\xc3\xa4 \"c\";"));
    QCOMPARE(preferences().pyTabSize, 4);
}

void PreferencesTest::endOfLineMarksAlwaysStartOff()
{
    writeFile("[editor]\nshowEndOfLine=true\nshowTabsAndSpaces=true\n");
    readBack();
    QCOMPARE(preferences().showEndOfLine, false);
    QCOMPARE(preferences().showTabsAndSpaces, true);
}

void PreferencesTest::damagedValuesTakeTheirDefaults_data()
{
    QTest::addColumn<QByteArray>("line");

    QTest::newRow("not-a-number") << QByteArray("tabSize=four");
    QTest::newRow("zero") << QByteArray("tabSize=0");
    QTest::newRow("huge") << QByteArray("tabSize=99999999999");
    QTest::newRow("list") << QByteArray("tabSize=1, 2");
    QTest::newRow("bytes") << QByteArray("tabSize=@ByteArray(\\0\\1)");
}

void PreferencesTest::damagedValuesTakeTheirDefaults()
{
    QFETCH(QByteArray, line);
    writeFile("[tabsandspaces]\nautoIndent=perhaps\n" + line + "\nmelTabSize=8\n");
    readBack();
    QCOMPARE(preferences().tabSize, 4);
    QCOMPARE(preferences().autoIndent, true);
    QCOMPARE(preferences().melTabSize, 8);
}

void PreferencesTest::emptyFontFamilyKeepsTheBuiltInOne()
{
    preferences() = Preferences();
    const QString builtIn = editorFont().family();
    QVERIFY(!builtIn.isEmpty());
    preferences().textFont = QLatin1String("Courier");
    preferences().textFontSize = 13;
    QCOMPARE(editorFont().family(), QString::fromLatin1("Courier"));
    QCOMPARE(editorFont().pointSize(), 13);
    QCOMPARE(outputFont().family(), builtIn);
}

void PreferencesTest::theFontFamilyInUseIsWritten()
{
    writeFile("[fonts]\ntextFont=\noutputFont=Courier\n");
    readBack();
    QSettings settings(settingsPath(), QSettings::IniFormat);
    writePreferences(settings);
    const QString written = settings.value(QLatin1String("fonts/textFont")).toString();
    QCOMPARE(written, editorFont().family());
    QCOMPARE(settings.value(QLatin1String("fonts/outputFont")).toString(),
             QString::fromLatin1("Courier"));
}

CORVANE_TEST_MAIN(PreferencesTest)
#include "tst_preferences.moc"
