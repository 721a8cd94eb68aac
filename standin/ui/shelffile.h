// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace standin {

struct Element;

// A shelf's buttons as a script, "shelf_NAME.mel", whose procedure shelf_NAME makes them again.
QString shelfScript(const Element &shelf);
bool writeShelf(const Element &shelf, const QString &fileName);

} // namespace standin
