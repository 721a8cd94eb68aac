// SPDX-License-Identifier: MIT
// 100,000 one-line messages into the visible Output Window that keeps 5,000 lines, against a plain
// text edit that appends each line; the longest time for which the event loop waits; and what a
// million messages cost while the window is hidden.

#include "output/edoutputview.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QScrollBar>

#include <algorithm>
#include <cstdio>
#include <functional>

namespace {

const int lineLimit = 5000;
const int messageCount = 100000;
const int messagesPerSlice = 500; // between two turns of the event loop, in either program
const double wantedRatio = 5.0;
const qint64 longestSlice = 33; // ms

QString message(int i)
{
    switch (i % 50) {
    case 0:
        return QString::fromLatin1("// Error: file: C:/scripts/rig.mel line %1: no such node //\n")
            .arg(i);
    case 1:
        return QString::fromLatin1("// Result: pSphere%1 //\n").arg(i);
    default:
        return QString::fromLatin1("setAttr \"pSphere%1.translateX\" 0.5;\n").arg(i);
    }
}

struct Run
{
    double linesPerSecond;
    qint64 longest; // ms in one turn of the event loop
};

Run measure(const std::function<void(const QString &)> &append, const std::function<bool()> &isBusy)
{
    QElapsedTimer total;
    QElapsedTimer turn;
    qint64 longest = 0;
    const auto runEventLoop = [&turn, &longest] {
        turn.start();
        QApplication::processEvents();
        longest = std::max(longest, qint64(turn.elapsed()));
    };
    total.start();
    for (int i = 0; i < messageCount; ++i) {
        append(message(i));
        if (i % messagesPerSlice == 0)
            runEventLoop();
    }
    while (isBusy())
        runEventLoop();
    runEventLoop();
    return {messageCount * 1000.0 / double(std::max<qint64>(1, total.elapsed())), longest};
}

bool lookAlike(EdOutputView &a, EdOutputView &b)
{
    const auto as = a.extraSelections();
    const auto bs = b.extraSelections();
    bool same = a.toPlainText() == b.toPlainText() && as.size() == bs.size() &&
                a.verticalScrollBar()->value() == b.verticalScrollBar()->value() &&
                a.horizontalScrollBar()->value() == b.horizontalScrollBar()->value();
    for (int i = 0; same && i < as.size(); ++i)
        same = as.at(i).cursor.anchor() == bs.at(i).cursor.anchor() &&
               as.at(i).cursor.position() == bs.at(i).cursor.position() &&
               as.at(i).format == bs.at(i).format;
    return same;
}

bool check(bool holds, const char *what)
{
    std::printf("%s: %s\n", holds ? "ok" : "FAILED", what);
    return holds;
}

void prepare(QPlainTextEdit &view)
{
    view.resize(600, 400);
    view.setMaximumBlockCount(lineLimit);
    view.show();
    QApplication::processEvents();
}

// All lines in one message: the view has to slice them by itself.
bool hugeMessageIsSliced()
{
    QString text;
    for (int i = 0; i < messageCount; ++i)
        text += message(i);
    EdOutputView view;
    prepare(view);
    QElapsedTimer turn;
    turn.start();
    view.appendText(text);
    qint64 longest = turn.elapsed();
    while (view.isGathering()) {
        turn.start();
        QApplication::processEvents();
        longest = std::max(longest, qint64(turn.elapsed()));
    }
    std::printf("100,000 lines at once: longest turn %lld ms\n", (long long)longest);
    const bool isWhole = view.blockCount() == lineLimit && text.endsWith(view.toPlainText());
    return check(longest <= longestSlice && isWhole, "a huge message is sliced and shown whole");
}

bool hiddenOutputIsShown()
{
    EdOutputView view;
    view.setMaximumBlockCount(lineLimit);
    for (int i = 0; i < 1000000; ++i)
        view.appendText(message(i));
    view.show();
    while (view.isGathering())
        QApplication::processEvents();
    QString expected;
    for (int i = 1000000 - lineLimit + 1; i < 1000000; ++i)
        expected += message(i);
    return check(view.toPlainText() == expected, "hidden output is shown in order");
}

bool hiddenOutputIsBounded()
{
    OutputBacklog backlog;
    int largest = 0;
    for (int i = 0; i < 1000000; ++i) {
        backlog.add(message(i), lineLimit);
        largest = std::max(largest, backlog.size());
    }
    std::printf("1,000,000 hidden messages: at most %d characters kept\n", largest);
    return check(largest < lineLimit * 64 + 3 * 4096, "hidden output stays bounded");
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);

    QPlainTextEdit plain;
    plain.setReadOnly(true);
    plain.setLineWrapMode(QPlainTextEdit::NoWrap);
    prepare(plain);
    const Run peer = measure(
        [&plain](const QString &text) { plain.appendPlainText(text.left(text.size() - 1)); },
        [] { return false; });
    plain.hide();

    EdOutputView view;
    prepare(view);
    const Run ours = measure([&view](const QString &text) { view.appendText(text); },
                             [&view] { return view.isGathering(); });

    EdOutputView single;
    prepare(single);
    // What came before leaves no trace in either.
    for (int i = messageCount - 3 * lineLimit; i < messageCount; ++i) {
        single.appendText(message(i));
        single.flush();
    }
    QApplication::processEvents();

    const double ratio = ours.linesPerSecond / peer.linesPerSecond;
    std::printf("plain text edit: %.0f lines/s, longest turn %lld ms\n", peer.linesPerSecond,
                (long long)peer.longest);
    std::printf("output view:     %.0f lines/s, longest turn %lld ms\n", ours.linesPerSecond,
                (long long)ours.longest);
    std::printf("ratio:           %.1f (at least %.1f)\n", ratio, wantedRatio);
    bool ok = check(ratio >= wantedRatio, "lines per second");
    ok =
        check(ours.longest <= longestSlice, "no turn of the event loop is longer than 33 ms") && ok;
    ok = check(lookAlike(view, single), "text, marks and scroll position as message by message") &&
         ok;
    ok = hugeMessageIsSliced() && ok;
    ok = hiddenOutputIsBounded() && ok;
    ok = hiddenOutputIsShown() && ok;
    return ok ? 0 : 1;
}
