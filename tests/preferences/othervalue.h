// SPDX-License-Identifier: MIT
#pragma once

#include "preferences/preferencerows.h"

// A value that the row's preference may have as well.
inline QVariant otherValue(const PreferenceRow &row, const QVariant &value)
{
    if (row.kind == ControlKind::Check)
        return !value.toBool();
    if (row.kind == ControlKind::Number)
        return value.toInt() + 1;
    if (row.kind == ControlKind::Folder)
        return QString::fromLatin1("/no/such folder");
    return QString::fromLatin1("no.such.name");
}
