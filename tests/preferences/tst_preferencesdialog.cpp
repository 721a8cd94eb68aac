// SPDX-License-Identifier: MIT
#include "compat/fonts.h"
#include "compat/screen.h"
#include "preferences/categorylist.h"
#include "preferences/colorbutton.h"
#include "preferences/colorsets.h"
#include "preferences/formatpreview.h"
#include "preferences/preferenceform.h"
#include "preferences/preferencesdialog.h"
#include "tests/preferences/othervalue.h"
#include "tests/support/datatable.h"
#include "tests/support/modalanswer.h"
#include "tests/support/testmain.h"
#include "tests/support/wheel.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMetaProperty>
#include <QPushButton>
#include <QScrollArea>
#include <QSignalSpy>
#include <QSpinBox>

namespace {

const QDialogButtonBox::StandardButton okButton = QDialogButtonBox::Ok;
const QDialogButtonBox::StandardButton applyButton = QDialogButtonBox::Apply;

struct Fixture
{
    PreferencesDialog dialog;
    QSignalSpy applied;

    Fixture() : applied(&dialog, SIGNAL(applied())) { dialog.show(); }

    template <class Widget>
    Widget *find(const char *name) const
    {
        return dialog.findChild<Widget *>(QLatin1String(name));
    }
    QVariant shown(const char *key) const
    {
        const QWidget *control = find<QWidget>(key);
        return control->metaObject()->userProperty().read(control);
    }
    // As the user does it: the control tells of the change.
    void set(const char *key, const QVariant &value)
    {
        QWidget *control = find<QWidget>(key);
        control->metaObject()->userProperty().write(control, value);
    }
    QPushButton *button(QDialogButtonBox::StandardButton which) const
    {
        return dialog.findChild<QDialogButtonBox *>()->button(which);
    }
    void showPage(PreferencePage page)
    {
        pages()->setCurrentRow(int(page));
        QApplication::processEvents(); // its layout too
    }
    PreferenceForm *form(PreferencePage page) const
    {
        QWidget *part = find<QWidget>(rowsOf(page).first()->key);
        while (!qobject_cast<PreferenceForm *>(part))
            part = part->parentWidget();
        return static_cast<PreferenceForm *>(part);
    }
    QListWidget *pages() const
    {
        for (QListWidget *list : dialog.findChildren<QListWidget *>()) {
            if (!qobject_cast<CategoryList *>(list))
                return list;
        }
        return nullptr;
    }
    void chooseCategory(int textIndex)
    {
        const QString name = QLatin1String(textName(textIndex));
        // The output's categories stand behind those of the editor, some under the same name.
        const QList<QListWidgetItem *> items =
            dialog.findChild<CategoryList *>()->findItems(name, Qt::MatchExactly);
        items.first()->listWidget()->setCurrentItem(textIndex < editorTextCount ? items.first()
                                                                                : items.last());
    }
};

// What Tab stops at, in its order, beginning with the list of pages.
QList<QWidget *> focusOrder(const Fixture &fixture)
{
    QList<QWidget *> widgets;
    QWidget *widget = fixture.pages();
    do {
        if (widget->isVisible() && widget->focusPolicy() & Qt::TabFocus && !widget->focusProxy())
            widgets << widget;
        widget = widget->nextInFocusChain();
    } while (widget != fixture.pages());
    return widgets;
}

QString textOf(const QWidget *widget)
{
    if (const QAbstractButton *button = qobject_cast<const QAbstractButton *>(widget))
        return button->text();
    if (const QLabel *label = qobject_cast<const QLabel *>(widget))
        return label->buddy() ? label->text() : QString();
    return QString();
}

} // namespace

class PreferencesDialogTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void everyControlShowsAndAppliesItsValue();
    void applyTellsOnlyOfChanges();
    void cancelGivesUpWhatWasNotApplied();
    void keysAcceptAndCancel();
    void restoredDefaultsWaitToBeApplied();
    void controlsWithoutEffectAreDisabled_data();
    void controlsWithoutEffectAreDisabled();
    void namesThatCannotBeImportedKeepTheDialogOpen();
    void onlyFoldersAreTaken_data();
    void onlyFoldersAreTaken();
    void theWheelTurnsOnlyWhatHasTheFocus();
    void theBuiltInFamilyIsInstalledAndOfFixedPitch();
    void headingsAreAsReadableAsTheirList();
    void aFamilyThatIsNotInstalledIsKept();
    void formatsAreEditedByCategory();
    void aColorIsChosenInADialog();
    void plainTextKeepsItsColors();
    void theSampleFollowsFontAndColors();
    void theLastPageIsShownAgain();
    void tabFollowsTheVisualOrder();
    void mnemonicsAreUniqueAndLeadSomewhere();
    void pagesFitASmallScreenWithoutScrolling();
    void noPageIsTooWideForItsScreen();
};

