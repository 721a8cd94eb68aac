// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace standin {

struct Element;

// A shelf's buttons as a script, "shelf_NAME.mel", whose procedure shelf_NAME makes them again.
// Other things on the shelf are left out.
QString shelfScript(const Element &shelf);
// False when the file cannot be written; the old one is still there then, or its new form beside
// it.
bool writeShelf(const Element &shelf, const QString &fileName);

} // namespace standin
