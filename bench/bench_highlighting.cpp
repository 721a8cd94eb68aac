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

#include <algorithm>

namespace {

const int lines = 100000;
const int rounds = 15;

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

void scan(LineScanner &scanner, const QStringList &text)
{
    LineScan result;
    int state = -1;
    for (const QString &line : text) {
        scanner.scan(line, state, result);
        state = result.state;
    }
}

void highlightAll(QSyntaxHighlighter &highlighter)
{
    highlighter.rehighlight();
}

void highlightAll(EdHighlighter &highlighter)
{
    highlighter.highlightAgain();
    highlighter.finish();
}

// A document with the layout of a text edit for code, and its highlighter.
template <typename Highlighter>
struct Highlighted
{
    explicit Highlighted(const QString &text) : document(text), highlighter(&document)
    {
        document.setDocumentLayout(new QPlainTextDocumentLayout(&document));
    }

    void measure()
    {
        time = std::min(time, bestTime(1, [this] { highlightAll(highlighter); }));
    }

    QTextDocument document;
    Highlighter highlighter;
    double time = 1e9;
};

template <typename Scanner>
bool measureScanner(const KSyntaxHighlighting::Definition &definition, const QString &text)
{
    const QStringList split = text.split(QLatin1Char('\n'));
    const QHash<QString, QString> names = commandNames();
    Scanner scanner(names);
    PeerScanner peer;
    peer.setDefinition(definition);
    double own = 1e9;
    double other = 1e9;
    for (int i = 0; i < rounds; ++i) {
        own = std::min(own, bestTime(1, [&] { scan(scanner, split); }));
        other = std::min(other, bestTime(1, [&] { peer.scan(split); }));
    }
    std::printf("%s: the scanner takes %.1f ms for %d lines\n", qPrintable(definition.name()), own,
                int(split.size()));
    return isAtLeast("scanner / KSyntaxHighlighting's, speed", other / own, 15.0);
}

// In turns, so that what slows the machine down for a while slows down all three.
template <typename OwnHighlighter>
bool measureHighlighter(const KSyntaxHighlighting::Definition &definition, const QString &text)
{
    Highlighted<OwnHighlighter> own(text);
    Highlighted<EmptyHighlighter> floor(text);
    Highlighted<KSyntaxHighlighting::SyntaxHighlighter> peer(text);
    peer.highlighter.setDefinition(definition);
    for (int i = 0; i < rounds; ++i) {
        own.measure();
        floor.measure();
        peer.measure();
    }
    const bool ok =
        isAtLeast("highlighter / KSyntaxHighlighting's, speed", peer.time / own.time, 3.0);
    return isAtLeast("highlighter / one that does nothing, speed", floor.time / own.time, 0.4) &&
           ok;
}

template <typename Scanner, typename OwnHighlighter>
bool measure(const KSyntaxHighlighting::Definition &definition, const QString &text)
{
    const bool ok = measureScanner<Scanner>(definition, text);
    return measureHighlighter<OwnHighlighter>(definition, text) && ok;
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
