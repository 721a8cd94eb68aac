// SPDX-License-Identifier: MIT
#pragma once

#include "preferences/textformats.h"

#include <QWidget>

class ColorButton;
class QCheckBox;

// The controls for one text format. A colour that is not ticked is left to the plain text.
class TextFormatEdit : public QWidget
{
    Q_OBJECT

public:
    explicit TextFormatEdit(QWidget *parent = nullptr);

    TextFormat format() const;
    // Shows the format; a colour that it leaves open is offered as that of the plain text. With
    // needsColors none can be left open. Emits nothing.
    void setFormat(const TextFormat &format, const TextFormat &plain, bool needsColors);

signals:
    // By the user.
    void changed();

private slots:
    void reportChange();

private:
    struct ColorControl
    {
        QCheckBox *isUsed;
        ColorButton *button;
    };

    ColorControl addColor(const QString &label, const QString &name);
    QCheckBox *addStyle(const QString &label, const QString &name);

    ColorControl m_foreground;
    ColorControl m_background;
    QCheckBox *m_bold;
    QCheckBox *m_italic;
    bool m_isFilling = false;
};
