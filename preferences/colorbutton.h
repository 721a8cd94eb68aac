// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QPushButton>

// A button that shows a colour, and asks for another when it is pressed.
class ColorButton : public QPushButton
{
    Q_OBJECT

public:
    explicit ColorButton(QWidget *parent = nullptr);

    QColor color() const { return m_color; }
    // Emits nothing.
    void setColor(const QColor &color);

signals:
    // By the user.
    void colorChosen();

private slots:
    void chooseColor();

private:
    QColor m_color;
};
