// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>

namespace standin {

// An icon by the name that scripts use: a file, or one of the program's own such as
// "scriptEditor.png". A null icon when there is none.
QIcon iconNamed(const QString &name);

} // namespace standin
