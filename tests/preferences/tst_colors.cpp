// SPDX-License-Identifier: MIT
#include "preferences/colorlist.h"
#include "preferences/colorsets.h"
#include "preferences/textcolors.h"
#include "preferences/textformats.h"
#include "tests/support/testmain.h"

#include <QApplication>
#include <QImage>
#include <QPlainTextEdit>

#include <cmath>

namespace {

double linear(double channel)
{
    return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor &color)
{
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

// As the accessibility guidelines for the web define it: 1 for equal colours, 21 for black on
// white.
double contrast(const QColor &a, const QColor &b)
{
    const double darker = qMin(luminance(a), luminance(b));
    const double lighter = qMax(luminance(a), luminance(b));
    return (lighter + 0.05) / (darker + 0.05);
}

// What recedes on purpose.
bool isDim(EditorText category)
{
    return category == EditorText::HiddenWhitespace || category == EditorText::LineNumbers;
}

bool isDim(OutputText)
{
    return false;
}

template <class Category>
QByteArray unreadable(int categories, ColorSet set)
{
    const TextFormat plain = builtInFormat(Category::Plain, set);
    QByteArray names;
    for (int i = 0; i < categories; ++i) {
        const TextFormat format = builtInFormat(Category(i), set);
        const QColor text = format.foreground.isValid() ? format.foreground : plain.foreground;
        const QColor ground = format.background.isValid() ? format.background : plain.background;
        if (contrast(text, ground) < (isDim(Category(i)) ? 3.0 : 4.5))
            names += QByteArray(textName(Category(i))) + "; ";
    }
    return names;
}

const int count = editorTextCount + outputTextCount;
const int outputErrors = editorTextCount + int(OutputText::Errors);

} // namespace

Q_DECLARE_METATYPE(ColorSet)

class ColorsTest : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { useColorSet(ColorSet::Dark); }
    void categoriesKeepTheirIndexAndName();
    void everySetIsReadable_data();
    void everySetIsReadable();
    void aWrittenListComesBack();
    void aColorSetReplacesWhatWasChosen();
    void damagedEntriesAreLeftOut_data();
    void damagedEntriesAreLeftOut();
    void shortListsAreFilledUp();
    void longListsAreCut();
    void versionsDecideWhatIsRead();
    void theGroundChangesUnderAStyleSheet();
};

void ColorsTest::categoriesKeepTheirIndexAndName()
{
    // Stored lists are read by index, so the order may never change.
    QCOMPARE(editorTextCount, 20);
    QCOMPARE(textName(EditorText(5)), "Hidden Whitespaces");
    QCOMPARE(textName(EditorText(13)), "Python Keywords");
    QCOMPARE(textName(EditorText(19)), "Python MEL Commands");
    QCOMPARE(outputTextCount, 6);
    QCOMPARE(textName(OutputText(3)), "Errors");
}

void ColorsTest::everySetIsReadable_data()
{
    QTest::addColumn<ColorSet>("set");
    QTest::newRow("dark") << ColorSet::Dark;
    QTest::newRow("light") << ColorSet::Light;
}

void ColorsTest::everySetIsReadable()
{
    QFETCH(ColorSet, set);
    QCOMPARE(unreadable<EditorText>(editorTextCount, set), QByteArray());
    QCOMPARE(unreadable<OutputText>(outputTextCount, set), QByteArray());
    const QColor currentLine = builtInFormat(EditorText::CurrentLine, set).background;
    for (int i = int(EditorText::MelKeywords); i < editorTextCount; ++i)
        QVERIFY2(contrast(builtInFormat(EditorText(i), set).foreground, currentLine) >= 4.5,
                 textName(EditorText(i)));
}

void ColorsTest::aWrittenListComesBack()
{
    useColorSet(ColorSet::Light);
    textFormat(EditorText::MelStrings) = {QColor("#010203"), QColor(), true, true};
    textFormat(EditorText::CurrentLine) = {QColor(), QColor(), false, false};
    textFormat(OutputText::Results) = {QColor("#fffefd"), QColor("#102030"), false, true};
    const QStringList list = textFormatList();
    QCOMPARE(int(list.size()), count);
    QCOMPARE(list.at(int(EditorText::MelStrings)), QString("#010203 - bold italic"));
    useColorSet(ColorSet::Dark);
    readTextFormatList(list, textFormatListVersion);
    QCOMPARE(textFormatList(), list);
    QVERIFY(!textFormat(EditorText::CurrentLine).background.isValid());
    QVERIFY(textFormat(OutputText::Results).italic);
}

