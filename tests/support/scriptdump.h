// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

enum class ScriptLanguage { Mel, Python };

// Everything that parser and scanner say of a script, as one line of JSON (RFC 8259) without a line
// feed. `names` are the MEL commands.
QByteArray scriptDump(ScriptLanguage language, const QString &file, const QString &text,
                      const QHash<QString, QString> &names);

// UTF-8 with replacement characters for what is none; every line end becomes a line feed.
QString scriptText(const QByteArray &bytes);

// One name a line.
QHash<QString, QString> namesFrom(const QByteArray &bytes);
