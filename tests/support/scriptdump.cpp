// SPDX-License-Identifier: MIT
#include "tests/support/scriptdump.h"

#include "analysis/melparser.h"
#include "analysis/pythonparser.h"
#include "editor/melscanner.h"
#include "editor/pythonscanner.h"
#include "preferences/colorsets.h"

#include <QStringList>

#include <memory>

namespace {

QByteArray quoted(const QString &text)
{
    QString escaped;
    for (int i = 0; i < text.size(); ++i) {
        const QChar unit = text[i];
        const bool startsPair =
            unit.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        if (unit == QLatin1Char('"') || unit == QLatin1Char('\\'))
            escaped += QLatin1Char('\\');
        if (startsPair)
            escaped += text.mid(i++, 2);
        else if (unit.unicode() < 0x20 || unit.isHighSurrogate() || unit.isLowSurrogate())
            escaped +=
                QString::fromLatin1("\\u%1").arg(uint(unit.unicode()), 4, 16, QLatin1Char('0'));
        else
            escaped += unit;
    }
    return '"' + escaped.toUtf8() + '"';
}

QByteArray number(int value)
{
    return QByteArray::number(value);
}

// Values between brackets, commas between them.
class Array
{
public:
    explicit Array(const char *separator = ", ") : m_separator(separator) {}

    Array &operator<<(const QByteArray &value)
    {
        if (!m_text.isEmpty())
            m_text += m_separator;
        m_text += value;
        return *this;
    }

    QByteArray json() const { return '[' + m_text + ']'; }

private:
    const char *m_separator;
    QByteArray m_text;
};

QByteArray outlineJson(const BaseParser &parser, const char *separator)
{
    Array items(separator);
    for (const OutlineItem &item : parser.outlineItems())
        items << (Array() << number(item.kind) << quoted(item.name) << number(item.position)
                          << number(item.depth))
                     .json();
    return items.json();
}

QByteArray diagnosticsJson(const DiagnosticList &list, const char *separator)
{
    Array entries(separator);
    for (int i = 0; i < list.count(); ++i)
        entries << (Array() << quoted(list.messages[i]) << number(list.starts[i])
                            << number(list.ends[i]))
                       .json();
    return entries.json();
}

QByteArray blockJson(const QString &line, const LineScan &scan)
{
    Array brackets;
    for (const Bracket &bracket : scan.brackets)
        brackets << (Array() << quoted(bracket.character) << number(bracket.column)).json();
    Array formats;
    for (const FormatSpan &span : scan.spans)
        formats << (Array() << number(span.start) << number(span.length)
                            << quoted(QString::fromLatin1(textName(span.category))))
                       .json();
    return "{\"state\": " + number(scan.state) +
           ", \"in_comment\": " + (scan.inComment ? "true" : "false") +
           ", \"code_text\": " + quoted(scan.code(line)) + ", \"brackets\": " + brackets.json() +
           ", \"formats\": " + formats.json() + '}';
}

QByteArray blocksJson(LineScanner &scanner, const QString &text, const char *separator)
{
    Array blocks(separator);
    LineScan scan;
    int state = -1;
    for (const QString &line : text.split(QLatin1Char('\n'))) {
        scanner.scan(line, state, scan);
        state = scan.state;
        blocks << blockJson(line, scan);
    }
    return blocks.json();
}

} // namespace

std::unique_ptr<BaseParser> parserFor(ScriptLanguage language)
{
    if (language == ScriptLanguage::Mel)
        return std::make_unique<MelParser>();
    return std::make_unique<PythonParser>();
}

std::unique_ptr<LineScanner> scannerFor(ScriptLanguage language,
                                        const QHash<QString, QString> &names)
{
    if (language == ScriptLanguage::Mel)
        return std::make_unique<MelScanner>(names);
    return std::make_unique<PythonScanner>(names);
}

QByteArray scriptDump(ScriptLanguage language, const QString &file, const QString &text,
                      const QHash<QString, QString> &names, DumpLayout layout)
{
    const bool inLines = layout == DumpLayout::Lines;
    const QByteArray next = inLines ? ",\n \"" : ", \"";
    const char *const separator = inLines ? ",\n  " : ", ";
    const std::unique_ptr<BaseParser> parser = parserFor(language);
    parser->parse(text, file);
    const std::unique_ptr<LineScanner> scanner = scannerFor(language, names);
    return "{\"file\": " + quoted(file) + next + "outline\": " + outlineJson(*parser, separator) +
           next + "errors\": " + diagnosticsJson(parser->errors(), separator) + next +
           "warnings\": " + diagnosticsJson(parser->warnings(), separator) + next +
           "todos\": " + diagnosticsJson(parser->todos(), separator) + next +
           "blocks\": " + blocksJson(*scanner, text, separator) + '}';
}

QString scriptText(const QByteArray &bytes)
{
    QString text = QString::fromUtf8(bytes.constData(), int(bytes.size()));
    // Qt drops the byte-order mark, but offsets count it.
    if (bytes.startsWith("\xef\xbb\xbf") && !text.startsWith(QChar(QChar::ByteOrderMark)))
        text.prepend(QChar(QChar::ByteOrderMark));
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    return text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
}

QHash<QString, QString> namesFrom(const QByteArray &bytes)
{
    QHash<QString, QString> names;
    for (const QString &line : scriptText(bytes).split(QLatin1Char('\n'))) {
        if (!line.trimmed().isEmpty())
            names.insert(line.trimmed(), line.trimmed());
    }
    return names;
}
