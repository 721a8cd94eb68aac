// SPDX-License-Identifier: MIT
#include "tests/standin/mel/programs.h"
#include "tests/standin/mel/recordinghost.h"
#include "tests/support/testmain.h"

#include <QObject>

class TestMelPrograms : public QObject
{
    Q_OBJECT

private slots:
    void programsGiveTheirMessages_data();
    void programsGiveTheirMessages();
};

namespace {

QString lines(const std::vector<std::string> &messages)
{
    QString text;
    for (const std::string &message : messages)
        text += QString::fromUtf8(message.c_str(), int(message.size())) + "\n";
    return text;
}

} // namespace

void TestMelPrograms::programsGiveTheirMessages_data()
{
    QTest::addColumn<int>("index");
    const std::vector<MelProgram> programs = melPrograms();
    QVERIFY(!programs.empty());
    for (size_t i = 0; i < programs.size(); ++i)
        QTest::newRow(programs[i].name.toUtf8().constData()) << int(i);
}

void TestMelPrograms::programsGiveTheirMessages()
{
    QFETCH(int, index);
    static const std::vector<MelProgram> programs = melPrograms();
    TestInterpreter interpreter;
    for (const MelStep &step : programs[size_t(index)].steps)
        QCOMPARE(lines(interpreter.run(step.text)), lines(step.messages));
}

CORVANE_TEST_MAIN(TestMelPrograms)
#include "tst_melprograms.moc"
