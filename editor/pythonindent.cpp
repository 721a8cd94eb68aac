// SPDX-License-Identifier: MIT
#include "editor/pythonindent.h"

#include "editor/textblocks.h"

namespace {

bool endsInCloser(const QString &code)
{
    return code.endsWith(QLatin1Char(')')) || code.endsWith(QLatin1Char(']')) ||
           code.endsWith(QLatin1Char('}'));
}

// def f(a,
//       b):    has the indentation of "def" for what goes on behind it
QString openersIndentation(const QTextBlock &above)
{
    const TextPlace opener = matchingBracket(lastBracket(endOf(above)));
    return indentationOf(opener.isValid() ? opener.block : above);
}

} // namespace

// Only the line right above counts: below a blank line or a comment that line's indentation is
// copied, with its own characters.
QString pythonIndentation(const QTextBlock &line, const IndentStyle &style)
{
    if (!style.autoIndent)
        return QString();
    const QTextBlock above = line.previous();
    const QString code = codeOf(above);
    if (!style.smartIndent || code.isEmpty())
        return indentationOf(above);

    if (code.endsWith(QLatin1Char(':'))) {
        const QString before = code.left(code.size() - 1).trimmed();
        return (endsInCloser(before) ? openersIndentation(above) : indentationOf(above)) +
               style.unit();
    }
    const int opener = unclosedOpener(above, true);
    if (opener >= 0)
        return style.alignedBehind(above.text(), opener);
    return endsInCloser(code) ? openersIndentation(above) : indentationOf(above);
}
