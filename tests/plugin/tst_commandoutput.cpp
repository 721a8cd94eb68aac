// SPDX-License-Identifier: MIT
#include "plugin/commandoutput.h"
#include "tests/support/datatable.h"
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
    columns<int, QString, QString>("kind", "message", "shown");

    row("history", 0, "ls;\n", "ls;\n");
    row("display", 1, "text", "text");
    row("info", 2, "saved", "// saved //\n");
    row("warning", 3, "careful", "// Warning: careful //\n");
    row("error", 4, "line 1: No Lights", "// Error: line 1: No Lights //\n");
    row("result", 5, "3", "// Result: 3 //\n");
    row("stack-trace", 6, "Start of trace:", "");
    row("unknown-kind", 99, "text", "text");
    row("line-break-at-the-end-is-kept", 4, "a\n", "// Error: a\n //\n");
    row("empty-result", 5, "", "// Result:  //\n");
    row("empty-display", 1, "", "");
}

void CommandOutputTest::messagesAreFormattedByKind()
{
    QFETCH(int, kind);
    QFETCH(QString, message);
    QTEST(formatCommandOutput(message, MCommandMessage::MessageType(kind)), "shown");
}

CORVANE_TEST_MAIN(CommandOutputTest)
#include "tst_commandoutput.moc"
