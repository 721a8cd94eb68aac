// SPDX-License-Identifier: MIT
// Every action of the window does its work, down to Maya and to the disk.
#include "standin/ui/userinterface.h"
#include "tests/plugin/pluginfixture.h"
#include "tests/support/modalanswer.h"
#include "tests/support/testmain.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QDockWidget>
#include <QFile>
#include <QPlainTextEdit>
#include <QTabBar>

class ActionsTest : public PluginFixture
{
    Q_OBJECT

public:
    // What a row may look at. Texts of several parts have a blank between them.
    QString tabs();
    QString firstLine() { return activeEditor()->toPlainText().section(QLatin1Char('\n'), 0, 0); }
    QString secondLine() { return activeEditor()->toPlainText().section(QLatin1Char('\n'), 1, 1); }
    QString cutLine() { return firstLine() + QLatin1Char(' ') + clipboard(); }
    QString clipboard() { return QApplication::clipboard()->text(); }
    QString selection() { return activeEditor()->textCursor().selectedText(); }
    QString caretLine();
    QString drawnCharacters();
    QString wrapping() { return activeEditor()->lineWrapMode() ? "wraps" : "runs on"; }
    QString lastOutput();
    QString lineAndOutput() { return firstLine() + QLatin1Char('|') + lastOutput(); }
    QString panes();
    QString page() { return m_ui->lastDocumentation().section("Maya-Tech-Docs/", 1); }
    QString shelfButton();
    QString savedFile() { return m_folder->read("a.mel").constData(); }
    QString bothFiles() { return savedFile() + m_folder->read("b.py").constData(); }
    QString newFile() { return m_folder->read("new.mel").constData(); }
    QString settings();
    QString echo() { return mel("`commandEcho -q -state` + `optionVar -q echoAllLines`"); }
    QString lineNumbers();
    QString stackTrace() { return mel("`stackTrace -q -state` + `optionVar -q stackTraceIsOn`"); }
    QString stackWindow() { return mel("scriptEditorInfo -q -ssw"); }
    QString sourcedProcedure() { return mel("exists fromFile"); }
    QString dialogTitle(); // of one that is open, or was answered

    // What a row may need before.
    void type();
    void typeAndUndo();
    void openSecond() { open("b.py"); }
    void typeInBoth();
    void selectFirstLine();
    void fillClipboard() { QApplication::clipboard()->setText("pasted "); }
    void execute() { trigger("ExecuteAll"); }
    void hideOutput() { trigger("ShowEditor"); }

private slots:
    void init();
    void cleanup() { endSession(); }
    void everyActionDoesItsWork_data();
    void everyActionDoesItsWork();

private:
    void open(const char *name);
    QAction *action(const QString &id);
    void trigger(const QString &id);

    QString m_answeredTitle;
};

