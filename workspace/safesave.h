// SPDX-License-Identifier: MIT
#pragma once

class QByteArray;
class QString;

// Writes a whole file so that at any moment, and whatever fails, it holds either the old bytes or
// the new ones: they go to a temporary file in the same folder, which takes the old one's place
// when all of it is on the disk. Owner, permissions and symbolic links stay; a link that leads
// nowhere gets its target.
//
// A file that has other names, or cannot be replaced where it is, is written in place, which only
// a crash of the system or the program can cut short; meanwhile a file in the folder for temporary
// ones has the new bytes. Only regular files are written. On failure the result is false,
// errorMessage has the reason, and the old bytes are there; or it says where the new ones are.
bool writeFileSafely(const QString &path, const QByteArray &bytes, QString *errorMessage);
