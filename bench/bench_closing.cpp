// SPDX-License-Identifier: MIT
// What stays in use of the memory that a document of 100,000 lines took, once it is closed.
#include "bench/measure.h"
#include "bench/samplefolder.h"
#include "bench/sampletext.h"
#include "editor/edcodeedit.h"
#include "editor/edhighlighter.h"
#include "mainwindow/kestrowl.h"
#include "workspace/edcentralwidget.h"
#include "workspace/edcodeview.h"

#include <QApplication>
#include <QEventLoop>
#include <QFile>
#include <QTimer>

#include <malloc.h>

namespace {

const int lines = 100000;

struct Memory
{
    double used = 0;     // megabytes that the program holds
    double resident = 0; // and that the system has given it, some of it for later
};

double residentMegabytes()
{
    QFile statistics(QLatin1String("/proc/self/statm"));
    if (!statistics.open(QIODevice::ReadOnly))
        return 0;
    const int pagesOfMegabyte = 256;
    return statistics.readAll().split(' ').at(1).toDouble() / pagesOfMegabyte;
}

Memory memory()
{
    const auto info = mallinfo2();
    return {double(info.uordblks + info.hblkhd) / 1e6, residentMegabytes()};
}

// Until what waits for the event loop is done.
void runEventLoop()
{
    QEventLoop loop;
    QTimer::singleShot(300, &loop, SLOT(quit()));
    loop.exec();
}

void openAndColour(Kestrowl &window, const QString &path)
{
    window.open(path);
    const EdCodeEdit *edit = window.central()->currentCodeView()->codeEdit();
    while (edit->highlighter()->isPending())
        QApplication::processEvents();
    runEventLoop();
}

// After another of its kind was open, as lists and caches have been made then.
bool measureClosing(const char *kind, Kestrowl &window, const QString &small, const QString &path)
{
    openAndColour(window, small);
    window.closeTab();
    runEventLoop();
    const Memory before = memory();
    openAndColour(window, path);
    const Memory open = memory();
    window.closeTab();
    runEventLoop();
    const Memory after = memory();
    std::printf("%s: a document takes %.1f MB, of which %.2f MB stay in use (of the system's "
                "memory %.1f MB and %.1f MB)\n",
                kind, open.used - before.used, after.used - before.used,
                open.resident - before.resident, after.resident - before.resident);
    return isAtMost("in use after closing / while open",
                    (after.used - before.used) / (open.used - before.used), 0.1);
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const SampleFolder folder;
    const QString mel = folder.write(QLatin1String("a.mel"), melSample(lines));
    const QString python = folder.write(QLatin1String("a.py"), pythonSample(lines));
    const QString smallMel = folder.write(QLatin1String("b.mel"), melSample(100));
    const QString smallPython = folder.write(QLatin1String("b.py"), pythonSample(100));
    Kestrowl window(folder.path(), folder.path());
    window.show();
    const bool ok = measureClosing("MEL", window, smallMel, mel);
    return measureClosing("Python", window, smallPython, python) && ok ? 0 : 1;
}