namespace {

// The dialog that an action opens, and how it is answered; no title where there is none.
struct Dialog
{
    const char *title = "";
    const char *button = "Cancel";
    const char *input = ""; // in a file dialog the name of a file in the user's folder
};

struct Row
{
    const char *action;
    // What is looked at, and what is seen there once the action was triggered; never before.
    QString (ActionsTest::*look)();
    const char *expected;
    void (ActionsTest::*prepare)() = nullptr;
    Dialog dialog = {};
};

typedef ActionsTest Test;

const Row rows[] = {
    {"New", &Test::tabs, "a.mel Python", nullptr, {"Source Type", "Python"}},
    {"NewMelBuffer", &Test::tabs, "a.mel MEL"},
    {"NewPythonBuffer", &Test::tabs, "a.mel Python"},
    {"Open", &Test::tabs, "a.mel b.py", nullptr, {"Open File", "Open", "b.py"}},
    {"Close", &Test::tabs, ""},
    {"CloseAll", &Test::tabs, "", &Test::openSecond},
    {"CloseAllButActive", &Test::tabs, "b.py", &Test::openSecond},
    {"Save", &Test::savedFile, "typed 1 + 2;\n\tint $a = 7;\nprint \"x\";", &Test::type},
    {"SaveAs",
     &Test::newFile,
     "1 + 2;\n\tint $a = 7;\nprint \"x\";",
     nullptr,
     {"Save File", "Save", "new.mel"}},
    {"SaveAll", &Test::bothFiles, "typed 1 + 2;\n\tint $a = 7;\nprint \"x\";typed 4",
     &Test::typeInBoth},
    {"Rename", &Test::tabs, "new.mel", nullptr, {"Rename", "OK", "new.mel"}},
    {"SaveScriptToShelf",
     &Test::shelfButton,
     "label mel 1 + 2;",
     &Test::selectFirstLine,
     {"New Shelf Item", "OK", "label"}},
    {"ReloadFromDisk", &Test::firstLine, "1 + 2;", &Test::type, {"Reload", "Yes"}},
    {"SourceScript", &Test::sourcedProcedure, "1", nullptr, {"Source Script", "Open", "p.mel"}},
    {"SaveState", &Test::settings, "written"},
    {"Undo", &Test::firstLine, "1 + 2;", &Test::type},
    {"Redo", &Test::firstLine, "typed 1 + 2;", &Test::typeAndUndo},
    {"Cut", &Test::cutLine, " 1 + 2;", &Test::selectFirstLine},
    {"Copy", &Test::clipboard, "1 + 2;", &Test::selectFirstLine},
    {"Paste", &Test::firstLine, "pasted 1 + 2;", &Test::fillClipboard},
    {"SelectAll", &Test::selection, "1 + 2;\xe2\x80\xa9\tint $a = 7;\xe2\x80\xa9print \"x\";"},
    {"FindReplace", &Test::dialogTitle, "Find/Replace"},
    {"GoToLine", &Test::caretLine, "3", nullptr, {"Go To Line", "OK", "3"}},
    {"ConvertTabsToSpaces", &Test::secondLine, "    int $a = 7;"},
    {"ClearHistory", &Test::lastOutput, "", &Test::execute},
    {"ClearEditor", &Test::firstLine, ""},
    {"ClearAll", &Test::lineAndOutput, "|", &Test::execute},
    {"Preferences", &Test::dialogTitle, "Preferences"},
    {"EchoAllCommands", &Test::echo, "2"},
    {"EchoAllCommandsButton", &Test::echo, "2"},
    {"LineNumbersInErrors", &Test::lineNumbers, "0"},
    {"ShowStackTrace", &Test::stackTrace, "0"},
    {"SuppressStackWindow", &Test::stackWindow, "0"},
    {"Execute", &Test::lastOutput, "// Result: 3 //", &Test::selectFirstLine},
    {"ExecuteLine", &Test::lastOutput, "// Result: 3 //"},
    {"ExecuteAll", &Test::lastOutput, "x"},
    {"ShowTabsAndSpaces", &Test::drawnCharacters, "blanks"},
    {"ShowTabsAndSpacesButton", &Test::drawnCharacters, "blanks"},
    {"ShowEndOfLine", &Test::drawnCharacters, "ends"},
    {"WordWrap", &Test::wrapping, "wraps"},
    {"CodeEditor", &Test::panes, "output"},
    {"ShowHistory", &Test::panes, "output"},
    {"ShowEditor", &Test::panes, "editor"},
    {"ShowBoth", &Test::panes, "editor output", &Test::hideOutput},
    {"MelCommandReference", &Test::page, "Commands/index.html"},
    {"PythonCommandReference", &Test::page, "CommandsPython/index.html"},
    {"NodeAndAttributeReference", &Test::page, "Nodes/index.html"},
    {"Licensing", &Test::dialogTitle, "Licensing"},
    {"About", &Test::dialogTitle, "About Corvane Editor"},
};

const Row *rowOf(const QString &id)
{
    for (const Row &row : rows) {
        if (id == QLatin1String(row.action))
            return &row;
    }
    return nullptr;
}

} // namespace

QString ActionsTest::tabs()
{
    QStringList texts;
    for (QTabBar *bar : widgetsOf<QTabBar>("EdCodeTabBar")) {
        for (int i = 0; i < bar->count(); ++i)
            texts << bar->tabText(i);
    }
    return texts.join(QLatin1String(" "));
}

QString ActionsTest::caretLine()
{
    return QString::number(activeEditor()->textCursor().blockNumber() + 1);
}

QString ActionsTest::drawnCharacters()
{
    const QTextOption::Flags flags = activeEditor()->document()->defaultTextOption().flags();
    QStringList drawn;
    if (flags & QTextOption::ShowTabsAndSpaces)
        drawn << "blanks";
    if (flags & QTextOption::ShowLineAndParagraphSeparators)
        drawn << "ends";
    return drawn.join(QLatin1String(" "));
}

