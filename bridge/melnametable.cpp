// SPDX-License-Identifier: MIT
#include "bridge/melnametable.h"

QHash<QString, QString> &melNameTable()
{
    static QHash<QString, QString> table;
    return table;
}

MelNames &melNames()
{
    static MelNames names;
    return names;
}
