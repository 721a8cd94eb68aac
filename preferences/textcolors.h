// SPDX-License-Identifier: MIT
#pragma once

class QPlainTextEdit;
struct TextFormat;

// Gives a text widget the colours of its ground, text and selection.
void setTextColors(QPlainTextEdit *edit, const TextFormat &plain, const TextFormat &selected);
