// SPDX-License-Identifier: MIT
#include "preferences/modulenames.h"
#include "preferences/preferencerows.h"
#include "tests/preferences/othervalue.h"
#include "tests/support/datatable.h"
#include "tests/support/testmain.h"

namespace {

QList<const PreferenceRow *> allRows()
{
    QList<const PreferenceRow *> rows;
    for (int page = 0; page < preferencePageCount; ++page)
        rows << rowsOf(PreferencePage(page));
    return rows;
}

} // namespace

class PreferenceRowsTest : public QObject
{
    Q_OBJECT

private slots:
    void everyPreferenceOfTheUserHasOneRow();
    void rowsReachTheirPreferenceAndNoOther();
    void sectionsBesideEachOtherComeInPairs();
    void copyingAPageLeavesTheOthers();
    void moduleNames_data();
    void moduleNames();
};

void PreferenceRowsTest::everyPreferenceOfTheUserHasOneRow()
{
    // The menus switch these, and the outline its own order; the last is internal.
    QStringList keys = words("showTabsAndSpaces showEndOfLine wordWrapEnabled suppressStackWindow "
                             "sort defaultStateInitialized");
    for (const PreferenceRow *row : allRows())
        keys << row->key;
    QStringList listed;
#define PREFERENCE(group, key, type, byDefault) listed << #key;
#include "preferences/preferencelist.inc"
#undef PREFERENCE
    keys.sort();
    listed.sort();
    QCOMPARE(keys, listed);
}

void PreferenceRowsTest::rowsReachTheirPreferenceAndNoOther()
{
    const Preferences before;
    for (const PreferenceRow *row : allRows()) {
        Preferences after;
        setValue(*row, after, otherValue(*row, valueOf(*row, before)));
        QVERIFY2(differInRows(before, after), row->key);
        for (const PreferenceRow *other : allRows()) {
            const bool isSame = valueOf(*other, after) == valueOf(*other, before);
            QVERIFY2(isSame == (other != row), row->key);
        }
    }
}

void PreferenceRowsTest::sectionsBesideEachOtherComeInPairs()
{
    for (int page = 0; page < preferencePageCount; ++page) {
        bool isLeft = false;
        for (const PreferenceSection *section : sectionsOf(PreferencePage(page))) {
            QVERIFY2((section->place == SectionPlace::Right) == isLeft, section->title);
            isLeft = section->place == SectionPlace::Left;
        }
        QVERIFY2(!isLeft, pageName(PreferencePage(page)));
    }
}

void PreferenceRowsTest::copyingAPageLeavesTheOthers()
{
    Preferences from;
    from.toolbar = false;
    from.tabSize = 2;
    from.showTabsAndSpaces = true;
    Preferences to;
    copyPage(PreferencePage::Editing, from, to);
    QCOMPARE(to.tabSize, 2);
    QCOMPARE(to.toolbar, true);
    QCOMPARE(to.showTabsAndSpaces, false);
}

void PreferenceRowsTest::moduleNames_data()
{
    columns<QString, QString, QString>("list", "good", "bad");

    row("empty", "", "", "");
    row("blanks-around", " os ;; maya.cmds; ", "os,maya.cmds", "");
    row("digit-first", "a1;1a;a.1b", "a1", "1a,a.1b");
    row("lost-dots", ".a;a.;a..b;.", "", ".a,a.,a..b,.");
    row("comma-list", "os, sys;_x", "_x", "os, sys");
    QTest::newRow("letters-of-any-script") << QString::fromUtf8("\xc3\xa4rger") //
                                           << QString::fromUtf8("\xc3\xa4rger") << "";
}

void PreferenceRowsTest::moduleNames()
{
    QFETCH(QString, list);
    QStringList good;
    QStringList bad;
    for (const QString &name : ::moduleNames(list))
        (isModuleName(name) ? good : bad) << name;
    QTEST(good.join(QLatin1String(",")), "good");
    QTEST(bad.join(QLatin1String(",")), "bad");
}

CORVANE_TEST_MAIN(PreferenceRowsTest)
#include "tst_preferencerows.moc"
