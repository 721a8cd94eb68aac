// SPDX-License-Identifier: MIT
#include "editor/blockformats.h"
#include "tests/support/datatable.h"
#include "tests/support/testmain.h"

#include <QBrush>
#include <QStringList>
#include <QTextDocument>

class BlockFormatsTest : public QObject
{
    Q_OBJECT

private slots:
    void formatsGoAroundComposedText_data();
    void formatsGoAroundComposedText();
    void whatLiesThereAlreadyIsLeft();
    void blanksAreDimmed_data();
    void blanksAreDimmed();
};

namespace {

QTextCharFormat coloured(Qt::GlobalColor color)
{
    QTextCharFormat format;
    format.setForeground(QColor(color));
    return format;
}

// "2-5 red" for each, the end exclusive.
QString summary(const compat::FormatRanges &ranges)
{
    QStringList parts;
    for (const QTextLayout::FormatRange &range : ranges) {
        const bool isRed = range.format == coloured(Qt::red);
        parts << QString::fromLatin1("%1-%2 %3")
                     .arg(range.start)
                     .arg(range.start + range.length)
                     .arg(QLatin1String(isRed ? "red" : "other"));
    }
    return parts.join(QLatin1String(", "));
}

} // namespace

void BlockFormatsTest::formatsGoAroundComposedText_data()
{
    columns<int, QString>("start", "expected");
    row("behind", 4, "4-7 other, 1-3 red");
    row("before", 0, "0-3 other, 4-6 red");
    row("inside", 2, "2-5 other, 1-6 red");
    row("at-the-end", 3, "3-6 other, 1-3 red");
}

void BlockFormatsTest::formatsGoAroundComposedText()
{
    QFETCH(int, start);
    QFETCH(QString, expected);
    QTextDocument document(QString::fromLatin1("abcdef"));
    const QTextBlock block = document.begin();
    block.layout()->setPreeditArea(start, QString::fromLatin1("xyz"));
    const QTextCharFormat composed = coloured(Qt::blue);
    compat::setLayoutFormats(block, compat::FormatRanges() << formatRange(start, 3, composed));
    QVERIFY(setBlockFormats(block, compat::FormatRanges() << formatRange(1, 2, coloured(Qt::red))));
    QCOMPARE(summary(compat::layoutFormats(block)), expected);
}

void BlockFormatsTest::whatLiesThereAlreadyIsLeft()
{
    QTextDocument document(QString::fromLatin1("abcdef"));
    const auto apply = [&document](int length, Qt::GlobalColor color) {
        return setBlockFormats(document.begin(), compat::FormatRanges()
                                                     << formatRange(1, length, coloured(color)));
    };
    QVERIFY(apply(2, Qt::red));
    QVERIFY(!apply(2, Qt::red));
    QVERIFY(apply(3, Qt::red));
    QVERIFY(apply(3, Qt::blue));
}

void BlockFormatsTest::blanksAreDimmed_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected"); // with the first three characters red
    row("no-blank", "ab", "0-2 red");
    row("behind", "ab \t", "0-2 red, 2-4 other");
    row("inside", "a bc d", "0-1 red, 1-2 other, 2-3 red, 4-5 other");
}

void BlockFormatsTest::blanksAreDimmed()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    const int length = qMin(3, int(text.trimmed().size()));
    const compat::FormatRanges ranges = compat::FormatRanges()
                                        << formatRange(0, length, coloured(Qt::red));
    QCOMPARE(summary(withDimmedBlanks(ranges, text, QBrush(Qt::gray))), expected);
}

CORVANE_TEST_MAIN(BlockFormatsTest)
#include "tst_blockformats.moc"
