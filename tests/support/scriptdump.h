// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <memory>

class BaseParser;
class LineScanner;

enum class ScriptLanguage { Mel, Python };

// All in one line, or a line for each outline item, diagnostic and block.
enum class DumpLayout { OneLine, Lines };

std::unique_ptr<BaseParser> parserFor(ScriptLanguage language);

// `names` must outlive the scanner.
std::unique_ptr<LineScanner> scannerFor(ScriptLanguage language,
                                        const QHash<QString, QString> &names);

// Everything that parser and scanner say of a script, as JSON (RFC 8259) without a line feed at the
// end. `names` are the MEL commands.
QByteArray scriptDump(ScriptLanguage language, const QString &file, const QString &text,
                      const QHash<QString, QString> &names,
                      DumpLayout layout = DumpLayout::OneLine);

// UTF-8 with replacement characters for what is none; every line end becomes a line feed.
QString scriptText(const QByteArray &bytes);

// One name a line.
QHash<QString, QString> namesFrom(const QByteArray &bytes);
