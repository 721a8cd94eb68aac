// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

class QFont;
class QFontMetrics;
class QTextOption;

namespace compat {

// The horizontal advance of the text, in pixels: where the next text would begin.
int textWidth(const QFontMetrics &metrics, const QString &text);

// Of the font's blank, in pixels; with a fraction where the version knows of such.
qreal blankWidth(const QFont &font);

// Tab stops every `pixels`.
void setTabStop(QTextOption &option, qreal pixels);

// The parts between separators, empty ones dropped; none for an empty text.
QStringList nonEmptyParts(const QString &text, QChar separator);

} // namespace compat
