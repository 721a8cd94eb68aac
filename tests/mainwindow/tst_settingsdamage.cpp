// SPDX-License-Identifier: MIT
// Windows that read files which something has happened to. For more of them than the usual ones set
// CORVANE_MUTATIONS to their number.
#include "preferences/colorlist.h"
#include "preferences/preferences.h"
#include "preferences/textformats.h"
#include "tests/mainwindow/windowfixture.h"
#include "tests/support/testmain.h"

#include <QCryptographicHash>
#include <QDockWidget>
#include <QFile>
#include <QSettings>
#include <QStatusBar>

#include <random>

namespace {

const char *const fileNames[] = {"corvaneEditor.ini", "corvaneEditorColors.ini"};
const int usualMutations = 300;
const int writtenEvery = 8; // writing waits for the disk

typedef std::minstd_rand Random;

int below(Random &random, int limit)
{
    return int(random() % unsigned(limit));
}

QByteArray randomBytes(Random &random, int size)
{
    QByteArray bytes(size, '\0');
    for (char &byte : bytes)
        byte = char(below(random, 256));
    return bytes;
}

QByteArray checksum(const QByteArray &bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex();
}

QByteArray joined(const QList<QByteArray> &lines)
{
    QByteArray bytes;
    for (const QByteArray &line : lines)
        bytes += line + '\n';
    return bytes;
}

// What happens to a file; the bytes are never empty.

QByteArray flipBits(Random &random, QByteArray bytes)
{
    for (int i = 1 + below(random, 8); i > 0; --i) {
        const int at = below(random, int(bytes.size()));
        bytes[at] = char(bytes.at(at) ^ (1 << below(random, 8)));
    }
    return bytes;
}

QByteArray cut(Random &random, QByteArray bytes)
{
    bytes.truncate(below(random, int(bytes.size())));
    return bytes;
}

QByteArray loseTheMiddle(Random &random, QByteArray bytes)
{
    const int at = below(random, int(bytes.size()));
    return bytes.remove(at, below(random, int(bytes.size()) - at));
}

QByteArray insertNulls(Random &random, QByteArray bytes)
{
    return bytes.insert(below(random, int(bytes.size())), QByteArray(1 + below(random, 600), '\0'));
}

// Lines are changed behind their "=".
QByteArray swapValues(Random &random, QByteArray bytes)
{
    QList<QByteArray> lines = bytes.split('\n');
    for (int i = 0; i < 6; ++i) {
        QByteArray &a = lines[below(random, int(lines.size()))];
        QByteArray &b = lines[below(random, int(lines.size()))];
        const QByteArray valueOfA = a.mid(a.indexOf('=') + 1);
        const QByteArray valueOfB = b.mid(b.indexOf('=') + 1);
        a = a.left(a.indexOf('=') + 1) + valueOfB;
        b = b.left(b.indexOf('=') + 1) + valueOfA;
    }
    return joined(lines);
}

QByteArray oddValues(Random &random, QByteArray bytes)
{
    const char *const values[] = {"99999999999999999999",
                                  "-2147483648",
                                  "2147483647",
                                  "-1",
                                  "1e9",
                                  "@Invalid()",
                                  "@Size(0 0)",
                                  "\"\\xffff",
                                  "a, b, c",
                                  "@ByteArray(",
                                  "true",
                                  "\\",
                                  ",,,,",
                                  "@Rect(1 2 -3 99999999999)",
                                  "@Variant(\\0\\0\\0\\x46\\0\\xff)",
                                  "@Vari\\x61\xef\xbb\xbfnt(\\0\\0\\0\\x46\\0\\xff)"};
    QList<QByteArray> lines = bytes.split('\n');
    for (int i = 0; i < 8; ++i) {
        QByteArray &line = lines[below(random, int(lines.size()))];
        const int value = below(random, int(sizeof values / sizeof *values));
        line = line.left(line.indexOf('=') + 1) + values[value];
    }
    return joined(lines);
}

QByteArray garbage(Random &random, QByteArray bytes)
{
    return randomBytes(random, below(random, 2 * int(bytes.size())));
}

QByteArray markAsUtf8(Random &random, QByteArray bytes)
{
    return "\xef\xbb\xbf" + (below(random, 2) == 0 ? bytes : oddValues(random, bytes));
}

QByteArray (*const mutations[])(Random &, QByteArray) = {
    flipBits,   flipBits,  cut,       loseTheMiddle, insertNulls,
    swapValues, oddValues, oddValues, markAsUtf8,    garbage,
};
const int mutationCount = int(sizeof mutations / sizeof *mutations);

// Bytes that are none of Qt's, or only the beginning of them, half of them under a right checksum.
void plantBytes(Random &random, const QString &path)
{
    const char *const keys[] = {"windowGeometry", "windowState", "hiddenState", "outlineGeometry"};
    QSettings settings(path, QSettings::IniFormat);
    settings.beginGroup("mainwindow");
    settings.setValue("dockState", below(random, 128));
    settings.setValue("floatingDockState", below(random, 128));
    for (const char *name : keys) {
        const QString key = QString::fromLatin1(name);
        QByteArray bytes = settings.value(key).toByteArray();
        bytes.truncate(below(random, int(bytes.size()) + 1));
        if (below(random, 2) == 0)
            bytes = bytes.left(8) + randomBytes(random, below(random, 300));
        settings.setValue(key, bytes);
        if (below(random, 2) == 0)
            continue;
        settings.setValue(key + "Length", int(bytes.size()));
        settings.setValue(key + "Checksum", checksum(bytes));
    }
}

int mutationsWanted()
{
    const int wanted = qgetenv("CORVANE_MUTATIONS").toInt();
    return wanted > 0 ? wanted : usualMutations;
}

} // namespace

class SettingsDamageTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void everyDamagedFileLeavesAWindowToWorkIn();

private:
    void readDamagedFiles(int number);
    void damage(Random &random, const ScratchDir &dir) const;

    QByteArray m_whole[2]; // the files of a window with something to restore
};

void SettingsDamageTest::initTestCase()
{
    WindowFixture fixture;
    fixture.window.show();
    fixture.window.dock(Dock::Outline)->setFloating(true);
    fixture.window.tabifyDockWidget(fixture.window.dock(Dock::Documents),
                                    fixture.window.dock(Dock::Buffers));
    fixture.newBuffer(0, "print 1;");
    fixture.window.hide();
    fixture.window.writeSettings();
    for (int i = 0; i < 2; ++i)
        m_whole[i] = fixture.dir.read(fileNames[i]);
    QVERIFY(m_whole[0].contains("hiddenStateChecksum"));
    QVERIFY(m_whole[1].contains("format="));
}

void SettingsDamageTest::damage(Random &random, const ScratchDir &dir) const
{
    for (int i = 0; i < 2; ++i) {
        dir.write(fileNames[i], m_whole[i]);
        if (below(random, 3) == 0)
            plantBytes(random, dir.file(fileNames[i]));
        QByteArray bytes = dir.read(fileNames[i]);
        if (below(random, 4) != 0)
            bytes = mutations[below(random, mutationCount)](random, bytes);
        dir.write(fileNames[i], bytes);
    }
}

void SettingsDamageTest::readDamagedFiles(int number)
{
    Random random(unsigned(number) + 1);
    ScratchDir dir;
    damage(random, dir);
    Kestrowl window(dir.path(), dir.path());
    window.show();
    QApplication::processEvents();

    QVERIFY(window.central()->isVisible() || window.dock(Dock::Output)->isVisible());
    const QRect anyScreen(0, 0, 20000, 20000);
    QVERIFY(window.geometry().intersects(anyScreen));
    QVERIFY(window.width() < anyScreen.width() && window.height() < anyScreen.height());
    QCOMPARE(int(textFormatList().size()), textCount);
    QVERIFY(textFormat(EditorText::Plain).background.isValid());
    QVERIFY(preferences().tabSize > 0 && preferences().textFontSize > 0);

    if (number % writtenEvery != 0)
        return;
    window.writeSettings();
    const Kestrowl next(dir.path(), dir.path());
    // A path that was damaged is that of a file which may come back.
    const QString said = next.statusBar()->currentMessage();
    QVERIFY2(said.isEmpty() || said.contains(" cannot be opened again: "), qPrintable(said));
}

// The number of a file that fails is its seed: it fails alone, too.
void SettingsDamageTest::everyDamagedFileLeavesAWindowToWorkIn()
{
    for (int i = 0; i < mutationsWanted(); ++i) {
        readDamagedFiles(i);
        QVERIFY2(!QTest::currentTestFailed(), qPrintable(QString("file %1").arg(i)));
    }
}

CORVANE_TEST_MAIN(SettingsDamageTest)
#include "tst_settingsdamage.moc"
