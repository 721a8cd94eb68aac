// SPDX-License-Identifier: MIT
// What a key costs in the editor, from its event to the repainted window, against the same key in a
// plain text edit, in turns in the same run; and how long a large paste takes in either.
#include "analysis/diagnosticlist.h"
#include "bench/measure.h"
#include "bench/sampletext.h"
#include "editor/edcodeedit.h"
#include "editor/edhighlighter.h"
#include "editor/editorlanguage.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QTextBlock>

#include <algorithm>
#include <ctime>
#include <vector>

namespace {

const int rounds = 3;
const int keys = 300;
const int keysOfLine = 100;
const int fewErrors = 200;
const int manyErrors = 10000;

// Milliseconds of a key each, sorted: the program's own, for a key takes less than the turn of
// another program that comes between.
typedef std::vector<double> KeyTimes;

double median(const KeyTimes &times)
{
    return times[times.size() / 2];
}

double percentile99(const KeyTimes &times)
{
    return times[times.size() * 99 / 100];
}

double keyTime(QWidget &edit, const QString &text)
{
    const std::clock_t start = std::clock();
    QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, text);
    QApplication::sendEvent(&edit, &press);
    QApplication::processEvents(); // paints as well
    return double(std::clock() - start) * 1000 / CLOCKS_PER_SEC;
}

struct Editors
{
    explicit Editors(const QString &text)
    {
        own.setLanguage(MelLanguage);
        own.setText(text);
        plain.setFont(own.font());
        plain.setLineWrapMode(QPlainTextEdit::NoWrap);
        plain.setPlainText(text);
        for (QPlainTextEdit *edit : {static_cast<QPlainTextEdit *>(&own), &plain}) {
            edit->resize(1400, 700);
            edit->show();
        }
        own.highlighter()->finish();
        QApplication::processEvents();
    }

    // The caret at the end of a line, and that in the middle of the page.
    void goTo(int line)
    {
        for (QPlainTextEdit *edit : {static_cast<QPlainTextEdit *>(&own), &plain}) {
            QTextCursor cursor(edit->document()->findBlockByNumber(line));
            cursor.movePosition(QTextCursor::EndOfBlock);
            edit->setTextCursor(cursor);
            edit->centerCursor();
        }
        QApplication::processEvents();
    }

    EdCodeEdit own;
    QPlainTextEdit plain;
};

// Spread over the text, one character each.
void addErrors(EdCodeEdit &edit, int count)
{
    DiagnosticList errors;
    const int distance = edit.document()->characterCount() / count;
    for (int i = 0; i < count; ++i)
        errors.add(QString::fromLatin1("an error"), i * distance, i * distance + 1);
    edit.setErrors(errors);
}

struct Typing
{
    // What other programs take away only makes keys longer.
    void keepBest(const Typing &other)
    {
        for (size_t i = 0; i < own.size(); ++i) {
            own[i] = std::min(own[i], other.own[i]);
            plain[i] = std::min(plain[i], other.plain[i]);
        }
    }

    KeyTimes own;
    KeyTimes plain;
};

Typing type(Editors &editors, int count)
{
    const QString letters = QString::fromLatin1("select ball ");
    Typing typing;
    const int firstLine = editors.own.currentLine() - 1;
    for (int i = 0; i < count; ++i) {
        // Not beyond the view's right edge, where either has to scroll.
        if (i % keysOfLine == 0)
            editors.goTo(firstLine + i / keysOfLine);
        const QString letter(letters[i % letters.size()]);
        typing.plain.push_back(keyTime(editors.plain, letter));
        typing.own.push_back(keyTime(editors.own, letter));
    }
    std::sort(typing.own.begin(), typing.own.end());
    std::sort(typing.plain.begin(), typing.plain.end());
    return typing;
}

Typing typeInTheMiddle(int lines, int errors)
{
    Editors editors(melSample(lines));
    addErrors(editors.own, errors);
    editors.goTo(lines / 2 + 4);
    Typing typing = type(editors, keys);
    for (int i = 1; i < rounds; ++i) {
        editors.goTo(lines / 2 + 4 + 20 * i);
        typing.keepBest(type(editors, keys));
    }
    std::printf("%d lines, %d errors: a key takes %.3f ms, in a plain text edit %.3f ms\n", lines,
                errors, median(typing.own), median(typing.plain));
    return typing;
}

bool measureTyping()
{
    const Typing few = typeInTheMiddle(1000, fewErrors);
    const Typing many = typeInTheMiddle(100000, fewErrors);
    const Typing crowded = typeInTheMiddle(100000, manyErrors);
    bool ok = true;
    for (const Typing &typing : {few, many}) {
        ok &= isAtMost("a key / one in a plain text edit",
                       median(typing.own) / median(typing.plain), 1.5);
        ok &= isAtMost("99 % of the keys / half of those in a plain text edit",
                       percentile99(typing.own) / median(typing.plain), 4);
    }
    ok &= isAtMost("a key with 10,000 errors / with 200", median(crowded.own) / median(many.own),
                   1.2);
    return isAtMost("a key in 100,000 lines / in 1,000", median(many.own) / median(few.own), 1.5) &&
           ok;
}

bool measureLongLine()
{
    Editors editors(melSample(40) + QString::fromLatin1("$a[0] = f(\"b\"); ").repeated(6250));
    editors.goTo(editors.own.blockCount() - 1);
    const Typing typing = type(editors, 15);
    return isAtMost("a key behind 100,000 characters / in a plain text edit",
                    median(typing.own) / median(typing.plain), 1.5);
}

bool measurePaste()
{
    Editors editors(melSample(1000));
    QApplication::clipboard()->setText(melSample(10000));
    double own = 1e9;
    double plain = 1e9;
    for (int i = 0; i < 5; ++i) {
        editors.goTo(500);
        const auto time = [](QPlainTextEdit &edit) {
            return bestTime(1, [&edit] {
                edit.paste();
                QApplication::processEvents();
            });
        };
        plain = std::min(plain, time(editors.plain));
        own = std::min(own, time(editors.own));
        editors.own.highlighter()->finish();
    }
    return isAtMost("pasting 10,000 lines / into a plain text edit", own / plain, 3);
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    bool ok = measureTyping();
    ok &= measureLongLine();
    ok &= measurePaste();
    return ok ? 0 : 1;
}