void PreferencesDialogTest::init()
{
    preferences() = Preferences();
    useColorSet(ColorSet::Dark);
}

void PreferencesDialogTest::everyControlShowsAndAppliesItsValue()
{
    Fixture fixture;
    for (int page = 0; page < preferencePageCount; ++page) {
        for (const PreferenceRow *row : rowsOf(PreferencePage(page))) {
            const QVariant before = valueOf(*row, preferences());
            const QVariant after = otherValue(*row, before);
            QVERIFY2(fixture.shown(row->key) == before, row->key);
            fixture.set(row->key, after);
            QVERIFY2(valueOf(*row, preferences()) == before, row->key);
            fixture.button(applyButton)->click();
            QVERIFY2(valueOf(*row, preferences()) == after, row->key);
            QVERIFY2(fixture.shown(row->key) == after, row->key);
        }
    }
}

void PreferencesDialogTest::applyTellsOnlyOfChanges()
{
    Fixture fixture;
    QVERIFY(!fixture.button(applyButton)->isEnabled());
    fixture.set("tabSize", 2);
    QVERIFY(fixture.button(applyButton)->isEnabled());
    fixture.set("tabSize", 4);
    QVERIFY(!fixture.button(applyButton)->isEnabled());
    fixture.set("tabSize", 3);
    fixture.button(applyButton)->click();
    QVERIFY(!fixture.button(applyButton)->isEnabled());
    QVERIFY(fixture.dialog.isVisible());
    fixture.button(okButton)->click();
    QVERIFY(!fixture.dialog.isVisible());
    QCOMPARE(int(fixture.applied.count()), 1);
}

void PreferencesDialogTest::cancelGivesUpWhatWasNotApplied()
{
    Fixture fixture;
    fixture.set("tabSize", 3);
    fixture.button(applyButton)->click();
    // What menus switch meanwhile is none of the dialog's business.
    preferences().wordWrapEnabled = true;
    fixture.set("tabSize", 7);
    fixture.set("lockTabs", true);
    fixture.button(QDialogButtonBox::Cancel)->click();
    QVERIFY(!fixture.dialog.isVisible());
    QCOMPARE(preferences().tabSize, 3);
    QCOMPARE(preferences().lockTabs, false);
    QCOMPARE(preferences().wordWrapEnabled, true);
}

void PreferencesDialogTest::keysAcceptAndCancel()
{
    Fixture cancelled;
    cancelled.set("tabSize", 7);
    QTest::keyClick(cancelled.find<QWidget>("tabSize"), Qt::Key_Escape);
    QVERIFY(!cancelled.dialog.isVisible());
    QCOMPARE(preferences().tabSize, 4);

    Fixture accepted;
    accepted.set("tabSize", 7);
    preferences().wordWrapEnabled = true;
    QTest::keyClick(accepted.find<QWidget>("tabSize"), Qt::Key_Return);
    QVERIFY(!accepted.dialog.isVisible());
    QCOMPARE(preferences().tabSize, 7);
    QCOMPARE(preferences().wordWrapEnabled, true);
}

void PreferencesDialogTest::restoredDefaultsWaitToBeApplied()
{
    preferences().tabSize = 2;
    preferences().lockTabs = true;
    useColorSet(ColorSet::Light);
    Fixture fixture;
    fixture.showPage(PreferencePage::Editing);
    fixture.dialog.restorePage();
    QCOMPARE(fixture.shown("tabSize").toInt(), 4);
    QCOMPARE(fixture.shown("lockTabs").toBool(), true);
    QCOMPARE(preferences().tabSize, 2);
    fixture.dialog.restoreAll();
    fixture.button(okButton)->click();
    QCOMPARE(preferences().tabSize, 4);
    QCOMPARE(preferences().lockTabs, false);
    QVERIFY(textFormats() == builtInFormats(ColorSet::Dark));
}

