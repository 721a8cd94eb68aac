// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

// The names in a semicolon-separated list, without white space around them; empty ones are dropped.
QStringList moduleNames(const QString &list);

// Whether Python could import this: identifiers with dots between them.
bool isModuleName(const QString &name);
