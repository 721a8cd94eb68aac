// SPDX-License-Identifier: MIT
// What completion costs a typist: from the key that opens the popup, or narrows it, to the painted
// list, against QCompleter over the same names, in turns in the same run; and what MEL's source
// takes of it.
#include "bench/measure.h"
#include "bench/sampletext.h"
#include "bridge/melnametable.h"
#include "editor/completion.h"
#include "editor/edcodeedit.h"
#include "editor/edcompleter.h"
#include "editor/edhighlighter.h"
#include "editor/editorlanguage.h"
#include "editor/openscripts.h"
#include "preferences/preferences.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QStringListModel>

#include <algorithm>
#include <ctime>
#include <vector>

namespace {

const int rounds = 60;
const double longestOpening = 30; // ms
const double longestNarrowing = 2;

// The program's own milliseconds: what other programs take between is not counted.
typedef std::vector<double> Times;

template <typename Work>
double ownTime(Work work)
{
    const std::clock_t start = std::clock();
    work();
    QApplication::processEvents(); // paints as well
    return double(std::clock() - start) * 1000 / CLOCKS_PER_SEC;
}

double percentile95(Times times)
{
    std::sort(times.begin(), times.end());
    return times[times.size() * 95 / 100];
}

// What the open scripts declare.
class Scripts : public OpenScripts
{
public:
    std::vector<Completion> melNamesFor(const QTextDocument *) const override
    {
        std::vector<Completion> names;
        for (int i = 0; i < 2500; ++i)
            names.push_back({QString::fromLatin1("own%1Procedure").arg(i * 7919 % 2500),
                             CompletionKind::Procedure});
        return names;
    }
};

// Such as Maya has: a few first words, of which one is that of a quarter of the names.
QStringList names(int count)
{
    const char *const firstWords[] = {"poly", "nurbs", "attr", "set", "get", "joint", "anim"};
    QStringList all;
    for (int i = 0; i < count; ++i) {
        const char *word = i % 4 == 0 ? "poly" : firstWords[i % 7];
        all << QString::fromLatin1("%1%2Thing%3")
                   .arg(QLatin1String(word))
                   .arg(QChar('A' + i % 26))
                   .arg(i);
    }
    return all;
}

// One that is not closed yet, the longest that is searched for variables.
QString longProcedure()
{
    QString text = QString::fromLatin1("global proc last(string $objects[])\n{\n");
    for (int i = 0; i < 2000; ++i)
        text += QString::fromLatin1("    int $value%1 = size($objects) + %2; // the next\n")
                    .arg(i % 200)
                    .arg(i);
    return text;
}

void press(QWidget *widget, int key, const QString &text,
           Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
    QApplication::sendEvent(widget, &event);
}

struct Costs
{
    Times opening;
    Times narrowing;
};

const char typed[] = "polyAThing1";

// Letters that follow, and then the same letters deleted again.
template <typename Narrow>
void typeAndDelete(Narrow narrow, Times *times)
{
    const int letters = int(sizeof typed) - 2; // behind the first
    for (int i = 1; i <= letters; ++i)
        times->push_back(ownTime([&] { narrow(Qt::Key_A, QString(QLatin1Char(typed[i]))); }));
    for (int i = 0; i < letters; ++i)
        times->push_back(ownTime([&] { narrow(Qt::Key_Backspace, QString()); }));
}

// The names come from MEL's own source.
Costs measureEditor(const QString &text)
{
    EdCodeEdit edit;
    edit.setLanguage(MelLanguage);
    edit.setText(text);
    edit.resize(1200, 700);
    edit.show();
    edit.highlighter()->finish();
    edit.setCursorPosition(int(edit.text().size()));
    QApplication::processEvents();
    Costs costs;
    const auto type = [&edit](int key, const QString &letter) { press(&edit, key, letter); };
    for (int i = 0; i < rounds; ++i) {
        const double opening = ownTime([&] { type(Qt::Key_P, QString::fromLatin1("p")); });
        if (!edit.completer()->isVisible())
            std::printf("no popup\n");
        if (i > 0) // the first sorts the names, once for all
            costs.opening.push_back(opening);
        else
            std::printf("the first popup of all took %.1f ms\n", opening);
        typeAndDelete(type, &costs.narrowing);
        if (!edit.completer()->isVisible())
            std::printf("the popup has gone\n");
        press(&edit, Qt::Key_Escape, QString());
        press(&edit, Qt::Key_Backspace, QString());
    }
    return costs;
}

// The same letters into a line edit, with Qt's completion of sorted names.
Costs measurePeer(QStringList all)
{
    QLineEdit edit;
    edit.show();
    std::sort(all.begin(), all.end(), [](const QString &a, const QString &b) {
        return QString::compare(a, b, Qt::CaseInsensitive) < 0;
    });
    QCompleter completer(all);
    completer.setCaseSensitivity(Qt::CaseInsensitive);
    completer.setModelSorting(QCompleter::CaseInsensitivelySortedModel);
    completer.setWidget(&edit);
    QString prefix;
    const auto type = [&](int key, const QString &letter) {
        if (key == Qt::Key_Backspace)
            prefix.chop(1);
        else
            prefix += letter;
        completer.setCompletionPrefix(prefix);
        completer.complete();
    };
    Costs costs;
    for (int i = 0; i < rounds; ++i) {
        costs.opening.push_back(ownTime([&] { type(Qt::Key_P, QString::fromLatin1("p")); }));
        typeAndDelete(type, &costs.narrowing);
        completer.popup()->hide();
        prefix.clear();
    }
    return costs;
}

bool measure(int count, const QString &text)
{
    melNames().names.clear();
    for (const QString &name : names(count))
        melNames().names.push_back({name, CommandKind::Command});
    ++melNames().version;
    const Costs own = measureEditor(text);
    const Costs peer = measurePeer(names(count));
    std::printf(
        "%d names: opens in %.2f ms, narrows in %.2f ms; QCompleter %.2f and %.2f (95 %%)\n", count,
        percentile95(own.opening), percentile95(own.narrowing), percentile95(peer.opening),
        percentile95(peer.narrowing));
    const double bound = std::max(1.0, count / 2500.0);
    bool ok = isAtMost("opening, ms", percentile95(own.opening), longestOpening);
    ok &= isAtMost("a letter, ms", percentile95(own.narrowing), longestNarrowing * bound);
    return isAtMost("a letter / in QCompleter",
                    percentile95(own.narrowing) / percentile95(peer.narrowing), 1.5) &&
           ok;
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    preferences().melCompleteOnLetters = true;
    const Scripts scripts;
    setOpenScripts(&scripts);
    const QString text = melSample(10000) + longProcedure();
    bool ok = measure(2500, text);
    ok &= measure(10000, text);
    return ok ? 0 : 1;
}
