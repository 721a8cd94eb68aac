// SPDX-License-Identifier: MIT
#include "standin/ui/viewport.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPointF>

namespace standin {

namespace {

const int gridHalf = 12;       // units from the middle to the border
const double cameraHeight = 9; // above the ground, in units
const double cameraBack = 24;  // from the middle of the grid
// Of the view's turn, roughly 29 degrees.
const double turnSine = 0.48;
const double turnCosine = 0.877;

// A point of the ground as a camera in front of it and above sees it.
QPointF projected(double x, double z, const QSize &size)
{
    // Turned around the vertical axis, then divided by the depth.
    const double across = x * turnCosine - z * turnSine;
    const double depth = x * turnSine + z * turnCosine + cameraBack;
    // The factors set how wide the view is and where the horizon lies: 1.1 and 0.22 of the height.
    const double scale = size.height() * 1.1 / depth;
    return QPointF(size.width() / 2.0 + across * scale,
                   size.height() * 0.22 + cameraHeight * scale);
}

void paintGrid(QPainter &painter, const QSize &size)
{
    for (int i = -gridHalf; i <= gridHalf; ++i) {
        const bool isAxis = i == 0;
        // The lines through the middle are the axes: darker and wider.
        painter.setPen(QPen(QColor(isAxis ? 0xff1e1e1e : 0xff727476), isAxis ? 1.6 : 1));
        painter.drawLine(projected(i, -gridHalf, size), projected(i, gridHalf, size));
        painter.drawLine(projected(-gridHalf, i, size), projected(gridHalf, i, size));
    }
}

void paintAxes(QPainter &painter, int height)
{
    // In the lower left corner; offsets in pixels, downwards.
    const QPointF origin(32, height - 32);
    const struct
    {
        QPointF tip;
        QRgb color;
        const char *label;
    } axes[] = {
        {QPointF(20, 7), 0xffc04040, "x"},
        {QPointF(0, -22), 0xff60b050, "y"},
        {QPointF(-14, 12), 0xff5080d0, "z"},
    };
    for (const auto &axis : axes) {
        painter.setPen(QPen(QColor(axis.color), 1.6));
        painter.drawLine(origin, origin + axis.tip);
        // The label a third beyond the tip, centred by eye.
        painter.drawText(origin + axis.tip * 1.35 + QPointF(-3, 4),
                         QString::fromLatin1(axis.label));
    }
}

} // namespace

Viewport::Viewport(QWidget *parent) : QWidget(parent)
{
    setMinimumSize(240, 160);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void Viewport::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient sky(0, 0, 0, height());
    sky.setColorAt(0, QColor(0xff8a98a5));
    sky.setColorAt(1, QColor(0xff2c2f33));
    painter.fillRect(rect(), sky);
    paintGrid(painter, size());
    paintAxes(painter, height());
    painter.setPen(QColor(0xffd8d8d8));
    painter.drawText(rect().adjusted(0, 0, 0, -10), Qt::AlignHCenter | Qt::AlignBottom, "persp");
}

} // namespace standin
