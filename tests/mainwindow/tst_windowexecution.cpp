// SPDX-License-Identifier: MIT
#include "tests/mainwindow/windowfixture.h"
#include "tests/support/datatable.h"
#include "tests/support/filesizelimit.h"
#include "tests/support/modalanswer.h"
#include "tests/support/testmain.h"
#include "workspace/journalfile.h"

#include <QDirIterator>
#include <QKeyEvent>
#include <QSignalSpy>
#include <QTextDocument>

namespace {

enum { MelBuffer = 0, PythonBuffer = 1 };

// What the window asked to run, in its order.
class Executed
{
public:
    explicit Executed(Kestrowl &window)
        : m_mel(&window, SIGNAL(melExecuted(QString))),
          m_python(&window, SIGNAL(pythonExecuted(QString)))
    {
    }

    QStringList mel() const { return texts(m_mel); }
    QStringList python() const { return texts(m_python); }

private:
    static QStringList texts(const QSignalSpy &spy)
    {
        QStringList list;
        for (const QList<QVariant> &arguments : spy)
            list << arguments.first().toString();
        return list;
    }

    QSignalSpy m_mel;
    QSignalSpy m_python;
};

// What would come back if the host crashed in the script.
class CrashWitness : public QObject
{
    Q_OBJECT

public:
    explicit CrashWitness(const QString &directory) : m_directory(directory) {}

    QStringList texts;

public slots:
    void look()
    {
        texts.clear();
        QDirIterator journals(m_directory, QStringList("*.journal"), QDir::Files,
                              QDirIterator::Subdirectories);
        while (journals.hasNext())
            texts << readJournal(journals.next()).text;
    }

private:
    QString m_directory;
};

void select(EdCodeEdit *edit, int from, int to)
{
    QTextCursor cursor = edit->textCursor();
    cursor.setPosition(from);
    cursor.setPosition(to, QTextCursor::KeepAnchor);
    edit->setTextCursor(cursor);
}

// Counts how often a document is saved, by leaving it modified each time.
class SaveCounter : public QObject
{
    Q_OBJECT

public:
    explicit SaveCounter(EdCodeEdit *edit) : m_document(edit->document())
    {
        m_document->setModified(true);
        connect(m_document, SIGNAL(modificationChanged(bool)), SLOT(count(bool)));
    }

    int saves() const { return m_saves; }

private slots:
    void count(bool modified)
    {
        if (modified)
            return;
        ++m_saves;
        m_document->setModified(true);
    }

private:
    QTextDocument *m_document;
    int m_saves = 0;
};

} // namespace

class TestWindowExecution : public QObject
{
    Q_OBJECT

private slots:
    void aSelectionRunsWithLineFeeds();
    void withoutASelectionEverythingRuns();
    void textsAreSafeBeforeTheHostIsBusy();
    void theLineRunsTrimmed();
    void theLanguageChoosesTheSignal();
    void nothingRunsWithoutTextOrDocument();
    void executingSavesFirst_data();
    void executingSavesFirst();
    void cancellingTheSaveRunsNothing();
    void filesThatCannotBeWrittenAreToldOfOnce();
    void keysInTheEditorExecuteOnce_data();
    void keysInTheEditorExecuteOnce();
    void keypadEnterBreaksTheLineWhenItDoesNotExecute();
};

void TestWindowExecution::aSelectionRunsWithLineFeeds()
{
    WindowFixture fixture;
    Executed executed(fixture.window);
    fixture.newBuffer(MelBuffer, "int $a;\n  print $a;\nprint 2;");
    select(fixture.edit(), 4, 19);
    fixture.window.execute();
    QCOMPARE(executed.mel(), QStringList("$a;\n  print $a;"));
}

void TestWindowExecution::withoutASelectionEverythingRuns()
{
    WindowFixture fixture;
    Executed executed(fixture.window);
    // A no-break space is part of what the user wrote.
    const char *text = "  print \"a\xC2\xA0z\";\n\n";
    fixture.newBuffer(MelBuffer, text);
    fixture.window.execute();
    fixture.window.executeAll();
    QCOMPARE(executed.mel(), QStringList() << QString::fromUtf8(text) << QString::fromUtf8(text));
}

