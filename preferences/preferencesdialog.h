// SPDX-License-Identifier: MIT
#pragma once

#include "preferences/preferencerows.h"

#include <QDialog>

#include <vector>

class FormatPreview;
class PreferenceForm;
class QDialogButtonBox;
class QListWidget;
class QStackedWidget;
class TextFormatPanel;

// The Preferences dialog. It works on copies of the process-wide preferences and text formats, and
// gives them back when the user applies them; whoever opens it then takes them to what shows them.
class PreferencesDialog : public QDialog
{
    Q_OBJECT

public:
    explicit PreferencesDialog(QWidget *parent = nullptr);

public slots:
    // Stays open when something cannot be applied.
    void accept() override;
    // Returns false, and shows where, when something entered cannot be used; nothing is applied
    // then.
    bool apply();
    // These change what the dialog shows, for the user to apply or not.
    void restorePage();
    void restoreAll();

signals:
    // The process-wide values have changed.
    void applied();

private slots:
    void takeChange();
    void rememberPage(int page);

private:
    QLayout *createPages();
    QWidget *createPage(PreferencePage page);
    QWidget *createAddition(PreferencePage page);
    void createButtons();
    QSize sizeOfPages() const;
    void resizeToPages();
    void restore(PreferencePage page);
    // Shows the copies.
    void fill();
    void updateState();
    bool hasChanges() const;
    bool checkPages();

    Preferences m_values; // the formats are the panel's
    QListWidget *m_pageList;
    QStackedWidget *m_pages;
    std::vector<PreferenceForm *> m_forms; // by page
    TextFormatPanel *m_colors = nullptr;
    FormatPreview *m_outputPreview = nullptr;
    QDialogButtonBox *m_buttons;
};
