// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// Whether a "from" stands before a dot, as in "from .a import b"; in a comment, too.
bool hasRelativeImport(const QString &text);

// The package that a script in the folder belongs to, with dots; empty for none.
QString packageOfFolder(const QString &folder);

// "..a" in the package "x.y" is "x.a", and "a" is itself. Empty for what leads out of the package.
QString absoluteModule(const QString &module, const QString &package);

// The same for the module of "from ..a import b"; other statements stay as they are.
QString absoluteImport(const QString &statement, const QString &package);
