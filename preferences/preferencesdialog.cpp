// SPDX-License-Identifier: MIT
#include "preferences/preferencesdialog.h"

#include "compat/screen.h"
#include "preferences/colorsets.h"
#include "preferences/formatpreview.h"
#include "preferences/preferenceform.h"
#include "preferences/textformatpanel.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace {

int lastPage = 0; // of the session

const int pageListMargin = 24; // pixels beside the longest name

} // namespace

PreferencesDialog::PreferencesDialog(QWidget *parent)
    : QDialog(parent), m_values(preferences()), m_pageList(new QListWidget(this)),
      m_pages(new QStackedWidget(this)), m_buttons(new QDialogButtonBox(this))
{
    setObjectName(QLatin1String("PreferencesDialogCorvane"));
    setWindowTitle(tr("Preferences"));
    QVBoxLayout *layout = new QVBoxLayout(this);
    layout->addLayout(createPages());
    layout->addWidget(m_buttons);
    createButtons();
    fill();
    m_pageList->setCurrentRow(lastPage);
    m_pageList->setFocus();
    resizeToPages();
}

QLayout *PreferencesDialog::createPages()
{
    for (int i = 0; i < preferencePageCount; ++i) {
        const PreferencePage page = PreferencePage(i);
        m_pageList->addItem(QString::fromUtf8(pageName(page)));
        m_pages->addWidget(createPage(page));
    }
    m_pageList->setSpacing(2);
    m_pageList->setFixedWidth(m_pageList->sizeHintForColumn(0) + pageListMargin);
    connect(m_pageList, SIGNAL(currentRowChanged(int)), m_pages, SLOT(setCurrentIndex(int)));
    connect(m_pageList, SIGNAL(currentRowChanged(int)), SLOT(rememberPage(int)));
    QHBoxLayout *layout = new QHBoxLayout;
    layout->addWidget(m_pageList);
    layout->addWidget(m_pages);
    return layout;
}

// In a scroll area: with a large font on a small screen a page may need more room than there is.
QWidget *PreferencesDialog::createPage(PreferencePage page)
{
    QWidget *content = new QWidget;
    QVBoxLayout *layout = new QVBoxLayout(content);
    PreferenceForm *form = new PreferenceForm(page, content);
    m_forms.push_back(form);
    connect(form, SIGNAL(changed()), SLOT(takeChange()));
    layout->addWidget(form);
    if (QWidget *addition = createAddition(page))
        layout->addWidget(addition, 1);
    else
        layout->addStretch();

    QScrollArea *area = new QScrollArea(m_pages);
    area->setWidget(content);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus); // Tab goes to the controls
    return area;
}

// What a page has below the controls for its preferences.
QWidget *PreferencesDialog::createAddition(PreferencePage page)
{
    if (page == PreferencePage::Colors) {
        m_colors = new TextFormatPanel;
        connect(m_colors, SIGNAL(changed()), SLOT(takeChange()));
        return m_colors;
    }
    if (page == PreferencePage::Output)
        return m_outputPreview = new FormatPreview;
    return nullptr;
}

void PreferencesDialog::createButtons()
{
    m_buttons->setStandardButtons(QDialogButtonBox::Ok | QDialogButtonBox::Cancel |
                                  QDialogButtonBox::Apply | QDialogButtonBox::RestoreDefaults);
    connect(m_buttons, SIGNAL(accepted()), SLOT(accept()));
    connect(m_buttons, SIGNAL(rejected()), SLOT(reject()));
    connect(m_buttons->button(QDialogButtonBox::Apply), SIGNAL(clicked()), SLOT(apply()));

    QMenu *defaults = new QMenu(this);
    defaults->addAction(tr("Of This &Page"), this, SLOT(restorePage()));
    defaults->addAction(tr("Of &All Pages"), this, SLOT(restoreAll()));
    QPushButton *button = m_buttons->button(QDialogButtonBox::RestoreDefaults);
    button->setText(tr("Restore &Defaults"));
    button->setMenu(defaults);
    button->setAutoDefault(false);
}

// Scroll areas ask for less than their pages.
QSize PreferencesDialog::sizeOfPages() const
{
    QSize largest;
    for (int i = 0; i < m_pages->count(); ++i) {
        const QScrollArea *area = static_cast<QScrollArea *>(m_pages->widget(i));
        largest = largest.expandedTo(area->widget()->sizeHint());
    }
    const QSize missing = (largest - m_pages->sizeHint()).expandedTo(QSize(0, 0));
    return sizeHint() + missing;
}

void PreferencesDialog::resizeToPages()
{
    const QSize room = compat::availableGeometry(this).size() * 0.9;
    if (sizeOfPages().width() > room.width()) {
        for (PreferenceForm *form : m_forms)
            form->stackSections();
    }
    resize(sizeOfPages().boundedTo(room));
}

void PreferencesDialog::accept()
{
    if (apply())
        QDialog::accept();
}

bool PreferencesDialog::apply()
{
    if (!checkPages())
        return false;
    if (!hasChanges())
        return true;
    for (int i = 0; i < preferencePageCount; ++i)
        copyPage(PreferencePage(i), m_values, preferences());
    textFormats() = m_colors->formats();
    emit applied();
    // Anew: whoever was told may have completed a value that was left empty.
    m_values = preferences();
    fill();
    return true;
}

bool PreferencesDialog::checkPages()
{
    for (int page = 0; page < preferencePageCount; ++page) {
        if (m_forms[size_t(page)]->check())
            continue;
        m_pageList->setCurrentRow(page);
        return false;
    }
    return true;
}

void PreferencesDialog::restorePage()
{
    restore(PreferencePage(m_pages->currentIndex()));
    fill();
}

void PreferencesDialog::restoreAll()
{
    for (int page = 0; page < preferencePageCount; ++page)
        restore(PreferencePage(page));
    fill();
}

void PreferencesDialog::restore(PreferencePage page)
{
    copyPage(page, Preferences(), m_values);
    if (page == PreferencePage::Colors)
        m_colors->setFormats(builtInFormats(ColorSet::Dark));
}

void PreferencesDialog::takeChange()
{
    for (const PreferenceForm *form : m_forms)
        form->take(m_values);
    updateState();
}

void PreferencesDialog::rememberPage(int page)
{
    lastPage = page;
}

void PreferencesDialog::fill()
{
    for (PreferenceForm *form : m_forms)
        form->fill(m_values);
    updateState();
}

// Everything that depends on the values beside the controls themselves.
void PreferencesDialog::updateState()
{
    for (PreferenceForm *form : m_forms)
        form->updateEnabled(m_values);
    m_colors->setFonts(editorFont(m_values), outputFont(m_values));
    m_outputPreview->showOutput(m_colors->formats(), outputFont(m_values));
    m_buttons->button(QDialogButtonBox::Apply)->setEnabled(hasChanges());
}

bool PreferencesDialog::hasChanges() const
{
    return differInRows(m_values, preferences()) || !(m_colors->formats() == textFormats());
}
