// SPDX-License-Identifier: MIT
// How long it takes to show 100,000 lines in the editor, the first page coloured, and how much
// memory they take once all lines are, against a plain text edit.
#include "bench/measure.h"
#include "bench/sampletext.h"
#include "compat/layoutformats.h"
#include "editor/edcodeedit.h"
#include "editor/edhighlighter.h"
#include "editor/editorlanguage.h"

#include <QApplication>
#include <QFile>
#include <QProcess>
#include <QStringList>

#include <memory>

namespace {

const int lines = 100000;
const int rounds = 7;

// Shown, and painted once.
std::unique_ptr<EdCodeEdit> openInEditor(const QString &text)
{
    auto edit = std::make_unique<EdCodeEdit>();
    edit->resize(900, 700);
    edit->setLanguage(MelLanguage);
    edit->setText(text);
    edit->show();
    QApplication::processEvents();
    return edit;
}

std::unique_ptr<QPlainTextEdit> openPlainly(const QString &text)
{
    auto edit = std::make_unique<QPlainTextEdit>();
    edit->resize(900, 700);
    edit->setLineWrapMode(QPlainTextEdit::NoWrap);
    edit->setPlainText(text);
    edit->show();
    QApplication::processEvents();
    return edit;
}

bool measureTime(const QString &text)
{
    double own = 1e9;
    double plain = 1e9;
    bool isColoured = true;
    for (int i = 0; i < rounds; ++i) {
        std::unique_ptr<QPlainTextEdit> plainEdit;
        std::unique_ptr<EdCodeEdit> edit;
        plain = std::min(plain, bestTime(1, [&] { plainEdit = openPlainly(text); }));
        own = std::min(own, bestTime(1, [&] { edit = openInEditor(text); }));
        isColoured = isColoured && !compat::layoutFormats(edit->document()->begin()).isEmpty();
    }
    std::printf("100,000 lines are shown after %.0f ms, in a plain text edit after %.0f ms\n", own,
                plain);
    if (!isColoured)
        std::printf("The first page has no colours.\n");
    return isAtMost("opening / in a plain text edit", own / plain, 1.5) && isColoured;
}

// Of this process and in real memory; 0 where the system does not tell.
double megabytes()
{
    QFile statistics(QLatin1String("/proc/self/statm"));
    if (!statistics.open(QIODevice::ReadOnly))
        return 0;
    const int pagesOfMegabyte = 256;
    return statistics.readAll().split(' ').at(1).toDouble() / pagesOfMegabyte;
}

double growthInEditor(const QString &text)
{
    openInEditor(QString());
    const double before = megabytes();
    const auto edit = openInEditor(text);
    while (edit->highlighter()->isPending())
        QApplication::processEvents();
    return megabytes() - before;
}

double growthPlainly(const QString &text)
{
    openPlainly(QString());
    const double before = megabytes();
    const auto edit = openPlainly(text);
    return megabytes() - before;
}

// In a process of its own, for memory that was used before would be used again.
double growthOf(const char *which)
{
    QProcess process;
    process.start(QApplication::applicationFilePath(), QStringList() << QLatin1String(which));
    process.waitForFinished(60000);
    return process.readAllStandardOutput().trimmed().toDouble();
}

bool measureMemory()
{
    const double own = growthOf("editor");
    const double plain = growthOf("plain");
    if (plain <= 0 || own <= 0) {
        std::printf("cannot measure memory\n");
        return false;
    }
    std::printf("100,000 lines take %.1f MB, in a plain text edit %.1f MB\n", own, plain);
    return isAtMost("memory / in a plain text edit", own / plain, 1.6);
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const QString text = melSample(lines);
    if (argc > 1) {
        const bool inEditor = application.arguments().at(1) == QLatin1String("editor");
        std::printf("%.1f\n", inEditor ? growthInEditor(text) : growthPlainly(text));
        return 0;
    }
    const bool ok = measureTime(text);
    return measureMemory() && ok ? 0 : 1;
}
