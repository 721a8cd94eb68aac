// SPDX-License-Identifier: MIT
#include "standin/ui/theme.h"

#include <QApplication>
#include <QColor>
#include <QPalette>
#include <QStringList>
#include <QStyle>
#include <QStyleFactory>

namespace standin {

namespace {

// A dark grey with light text, near that of the application, so that plug-ins are seen on what they
// are made for. All groups get these; disabled text differs below.
struct ColorRow
{
    QPalette::ColorRole role;
    QRgb color;
};

const ColorRow colors[] = {
    {QPalette::Window, 0xff444444},      {QPalette::WindowText, 0xffcccccc},
    {QPalette::Base, 0xff2b2b2b},        {QPalette::AlternateBase, 0xff333333},
    {QPalette::Text, 0xffdddddd},        {QPalette::Button, 0xff5a5a5a},
    {QPalette::ButtonText, 0xffdddddd},  {QPalette::BrightText, 0xffffffff},
    {QPalette::Highlight, 0xff5285a6},   {QPalette::HighlightedText, 0xffffffff},
    {QPalette::ToolTipBase, 0xffe6e0c8}, {QPalette::ToolTipText, 0xff202020},
    {QPalette::Link, 0xff7fb3d5},        {QPalette::Light, 0xff6a6a6a},
    {QPalette::Midlight, 0xff5a5a5a},    {QPalette::Mid, 0xff373737},
    {QPalette::Dark, 0xff2a2a2a},        {QPalette::Shadow, 0xff1c1c1c},
};

// What is greyed in disabled widgets; the colours of the table would hold there as well.
const QPalette::ColorRole textRoles[] = {QPalette::WindowText, QPalette::Text,
                                         QPalette::ButtonText};

QPalette darkPalette()
{
    QPalette palette;
    for (const ColorRow &row : colors)
        palette.setColor(row.role, QColor(row.color));
    for (QPalette::ColorRole role : textRoles)
        palette.setColor(QPalette::Disabled, role, QColor(0xff808080));
    // Menus draw a shadow of it under greyed text, which on dark ground doubles the letters.
    palette.setColor(QPalette::Disabled, QPalette::Light, QColor(0xff2b2b2b));
    return palette;
}

// The first style of the list that this Qt has; all of them take their colours from the palette.
QStyle *newStyle()
{
    const QStringList wanted = QStringList() << "Fusion"
                                             << "Plastique"
                                             << "Cleanlooks";
    for (const QString &name : wanted) {
        if (QStyle *style = QStyleFactory::create(name))
            return style;
    }
    return nullptr;
}

} // namespace

void applyTheme(QApplication &application)
{
    if (QStyle *style = newStyle())
        application.setStyle(style);
    // After the style, which brings a palette of its own.
    application.setPalette(darkPalette());
    application.setStyleSheet("QMenuBar { padding: 1px; }"
                              "QToolTip { padding: 2px; }");
}

QColor errorColor()
{
    return QColor(0xffb03a3a);
}

QColor warningColor()
{
    return QColor(0xffc9962b);
}

} // namespace standin
