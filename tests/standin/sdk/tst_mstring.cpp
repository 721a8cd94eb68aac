// SPDX-License-Identifier: MIT
#include "tests/support/datatable.h"
#include "tests/support/testmain.h"

#include <maya/MQtUtil.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>

#include <QString>

namespace {

QString text(const MString &string)
{
    return MQtUtil::toQString(string);
}

QString joined(const MStringArray &strings)
{
    QString all;
    for (unsigned int i = 0; i < strings.length(); ++i)
        all += text(strings[i]) + "|";
    return all;
}

} // namespace

class TestMString : public QObject
{
    Q_OBJECT

private slots:
    void bytesAndCharactersAreCountedApart();
    void wideTextSurvivesTheRoundTrip();
    void invalidBytesBecomeReplacementCharacters();
    void qtTextSurvivesTheRoundTrip();
    void numbersAppendAsPeopleWriteThem();
    void wholeNumbersAreRecognised_data();
    void wholeNumbersAreRecognised();
    void substringIncludesBothEnds_data();
    void substringIncludesBothEnds();
    void splitLeavesOutEmptyParts();
    void substituteReplacesWithTextThatHoldsTheOld();
    void formatFillsNumberedPlaces();
    void aStringMayBeSetFromItsOwnText();
};

void TestMString::bytesAndCharactersAreCountedApart()
{
    const MString string("a\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80"); // a, e acute, euro, emoji
    QCOMPARE(string.length(), 10u);
    QCOMPARE(string.numChars(), sizeof(wchar_t) == 4 ? 4u : 5u);
    QCOMPARE(string.index('a'), 0);
    QCOMPARE(string.indexW(L'\u20ac'), 2);
    QCOMPARE(text(string.substringW(1, 2)), QString::fromUtf8("\xc3\xa9\xe2\x82\xac"));
}

void TestMString::wideTextSurvivesTheRoundTrip()
{
    const MString string(
        "\xc2\x80\xdf\xbf\xe0\xa0\x80\xef\xbf\xbd\xf0\x90\x80\x80\xf4\x8f\xbf\xbf");
    QVERIFY(MString(string.asWChar()) == string);
    const wchar_t *first = string.asWChar();
    QVERIFY(first == string.asWChar()); // the pointer handed out stays valid
}

void TestMString::invalidBytesBecomeReplacementCharacters()
{
    // A lone continuation, an overlong slash, a surrogate, a cut off character.
    for (const char *bytes : {"\x80", "\xc0\xaf", "\xed\xa0\x80", "\xe2\x82"})
        QVERIFY2(MString(bytes).asWChar()[0] == L'\ufffd', bytes);
}

void TestMString::qtTextSurvivesTheRoundTrip()
{
    const QString original =
        QString::fromUtf8("line\n\xe2\x82\xac \xf0\x9f\x98\x80") + QChar(0x2029);
    QCOMPARE(text(MQtUtil::toMString(original)), original);
    const QString withNull = QString("a") + QChar(0) + "b";
    QCOMPARE(text(MQtUtil::toMString(withNull)), withNull);
}

void TestMString::numbersAppendAsPeopleWriteThem()
{
    QCOMPARE(text(MString("-state ") + 1), QString("-state 1"));
    QCOMPARE(text(MString("job ") + 123456789), QString("job 123456789"));
    QCOMPARE(text(MString("x ") + 0.5), QString("x 0.5"));
    MString fixed;
    fixed.set(2.0 / 3, 2);
    QCOMPARE(text(fixed), QString("0.67"));
}

void TestMString::wholeNumbersAreRecognised_data()
{
    columns<QString, bool, bool>("given", "isInt", "isDouble");
    row("whole", "-12", true, true);
    row("fraction", "1.5", false, true);
    row("too-large", "3000000000", false, true);
    row("trailing-letter", "12a", false, false);
    row("empty", "", false, false);
}

void TestMString::wholeNumbersAreRecognised()
{
    QFETCH(QString, given);
    QFETCH(bool, isInt);
    QFETCH(bool, isDouble);
    QCOMPARE(MQtUtil::toMString(given).isInt(), isInt);
    QCOMPARE(MQtUtil::toMString(given).isDouble(), isDouble);
}

void TestMString::substringIncludesBothEnds_data()
{
    columns<int, int, QString>("start", "end", "expected");
    row("middle", 1, 2, "bc");
    row("one-character", 3, 3, "d");
    row("beyond-the-end", 2, 99, "cd");
    row("before-the-start", -5, 0, "a");
    row("crossed", 3, 1, "");
}

void TestMString::substringIncludesBothEnds()
{
    QFETCH(int, start);
    QFETCH(int, end);
    QFETCH(QString, expected);
    QCOMPARE(text(MString("abcd").substring(start, end)), expected);
}

void TestMString::splitLeavesOutEmptyParts()
{
    MStringArray parts;
    MString("|MayaWindow||menu|").split('|', parts);
    QCOMPARE(joined(parts), QString("MayaWindow|menu|"));
    MString("").split('|', parts);
    QCOMPARE(parts.length(), 0u);
}

void TestMString::substituteReplacesWithTextThatHoldsTheOld()
{
    MString string("a-a");
    string.substitute("a", "aa");
    QCOMPARE(text(string), QString("aa-aa"));
    QVERIFY(string.substitute("", "x").error());
}

void TestMString::formatFillsNumberedPlaces()
{
    MString string;
    string.format("^2s ^1s ^3s ^s", "one", "two");
    QCOMPARE(text(string), QString("two one ^3s ^s"));
    string.format("^10s^9s^1s", "1", "2", "3", "4", "5", "6", "7", "8", "9", MString("ten"));
    QCOMPARE(text(string), QString("ten91"));
    string.format("^2s", MStringArray(2, "of a list"));
    QCOMPARE(text(string), QString("of a list"));
}

void TestMString::aStringMayBeSetFromItsOwnText()
{
    MString string("abcdef");
    string = string.asChar() + 2;
    QCOMPARE(text(string), QString("cdef"));
    string += string;
    QCOMPARE(text(string), QString("cdefcdef"));
}

CORVANE_TEST_MAIN(TestMString)
#include "tst_mstring.moc"