void PreferencesDialogTest::controlsWithoutEffectAreDisabled_data()
{
    QTest::addColumn<QString>("off"); // switches that are turned, by their keys
    columns<QString, bool>("control", "isEnabled");

    row("mel-follows-general", "", "melTabSize", false);
    row("mel-has-its-own", "melUseDefaults", "melTabSize", true);
    row("python-follows-general", "melUseDefaults", "pyAutoIndent", false);
    row("python-has-its-own", "pyUseDefaults", "pyAutoIndent", true);
    row("smart-with-general-auto-indent", "", "melSmartIndent", true);
    row("smart-without-general-auto-indent", "autoIndent", "melSmartIndent", false);
    row("smart-with-own-auto-indent", "autoIndent melUseDefaults", "melSmartIndent", true);
    row("smart-without-own-auto-indent", "pyUseDefaults pyAutoIndent", "pythonSmartIndent", false);
    row("no-tab-bars-to-lock", "tabBar", "lockTabs", false);
}

void PreferencesDialogTest::controlsWithoutEffectAreDisabled()
{
    QFETCH(QString, off);
    QFETCH(QString, control);

    Fixture fixture;
    for (const QString &key : words(off.toLatin1()))
        fixture.set(key.toLatin1(), false);
    QTEST(fixture.find<QWidget>(control.toLatin1())->isEnabled(), "isEnabled");
}

void PreferencesDialogTest::namesThatCannotBeImportedKeepTheDialogOpen()
{
    Fixture fixture;
    fixture.set("pythonForcedImports", "os; 1st; a b");
    fixture.button(okButton)->click();
    QVERIFY(fixture.dialog.isVisible());
    QCOMPARE(fixture.pages()->currentRow(), int(PreferencePage::Completion));
    QCOMPARE(int(fixture.applied.count()), 0);
    const QWidget *edit = fixture.find<QWidget>("pythonForcedImports");
    const QLabel *complaint = edit->findChild<QLabel *>();
    QVERIFY(complaint->isVisible());
    QVERIFY2(complaint->text().endsWith(QLatin1String("1st; a b")), qPrintable(complaint->text()));

    fixture.set("pythonForcedImports", "os");
    QVERIFY(!complaint->isVisible());
    fixture.button(okButton)->click();
    QVERIFY(!fixture.dialog.isVisible());
    QCOMPARE(preferences().pythonForcedImports, QString::fromLatin1("os"));
}

void PreferencesDialogTest::onlyFoldersAreTaken_data()
{
    columns<QString, bool>("typed", "isTaken");

    row("empty", "", true);
    row("folder", QDir::tempPath(), true);
    row("relative", ".", false);
    row("missing", "/no/such/dir", false);
    row("file", QCoreApplication::applicationFilePath(), false);
}

void PreferencesDialogTest::onlyFoldersAreTaken()
{
    QFETCH(QString, typed);
    QFETCH(bool, isTaken);
    preferences().projectDir = QLatin1String("/gone since"); // which is nothing to complain about
    Fixture fixture;
    QWidget *edit = fixture.find<QWidget>("projectDir");
    fixture.set("tabSize", 3);
    fixture.button(applyButton)->click();
    QCOMPARE(int(fixture.applied.count()), 1);

    QLineEdit *line = edit->findChild<QLineEdit *>();
    line->selectAll();
    QTest::keyClick(line, Qt::Key_Delete);
    QTest::keyClicks(line, typed);
    fixture.button(okButton)->click();
    QCOMPARE(fixture.dialog.isVisible(), !isTaken);
    QCOMPARE(preferences().projectDir, isTaken ? typed : QString::fromLatin1("/gone since"));
    QCOMPARE(edit->findChild<QLabel *>()->isHidden(), isTaken);
}

void PreferencesDialogTest::theWheelTurnsOnlyWhatHasTheFocus()
{
    Fixture fixture;
    for (const char *key : {"textFontSize", "textFont"}) {
        QWidget *control = fixture.find<QWidget>(key);
        fixture.showPage(PreferencePage::Colors);
        fixture.dialog.activateWindow();
        fixture.pages()->setFocus();
        const QVariant before = fixture.shown(key);
        turnWheel(control);
        QCOMPARE(fixture.shown(key), before);
        control->setFocus();
        QVERIFY(control->hasFocus());
        turnWheel(control);
        QVERIFY2(fixture.shown(key) != before, key);
    }
}

void PreferencesDialogTest::theBuiltInFamilyIsInstalledAndOfFixedPitch()
{
    QVERIFY2(compat::isFixedPitch(builtInFontFamily()), qPrintable(builtInFontFamily()));
    const Fixture fixture;
    QCOMPARE(fixture.find<QComboBox>("textFont")->currentText(), builtInFontFamily());
}

