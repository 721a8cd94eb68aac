// SPDX-License-Identifier: MIT
#include "bridge/melnametable.h"

namespace {

void (*namesUpdate)() = nullptr;

} // namespace

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

void updateMelNames()
{
    if (namesUpdate)
        namesUpdate();
}

void setMelNamesUpdate(void (*update)())
{
    namesUpdate = update;
}
