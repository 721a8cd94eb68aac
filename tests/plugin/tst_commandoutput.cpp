// SPDX-License-Identifier: MIT
#include "plugin/commandoutput.h"
#include "tests/support/testmain.h"

class CommandOutputTest : public QObject
{
    Q_OBJECT

private slots:
    void messagesAreFormattedByKind_data();
    void messagesAreFormattedByKind();
};

void CommandOutputTest::messagesAreFormattedByKind_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("shown");

    QTest::newRow("history") << 0 << "ls;\n"
                             << "ls;\n";
    QTest::newRow("display") << 1 << "text"
                             << "text";
    QTest::newRow("info") << 2 << "saved"
                          << "// saved //\n";
    QTest::newRow("warning") << 3 << "careful"
                             << "// Warning: careful //\n";
    QTest::newRow("error") << 4 << "line 1: No Lights"
                           << "// Error: line 1: No Lights //\n";
    QTest::newRow("result") << 5 << "3"
                            << "// Result: 3 //\n";
    QTest::newRow("stack-trace") << 6 << "Start of trace:"
                                 << "";
    QTest::newRow("unknown-kind") << 99 << "text"
                                  << "text";
    QTest::newRow("line-break-at-the-end-is-kept") << 4 << "a\n"
                                                   << "// Error: a\n //\n";
    QTest::newRow("empty-result") << 5 << ""
                                  << "// Result:  //\n";
    QTest::newRow("empty-display") << 1 << ""
                                   << "";
}

void CommandOutputTest::messagesAreFormattedByKind()
{
    QFETCH(int, kind);
    QFETCH(QString, message);
    QTEST(formatCommandOutput(message, MCommandMessage::MessageType(kind)), "shown");
}

CORVANE_TEST_MAIN(CommandOutputTest)
#include "tst_commandoutput.moc"