QString ActionsTest::lastOutput()
{
    QMetaObject::invokeMethod(outputView(), "flush");
    return outputView()->toPlainText().trimmed().section(QLatin1Char('\n'), -1);
}

QString ActionsTest::panes()
{
    QStringList shown;
    if (widgetsOf<QWidget>("EdCentralWidget").first()->isVisible())
        shown << "editor";
    if (outputView()->isVisible())
        shown << "output";
    return shown.join(QLatin1String(" "));
}

QString ActionsTest::shelfButton()
{
    return mel("global string $gShelfTopLevel;"
               "string $shelf = `shelfTabLayout -q -selectTab $gShelfTopLevel`;"
               "string $buttons[] = `shelfLayout -q -childArray $shelf`;"
               "string $last = $buttons[size($buttons) - 1];"
               "`shelfButton -q -label $last` + \" \" + `shelfButton -q -sourceType $last`"
               "+ \" \" + `shelfButton -q -command $last`;");
}

QString ActionsTest::settings()
{
    return QFile::exists(m_folder->file("prefs/corvaneEditor.ini")) ? "written" : "missing";
}

QString ActionsTest::lineNumbers()
{
    return mel("`commandEcho -q -lineNumbers` + `optionVar -q showLineNumbersIsOn`");
}

QString ActionsTest::dialogTitle()
{
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (widget->inherits("QDialog") && widget->isVisible())
            return widget->windowTitle();
    }
    return m_answeredTitle;
}

void ActionsTest::type()
{
    activeEditor()->insertPlainText("typed ");
}

void ActionsTest::typeAndUndo()
{
    type();
    trigger("Undo");
}

void ActionsTest::typeInBoth()
{
    type();
    openSecond();
    type();
}

void ActionsTest::selectFirstLine()
{
    activeEditor()->moveCursor(QTextCursor::EndOfLine, QTextCursor::KeepAnchor);
}

void ActionsTest::init()
{
    startSession();
    m_folder->write("a.mel", "1 + 2;\n\tint $a = 7;\nprint \"x\";");
    m_folder->write("b.py", "4");
    m_folder->write("p.mel", "global proc fromFile() {}");
    QVERIFY(load());
    mel("corvaneEditor");
    QApplication::clipboard()->clear();
    m_answeredTitle = QString();
    open("a.mel");
}

void ActionsTest::open(const char *name)
{
    QMetaObject::invokeMethod(editorWindow(), "open", Q_ARG(QString, m_folder->file(name)));
}

QAction *ActionsTest::action(const QString &id)
{
    return editorWindow()->findChild<QAction *>(QLatin1String("action") + id);
}

void ActionsTest::trigger(const QString &id)
{
    action(id)->trigger();
    runIdle();
}

void ActionsTest::everyActionDoesItsWork_data()
{
    QTest::addColumn<QString>("id");
#define ACTION(id, text, tip, keys, icon, kind, receiver, slot) QTest::newRow(#id) << #id;
#define ALSO(id, receiver, slot)
#include "mainwindow/actiontable.inc"
#undef ALSO
#undef ACTION
}

void ActionsTest::everyActionDoesItsWork()
{
    QFETCH(QString, id);
    const Row *row = rowOf(id);
    QVERIFY2(row, "nobody checks what this action does");
    if (row->prepare)
        (this->*row->prepare)();
    runIdle();
    const QString expected = QString::fromUtf8(row->expected);
    QVERIFY2((this->*row->look)() != expected, "the row would not notice an action without effect");

    const QString button = QString::fromLatin1(row->dialog.button);
    const bool asksForFile = button == QLatin1String("Open") || button == QLatin1String("Save");
    ModalAnswer answer(button);
    answer.enter(asksForFile ? m_folder->file(row->dialog.input)
                             : QString::fromLatin1(row->dialog.input));
    answer.thenPress(QLatin1String("no second dialog"));
    trigger(id);
    m_answeredTitle = answer.title();
    if (row->look != &ActionsTest::dialogTitle)
        QCOMPARE(m_answeredTitle, QString::fromLatin1(row->dialog.title));
    QCOMPARE((this->*row->look)(), expected);
    QCOMPARE(m_log->take().filter(QLatin1String("error")), QStringList());
}

CORVANE_TEST_MAIN(ActionsTest)
#include "tst_actions.moc"
