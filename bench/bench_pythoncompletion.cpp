// SPDX-License-Identifier: MIT
// How long Python's completions take from the key to the painted list: with 2,500 commands behind
// "cmds.", and in texts that are long, dense or broken.
#include "bench/measure.h"
#include "bench/sampletext.h"
#include "bridge/pythonanalysis.h"
#include "editor/edcodeedit.h"
#include "editor/edcompleter.h"
#include "editor/editorlanguage.h"
#include "preferences/preferences.h"
#include "standin/host/session.h"
#include "standin/python/python.h"

#include <QApplication>
#include <QDir>
#include <QKeyEvent>
#include <QTextCursor>

#include <vector>

namespace {

const double mostForCommands = 30.0; // ms, of 95 %
const double mostForAny = 100.0;     // ms, of the slowest
const int commands = 2500;
const int longText = 1000000;

void press(EdCodeEdit &edit, int key, const char *text)
{
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, QString::fromLatin1(text));
    QApplication::sendEvent(&edit, &event);
    QApplication::processEvents();
}

void typeNames(EdCodeEdit &edit, const char *names)
{
    QTextCursor caret = edit.textCursor();
    caret.movePosition(QTextCursor::StartOfBlock, QTextCursor::KeepAnchor);
    caret.insertText(QString::fromLatin1(names));
    edit.setTextCursor(caret);
    QApplication::processEvents();
}

// Sorted, in milliseconds. The text has an empty line for the caret after `before` units.
std::vector<double> measured(const QString &text, int before, int rounds)
{
    EdCodeEdit edit;
    edit.resize(900, 700);
    edit.setLanguage(PythonLanguage);
    edit.setText(text);
    edit.show();
    QTextCursor caret(edit.document());
    caret.setPosition(before);
    edit.setTextCursor(caret);
    std::vector<double> times;
    for (int i = 0; i < rounds; ++i) {
        typeNames(edit, i % 2 ? "cmds" : "    cmds");
        times.push_back(bestTime(1, [&edit] { press(edit, Qt::Key_Period, "."); }));
        if (edit.completer()->model()->rowCount() < commands)
            times.back() = 1e9;
        edit.completer()->hide();
    }
    std::sort(times.begin(), times.end());
    return times;
}

bool measureCommands()
{
    const QString text = QLatin1String("import maya.cmds as cmds\n") + pythonSample(200);
    const std::vector<double> times = measured(text + QLatin1Char('\n'), int(text.size()) + 1, 200);
    return isAtMost("2,500 commands, ms of 95 %", times[times.size() * 95 / 100], mostForCommands);
}

QString repeated(const char *pattern)
{
    return QString::fromLatin1(pattern).repeated(longText / int(qstrlen(pattern)));
}

bool measureText(const char *what, const QString &text)
{
    const int middle = int(text.indexOf(QLatin1Char('\n'), text.size() / 2)) + 1;
    const QString begun = QLatin1String("import maya.cmds as cmds\n") + text.left(middle);
    const QString whole = begun + QLatin1Char('\n') + text.mid(middle);
    return isAtMost(what, measured(whole, int(begun.size()), 9).back(), mostForAny);
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    standin::SessionOptions options;
    options.userDirectory =
        QDir::tempPath() +
        QString::fromLatin1("/corvane-bench-%1").arg(QCoreApplication::applicationPid());
    standin::Session session(options);
    session.setPython(standin::createPythonEngine(session, session.mel()));
    if (!loadPythonAnalysis())
        return 1;
    setPythonNameSource(pythonAnswer);
    executePythonStatement(
        QString::fromLatin1("import maya.cmds\n"
                            "for i in range(%1):\n"
                            "    setattr(maya.cmds, 'benchCommand%d' % i, len)\n")
            .arg(commands));
    bool ok = measureCommands();
    ok &= measureText("text of 1 MB, ms at most", pythonSample(longText / 34));
    ok &= measureText("the same, broken", repeated("def f(a):\n    b = (a,\n    c = [1\n"));
    ok &= measureText("short statements", repeated("a=1\n"));
    ok &= measureText("imports", repeated("import a.b\n"));
    ok &= measureText("one statement", repeated("a,\\\n"));
    ok &= measureText("open brackets", repeated("(\n"));
    setPythonNameSource(nullptr);
    return ok ? 0 : 1;
}
