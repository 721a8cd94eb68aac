// SPDX-License-Identifier: MIT
#include "tests/mainwindow/windowfixture.h"
#include "workspace/edcentralwidget.h"
#include "workspace/edcodetabwidget.h"
#include "tests/support/datatable.h"
#include "tests/support/modalanswer.h"
#include "tests/support/testmain.h"

#include <QDockWidget>
#include <QFile>
#include <QListWidget>
#include <QSignalSpy>

namespace {

QStringList entries(const Kestrowl &window, Dock dock)
{
    const QListWidget *list = qobject_cast<QListWidget *>(window.dock(dock)->widget());
    QStringList texts;
    for (int i = 0; i < list->count(); ++i)
        texts << list->item(i)->text();
    return texts;
}

} // namespace

class TestWindowFiles : public QObject
{
    Q_OBJECT

private slots:
    void newBufferAsksForTheLanguage_data();
    void newBufferAsksForTheLanguage();
    void docksListWhatIsOpen();
    void saveWritesTheFileAndClearsTheMark();
    void saveAsAsksForAName();
    void addedSuffixesNeverOverwriteUnasked();
    void saveStateAsksOnlyWithUnsavedContent_data();
    void saveStateAsksOnlyWithUnsavedContent();
    void goToLineOffersTheLinesOfTheDocument();
    void shelfScripts_data();
    void shelfScripts();
    void dialogsStartWhereAnotherWindowWas();
    void commandsWithoutADocumentDoNothing();
};

void TestWindowFiles::newBufferAsksForTheLanguage_data()
{
    columns<QString, int>("button", "language");

    row("mel", "MEL", 2);
    row("python", "Python", 1);
    row("none", "None", 0);
    row("cancel", "Cancel", -1);
    row("escape", "(no such button)", -1);
}

void TestWindowFiles::newBufferAsksForTheLanguage()
{
    QFETCH(QString, button);
    QFETCH(int, language);

    WindowFixture fixture;
    ModalAnswer answer(button);
    fixture.action(Action::New)->trigger();
    QCOMPARE(answer.title(), QString("Source Type"));
    QCOMPARE(answer.text(), QString("Specify executor source language."));
    QCOMPARE(answer.buttons(), words("Cancel MEL None Python"));
    const EdCodeView *view = fixture.window.central()->currentCodeView();
    QCOMPARE(view ? view->language() : -1, language);
}

static QString currentEntry(const Kestrowl &window, Dock dock)
{
    const QListWidget *list = qobject_cast<QListWidget *>(window.dock(dock)->widget());
    return list->selectedItems().isEmpty() ? QString() : list->selectedItems().first()->text();
}

void TestWindowFiles::docksListWhatIsOpen()
{
    WindowFixture fixture;
    fixture.window.open(fixture.dir.write("a.mel", "1"));
    QCOMPARE(entries(fixture.window, Dock::Documents), QStringList("a.mel"));
    fixture.window.open(fixture.dir.write("b.py", "2"));
    QCOMPARE(entries(fixture.window, Dock::Documents), words("a.mel b.py"));
    QCOMPARE(currentEntry(fixture.window, Dock::Documents), QString("b.py"));
    QVERIFY(fixture.window.windowTitle().contains("b.py"));

    fixture.action(Action::NewPythonBuffer)->trigger();
    QCOMPARE(entries(fixture.window, Dock::Buffers), QStringList("Python"));
    QCOMPARE(currentEntry(fixture.window, Dock::Documents), QString());
    QCOMPARE(currentEntry(fixture.window, Dock::Buffers), QString("Python"));
    fixture.action(Action::Close)->trigger();
    QCOMPARE(entries(fixture.window, Dock::Buffers), QStringList());
    QCOMPARE(entries(fixture.window, Dock::Documents), words("a.mel b.py"));
    fixture.action(Action::CloseAll)->trigger();
    QCOMPARE(entries(fixture.window, Dock::Documents), QStringList());
    QCOMPARE(fixture.window.windowTitle(), QString("Corvane Editor"));
}

