// SPDX-License-Identifier: MIT
#include "analysis/positionmap.h"
#include "tests/support/datatable.h"
#include "tests/support/testmain.h"

#include <QObject>

#include <algorithm>
#include <random>
#include <vector>

namespace {

// A text whose characters are known by where they were at first; typed ones are -1.
typedef std::vector<int> Text;

int placeOf(const Text &text, int character)
{
    return int(std::find(text.begin(), text.end(), character) - text.begin());
}

} // namespace

class TestPositionMap : public QObject
{
    Q_OBJECT

private slots:
    void aNameIsFoundAfterAnEdit_data();
    void aNameIsFoundAfterAnEdit();
    void charactersAreFoundAfterAnyEdits();
};

void TestPositionMap::aNameIsFoundAfterAnEdit_data()
{
    columns<int, int, int, int, int, bool>("position", "removed", "added", "start", "end", "guess");

    // The name is at 4, its end at 7.
    row("typed-before", 0, 0, 2, 6, 9, false);
    row("typed-at-its-start", 4, 0, 2, 6, 9, false);
    row("typed-inside", 5, 0, 2, 4, 9, false);
    row("typed-at-its-end", 7, 0, 2, 4, 7, false);
    row("first-letter-replaced", 4, 1, 1, 4, 7, false);
    row("last-letters-replaced", 5, 2, 3, 4, 8, false);
    row("start-and-more-replaced", 2, 3, 9, 11, 13, false);
    row("end-and-more-replaced", 6, 5, 9, 4, 6, false);
    row("replaced", 4, 3, 5, 4, 9, false);
    row("deleted", 4, 3, 0, 4, 4, false);
    row("deleted-with-more", 2, 9, 0, 2, 2, true);
    row("all-replaced", 0, 20, 30, 4, 4, true);
    row("only-formats", 0, 20, 20, 4, 7, false);
}

void TestPositionMap::aNameIsFoundAfterAnEdit()
{
    QFETCH(int, position);
    QFETCH(int, removed);
    QFETCH(int, added);
    PositionMap map;
    map.contentsChange(position, removed, added);
    const PositionMap::Range name = map.now({4, 7});
    QTEST(name.start, "start");
    QTEST(name.end, "end");
    QTEST(map.isGuess({4, 7}), "guess");
}

void TestPositionMap::charactersAreFoundAfterAnyEdits()
{
    const int size = 60;
    std::mt19937 random(1);
    const auto upTo = [&](size_t most) { return int(random() % (most + 1)); };
    for (int round = 0; round < 300; ++round) {
        PositionMap map;
        Text text(size);
        for (int i = 0; i < size; ++i)
            text[i] = i;
        for (int edit = upTo(12); edit >= 0; --edit) {
            const int position = upTo(text.size());
            const int removed = upTo(std::min<size_t>(text.size() - position, 6));
            const int added = upTo(4);
            map.contentsChange(position, removed, added);
            const auto place = text.begin() + position;
            text.insert(text.erase(place, place + removed), added, -1);
        }
        for (int i = 0; i < size; ++i) {
            const int place = placeOf(text, i);
            if (place < int(text.size()))
                QCOMPARE(map.now(i), place);
            QVERIFY(map.now(i) <= int(text.size()));
            QVERIFY(i == 0 || map.now(i - 1) <= map.now(i));
        }
        for (int i = 0; i + 3 <= size; ++i) {
            const PositionMap::Range range = map.now({i, i + 3});
            QVERIFY(range.start <= range.end);
            for (int character = i; character < i + 3; ++character) {
                const int place = placeOf(text, character);
                QVERIFY(place == int(text.size()) || (range.start <= place && place < range.end));
            }
        }
    }
}

CORVANE_TEST_MAIN(TestPositionMap)
#include "tst_positionmap.moc"
