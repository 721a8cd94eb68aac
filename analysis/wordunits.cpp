// SPDX-License-Identifier: MIT
#include "analysis/wordunits.h"

namespace {

bool isWordCategory(QChar::Category category)
{
    switch (category) {
    case QChar::Mark_NonSpacing:
    case QChar::Mark_SpacingCombining:
    case QChar::Mark_Enclosing:
    case QChar::Number_DecimalDigit:
    case QChar::Number_Letter:
    case QChar::Number_Other:
    case QChar::Letter_Uppercase:
    case QChar::Letter_Lowercase:
    case QChar::Letter_Titlecase:
    case QChar::Letter_Modifier:
    case QChar::Letter_Other:
        return true;
    default:
        return false;
    }
}

} // namespace

bool isForeignWordUnit(const QChar *text, int size, int index)
{
    const QChar unit = text[index];
    if (unit.isHighSurrogate() && index + 1 < size && text[index + 1].isLowSurrogate())
        return isWordCategory(QChar::category(QChar::surrogateToUcs4(unit, text[index + 1])));
    if (unit.isLowSurrogate() && index > 0 && text[index - 1].isHighSurrogate())
        return isWordCategory(QChar::category(QChar::surrogateToUcs4(text[index - 1], unit)));
    return isWordCategory(unit.category());
}
