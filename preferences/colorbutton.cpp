// SPDX-License-Identifier: MIT
#include "preferences/colorbutton.h"

#include <QColorDialog>
#include <QPainter>
#include <QPixmap>

namespace {

// With a frame, without which the ground's own colour would be no swatch.
QPixmap swatch(const QColor &color, const QColor &frame, const QSize &size)
{
    QPixmap pixmap(size);
    pixmap.fill(color);
    QPainter painter(&pixmap);
    painter.setPen(frame);
    painter.drawRect(0, 0, size.width() - 1, size.height() - 1);
    return pixmap;
}

} // namespace

ColorButton::ColorButton(QWidget *parent) : QPushButton(parent)
{
    setAutoDefault(false); // Enter accepts the dialog
    const int height = fontMetrics().ascent();
    setIconSize(QSize(2 * height, height));
    connect(this, SIGNAL(clicked()), SLOT(chooseColor()));
}

void ColorButton::setColor(const QColor &color)
{
    m_color = color;
    setIcon(swatch(color, palette().color(QPalette::ButtonText), iconSize()));
    setText(color.name());
}

void ColorButton::chooseColor()
{
    const QColor chosen = QColorDialog::getColor(m_color, this, tr("Choose Color"));
    if (!chosen.isValid() || chosen == m_color)
        return;
    setColor(chosen);
    emit colorChosen();
}
