// SPDX-License-Identifier: MIT
#pragma once

class QByteArray;

// Whether QSettings can be given these bytes of an INI file: false for what is no text, and for
// stored objects, which QSettings would rebuild from whatever their bytes say. The editor stores
// none. Single broken lines are for QSettings to report.
bool isIniText(const QByteArray &bytes);

// Without the mark of UTF-8 that some editors put before a text: with it, QSettings decodes values
// in another way than its own files need.
QByteArray withoutByteOrderMark(const QByteArray &bytes);
