// SPDX-License-Identifier: MIT
#include "resources/resources.h"
#include "tests/support/testmain.h"

#include <QDir>
#include <QImage>
#include <QObject>

namespace {

const char iconFolder[] = ":/icons";

QString pathOf(const QString &name, const QString &suffix = QString())
{
    return QString(iconFolder) + "/" + name + suffix + ".png";
}

int visiblePixels(const QImage &image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += qAlpha(image.pixel(x, y)) > 127;
    return count;
}

// The names of the icons of single size, without their suffix.
QStringList iconNames()
{
    QStringList names;
    const QStringList files = QDir(iconFolder).entryList(QStringList() << "*.png");
    for (const QString &file : files)
        if (!file.contains("@2x"))
            names << file.left(file.size() - 4);
    return names;
}

} // namespace

class TestIcons : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void everyIconHasASharpTwin_data();
    void everyIconHasASharpTwin();
    void noTwinStandsAlone();
    void switchedOffLooksDifferent_data();
    void switchedOffLooksDifferent();
};

void TestIcons::initTestCase()
{
    initResources();
    QVERIFY(!iconNames().isEmpty());
}

void TestIcons::everyIconHasASharpTwin_data()
{
    QTest::addColumn<QString>("name");
    const QStringList names = iconNames();
    for (const QString &name : names)
        QTest::newRow(name.toUtf8().constData()) << name;
}

void TestIcons::everyIconHasASharpTwin()
{
    QFETCH(QString, name);
    const QImage single(pathOf(name));
    const QImage twin(pathOf(name, "@2x"));
    QVERIFY(!single.isNull());
    QCOMPARE(twin.size(), single.size() * 2);
    // A stroke icon covers a good part of its square; a picture that failed to render, nothing.
    QVERIFY(visiblePixels(single) * 20 > single.width() * single.height());
    QVERIFY(visiblePixels(twin) * 20 > twin.width() * twin.height());
}

void TestIcons::noTwinStandsAlone()
{
    const int files = QDir(iconFolder).entryList(QStringList() << "*.png").size();
    QCOMPARE(files, iconNames().size() * 2);
}

void TestIcons::switchedOffLooksDifferent_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("echo") << "echoCommands";
    QTest::newRow("tabs-and-spaces") << "showTabsAndSpaces";
}

void TestIcons::switchedOffLooksDifferent()
{
    QFETCH(QString, name);
    const QImage on(pathOf(name));
    const QImage off(pathOf(name + "Off"));
    QVERIFY(!on.isNull() && !off.isNull());
    QVERIFY(on != off);
}

CORVANE_TEST_MAIN(TestIcons)
#include "tst_icons.moc"
