// SPDX-License-Identifier: MIT
#include "analysis/baseparser.h"
#include "editor/linescanner.h"
#include "preferences/colorsets.h"
#include "tests/support/scriptdump.h"
#include "tests/support/testmain.h"

#include <QDir>
#include <QFile>
#include <QStringList>

#include <algorithm>

class GoldenTest : public QObject
{
    Q_OBJECT

private slots:
    void everyScriptGivesItsAcceptedOutput_data();
    void everyScriptGivesItsAcceptedOutput();
    void everyOutputHasItsScript_data();
    void everyOutputHasItsScript();
    void everythingOccursSomewhere_data();
    void everythingOccursSomewhere();
    void everyPrefixStaysInItsText_data();
    void everyPrefixStaysInItsText();
};

namespace {

QDir folder(const QString &language)
{
    return QDir(QString::fromUtf8(CORVANE_GOLDEN_DIR) + QLatin1Char('/') + language);
}

ScriptLanguage languageOf(const QString &name)
{
    return name == QLatin1String("mel") ? ScriptLanguage::Mel : ScriptLanguage::Python;
}

QStringList languages()
{
    return QStringList() << QString::fromLatin1("mel") << QString::fromLatin1("python");
}

QStringList scripts(const QString &language)
{
    const QStringList suffixes = QStringList()
                                 << QString::fromLatin1("*.mel") << QString::fromLatin1("*.py");
    return folder(language).entryList(suffixes, QDir::Files, QDir::Name);
}

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString scriptIn(const QString &language, const QString &file)
{
    return scriptText(contents(folder(language).filePath(file)));
}

const QHash<QString, QString> &commands()
{
    static const QHash<QString, QString> names =
        namesFrom(contents(QString::fromUtf8(CORVANE_GOLDEN_DIR "/names.txt")));
    return names;
}

QByteArray accepted(const QString &language, const QString &file)
{
    return contents(folder(language).filePath(file + QLatin1String(".json")));
}

void addScriptRows()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("file");
    for (const QString &language : languages()) {
        for (const QString &file : scripts(language))
            QTest::newRow(qPrintable(language + QLatin1Char('/') + file)) << language << file;
    }
}

// Empty when the two are alike.
QByteArray firstDifference(const QByteArray &accepted, const QByteArray &actual)
{
    const QList<QByteArray> before = accepted.split('\n');
    const QList<QByteArray> now = actual.split('\n');
    for (int i = 0; i < std::max(before.size(), now.size()); ++i) {
        if (before.value(i) != now.value(i))
            return "line " + QByteArray::number(i + 1) + "\naccepted: " + before.value(i) +
                   "\nactual:   " + now.value(i);
    }
    return QByteArray();
}

bool outlineIsInside(const BaseParser &parser, int size)
{
    for (const OutlineItem &item : parser.outlineItems()) {
        // An alias that is still to be typed begins where the text ends.
        if (item.position < 0 || item.position > size || item.depth < 0 || item.name.isEmpty())
            return false;
    }
    return true;
}

bool isInside(const DiagnosticList &list, int size)
{
    for (int i = 0; i < list.count(); ++i) {
        // The text that is parsed has one more line feed; "-1" is its end.
        if (list.starts[i] < 0 || list.starts[i] > size || list.ends[i] < -1 ||
            list.ends[i] > size + 1)
            return false;
    }
    return true;
}

bool spansAreInOrder(const LineScan &scan, int size)
{
    int end = 0;
    for (const FormatSpan &span : scan.spans) {
        if (span.start < end || span.length <= 0)
            return false;
        end = span.start + span.length;
    }
    return end <= size;
}

bool scansInsideItsLines(LineScanner &scanner, const QString &text)
{
    LineScan scan;
    int state = -1;
    for (const QString &line : text.split(QLatin1Char('\n'))) {
        scanner.scan(line, state, scan);
        if (!spansAreInOrder(scan, int(line.size())))
            return false;
        state = scan.state;
    }
    return true;
}

void addOccurrence(const char *language, const QByteArray &text)
{
    QTest::newRow((language + (' ' + text)).constData()) << QString::fromLatin1(language) << text;
}