void PreferencesDialogTest::headingsAreAsReadableAsTheirList()
{
    const QPalette usual = QApplication::palette();
    QPalette faint = usual;
    faint.setColor(QPalette::Disabled, QPalette::Text, faint.color(QPalette::Base));
    QApplication::setPalette(faint);
    CategoryList list;
    list.resize(200, 100);
    list.show();
    QImage picture(list.viewport()->size(), QImage::Format_RGB32);
    list.viewport()->render(&picture);
    QApplication::setPalette(usual);
    const QRect heading = list.visualItemRect(list.item(0)).intersected(picture.rect());
    int darkest = 255;
    for (int x = heading.left(); x < heading.right(); ++x) {
        for (int y = heading.top(); y < heading.bottom(); ++y)
            darkest = qMin(darkest, qGray(picture.pixel(x, y)));
    }
    QVERIFY2(darkest < 100, qPrintable(QString::number(darkest)));
}

void PreferencesDialogTest::aFamilyThatIsNotInstalledIsKept()
{
    preferences().textFont = QLatin1String("No Such Family");
    Fixture fixture;
    QComboBox *families = fixture.find<QComboBox>("textFont");
    QCOMPARE(families->currentText(), QString::fromLatin1("No Such Family (not installed)"));
    fixture.set("textFontSize", 12);
    fixture.button(applyButton)->click();
    QCOMPARE(preferences().textFont, QString::fromLatin1("No Such Family"));

    families->setCurrentIndex(1); // an installed one
    fixture.button(okButton)->click();
    QCOMPARE(preferences().textFont, families->currentText());
}

void PreferencesDialogTest::formatsAreEditedByCategory()
{
    Fixture fixture;
    fixture.chooseCategory(textIndex(OutputText::Errors));
    fixture.find<QCheckBox>("bold")->click();
    fixture.chooseCategory(textIndex(EditorText::MelKeywords));
    QVERIFY(fixture.find<QCheckBox>("bold")->isChecked());
    fixture.find<QCheckBox>("foreground")->click();
    QVERIFY(!fixture.find<QWidget>("foregroundColor")->isEnabled());
    fixture.find<QCheckBox>("italic")->click();
    QVERIFY(!textFormat(EditorText::MelKeywords).italic);
    fixture.button(okButton)->click();

    TextFormats expected = builtInFormats(ColorSet::Dark);
    expected[OutputText::Errors].bold = true;
    expected[EditorText::MelKeywords].italic = true;
    expected[EditorText::MelKeywords].foreground = QColor();
    QVERIFY(textFormats() == expected);
}

void PreferencesDialogTest::aColorIsChosenInADialog()
{
    Fixture fixture;
    fixture.showPage(PreferencePage::Colors);
    fixture.chooseCategory(textIndex(EditorText::MelKeywords));
    fixture.find<QCheckBox>("background")->click();
    // Left open, it was offered as the plain text's, and that is what the dialog begins with.
    ModalAnswer refused(QString::fromLatin1("Cancel"));
    fixture.find<ColorButton>("foregroundColor")->click();
    QVERIFY(refused.wasAsked());
    ModalAnswer answer(QString::fromLatin1("OK"));
    answer.enter(QString::fromLatin1("#123456"));
    fixture.find<ColorButton>("backgroundColor")->click();
    QVERIFY(answer.wasAsked());
    fixture.button(okButton)->click();
    QCOMPARE(textFormat(EditorText::MelKeywords).background.name(), QString::fromLatin1("#123456"));
    QVERIFY(textFormat(EditorText::MelKeywords).foreground ==
            builtInFormat(EditorText::MelKeywords, ColorSet::Dark).foreground);
}

void PreferencesDialogTest::plainTextKeepsItsColors()
{
    Fixture fixture;
    fixture.chooseCategory(textIndex(OutputText::Plain));
    QVERIFY(!fixture.find<QWidget>("foreground")->isEnabled());
    QVERIFY(fixture.find<QWidget>("foregroundColor")->isEnabled());
    fixture.chooseCategory(textIndex(OutputText::Results));
    QVERIFY(fixture.find<QWidget>("foreground")->isEnabled());
}

void PreferencesDialogTest::theSampleFollowsFontAndColors()
{
    Fixture fixture;
    fixture.showPage(PreferencePage::Colors);
    const FormatPreview *preview = nullptr;
    for (const FormatPreview *each : fixture.dialog.findChildren<FormatPreview *>())
        preview = each->isVisible() ? each : preview;
    QVERIFY(preview->toPlainText().contains(QLatin1String(">ij = I:oO(0xB81l);")));
    fixture.set("textFontSize", 17);
    QCOMPARE(preview->font().pointSize(), 17);
    for (QPushButton *button : fixture.dialog.findChildren<QPushButton *>()) {
        if (button->text().contains(QLatin1String("Li&ght")))
            button->click();
    }
    QVERIFY(preview->palette().color(QPalette::Base) ==
            builtInFormat(EditorText::Plain, ColorSet::Light).background);
    fixture.chooseCategory(textIndex(OutputText::Errors));
    QVERIFY(preview->toPlainText().contains(QLatin1String("// Error: ")));
    QCOMPARE(preview->font().pointSize(), 9);
}