void TestWindowExecution::textsAreSafeBeforeTheHostIsBusy()
{
    WindowFixture fixture;
    preferences().saveOnExecute = false;
    CrashWitness witness(fixture.dir.path());
    witness.connect(&fixture.window, SIGNAL(melExecuted(QString)), SLOT(look()));
    fixture.showActive();
    fixture.newBuffer(MelBuffer, "");
    fixture.window.replace("polySphere;");
    fixture.window.execute();
    QCOMPARE(witness.texts, QStringList("polySphere;"));
    // The host's own windows can make it busy as well.
    fixture.window.replace("typed ");
    QApplication::setActiveWindow(nullptr);
    witness.look();
    QCOMPARE(witness.texts, QStringList("polySphere;typed "));
    fixture.window.replace("more");
    fixture.window.writeSettings();
    witness.look();
    QVERIFY(witness.texts.isEmpty()); // the buffer's file has it
    preferences() = Preferences();
}

void TestWindowExecution::theLineRunsTrimmed()
{
    WindowFixture fixture;
    Executed executed(fixture.window);
    fixture.newBuffer(MelBuffer, "one;\n\t  two;  \nthree;");
    fixture.edit()->moveCursor(QTextCursor::NextBlock);
    fixture.window.executeLine();
    QCOMPARE(executed.mel(), QStringList("two;"));
}

void TestWindowExecution::theLanguageChoosesTheSignal()
{
    WindowFixture fixture;
    Executed executed(fixture.window);
    fixture.newBuffer(PythonBuffer, "print(1)");
    fixture.window.executeAll();
    QCOMPARE(executed.python(), QStringList("print(1)"));

    fixture.edit()->setPlainText(QString()); // replaced without a question
    fixture.window.central()->newBuffer();
    fixture.edit()->setPlainText("plain");
    fixture.window.executeAll();
    fixture.window.executeLine();
    fixture.window.execute(QString("plain"));
    QCOMPARE(executed.mel() + executed.python(), QStringList("print(1)"));
}

void TestWindowExecution::nothingRunsWithoutTextOrDocument()
{
    WindowFixture fixture;
    Executed executed(fixture.window);
    fixture.window.execute();
    fixture.window.executeLine();
    fixture.window.executeAll();
    fixture.window.execute(QString("print 1"));
    fixture.newBuffer(MelBuffer, "  \nprint 1;");
    fixture.window.executeLine();
    QCOMPARE(executed.mel(), QStringList());
}

void TestWindowExecution::executingSavesFirst_data()
{
    columns<QString, bool, bool, int>("slot", "selected", "saveOnExecute", "saves");

    row("all-saves-twice", "executeAll", false, true, 2);
    row("line-saves-twice", "executeLine", false, true, 2);
    row("selection-saves-once", "execute", true, true, 1);
    row("nothing-selected-is-all", "execute", false, true, 2);
    row("switched-off", "executeAll", false, false, 0);
}

void TestWindowExecution::executingSavesFirst()
{
    QFETCH(QString, slot);
    QFETCH(bool, selected);
    QFETCH(bool, saveOnExecute);
    QFETCH(int, saves);

    WindowFixture fixture;
    fixture.window.open(fixture.dir.write("a.mel", "old"));
    preferences().saveOnExecute = saveOnExecute;
    fixture.edit()->insertPlainText("changed ");
    if (selected)
        select(fixture.edit(), 0, 3);
    SaveCounter counter(fixture.edit());
    Executed executed(fixture.window);
    QVERIFY(QMetaObject::invokeMethod(&fixture.window, slot.toLatin1().constData()));
    QCOMPARE(int(executed.mel().size()), 1);
    QCOMPARE(counter.saves(), saves);
    QCOMPARE(fixture.dir.read("a.mel"), QByteArray(saves > 0 ? "changed old" : "old"));
}

