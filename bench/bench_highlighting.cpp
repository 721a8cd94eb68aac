// SPDX-License-Identifier: MIT
// How fast lines are coloured: the scanners against KSyntaxHighlighting without a document, the
// highlighters in a document against its highlighter and against one that does nothing.
#include "bench/measure.h"
#include "bench/sampletext.h"
#include "editor/edhighlighter.h"
#include "editor/melscanner.h"
#include "editor/pythonscanner.h"

#include <KSyntaxHighlighting/AbstractHighlighter>
#include <KSyntaxHighlighting/Definition>
#include <KSyntaxHighlighting/Format>
#include <KSyntaxHighlighting/Repository>
#include <KSyntaxHighlighting/State>
#include <KSyntaxHighlighting/SyntaxHighlighter>
#include <KSyntaxHighlighting/Theme>

#include <QApplication>
#include <QPlainTextDocumentLayout>
#include <QStringList>
#include <QSyntaxHighlighter>
#include <QTextDocument>

namespace {

const int lines = 100000;
const int rounds = 7;

QHash<QString, QString> commandNames()
{
    QHash<QString, QString> names;
    for (const char *name : {"joint", "select", "sphere", "ls", "print", "size"})
        names.insert(QLatin1String(name), QLatin1String(name));
    return names;
}

class PeerScanner : public KSyntaxHighlighting::AbstractHighlighter
{
public:
    void scan(const QStringList &text)
    {
        KSyntaxHighlighting::State state;
        for (const QString &line : text)
            state = highlightLine(line, state);
    }

    int spans = 0;

protected:
    void applyFormat(int, int, const KSyntaxHighlighting::Format &) override { ++spans; }
};

class EmptyHighlighter : public QSyntaxHighlighter
{
public:
    using QSyntaxHighlighter::QSyntaxHighlighter;

protected:
    void highlightBlock(const QString &) override {}
};

double scanTime(LineScanner &scanner, const QStringList &text)
{
    return bestTime(rounds, [&] {
        LineScan scan;
        int state = -1;
        for (const QString &line : text) {
            scanner.scan(line, state, scan);
            state = scan.state;
        }
    });
}

// The layout is that of a text edit for code.
template <typename Highlighter, typename Prepare>
double highlightTime(const QString &text, Prepare prepare)
{
    QTextDocument document(text);
    document.setDocumentLayout(new QPlainTextDocumentLayout(&document));
    Highlighter highlighter(&document);
    prepare(highlighter);
    return bestTime(rounds, [&] { highlighter.rehighlight(); });
}

template <typename Highlighter>
double highlightTime(const QString &text)
{
    return highlightTime<Highlighter>(text, [](Highlighter &) {});
}

template <typename Scanner, typename OwnHighlighter>
bool measure(const KSyntaxHighlighting::Definition &definition, const QString &text)
{
    const QStringList split = text.split(QLatin1Char('\n'));
    PeerScanner peer;
    peer.setDefinition(definition);
    const QHash<QString, QString> names = commandNames();
    Scanner scanner(names);
    const double peerScan = bestTime(rounds, [&] { peer.scan(split); });
    const double ownScan = scanTime(scanner, split);
    std::printf("%s: the scanner takes %.0f ms for %d lines\n", qPrintable(definition.name()),
                ownScan, int(split.size()));
    bool ok = isAtLeast("scanner / KSyntaxHighlighting's, speed", peerScan / ownScan, 15.0);

    using PeerHighlighter = KSyntaxHighlighting::SyntaxHighlighter;
    const double own = highlightTime<OwnHighlighter>(text);
    const double floor = highlightTime<EmptyHighlighter>(text);
    const double peerTime = highlightTime<PeerHighlighter>(
        text, [&](PeerHighlighter &highlighter) { highlighter.setDefinition(definition); });
    ok &= isAtLeast("highlighter / KSyntaxHighlighting's, speed", peerTime / own, 3.0);
    ok &= isAtLeast("highlighter / one that does nothing, speed", floor / own, 0.4);
    return ok;
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    KSyntaxHighlighting::Repository repository;
    const auto mel = repository.definitionForFileName(QLatin1String("a.mel"));
    const auto python = repository.definitionForFileName(QLatin1String("a.py"));
    if (!mel.isValid() || !python.isValid()) {
        std::printf("KSyntaxHighlighting does not know the languages\n");
        return 1;
    }
    bool ok = measure<MelScanner, EdHighlighterMel>(mel, melSample(lines));
    ok &= measure<PythonScanner, EdHighlighterPython>(python, pythonSample(lines));
    return ok ? 0 : 1;
}
