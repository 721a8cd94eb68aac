// SPDX-License-Identifier: MIT
#pragma once

#include "preferences/textformats.h"

#include <QWidget>

class CategoryList;
class FormatPreview;
class TextFormatEdit;

// The colours of editor and output: the list of categories, the controls for the chosen one, and a
// sample. Works on formats of its own.
class TextFormatPanel : public QWidget
{
    Q_OBJECT

public:
    explicit TextFormatPanel(QWidget *parent = nullptr);

    const TextFormats &formats() const { return m_formats; }
    // Emits nothing.
    void setFormats(const TextFormats &formats);
    // Those of the sample.
    void setFonts(const QFont &editorFont, const QFont &outputFont);

public slots:
    void loadDarkColors();
    void loadLightColors();

signals:
    // By the user.
    void changed();

private slots:
    void takeFormat();
    void showCategory();

private:
    QWidget *createControls();
    void loadColors(ColorSet set);
    void updatePreview();

    TextFormats m_formats;
    QFont m_editorFont;
    QFont m_outputFont;
    CategoryList *m_categories;
    TextFormatEdit *m_edit;
    FormatPreview *m_preview;
};
