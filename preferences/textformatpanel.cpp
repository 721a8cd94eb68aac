// SPDX-License-Identifier: MIT
#include "preferences/textformatpanel.h"

#include "preferences/categorylist.h"
#include "preferences/colorsets.h"
#include "preferences/formatpreview.h"
#include "preferences/textformatedit.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

TextFormatPanel::TextFormatPanel(QWidget *parent)
    : QWidget(parent), m_formats(textFormats()), m_editorFont(editorFont()),
      m_outputFont(outputFont())
{
    QLabel *label = new QLabel(tr("Ca&tegory:"), this);
    m_categories = new CategoryList(this);
    label->setBuddy(m_categories);
    QGridLayout *layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(label, 0, 0);
    layout->addWidget(m_categories, 1, 0);
    layout->addWidget(createControls(), 1, 1);
    m_preview = new FormatPreview(this);
    layout->addWidget(m_preview, 2, 0, 1, 2);
    // The sample is worth as much room as the list.
    layout->setRowStretch(1, 1);
    layout->setRowStretch(2, 1);
    layout->setColumnStretch(0, 1);
    connect(m_categories, SIGNAL(categoryChanged()), SLOT(showCategory()));
    connect(m_edit, SIGNAL(changed()), SLOT(takeFormat()));
    setFormats(textFormats());
}

QWidget *TextFormatPanel::createControls()
{
    QWidget *controls = new QWidget(this);
    m_edit = new TextFormatEdit(controls);
    QPushButton *dark = new QPushButton(tr("Load Dar&k Colors"), controls);
    QPushButton *light = new QPushButton(tr("Load Li&ght Colors"), controls);
    QVBoxLayout *layout = new QVBoxLayout(controls);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_edit);
    layout->addStretch();
    for (QPushButton *button : {dark, light}) {
        button->setAutoDefault(false); // Enter accepts the dialog
        layout->addWidget(button);
    }
    connect(dark, SIGNAL(clicked()), SLOT(loadDarkColors()));
    connect(light, SIGNAL(clicked()), SLOT(loadLightColors()));
    return controls;
}

void TextFormatPanel::setFormats(const TextFormats &formats)
{
    m_formats = formats;
    m_categories->showFormats(m_formats);
    showCategory();
}

void TextFormatPanel::setFonts(const QFont &editorFont, const QFont &outputFont)
{
    m_editorFont = editorFont;
    m_outputFont = outputFont;
    updatePreview();
}

void TextFormatPanel::loadDarkColors()
{
    loadColors(ColorSet::Dark);
}

void TextFormatPanel::loadLightColors()
{
    loadColors(ColorSet::Light);
}

void TextFormatPanel::loadColors(ColorSet set)
{
    setFormats(builtInFormats(set));
    emit changed();
}

void TextFormatPanel::takeFormat()
{
    m_formats[m_categories->category()] = m_edit->format();
    m_categories->showFormats(m_formats);
    updatePreview();
    emit changed();
}

void TextFormatPanel::showCategory()
{
    const int category = m_categories->category();
    m_edit->setFormat(m_formats[category], plainFormat(m_formats, category), needsColors(category));
    updatePreview();
}

// The sample of what the chosen category belongs to.
void TextFormatPanel::updatePreview()
{
    if (m_categories->category() < editorTextCount)
        m_preview->showEditor(m_formats, m_editorFont);
    else
        m_preview->showOutput(m_formats, m_outputFont);
}
