// SPDX-License-Identifier: MIT
#include "editor/findreplacedialog.h"
#include "tests/support/datatable.h"
#include "tests/support/testmain.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>

class TestFindReplaceDialog : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_dialog.reset(); } // the application ends before this object

    void controlsBearTheirNamesAndTexts();
    void tabGoesThroughTheControlsInOrder();
    void choicesBecomeOptions_data();
    void choicesBecomeOptions();
    void buttonsAndKeysSendRequests_data();
    void buttonsAndKeysSendRequests();
    void textsAreRememberedOnce();
    void onlyFirstLinesAreRemembered();
    void choosingFromTheListFindsOnce();
    void leavingAFieldFindsNothing();
    void typingSearchesWhileIncremental();
    void escapeClosesAndKeepsWhatWasEntered();
    void openingTakesAText();
    void returnFindsWhateverWasClicked();

private:
    template <typename Widget>
    Widget *find(const char *name) const
    {
        return m_dialog->findChild<Widget *>(name);
    }
    void enter(const char *findText, const char *replaceText);
    // Searches for both, the second one last.
    void findTwo(const char *first, const char *second);
    // The requests sent since the last time: "find|replace|options", joined by blanks.
    QString requests();
    static QStringList entries(const QComboBox *box);

    std::unique_ptr<FindReplaceDialog> m_dialog;
    std::unique_ptr<QSignalSpy> m_sent;
};

void TestFindReplaceDialog::init()
{
    m_dialog.reset(new FindReplaceDialog);
    m_sent.reset(
        new QSignalSpy(m_dialog.get(), SIGNAL(findReplaceSelected(QString, QString, int))));
}

void TestFindReplaceDialog::enter(const char *findText, const char *replaceText)
{
    find<QComboBox>("findCmb")->setEditText(findText);
    find<QComboBox>("replaceWithCmb")->setEditText(replaceText);
}

void TestFindReplaceDialog::findTwo(const char *first, const char *second)
{
    for (const char *text : {first, second}) {
        enter(text, "");
        m_dialog->find();
    }
    requests();
}

QString TestFindReplaceDialog::requests()
{
    QStringList requests;
    for (int i = 0; i < m_sent->count(); ++i) {
        const QList<QVariant> sent = m_sent->at(i);
        requests
            << QString("%1|%2|%3").arg(sent[0].toString(), sent[1].toString(), sent[2].toString());
    }
    m_sent->clear();
    return requests.join(" ");
}

QStringList TestFindReplaceDialog::entries(const QComboBox *box)
{
    QStringList entries;
    for (int i = 0; i < box->count(); ++i)
        entries << box->itemText(i);
    return entries;
}

void TestFindReplaceDialog::controlsBearTheirNamesAndTexts()
{
    const struct
    {
        const char *name;
        const char *text;
        bool checked;
    } rows[] = {
        {"backwardRdo", "Up", false},
        {"forwardRdo", "Down", true},
        {"scopeAllRdo", "All", true},
        {"scopeSelectedRdo", "Selection", false},
        {"caseSensitiveChk", "Case sensitive", false},
        {"wrapSearchChk", "Wrap search", false},
        {"wholeWordChk", "Whole word", false},
        {"incrementalChk", "Incremental", false},
        {"findBtn", "Find", false},
        {"replaceFindBtn", "Replace/Find", false},
        {"replaceBtn", "Replace", false},
        {"replaceAllBtn", "Replace All", false},
        {"closeBtn", "Close", false},
    };
    QStringList keys;
    for (const auto &row : rows) {
        const QAbstractButton *button = find<QAbstractButton>(row.name);
        QVERIFY2(button, row.name);
        QCOMPARE(button->text(), QString(row.text));
        QCOMPARE(button->isChecked(), row.checked);
        QVERIFY2(!keys.contains(button->shortcut().toString()), row.name);
        if (!button->shortcut().isEmpty())
            keys << button->shortcut().toString();
    }
    QStringList titles;
    for (const QGroupBox *group : m_dialog->findChildren<QGroupBox *>())
        titles << group->title();
    QCOMPARE(titles, words("Direction: Scope: Options:"));
    QCOMPARE(m_dialog->windowTitle(), QString("Find/Replace"));
    QCOMPARE(m_dialog->objectName(), QString("FindReplaceDialogCorvane"));
    QVERIFY(!(m_dialog->windowFlags() & Qt::WindowContextHelpButtonHint));
    QVERIFY(!m_dialog->isModal());
}

