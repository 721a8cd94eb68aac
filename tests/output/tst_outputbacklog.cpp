// SPDX-License-Identifier: MIT
#include "output/outputbacklog.h"
#include "tests/support/testmain.h"

#include <cstdlib>

namespace {

QString everything(OutputBacklog &backlog)
{
    QString text;
    while (!backlog.isEmpty())
        text += backlog.takePart();
    return text;
}

QString lastLines(const QString &text, int count)
{
    const QStringList lines = text.split(QLatin1Char('\n'));
    return QStringList(lines.mid(qMax(0, int(lines.size()) - count))).join(QLatin1String("\n"));
}

} // namespace

class OutputBacklogTest : public QObject
{
    Q_OBJECT

private slots:
    void textComesBackInOrder();
    void lineBreaksOfAllKindsBecomePlain();
    void breakCharactersOfDifferentTextsStayTwoBreaks();
    void keepsAtLeastWhatTheLimitKeeps();
    void staysBoundedWhateverArrives();
    void partsAreBoundedUnlessALineIsLonger();
};

void OutputBacklogTest::textComesBackInOrder()
{
    OutputBacklog backlog;
    backlog.add(QLatin1String("a"), 0);
    backlog.add(QLatin1String("b\n"), 0);
    backlog.add(QString(), 0);
    backlog.add(QString(5000, QLatin1Char('x')), 0);
    backlog.add(QLatin1String("c"), 0);
    QCOMPARE(backlog.size(), 5004);
    QCOMPARE(everything(backlog), QLatin1String("ab\n") + QString(5000, QLatin1Char('x')) + "c");
    QCOMPARE(backlog.size(), 0);
}

void OutputBacklogTest::lineBreaksOfAllKindsBecomePlain()
{
    OutputBacklog backlog;
    backlog.add(QString::fromUtf8("a\r\nb\rc\xe2\x80\xa9"
                                  "d\n\r\n"),
                0);
    QCOMPARE(everything(backlog), QString::fromLatin1("a\nb\nc\nd\n\n"));
}

void OutputBacklogTest::breakCharactersOfDifferentTextsStayTwoBreaks()
{
    OutputBacklog backlog;
    backlog.add(QLatin1String("a\r"), 0);
    backlog.add(QLatin1String("\nb"), 0);
    QCOMPARE(everything(backlog), QString::fromLatin1("a\n\nb"));
}

void OutputBacklogTest::keepsAtLeastWhatTheLimitKeeps()
{
    std::srand(7);
    for (int round = 0; round < 200; ++round) {
        const int limit = 1 + std::rand() % 30;
        OutputBacklog backlog;
        QString all;
        for (int i = std::rand() % 200; i >= 0; --i) {
            const QString text = QString(std::rand() % 300, QLatin1Char('x')) +
                                 QString(std::rand() % 3, QLatin1Char('\n')) + QString::number(i);
            all += text;
            backlog.add(text, limit);
        }
        QCOMPARE(lastLines(everything(backlog), limit), lastLines(all, limit));
    }
}

void OutputBacklogTest::staysBoundedWhateverArrives()
{
    OutputBacklog backlog;
    for (int i = 0; i < 200000; ++i)
        backlog.add(QLatin1String("a line of thirty characters xx\n"), 100);
    QVERIFY2(backlog.size() < 3 * 4096 + 100 * 31, qPrintable(QString::number(backlog.size())));
    backlog.add(QString(QLatin1String("0123456789\n")).repeated(100000), 100);
    QVERIFY2(backlog.size() < 3 * 4096 + 100 * 31, qPrintable(QString::number(backlog.size())));
}

void OutputBacklogTest::partsAreBoundedUnlessALineIsLonger()
{
    OutputBacklog backlog;
    backlog.add(QString(QLatin1String("0123456789\n")).repeated(1000), 0);
    while (!backlog.isEmpty())
        QVERIFY(backlog.takePart().size() <= 4096);
    backlog.add(QString(9000, QLatin1Char('x')) + QLatin1String("\nshort"), 0);
    QCOMPARE(int(backlog.takePart().size()), 9001);
}

CORVANE_TEST_MAIN(OutputBacklogTest)
#include "tst_outputbacklog.moc"
