// SPDX-License-Identifier: MIT
// The longest that the interface stands still after a pause in typing, with 10,000 lines in the
// editor: what they are parsed into is marked in the text and shown in the outline, and Python is
// asked about errors. Painting counts too.
#include "analysis/edoutlineview.h"
#include "bench/measure.h"
#include "bench/sampletext.h"
#include "bridge/pythonanalysis.h"
#include "bridge/pythonsyntaxcheck.h"
#include "editor/edcodeedit.h"
#include "standin/host/session.h"
#include "standin/python/python.h"
#include "workspace/edcodeview.h"
#include "workspace/scriptdetails.h"

#include <QApplication>
#include <QDir>
#include <QFile>

#include <algorithm>
#include <memory>

namespace {

const int lines = 10000;
const int rounds = 9;
const double longestPause = 8.0; // ms

// Adds up the blocks of one pause: the longest is what the user can feel.
class Pause
{
public:
    template <typename Work>
    void block(Work work)
    {
        m_longest = std::max(m_longest, bestTime(1, work));
    }
    double longest() const { return m_longest; }

private:
    double m_longest = 0;
};

void showOutline(EdOutlineView &outline, const ScriptDetails &details)
{
    if (details.python())
        outline.parsePythonCode(*details.python());
    else
        outline.parseMelCode(*details.mel());
}

// From the change of a line, which may shift all marks, to the interpreter's answer.
double pauseAfterChange(EdCodeView &view, EdOutlineView &outline)
{
    view.codeEdit()->insertPlainText(QLatin1String("\n"));
    QApplication::processEvents();
    Pause pause;
    pause.block([&view] { ScriptDetails::of(&view); });
    pause.block([&] { showOutline(outline, ScriptDetails::of(&view)); });
    do {
        pause.block([] { QApplication::processEvents(); });
    } while (view.findChild<SyntaxCheck *>());
    return pause.longest();
}

bool measure(const char *what, EdCodeView::Language language, const QString &text)
{
    EdCodeView view(0, language);
    EdOutlineView outline;
    view.resize(900, 700);
    view.codeEdit()->setText(text);
    view.show();
    outline.show();
    pauseAfterChange(view, outline);
    double best = 1e9;
    for (int i = 0; i < rounds; ++i)
        best = std::min(best, pauseAfterChange(view, outline));
    view.removeBufferFile();
    return isAtMost(what, best, longestPause);
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    standin::SessionOptions options;
    options.userDirectory =
        QDir::tempPath() +
        QString::fromLatin1("/corvane-bench-%1").arg(QCoreApplication::applicationPid());
    QDir().mkpath(options.userDirectory);
    EdCodeView::setBufferDirectory(QDir(options.userDirectory));
    standin::Session session(options);
    session.setPython(standin::createPythonEngine(session, session.mel()));
    if (!loadPythonAnalysis())
        return 1;
    setPythonSyntaxCheck(PythonSyntaxCheck::start);
    const QString python = pythonSample(lines);
    bool ok = measure("MEL, ms without a break", EdCodeView::Mel, melSample(lines));
    ok &= measure("Python, ms without a break", EdCodeView::Python, python);
    // Valid, but not to the parser, so that Python has to read all of it.
    ok &= measure("Python that is checked, ms without a break", EdCodeView::Python,
                  QLatin1String("x = 1 + \\\n    2\n") + python);
    setPythonSyntaxCheck(nullptr);
    return ok ? 0 : 1;
}
