// SPDX-License-Identifier: MIT
// What a demo refuses, and says to the user when it does. True without a word wherever the license
// or the build allows everything.
#pragma once

class QWidget;

// Files of the user's; buffers and journals always are written.
bool mayWriteFiles(QWidget *parent);
bool mayOpenAnother(QWidget *parent, int openDocuments);