void TestFindReplaceDialog::tabGoesThroughTheControlsInOrder()
{
    QStringList names;
    QWidget *first = find<QComboBox>("findCmb");
    QWidget *widget = first;
    do {
        const bool takesTab = (widget->focusPolicy() & Qt::TabFocus) != 0;
        if (takesTab && (qobject_cast<QAbstractButton *>(widget) || widget->inherits("QComboBox")))
            names << widget->objectName();
        widget = widget->nextInFocusChain();
    } while (widget != first);
    const QString expected = "findCmb replaceWithCmb backwardRdo forwardRdo scopeAllRdo "
                             "scopeSelectedRdo caseSensitiveChk wrapSearchChk wholeWordChk "
                             "incrementalChk findBtn replaceFindBtn replaceBtn replaceAllBtn "
                             "closeBtn";
    QCOMPARE(names.join(" "), expected);
}

void TestFindReplaceDialog::choicesBecomeOptions_data()
{
    columns<QString, int>("names", "options");
    row("none", QString(), 0);
    row("up", "backwardRdo", 1);
    row("case", "caseSensitiveChk", 2);
    row("word", "wholeWordChk", 4);
    row("selection", "scopeSelectedRdo", 1024);
    row("wrap", "wrapSearchChk", 2048);
    row("case-word-wrap", "caseSensitiveChk wholeWordChk wrapSearchChk", 2054);
}

void TestFindReplaceDialog::choicesBecomeOptions()
{
    QFETCH(QString, names);
    QFETCH(int, options);
    if (!names.isEmpty()) {
        for (const QString &name : names.split(" "))
            m_dialog->findChild<QAbstractButton *>(name)->setChecked(true);
    }
    enter("a", "b");
    m_dialog->find();
    QCOMPARE(requests(), QString("a|b|%1").arg(options));
    QCOMPARE(m_dialog->search().options, options & 6);
}

void TestFindReplaceDialog::buttonsAndKeysSendRequests_data()
{
    QTest::addColumn<QString>("receiver");
    QTest::addColumn<int>("key");              // 0: a click
    columns<int, int>("modifiers", "options"); // -1: none are sent
    const int up = 1;
    const int shift = Qt::ShiftModifier;
    row("find", "findBtn", 0, 0, up);
    row("replace", "replaceBtn", 0, 0, 4096 | up);
    row("replace-find", "replaceFindBtn", 0, 0, 8192 | up);
    row("replace-all", "replaceAllBtn", 0, 0, 16384 | up);
    row("return-in-field", "findCmb", int(Qt::Key_Return), 0, up);
    row("enter-in-field", "findCmb", int(Qt::Key_Enter), 0, up);
    row("return-on-a-button", "replaceBtn", int(Qt::Key_Return), 0, 4096 | up);
    row("f3-goes-down", "findCmb", int(Qt::Key_F3), 0, 0);
    row("shift-f3-goes-up", "replaceWithCmb", int(Qt::Key_F3), shift, up);
    row("f3-of-the-keypad", "findCmb", int(Qt::Key_F3), int(Qt::KeypadModifier), 0);
    row("ctrl-f3-is-another-key", "findCmb", int(Qt::Key_F3), int(Qt::ControlModifier), -1);
}

// With "Up" chosen, and a text that is further down in the list.
void TestFindReplaceDialog::buttonsAndKeysSendRequests()
{
    QFETCH(QString, receiver);
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(int, options);
    find<QAbstractButton>("backwardRdo")->setChecked(true);
    findTwo("a", "c");
    enter("a", "b");
    m_dialog->show();
    QWidget *widget = m_dialog->findChild<QWidget *>(receiver);
    if (key == 0)
        QTest::mouseClick(widget, Qt::LeftButton);
    else {
        widget->setFocus();
        QTest::keyClick(widget, Qt::Key(key), Qt::KeyboardModifiers(modifiers));
    }
    QCOMPARE(requests(), options < 0 ? QString() : QString("a|b|%1").arg(options));
}

void TestFindReplaceDialog::textsAreRememberedOnce()
{
    for (const char *text : {"a", "b", "A", "", "a"}) {
        enter(text, text);
        m_dialog->replaceAll();
    }
    for (const char *name : {"findCmb", "replaceWithCmb"}) {
        const QComboBox *box = find<QComboBox>(name);
        QCOMPARE(entries(box), words("a A b"));
        QCOMPARE(box->currentIndex(), 0);
    }
}

void TestFindReplaceDialog::onlyFirstLinesAreRemembered()
{
    const QString lines = QString("ab") + QChar(QChar::ParagraphSeparator) + "cd";
    QComboBox *box = find<QComboBox>("findCmb");
    for (int i = 0; i < 2; ++i) {
        if (i == 0)
            box->setEditText(lines);
        m_dialog->find();
        QCOMPARE(requests(), lines + "||0");
        QCOMPARE(entries(box), QStringList() << "ab");
    }
}

