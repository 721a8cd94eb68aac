// SPDX-License-Identifier: MIT
// Find and replace in 100,000 lines of MEL: against a search of the same text held in a plain
// string, and against a loop over QTextDocument::find() in an editor with the same highlighter.
#include "bench/measure.h"
#include "bench/sampletext.h"
#include "editor/edcodeedit.h"
#include "editor/edhighlighter.h"
#include "editor/editblock.h"
#include "editor/editorlanguage.h"

#include <QApplication>

#include <ctime>
#include <functional>
#include <string>
#include <utility>

namespace {

const int lines = 100000;
const int rounds = 7;
const char wanted[] = "string $"; // three times in each piece of 20 lines
const char missing[] = "string %";

typedef std::function<void(EdCodeEdit &)> Step;

size_t countOf(const std::string &text, const char *part)
{
    const std::string searched(part);
    size_t count = 0;
    for (size_t at = 0; (at = text.find(searched, at)) != std::string::npos; at += searched.size())
        ++count;
    return count;
}

void show(EdCodeEdit &edit, const QString &text)
{
    edit.setLanguage(MelLanguage);
    edit.setText(text);
    edit.resize(1000, 700);
    edit.show();
    edit.highlighter()->finish();
    QApplication::processEvents();
}

FindRequest search(const char *text, int options)
{
    return {QString::fromLatin1(text), QString(), options};
}

// A change, after which everything known of the text is old.
void change(EdCodeEdit &edit)
{
    edit.textCursor().insertText(QString(QLatin1Char(' ')));
    edit.highlighter()->finish();
    QApplication::processEvents();
}

// Counts and marks all matches; "fresh" after a change.
bool measureFindAll(EdCodeEdit &edit, const std::string &text)
{
    size_t expected = 0;
    const double plain = bestTime(rounds, [&] { expected = countOf(text, wanted); });
    bool ok = true;
    for (int options : {int(FindRequest::CaseSensitive), 0}) {
        int count = 0;
        const double own = bestTime(rounds, [&] {
            edit.markMatches(search(wanted, options));
            count = edit.matchCount(search(wanted, options));
        });
        ok &= size_t(count) == expected;
        std::printf("%d matches: %.2f ms, in a string %.2f ms\n", count, own, plain);
        ok &= isAtMost(options ? "all matches / in a string" : "in any case / in a string",
                       own / plain, 4);
    }
    return ok;
}

bool measureMisses(EdCodeEdit &edit, const std::string &text)
{
    const QString other = QString::fromLatin1(missing);
    double pass = 1e9;
    double fresh = 1e9;
    for (int i = 0; i < rounds; ++i) {
        change(edit);
        pass = std::min(pass, bestTime(1, [&] { edit.document()->toPlainText().indexOf(other); }));
        const auto miss = [&] { edit.findReplace(other, QString(), FindRequest::CaseSensitive); };
        fresh = std::min(fresh, bestTime(1, miss));
    }
    size_t found = 0;
    const double plain = bestTime(rounds, [&] { found = text.find(missing); });
    const double again =
        bestTime(rounds, [&] { edit.findReplace(other, QString(), FindRequest::CaseSensitive); });
    std::printf("a miss: %.2f ms, again %.2f; a pass %.2f ms, over a string %.2f\n", fresh, again,
                pass, plain);
    return found == std::string::npos &&
           isAtMost("nothing found / one pass", fresh / pass, 1.5) &
               isAtMost("nothing found again / one pass over a string", again / plain, 1.5);
}

void replaceAll(EdCodeEdit &edit)
{
    edit.findReplace(QString::fromLatin1(wanted), QString::fromLatin1("float $"),
                     FindRequest::ReplaceAll | FindRequest::CaseSensitive);
    edit.highlighter()->finish();
}

void replaceOneByOne(EdCodeEdit &edit)
{
    QTextCursor cursor(edit.document());
    {
        const EditBlock step(cursor);
        QTextCursor match(edit.document());
        while (!(match = edit.document()->find(QString::fromLatin1(wanted), match,
                                               QTextDocument::FindCaseSensitively))
                    .isNull())
            match.insertText(QString::fromLatin1("float $"));
    }
    edit.highlighter()->finish();
}

void undo(EdCodeEdit &edit)
{
    edit.undo();
    edit.highlighter()->finish();
}

// Milliseconds of the program's own time, which others cannot make longer.
double ownTime(const std::function<void()> &work)
{
    const std::clock_t start = std::clock();
    work();
    return double(std::clock() - start) * 1000 / CLOCKS_PER_SEC;
}

// Replaces everything, and undoes that; keeps the best times of both.
struct Replacing
{
    Replacing(const QString &text, Step step) : replace(std::move(step)) { show(edit, text); }

    void perform()
    {
        replacing = std::min(replacing, ownTime([this] { replace(edit); }));
        QApplication::processEvents();
        undoing = std::min(undoing, ownTime([this] { undo(edit); }));
        QApplication::processEvents();
    }

    EdCodeEdit edit;
    Step replace;
    double replacing = 1e9;
    double undoing = 1e9;
};

bool measureReplacing(const QString &text)
{
    Replacing own(text, replaceAll);
    Replacing plain(text, replaceOneByOne);
    for (int i = 0; i < rounds; ++i) {
        own.perform();
        plain.perform();
    }
    std::printf("replacing all: %.1f ms, one by one %.1f; undo: %.1f ms and %.1f\n", own.replacing,
                plain.replacing, own.undoing, plain.undoing);
    bool ok = isAtMost("replacing all / one by one", own.replacing / plain.replacing, 1);
    // The steps to undo are the same; what differs is chance.
    ok &= isAtMost("undoing that / undoing one by one", own.undoing / plain.undoing, 1.1);
    return ok;
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const QString text = melSample(lines);
    const std::string bytes = text.toUtf8().constData();
    EdCodeEdit edit;
    show(edit, text);
    bool ok = measureFindAll(edit, bytes);
    ok &= measureMisses(edit, bytes);
    ok &= measureReplacing(text);
    return ok ? 0 : 1;
}
