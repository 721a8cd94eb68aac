// SPDX-License-Identifier: MIT
#pragma once

#include "preferences/textformats.h"

#include <QPlainTextEdit>

// Shows what formats look like on a sample of a script or of the output. The sample is coloured by
// hand: it stands for every category, and needs no language.
class FormatPreview : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit FormatPreview(QWidget *parent = nullptr);

    void showEditor(const TextFormats &formats, const QFont &font);
    void showOutput(const TextFormats &formats, const QFont &font);

    QSize sizeHint() const override;

private:
    TextFormats prepared(TextFormats formats, int plainText, const QFont &font);
};