void addKindsAndStates(const char *language, int firstKind, int lastKind, int lastState)
{
    for (int kind = firstKind; kind <= lastKind; ++kind)
        addOccurrence(language, '[' + QByteArray::number(kind) + ", \"");
    for (int state = 0; state <= lastState; ++state)
        addOccurrence(language, "{\"state\": " + QByteArray::number(state) + ',');
}

void addCategories(const char *language, EditorText first, EditorText last)
{
    for (int i = int(first); i <= int(last); ++i)
        addOccurrence(language, QByteArray(", \"") + textName(EditorText(i)) + "\"]");
}

void addMessage(const char *language, const QByteArray &message)
{
    addOccurrence(language, "[\"" + message + "\", ");
}

} // namespace

void GoldenTest::everyScriptGivesItsAcceptedOutput_data()
{
    addScriptRows();
}

void GoldenTest::everyScriptGivesItsAcceptedOutput()
{
    QFETCH(QString, language);
    QFETCH(QString, file);
    const QByteArray actual = scriptDump(languageOf(language), file, scriptIn(language, file),
                                         commands(), DumpLayout::Lines) +
                              '\n';
    const QByteArray difference = firstDifference(accepted(language, file), actual);
    QVERIFY2(difference.isEmpty(), difference.constData());
}

void GoldenTest::everyOutputHasItsScript_data()
{
    QTest::addColumn<QString>("language");
    for (const QString &language : languages())
        QTest::newRow(qPrintable(language)) << language;
}

void GoldenTest::everyOutputHasItsScript()
{
    QFETCH(QString, language);
    QStringList expected;
    for (const QString &file : scripts(language))
        expected << file << file + QLatin1String(".json");
    QStringList found = folder(language).entryList(QDir::Files);
    expected.sort();
    found.sort();
    QCOMPARE(found, expected);
}

void GoldenTest::everythingOccursSomewhere_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QByteArray>("text");
    addKindsAndStates("mel", GlobalProcedureItem, GlobalVariableItem, 2);
    addKindsAndStates("python", ImportItem, ClassItem, 4);
    addCategories("mel", EditorText::MelKeywords, EditorText::MelComments);
    addCategories("python", EditorText::PythonKeywords, EditorText::PythonMelCommands);
    addMessage("mel", "Empty line(s) at start of file. Line numbers in trace may be incorrect.");
    addMessage("mel", "TODO:");
    for (const char *message :
         {"Expected an indented block", "Unexpected indent",
          "Unindent does not match any outer indentation level",
          "Indent contains both tabs and spaces", "Unterminated String", "TODO:", "Expected a ')'",
          "Expected a '}'", "Expected a ']'", "Unexpected ')'", "Unexpected '}'", "Unexpected ']'"})
        addMessage("python", message);
}

// A quote inside a text of the output has a backslash before it, so that only the output itself
// can hold these.
void GoldenTest::everythingOccursSomewhere()
{
    QFETCH(QString, language);
    QFETCH(QByteArray, text);
    for (const QString &file : scripts(language)) {
        if (accepted(language, file).contains(text))
            return;
    }
    QFAIL("No script shows it.");
}

void GoldenTest::everyPrefixStaysInItsText_data()
{
    addScriptRows();
}

void GoldenTest::everyPrefixStaysInItsText()
{
    QFETCH(QString, language);
    QFETCH(QString, file);
    const QString text = scriptIn(language, file);
    const std::unique_ptr<BaseParser> parser = parserFor(languageOf(language));
    const std::unique_ptr<LineScanner> scanner = scannerFor(languageOf(language), commands());
    for (int size = 0; size <= text.size(); ++size) {
        const QString prefix = text.left(size);
        parser->parse(prefix, file);
        const bool isInsideText =
            outlineIsInside(*parser, size) && isInside(parser->errors(), size) &&
            isInside(parser->warnings(), size) && isInside(parser->todos(), size) &&
            scansInsideItsLines(*scanner, prefix);
        QVERIFY2(isInsideText, QByteArray::number(size).constData());
    }
}

CORVANE_TEST_MAIN(GoldenTest)

#include "tst_golden.moc"
