// SPDX-License-Identifier: MIT
#include "tests/support/testmain.h"
#include "tests/workspace/walk.h"

#include <QElapsedTimer>

#include <cstdio>

namespace {

int fromEnvironment(const char *name, int otherwise)
{
    const QByteArray value = qgetenv(name);
    return value.isEmpty() ? otherwise : value.toInt();
}

} // namespace

class TestRandomWalk : public QObject
{
    Q_OBJECT

private slots:
    void documentsFilesAndListsAreAsInTheModel_data();
    void documentsFilesAndListsAreAsInTheModel();
};

// CORVANE_WALK_SEED, _SEEDS and _STEPS choose other walks than those of every day.
void TestRandomWalk::documentsFilesAndListsAreAsInTheModel_data()
{
    QTest::addColumn<int>("seed");
    const int first = fromEnvironment("CORVANE_WALK_SEED", 1);
    const int count = fromEnvironment("CORVANE_WALK_SEEDS", 10);
    for (int seed = first; seed < first + count; ++seed)
        QTest::newRow(QByteArray("seed-" + QByteArray::number(seed)).constData()) << seed;
}

void TestRandomWalk::documentsFilesAndListsAreAsInTheModel()
{
    QFETCH(int, seed);
    const int steps = fromEnvironment("CORVANE_WALK_STEPS", 2000);
    Walk walk{unsigned(seed)};
    for (int i = 0; i < steps; ++i) {
        const QString difference = walk.step();
        if (difference.isEmpty())
            continue;
        std::fprintf(stderr, "%s\n", difference.toUtf8().constData()); // QtTest cuts long messages
        QFAIL("program and model differ");
    }
}

CORVANE_TEST_MAIN(TestRandomWalk)
#include "tst_randomwalk.moc"