void PreferencesDialogTest::theLastPageIsShownAgain()
{
    {
        Fixture fixture;
        fixture.showPage(PreferencePage::Outline);
        QVERIFY(fixture.find<QWidget>("melHideProcsInOutline")->isVisible());
    }
    Fixture again;
    QCOMPARE(again.pages()->currentRow(), int(PreferencePage::Outline));
    QVERIFY(again.find<QWidget>("melHideProcsInOutline")->isVisible());
}

// From the top down, and up again only to the right.
void PreferencesDialogTest::tabFollowsTheVisualOrder()
{
    Fixture fixture;
    fixture.dialog.resize(1200, 1000); // nothing needs scrolling
    for (int page = 0; page < preferencePageCount; ++page) {
        fixture.showPage(PreferencePage(page));
        QPoint last;
        const QList<QWidget *> order = focusOrder(fixture);
        for (QWidget *widget : order) {
            const QPoint place = widget->mapTo(&fixture.dialog, QPoint());
            const QString at = QLatin1String(pageName(PreferencePage(page))) + QLatin1String(": ") +
                               widget->objectName() + textOf(widget);
            QVERIFY2(place.y() >= last.y() || place.x() > last.x(), qPrintable(at));
            last = place;
        }
        for (const PreferenceRow *row : rowsOf(PreferencePage(page))) {
            QWidget *control = fixture.find<QWidget>(row->key);
            control->setEnabled(true);
            QWidget *stop = control;
            while (stop->focusProxy())
                stop = stop->focusProxy();
            QVERIFY2(order.contains(stop), row->key);
        }
    }
}

void PreferencesDialogTest::mnemonicsAreUniqueAndLeadSomewhere()
{
    Fixture fixture;
    for (int page = 0; page < preferencePageCount; ++page) {
        fixture.showPage(PreferencePage(page));
        QStringList keys;
        for (const QWidget *widget : fixture.dialog.findChildren<QWidget *>()) {
            const QString key = QKeySequence::mnemonic(textOf(widget)).toString();
            if (!widget->isVisible() || key.isEmpty())
                continue;
            QVERIFY2(!keys.contains(key), qPrintable(textOf(widget)));
            keys << key;
            const QLabel *label = qobject_cast<const QLabel *>(widget);
            QVERIFY2(!label || label->buddy()->focusPolicy() != Qt::NoFocus,
                     qPrintable(textOf(label)));
        }
        QVERIFY2(keys.size() > rowsOf(PreferencePage(page)).size(), pageName(PreferencePage(page)));
    }
}

void PreferencesDialogTest::pagesFitASmallScreenWithoutScrolling()
{
    const QFont usual = QApplication::font();
    QFont font = usual;
    font.setPointSize(9);
    QApplication::setFont(font);
    const Fixture fixture;
    for (int i = 0; i < preferencePageCount; ++i) {
        // The screen of this test is smaller still, and the forms of the dialog are narrow.
        const PreferenceForm form{PreferencePage(i)};
        const PreferenceForm *shown = fixture.form(PreferencePage(i));
        const QSize page = shown->parentWidget()->sizeHint();
        const QSize size(qMax(page.width(), form.sizeHint().width()),
                         page.height() - shown->sizeHint().height() + form.sizeHint().height());
        // The list of pages, the buttons and the frame of a window need room as well.
        QVERIFY2(size.width() <= 1280 - 280 && size.height() <= 720 - 120,
                 qPrintable(QString::fromLatin1("%1 x %2").arg(size.width()).arg(size.height())));
    }
    QApplication::setFont(usual);
}

void PreferencesDialogTest::noPageIsTooWideForItsScreen()
{
    Fixture fixture;
    QVERIFY(compat::availableGeometry(&fixture.dialog).width() <= 800);
    for (int page = 0; page < preferencePageCount; ++page) {
        fixture.showPage(PreferencePage(page));
        const QWidget *content = fixture.form(PreferencePage(page))->parentWidget();
        QVERIFY2(content->width() <= content->parentWidget()->width(),
                 pageName(PreferencePage(page)));
    }
}

CORVANE_TEST_MAIN(PreferencesDialogTest)
#include "tst_preferencesdialog.moc"
