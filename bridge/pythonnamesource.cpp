// SPDX-License-Identifier: MIT
#include "bridge/pythonnamesource.h"

namespace {

PythonNameSource nameSource = nullptr;

} // namespace

void setPythonNameSource(PythonNameSource source)
{
    nameSource = source;
}

QStringList pythonNames(PythonQuestion question, const QString &source, const QString &object)
{
    return nameSource ? nameSource(question, source, object) : QStringList();
}
