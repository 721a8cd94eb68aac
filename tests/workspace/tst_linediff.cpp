// SPDX-License-Identifier: MIT
#include "workspace/linediff.h"

#include "tests/support/datatable.h"
#include "tests/support/testmain.h"

#include <algorithm>
#include <random>

namespace {

QStringList split(const char *words)
{
    return *words ? QString(words).split(' ') : QStringList();
}

QString drawn(const std::vector<DiffLine> &lines)
{
    QStringList words;
    for (const DiffLine &line : lines) {
        words << QString(line.kind == DiffKind::Removed   ? "-"
                         : line.kind == DiffKind::Added   ? "+"
                         : line.kind == DiffKind::Skipped ? "..."
                                                          : "") +
                     line.text;
    }
    return words.join(" ");
}

// The lines of one side.
QStringList sideOf(const std::vector<DiffLine> &lines, DiffKind other)
{
    QStringList side;
    for (const DiffLine &line : lines) {
        if (line.kind != other)
            side << line.text;
    }
    return side;
}

int sameCount(const std::vector<DiffLine> &lines)
{
    return int(std::count_if(lines.begin(), lines.end(),
                             [](const DiffLine &line) { return line.kind == DiffKind::Same; }));
}

int longestCommon(const QStringList &a, const QStringList &b)
{
    std::vector<std::vector<int>> best(size_t(a.size()) + 1, std::vector<int>(b.size() + 1, 0));
    for (int i = 1; i <= a.size(); ++i) {
        for (int j = 1; j <= b.size(); ++j) {
            best[i][j] = a.at(i - 1) == b.at(j - 1) ? best[i - 1][j - 1] + 1
                                                    : std::max(best[i - 1][j], best[i][j - 1]);
        }
    }
    return best[a.size()][b.size()];
}

} // namespace

class TestLineDiff : public QObject
{
    Q_OBJECT

private slots:
    void differencesAreShortest();
    void farApartTextsAreTakenWhole();
    void contextIsKept_data();
    void contextIsKept();
};

void TestLineDiff::differencesAreShortest()
{
    std::mt19937 random(7);
    for (int round = 0; round < 2000; ++round) {
        QStringList sides[2];
        for (QStringList &side : sides) {
            for (int i = int(random() % 9); i > 0; --i)
                side << QString(QChar('a' + int(random() % 4)));
        }
        const std::vector<DiffLine> lines = lineDiff(sides[0], sides[1]);
        const QString drawing = drawn(lines);
        QVERIFY2(sideOf(lines, DiffKind::Added) == sides[0], qPrintable(drawing));
        QVERIFY2(sideOf(lines, DiffKind::Removed) == sides[1], qPrintable(drawing));
        QVERIFY2(sameCount(lines) == longestCommon(sides[0], sides[1]), qPrintable(drawing));
    }
}

void TestLineDiff::farApartTextsAreTakenWhole()
{
    QStringList before("same");
    QStringList after("same");
    for (int i = 0; i < 3000; ++i) {
        before << QString("a%1").arg(i) << "x";
        after << QString("b%1").arg(i) << "x";
    }
    const std::vector<DiffLine> lines = lineDiff(before, after);
    QCOMPARE(sameCount(lines), 2);
    QVERIFY(sideOf(lines, DiffKind::Added) == before);
    QVERIFY(sideOf(lines, DiffKind::Removed) == after);
}

void TestLineDiff::contextIsKept_data()
{
    columns<QString, QString, QString>("before", "after", "expected");

    row("equal", "a b", "a b", "...2 unchanged lines");
    row("empty", "", "a", "+a");
    row("middle", "a b c d e", "a b x d e", "...1 unchanged lines b -c +x d ...1 unchanged lines");
    row("near", "a b c d", "x b c y", "-a +x b c -d +y");
    row("end", "a b c", "a b", "...1 unchanged lines b -c");
}

void TestLineDiff::contextIsKept()
{
    QFETCH(QString, before);
    QFETCH(QString, after);
    QFETCH(QString, expected);
    const std::vector<DiffLine> lines =
        lineDiff(split(qPrintable(before)), split(qPrintable(after)));
    QCOMPARE(drawn(withContext(lines, 1)), expected);
}

CORVANE_TEST_MAIN(TestLineDiff)
#include "tst_linediff.moc"