void TestWindowFiles::saveWritesTheFileAndClearsTheMark()
{
    WindowFixture fixture;
    fixture.window.open(fixture.dir.write("a.mel", "old"));
    fixture.edit()->insertPlainText("new ");
    const EdCodeTabWidget *pane = fixture.window.central()->pane(0);
    QCOMPARE(pane->tabText(0), QString("a.mel*"));
    fixture.action(Action::Save)->trigger();
    QCOMPARE(pane->tabText(0), QString("a.mel"));
    QCOMPARE(fixture.dir.read("a.mel"), QByteArray("new old"));
}

void TestWindowFiles::saveAsAsksForAName()
{
    WindowFixture fixture;
    fixture.newBuffer(0, "print 1;");
    ModalAnswer answer("Save");
    answer.enter(fixture.dir.file("tool"));
    fixture.action(Action::SaveAs)->trigger();
    QCOMPARE(answer.title(), QString("Save File"));
    QCOMPARE(fixture.dir.read("tool.mel"), QByteArray("print 1;"));
    QCOMPARE(entries(fixture.window, Dock::Documents), QStringList("tool.mel"));
    QCOMPARE(entries(fixture.window, Dock::Buffers), QStringList());
}

void TestWindowFiles::addedSuffixesNeverOverwriteUnasked()
{
    WindowFixture fixture;
    fixture.dir.write("tool.mel", "old");
    fixture.newBuffer(0, "new");
    for (const char *button : {"(no such button)", "No", "Yes"}) {
        QCOMPARE(fixture.dir.read("tool.mel"), QByteArray("old"));
        ModalAnswer answer("Save");
        answer.enter(fixture.dir.file("tool"));
        answer.thenPress(button);
        fixture.action(Action::SaveAs)->trigger();
        QCOMPARE(answer.text(), QString("tool.mel already exists.\nDo you want to replace it?"));
    }
    QCOMPARE(fixture.dir.read("tool.mel"), QByteArray("new"));
}

void TestWindowFiles::saveStateAsksOnlyWithUnsavedContent_data()
{
    columns<QString, bool, QString, bool>("button", "modified", "file", "settingsWritten");

    row("nothing-to-save", "", false, "old", true);
    row("yes", "Yes", true, "new old", true);
    row("no", "No", true, "old", true);
    row("cancel", "Cancel", true, "old", false);
}

void TestWindowFiles::saveStateAsksOnlyWithUnsavedContent()
{
    QFETCH(QString, button);
    QFETCH(bool, modified);
    QFETCH(QString, file);
    QFETCH(bool, settingsWritten);

    WindowFixture fixture;
    fixture.window.open(fixture.dir.write("a.mel", "old"));
    if (modified)
        fixture.edit()->insertPlainText("new ");
    ModalAnswer answer(button);
    fixture.action(Action::SaveState)->trigger();
    QCOMPARE(answer.wasAsked(), modified);
    if (modified)
        QCOMPARE(answer.text(), QString("Save all files and buffers?"));
    QCOMPARE(QString(fixture.dir.read("a.mel")), file);
    QCOMPARE(QFile::exists(fixture.dir.file("corvaneEditor.ini")), settingsWritten);
}

void TestWindowFiles::goToLineOffersTheLinesOfTheDocument()
{
    WindowFixture fixture;
    fixture.newBuffer(0, "a\nb\nc");
    ModalAnswer answer("OK");
    answer.enter("2");
    fixture.action(Action::GoToLine)->trigger();
    QCOMPARE(answer.title(), QString("Go To Line"));
    QCOMPARE(answer.text(), QString("Line Number (1 - 3):"));
    QCOMPARE(fixture.edit()->textCursor().position(), 2);
    ModalAnswer beyond("OK");
    beyond.enter("100");
    fixture.action(Action::GoToLine)->trigger();
    QCOMPARE(fixture.edit()->textCursor().position(), 4);

    fixture.newBuffer(0, "");
    ModalAnswer onlyLine("OK");
    onlyLine.enter("7");
    fixture.action(Action::GoToLine)->trigger();
    QCOMPARE(onlyLine.text(), QString("Line Number (1 - 1):"));
    QCOMPARE(fixture.edit()->textCursor().position(), 0);
}

