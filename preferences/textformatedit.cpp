// SPDX-License-Identifier: MIT
#include "preferences/textformatedit.h"

#include "preferences/colorbutton.h"

#include <QCheckBox>
#include <QGridLayout>

TextFormatEdit::TextFormatEdit(QWidget *parent) : QWidget(parent)
{
    QGridLayout *layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    m_foreground = addColor(tr("Fo&reground:"), QLatin1String("foreground"));
    m_background = addColor(tr("&Background:"), QLatin1String("background"));
    m_bold = addStyle(tr("Bo&ld"), QLatin1String("bold"));
    m_italic = addStyle(tr("&Italic"), QLatin1String("italic"));
}

TextFormatEdit::ColorControl TextFormatEdit::addColor(const QString &label, const QString &name)
{
    const ColorControl control = {new QCheckBox(label, this), new ColorButton(this)};
    control.isUsed->setObjectName(name);
    control.isUsed->setToolTip(tr("Without a color of its own: that of the plain text"));
    control.button->setObjectName(name + QLatin1String("Color"));
    QGridLayout *grid = static_cast<QGridLayout *>(layout());
    const int row = grid->rowCount();
    grid->addWidget(control.isUsed, row, 0);
    grid->addWidget(control.button, row, 1);
    connect(control.isUsed, SIGNAL(toggled(bool)), control.button, SLOT(setEnabled(bool)));
    connect(control.isUsed, SIGNAL(toggled(bool)), SLOT(reportChange()));
    connect(control.button, SIGNAL(colorChosen()), SLOT(reportChange()));
    return control;
}

QCheckBox *TextFormatEdit::addStyle(const QString &label, const QString &name)
{
    QCheckBox *box = new QCheckBox(label, this);
    box->setObjectName(name);
    QGridLayout *grid = static_cast<QGridLayout *>(layout());
    grid->addWidget(box, grid->rowCount(), 0);
    connect(box, SIGNAL(toggled(bool)), SLOT(reportChange()));
    return box;
}

TextFormat TextFormatEdit::format() const
{
    TextFormat format;
    if (m_foreground.isUsed->isChecked())
        format.foreground = m_foreground.button->color();
    if (m_background.isUsed->isChecked())
        format.background = m_background.button->color();
    format.bold = m_bold->isChecked();
    format.italic = m_italic->isChecked();
    return format;
}

void TextFormatEdit::setFormat(const TextFormat &format, const TextFormat &plain, bool needsColors)
{
    const auto setColor = [needsColors](const ColorControl &control, const QColor &own,
                                        const QColor &otherwise) {
        control.isUsed->setChecked(own.isValid());
        control.isUsed->setEnabled(!needsColors);
        control.button->setEnabled(own.isValid());
        control.button->setColor(own.isValid() ? own : otherwise);
    };
    m_isFilling = true;
    setColor(m_foreground, format.foreground, plain.foreground);
    setColor(m_background, format.background, plain.background);
    m_bold->setChecked(format.bold);
    m_italic->setChecked(format.italic);
    m_isFilling = false;
}

void TextFormatEdit::reportChange()
{
    if (!m_isFilling)
        emit changed();
}