void ColorsTest::aColorSetReplacesWhatWasChosen()
{
    const QStringList dark = textFormatList();
    textFormat(OutputText::Errors).foreground = Qt::green;
    useColorSet(ColorSet::Light);
    QVERIFY(textFormat(OutputText::Errors) == builtInFormat(OutputText::Errors, ColorSet::Light));
    useColorSet(ColorSet::Dark);
    QCOMPARE(textFormatList(), dark);
}

void ColorsTest::damagedEntriesAreLeftOut_data()
{
    QTest::addColumn<QString>("entry");

    QTest::newRow("empty") << "";
    QTest::newRow("one-color") << "#102030";
    QTest::newRow("color-name") << "red #000000";
    QTest::newRow("short-color") << "#fff #000000";
    QTest::newRow("not-hexadecimal") << "#10203g #000000";
    QTest::newRow("unknown-word") << "#102030 - underlined";
    QTest::newRow("word-twice") << "#102030 - bold bold";
    QTest::newRow("two-blanks") << "#102030  - bold";
    QTest::newRow("null") << "#102030 -" + QString(QChar(0));
}

void ColorsTest::damagedEntriesAreLeftOut()
{
    QFETCH(QString, entry);
    QStringList list = textFormatList();
    const QString builtIn = list.at(outputErrors);
    list[outputErrors] = entry;
    list[outputErrors + 1] = "#aabbcc #001122";
    // The plain text must have a ground of its own.
    list[0] = "#aabbcc -";
    readTextFormatList(list, textFormatListVersion);
    QCOMPARE(textFormatList().at(outputErrors), builtIn);
    QCOMPARE(textFormatList().at(outputErrors + 1), QString("#aabbcc #001122"));
    QVERIFY(textFormat(EditorText::Plain) == builtInFormat(EditorText::Plain, ColorSet::Dark));
}

void ColorsTest::shortListsAreFilledUp()
{
    useColorSet(ColorSet::Light);
    const QStringList light = textFormatList();
    useColorSet(ColorSet::Dark);
    const QStringList dark = textFormatList();
    readTextFormatList(QStringList() << "#aabbcc #000000", textFormatListVersion);
    QCOMPARE(textFormatList().mid(1), dark.mid(1));
    QCOMPARE(textFormatList().at(0), QString("#aabbcc #000000"));
    readTextFormatList(light.mid(0, 3), textFormatListVersion);
    QCOMPARE(textFormatList(), light);
}

void ColorsTest::longListsAreCut()
{
    const QStringList dark = textFormatList();
    QStringList list = dark;
    for (int i = 0; i < 1000; ++i)
        list << "#ffffff #ffffff";
    readTextFormatList(list, textFormatListVersion);
    QCOMPARE(textFormatList(), dark);
}

void ColorsTest::versionsDecideWhatIsRead()
{
    QStringList list = textFormatList();
    list[outputErrors] = "#aabbcc -";
    readTextFormatList(list, 0);
    QCOMPARE(textFormatList(), list);
    // Later versions have more categories of the editor, and words of their own.
    QStringList later = list;
    later.insert(editorTextCount, "#112233 -");
    later[1] = "#445566 #778899 underlined";
    useColorSet(ColorSet::Light);
    readTextFormatList(later, textFormatListVersion + 1);
    QCOMPARE(textFormatList(), list);
}

// As Maya has one.
void ColorsTest::theGroundChangesUnderAStyleSheet()
{
    qApp->setStyleSheet(QLatin1String("QMenuBar { padding: 1px; }"));
    QPlainTextEdit edit;
    edit.show();
    for (ColorSet set : {ColorSet::Dark, ColorSet::Light}) {
        const TextFormat plain = builtInFormat(EditorText::Plain, set);
        setTextColors(&edit, plain, builtInFormat(EditorText::Selected, set));
        QImage picture(edit.size(), QImage::Format_RGB32);
        edit.render(&picture);
        QCOMPARE(QColor(picture.pixel(edit.rect().center())).name(), plain.background.name());
    }
    qApp->setStyleSheet(QString());
}

CORVANE_TEST_MAIN(ColorsTest)
#include "tst_colors.moc"