void TestWindowFiles::shelfScripts_data()
{
    columns<int, QString, int, QString>("bufferType", "label", "selected", "script");

    row("mel-whole-text", 0, "tool", 0, "one two");
    row("python-selection", 1, "tool", 3, "one");
    row("plain-text-makes-none", 2, "tool", 0, "");
    row("no-label-makes-none", 0, "", 0, "");
}

void TestWindowFiles::shelfScripts()
{
    QFETCH(int, bufferType);
    QFETCH(QString, label);
    QFETCH(int, selected);
    QFETCH(QString, script);

    WindowFixture fixture;
    fixture.window.central()->newBuffer();
    if (bufferType != 2)
        fixture.window.newBuffer(bufferType);
    fixture.edit()->setPlainText("one two");
    for (int i = 0; i < selected; ++i)
        fixture.edit()->moveCursor(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
    QSignalSpy requested(&fixture.window, SIGNAL(scriptToShelfRequested(QString, QString, bool)));
    ModalAnswer answer("OK");
    answer.enter(label);
    fixture.action(Action::SaveScriptToShelf)->trigger();
    QCOMPARE(answer.title(), QString("New Shelf Item"));
    QCOMPARE(int(requested.size()), script.isEmpty() ? 0 : 1);
    if (!requested.isEmpty()) {
        QCOMPARE(requested.first().at(0).toString(), label);
        QCOMPARE(requested.first().at(1).toString(), script);
        QCOMPARE(requested.first().at(2).toBool(), bufferType == 0);
    }
}

void TestWindowFiles::dialogsStartWhereAnotherWindowWas()
{
    const ScratchDir dir;
    const QString path = dir.write("a.mel", "print 1;");
    for (const QString &entered : {path, QString("a.mel")}) {
        WindowFixture fixture;
        ModalAnswer opening("Open");
        opening.enter(entered);
        fixture.action(Action::Open)->trigger();
        QCOMPARE(entries(fixture.window, Dock::Documents), QStringList("a.mel"));

        QSignalSpy selected(&fixture.window, SIGNAL(sourceScriptSelected(QString)));
        ModalAnswer sourcing("Open");
        sourcing.enter(entered);
        fixture.action(Action::SourceScript)->trigger();
        QCOMPARE(int(selected.size()), 1);
        QCOMPARE(selected.first().first().toString(), path);
        QCOMPARE(sourcing.title(), QString("Source Script"));
    }
}

void TestWindowFiles::commandsWithoutADocumentDoNothing()
{
    WindowFixture fixture;
    const Action ids[] = {Action::Close,
                          Action::CloseAll,
                          Action::CloseAllButActive,
                          Action::Save,
                          Action::SaveAs,
                          Action::SaveAll,
                          Action::Rename,
                          Action::SaveScriptToShelf,
                          Action::ReloadFromDisk,
                          Action::Undo,
                          Action::Redo,
                          Action::Cut,
                          Action::Copy,
                          Action::Paste,
                          Action::SelectAll,
                          Action::GoToLine,
                          Action::ConvertTabsToSpaces,
                          Action::ClearAll,
                          Action::Execute,
                          Action::ExecuteLine,
                          Action::ExecuteAll};
    ModalAnswer answer("Cancel");
    for (Action id : ids)
        fixture.action(id)->trigger();
    QVERIFY(!answer.wasAsked());
    QVERIFY(!fixture.window.central()->currentCodeView());
}

CORVANE_TEST_MAIN(TestWindowFiles)
#include "tst_windowfiles.moc"
