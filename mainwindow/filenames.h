// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// Names of files as texts; none of these looks at a disk.

// Directory and file name joined by exactly one separator, whether or not the directory ends in
// one.
QString joinedPath(const QString &directory, const QString &fileName);

// The filters of the Save As dialog, as the file dialogs take them: parted by ";;".
QString saveFilters();

// The filter preselected for a document of this language (1 Python, 2 MEL, else any), one of those.
QString saveFilterForLanguage(int language);

// The name with the suffix that the chosen filter asks for. Names are compared case-sensitively,
// so that a name in ".MEL" gets ".mel" as well and its document stays a MEL document. Any other
// filter leaves the name alone.
QString nameWithFilterSuffix(const QString &name, const QString &filter);
