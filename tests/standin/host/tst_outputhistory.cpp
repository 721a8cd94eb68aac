// SPDX-License-Identifier: MIT
#include "standin/host/outputhistory.h"
#include "tests/standin/host/testsession.h"
#include "tests/support/datatable.h"
#include "tests/support/testmain.h"

#include <QFile>

using mel::MessageKind;
using standin::Language;
using standin::OutputHistory;

class TestOutputHistory : public QObject
{
    Q_OBJECT

private slots:
    void messagesAreShownInTheFormOfTheRelease_data();
    void messagesAreShownInTheFormOfTheRelease();
    void theSignIsThatOfTheLanguageThatRanLast();
    void suppressedKindsStayOutOfTheHistoryOnly_data();
    void suppressedKindsStayOutOfTheHistoryOnly();
    void theCommandWorksWithoutEditFlag();
    void theHistoryCanBeWrittenToAFile();
};

void TestOutputHistory::messagesAreShownInTheFormOfTheRelease_data()
{
    columns<int, bool, QString, QString, QString>("kind", "python", "text", "upTo2022", "from2023");

    const auto row = [](const char *tag, MessageKind kind, bool python, const char *text,
                        const char *upTo2022, const char *from2023) {
        QTest::newRow(tag) << static_cast<int>(kind) << python << text << upTo2022 << from2023;
    };
    row("mel-result", MessageKind::Result, false, "4", "// Result: 4 // \n", "// Result: 4\n");
    row("mel-warning", MessageKind::Warning, false, "w", "// Warning: w // \n", "// Warning: w\n");
    row("mel-error", MessageKind::Error, false, "e", "// Error: e // \n", "// Error: e\n");
    row("mel-info", MessageKind::Info, false, "i", "// i // \n", "// i\n");
    row("several-lines", MessageKind::Error, false, "a\nb", "// Error: a\nb // \n",
        "// Error: a\n// b\n");
    row("python-result", MessageKind::Result, true, "4", "# Result: 4 # \n", "# Result: 4\n");
    row("python-traceback", MessageKind::Error, true, "x\n# Traceback",
        "# Error: x\n# Traceback # \n", "# Error: x\n# # Traceback\n");
    row("history-is-unchanged", MessageKind::History, false, "a;\n", "a;\n", "a;\n");
    row("print-is-unchanged", MessageKind::Display, true, "a", "a", "a");
}

void TestOutputHistory::messagesAreShownInTheFormOfTheRelease()
{
    QFETCH(int, kind);
    QFETCH(bool, python);
    QFETCH(QString, text);
    QFETCH(QString, upTo2022);
    QFETCH(QString, from2023);
    for (const bool closingMarks : {true, false}) {
        OutputHistory history(closingMarks);
        history.setLanguage(python ? Language::Python : Language::Mel);
        const std::string shown =
            history.shown(static_cast<MessageKind>(kind), text.toUtf8().constData());
        QCOMPARE(QString::fromUtf8(shown.c_str()), closingMarks ? upTo2022 : from2023);
    }
}

void TestOutputHistory::theSignIsThatOfTheLanguageThatRanLast()
{
    TestSession session;
    session->executePython("1", false); // there is no Python here, which is an error of Python
    session->output(MessageKind::Info, "after python");
    session.run("python \"1\""); // from within MEL
    session->output(MessageKind::Info, "after mel");
    const QString text = QString::fromUtf8(session->history().text().c_str());
    QCOMPARE(text.count("# Error: Python is not available in this session. # \n"), 2);
    QVERIFY(text.contains("# after python # \n"));
    QVERIFY(
        text.contains("// Error: line 1: Error occurred during execution of Python script // \n"));
    QVERIFY(text.endsWith("// after mel // \n"));
}

void TestOutputHistory::suppressedKindsStayOutOfTheHistoryOnly_data()
{
    columns<QString, int>("flag", "kind");
    QTest::newRow("info") << "suppressInfo" << static_cast<int>(MessageKind::Info);
    QTest::newRow("warnings") << "suppressWarnings" << static_cast<int>(MessageKind::Warning);
    QTest::newRow("errors") << "suppressErrors" << static_cast<int>(MessageKind::Error);
    QTest::newRow("results") << "suppressResults" << static_cast<int>(MessageKind::Result);
}

void TestOutputHistory::suppressedKindsStayOutOfTheHistoryOnly()
{
    QFETCH(QString, flag);
    QFETCH(int, kind);
    TestSession session;
    QVERIFY(session.run("scriptEditorInfo -e -" + flag + " true"));
    QCOMPARE(session.value("scriptEditorInfo -q -" + flag), QString("1"));
    session->output(static_cast<MessageKind>(kind), "hidden");
    QVERIFY(session->history().text().empty());
    QCOMPARE(session.takeMessages().size(), 1);
    QVERIFY(session.run("scriptEditorInfo -e -" + flag + " false"));
    session->output(static_cast<MessageKind>(kind), "shown");
    QVERIFY(session->history().text().find("shown") != std::string::npos);
}

void TestOutputHistory::theCommandWorksWithoutEditFlag()
{
    TestSession session;
    QVERIFY(session.run("scriptEditorInfo -ssw 1"));
    QCOMPARE(session.value("scriptEditorInfo -q -suppressStackWindow"), QString("1"));
    session.run("print \"x\"");
    QVERIFY(session.run("scriptEditorInfo -clearHistory"));
    QVERIFY(session->history().text().empty());
    QCOMPARE(session.value("scriptEditorInfo -q -ssw"), QString("1"));
}

void TestOutputHistory::theHistoryCanBeWrittenToAFile()
{
    TestSession session;
    const QString name = session.folder().file("history.txt");
    QVERIFY(
        session.run("scriptEditorInfo -e -historyFilename \"" + name + "\" -writeHistory true"));
    session.run("print \"kept\\n\"");
    QVERIFY(session.run("scriptEditorInfo -e -writeHistory false"));
    session.run("print \"not kept\\n\"");
    QFile file(name);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("kept\n"));
}

CORVANE_TEST_MAIN(TestOutputHistory)
#include "tst_outputhistory.moc"