void TestFindReplaceDialog::choosingFromTheListFindsOnce()
{
    findTwo("a", "b");
    findTwo("c", "d");
    QComboBox *box = find<QComboBox>("findCmb");
    QTest::keyClick(box, Qt::Key_Down);
    QTest::keyClick(box, Qt::Key_Down);
    QCOMPARE(requests(), QString("c||0 b||0"));
    find<QAbstractButton>("incrementalChk")->setChecked(true);
    QTest::keyClick(box, Qt::Key_Down);
    QCOMPARE(requests(), QString("a||0"));
    QCOMPARE(entries(box), words("d c b a"));
    QTest::keyClick(box->lineEdit(), Qt::Key_Backspace);
    QTest::keyClicks(box->lineEdit(), "a");
    box->setEditText("b");
    QCOMPARE(requests(), QString("||0 a||0 b||0"));
    m_dialog->find();
    QCOMPARE(entries(box), words("b d c a"));
}

void TestFindReplaceDialog::leavingAFieldFindsNothing()
{
    findTwo("a", "b");
    m_dialog->show();
    QApplication::setActiveWindow(m_dialog.get());
    enter("a", "");
    QTest::keyClick(find<QComboBox>("findCmb")->lineEdit(), Qt::Key_Tab);
    find<QPushButton>("closeBtn")->setFocus();
    QCOMPARE(requests(), QString());
}

void TestFindReplaceDialog::typingSearchesWhileIncremental()
{
    QComboBox *box = find<QComboBox>("findCmb");
    find<QAbstractButton>("incrementalChk")->setChecked(true);
    QTest::keyClicks(box->lineEdit(), "ab");
    QCOMPARE(requests(), QString("a||0 ab||0"));
    QCOMPARE(box->count(), 0);
    m_dialog->find();
    QCOMPARE(requests(), QString("ab||0"));
    find<QAbstractButton>("incrementalChk")->setChecked(false);
    QTest::keyClicks(box->lineEdit(), "c");
    QCOMPARE(requests(), QString());
}

void TestFindReplaceDialog::escapeClosesAndKeepsWhatWasEntered()
{
    enter("a", "b");
    m_dialog->showMessage("String Not Found");
    m_dialog->show();
    QCOMPARE(find<QLabel>("statusLabel")->text(), QString("String Not Found"));
    QSignalSpy changes(m_dialog.get(), SIGNAL(searchChanged()));
    QTest::keyClick(m_dialog.get(), Qt::Key_Escape);
    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(int(changes.count()), 1);
    m_dialog->show();
    QTest::keyClick(find<QComboBox>("findCmb"), Qt::Key_Escape, Qt::ShiftModifier);
    QVERIFY(!m_dialog->isVisible());
    m_dialog->find();
    QCOMPARE(requests(), QString("a|b|0"));
}

void TestFindReplaceDialog::openingTakesAText()
{
    QLineEdit *field = find<QComboBox>("findCmb")->lineEdit();
    find<QAbstractButton>("incrementalChk")->setChecked(true);
    m_dialog->openFor("ab");
    QCOMPARE(field->selectedText(), QString("ab"));
    field->deselect();
    m_dialog->openFor(QString());
    QCOMPARE(field->selectedText(), QString("ab"));
    field->deselect();
    find<QComboBox>("replaceWithCmb")->setFocus();
    QTest::keyClick(find<QComboBox>("replaceWithCmb"), Qt::Key_F, Qt::ControlModifier);
    QCOMPARE(field->selectedText(), QString("ab"));
    QCOMPARE(requests(), QString());
}

void TestFindReplaceDialog::returnFindsWhateverWasClicked()
{
    for (const char *name : {"replaceAllBtn", "replaceBtn", "replaceFindBtn", "closeBtn"}) {
        m_dialog->openFor("a");
        QPushButton *button = find<QPushButton>(name);
        button->setFocus(); // as a click does
        QTest::mouseClick(button, Qt::LeftButton);
        m_dialog->showMessage("3 matches replaced");
        m_dialog->close();
        m_dialog->openFor(QString());
        QCOMPARE(find<QLabel>("statusLabel")->text(), QString());
        requests();
        QTest::keyClick(find<QComboBox>("findCmb")->lineEdit(), Qt::Key_Return);
        QCOMPARE(requests(), QString("a||0"));
        QVERIFY2(find<QPushButton>("findBtn")->isDefault(), name);
    }
    m_dialog->showCount(90000);
    QCOMPARE(find<QLabel>("countLabel")->text(), QString("90000 matches"));
}

CORVANE_TEST_MAIN(TestFindReplaceDialog)
#include "tst_findreplacedialog.moc"
