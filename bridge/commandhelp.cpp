// SPDX-License-Identifier: MIT
#include "bridge/commandhelp.h"

namespace {

CommandHelpSource helpSource = nullptr;

} // namespace

void setCommandHelpSource(CommandHelpSource source)
{
    helpSource = source;
}

CommandHelp commandHelp(const QString &name)
{
    return helpSource ? helpSource(name) : CommandHelp();
}