void TestWindowExecution::cancellingTheSaveRunsNothing()
{
    WindowFixture fixture;
    Executed executed(fixture.window);
    fixture.window.open(fixture.dir.write("a.mel", "print 1;"));
    fixture.edit()->insertPlainText(" ");
    fixture.dir.write("a.mel", "print 22;");
    void (Kestrowl::*const commands[])() = {&Kestrowl::execute, &Kestrowl::executeLine,
                                            &Kestrowl::executeAll};
    for (const auto command : commands) {
        ModalAnswer answer("Cancel");
        (fixture.window.*command)();
        QVERIFY(answer.wasAsked());
    }
    QCOMPARE(executed.mel(), QStringList());
    ModalAnswer answer("Overwrite");
    fixture.window.execute();
    QCOMPARE(executed.mel(), QStringList(" print 1;"));
}

void TestWindowExecution::filesThatCannotBeWrittenAreToldOfOnce()
{
    WindowFixture fixture;
    Executed executed(fixture.window);
    fixture.window.open(fixture.dir.write("a.mel", ""));
    fixture.edit()->insertPlainText("print 1;");
    const FileSizeLimit full(4);
    ModalAnswer first("OK");
    ModalAnswer second("OK");
    fixture.window.executeAll();
    QVERIFY(first.wasAsked() != second.wasAsked());
    QCOMPARE(executed.mel(), QStringList("print 1;"));
}

void TestWindowExecution::keysInTheEditorExecuteOnce_data()
{
    columns<int, int, QString>("key", "modifiers", "executed");

    const int control = Qt::ControlModifier;
    const int alt = control | Qt::AltModifier;
    const int shift = control | Qt::ShiftModifier;
    const int keypad = Qt::KeypadModifier;
    const int enter = Qt::Key_Enter;
    const int carriageReturn = Qt::Key_Return;
    const QString all("one;\ntwo;");
    row("ctrl-return", carriageReturn, control, all);
    row("ctrl-enter", enter, control, all);
    row("ctrl-keypad-enter", enter, (control | keypad), all);
    row("keypad-enter", enter, keypad, all);
    row("line-return", carriageReturn, alt, "one;");
    row("line-keypad-enter", enter, (alt | keypad), "one;");
    row("all-return", carriageReturn, shift, all);
    row("all-keypad-enter", enter, (shift | keypad), all);
}

// The key arrives as from the keyboard, shortcuts included, and then at the editor alone.
void TestWindowExecution::keysInTheEditorExecuteOnce()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(QString, executed);

    WindowFixture fixture;
    fixture.newBuffer(MelBuffer, "one;\ntwo;");
    fixture.showActive();
    QTest::qWait(1);
    Executed runs(fixture.window);

    QTest::keyClick(fixture.edit(), Qt::Key(key), Qt::KeyboardModifiers(modifiers));
    QCOMPARE(runs.mel(), QStringList(executed));

    // Shortcuts of a hidden window are not looked at.
    fixture.window.hide();
    QKeyEvent press(QEvent::KeyPress, key, Qt::KeyboardModifiers(modifiers), "\r");
    QCoreApplication::sendEvent(fixture.edit(), &press);
    QCOMPARE(runs.mel(), QStringList() << executed << executed);
    QCOMPARE(fixture.edit()->toPlainText(), QString("one;\ntwo;"));
}

void TestWindowExecution::keypadEnterBreaksTheLineWhenItDoesNotExecute()
{
    WindowFixture fixture;
    preferences().numpadEnterExecutes = false;
    fixture.newBuffer(MelBuffer, "one;");
    Executed executed(fixture.window);
    QTest::keyClick(fixture.edit(), Qt::Key_Enter, Qt::KeypadModifier);
    QCOMPARE(executed.mel(), QStringList());
    QCOMPARE(fixture.edit()->toPlainText(), QString("\none;"));
}

CORVANE_TEST_MAIN(TestWindowExecution)
#include "tst_windowexecution.moc"
