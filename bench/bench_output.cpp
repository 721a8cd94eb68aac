// SPDX-License-Identifier: MIT
// 100,000 one-line messages into the visible Output Window that keeps 5,000 lines, against a plain
// text edit that appends each line; the longest time for which the event loop waits; and what a
// million messages cost while the window is hidden.
#include "bench/measure.h"
#include "output/edoutputview.h"

#include <QApplication>
#include <QScrollBar>

#include <algorithm>
#include <functional>

namespace {

const int lineLimit = 5000;
const int messageCount = 100000;
const int messagesPerSlice = 500; // between two turns of the event loop, in either program
const double longestTurn = 33;    // ms

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
    double time;    // ms
    double longest; // ms in one turn of the event loop
};

double turnOfEventLoop()
{
    return bestTime(1, [] { QApplication::processEvents(); });
}

Run measure(const std::function<void(const QString &)> &append, const std::function<bool()> &isBusy)
{
    double longest = 0;
    const auto runEventLoop = [&longest] { longest = std::max(longest, turnOfEventLoop()); };
    const double time = bestTime(1, [&] {
        for (int i = 0; i < messageCount; ++i) {
            append(message(i));
            if (i % messagesPerSlice == 0)
                runEventLoop();
        }
        while (isBusy())
            runEventLoop();
        runEventLoop();
    });
    return {time, longest};
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
    double longest = bestTime(1, [&] { view.appendText(text); });
    while (view.isGathering())
        longest = std::max(longest, turnOfEventLoop());
    const bool ok = isAtMost("100,000 lines at once, longest turn, ms", longest, longestTurn);
    return check(view.blockCount() == lineLimit && text.endsWith(view.toPlainText()),
                 "a huge message is shown whole") &&
           ok;
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
    return isAtMost("1,000,000 hidden messages, characters kept", largest,
                    lineLimit * 64 + 3 * 4096);
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

    std::printf("plain text edit: %.0f ms, longest turn %.1f ms\n", peer.time, peer.longest);
    bool ok = isAtLeast("output view / plain text edit, speed", peer.time / ours.time, 5);
    ok = isAtMost("output view, longest turn, ms", ours.longest, longestTurn) && ok;
    ok = check(lookAlike(view, single), "text, marks and scroll position as message by message") &&
         ok;
    ok = hugeMessageIsSliced() && ok;
    ok = hiddenOutputIsBounded() && ok;
    ok = hiddenOutputIsShown() && ok;
    return ok ? 0 : 1;
}
