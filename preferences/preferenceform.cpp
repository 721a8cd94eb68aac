// SPDX-License-Identifier: MIT
#include "preferences/preferenceform.h"

#include "preferences/folderedit.h"
#include "preferences/fontfamilybox.h"
#include "preferences/modulenamesedit.h"

#include <QCheckBox>
#include <QEvent>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QMetaProperty>
#include <QSpinBox>

namespace {

QWidget *createCheckBox(const PreferenceRow &row)
{
    return new QCheckBox(QString::fromUtf8(row.label));
}

QWidget *createSpinBox(const PreferenceRow &row)
{
    const NumberRange range = numberRange(QLatin1String(row.key));
    QSpinBox *box = new QSpinBox;
    box->setRange(range.minimum, range.maximum);
    box->setAlignment(Qt::AlignRight);
    return box;
}

QWidget *createFolderEdit(const PreferenceRow &)
{
    FolderEdit *edit = new FolderEdit;
    edit->setPlaceholderText(PreferenceForm::tr("The user script folder"));
    return edit;
}

template <class Editor>
QWidget *createEditor(const PreferenceRow &)
{
    return new Editor;
}

template <class Editor>
bool checkEditor(QWidget *editor)
{
    return static_cast<Editor *>(editor)->check();
}

struct KindRow
{
    QWidget *(*create)(const PreferenceRow &row);
    const char *changeSignal;
    bool turnsByWheel;
    bool (*check)(QWidget *editor); // null for what cannot be wrong
};

// In the order of ControlKind.
const KindRow kindRows[] = {
    {createCheckBox, SIGNAL(toggled(bool)), false, nullptr},
    {createSpinBox, SIGNAL(valueChanged(int)), true, nullptr},
    {createFolderEdit, SIGNAL(pathChanged()), false, checkEditor<FolderEdit>},
    {createEditor<FontFamilyBox>, SIGNAL(familyChanged()), true, nullptr},
    {createEditor<ModuleNamesEdit>, SIGNAL(namesChanged()), false, checkEditor<ModuleNamesEdit>},
};

QMetaProperty valueProperty(const QWidget *editor)
{
    return editor->metaObject()->userProperty();
}

} // namespace

PreferenceForm::PreferenceForm(PreferencePage page, QWidget *parent)
    : QWidget(parent), m_grid(new QGridLayout(this))
{
    m_grid->setContentsMargins(0, 0, 0, 0);
    for (const PreferenceSection *section : sectionsOf(page))
        m_sections.push_back({section->place, createSection(*section)});
    arrange(false);
}

void PreferenceForm::stackSections()
{
    arrange(true);
    updateGeometry(); // which layouts of hidden pages do not ask for
}

void PreferenceForm::arrange(bool isStacked)
{
    int row = 0;
    for (const Section &section : m_sections) {
        const bool isRight =
            !isStacked && section.place == SectionPlace::Right; // of the one before
        const bool isWhole = isStacked || section.place == SectionPlace::Whole;
        row += isRight ? 0 : 1;
        m_grid->addWidget(section.box, row, isRight ? 1 : 0, 1, isWhole ? 2 : 1);
    }
    m_grid->setColumnStretch(0, 1);
    m_grid->setColumnStretch(1, isStacked ? 0 : 1);
}

QWidget *PreferenceForm::createSection(const PreferenceSection &section)
{
    QGroupBox *box = new QGroupBox(QString::fromUtf8(section.title), this);
    QFormLayout *layout = new QFormLayout(box);
    layout->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    layout->setFormAlignment(Qt::AlignLeft | Qt::AlignTop);
    for (const PreferenceRow *row : rowsOf(section))
        addControl(*row, layout);
    return box;
}

void PreferenceForm::addControl(const PreferenceRow &row, QFormLayout *layout)
{
    const KindRow &kind = kindRows[int(row.kind)];
    QWidget *editor = kind.create(row);
    editor->setObjectName(QLatin1String(row.key));
    if (row.kind == ControlKind::Check)
        layout->addRow(editor);
    else
        layout->addRow(QString::fromUtf8(row.label), editor);
    connect(editor, kind.changeSignal, this, SLOT(reportChange()));
    if (kind.turnsByWheel) {
        editor->setFocusPolicy(Qt::StrongFocus); // else the wheel gives it the focus
        editor->installEventFilter(this);
    }
    m_controls.push_back({&row, editor, layout->labelForField(editor)});
}

void PreferenceForm::fill(const Preferences &values)
{
    m_isFilling = true;
    for (const Control &control : m_controls)
        valueProperty(control.editor).write(control.editor, valueOf(*control.row, values));
    m_isFilling = false;
}

void PreferenceForm::take(Preferences &values) const
{
    for (const Control &control : m_controls)
        setValue(*control.row, values, valueProperty(control.editor).read(control.editor));
}

void PreferenceForm::updateEnabled(const Preferences &values)
{
    for (const Control &control : m_controls) {
        const bool isEnabled = !control.row->isEnabled || control.row->isEnabled(values);
        control.editor->setEnabled(isEnabled);
        if (control.label)
            control.label->setEnabled(isEnabled);
    }
}

bool PreferenceForm::check()
{
    for (const Control &control : m_controls) {
        const KindRow &kind = kindRows[int(control.row->kind)];
        if (kind.check && !kind.check(control.editor)) {
            control.editor->setFocus();
            return false;
        }
    }
    return true;
}

// The wheel scrolls the page over whatever it passes, and turns only what the user has chosen.
bool PreferenceForm::eventFilter(QObject *editor, QEvent *event)
{
    if (event->type() != QEvent::Wheel || static_cast<QWidget *>(editor)->hasFocus())
        return QWidget::eventFilter(editor, event);
    event->ignore(); // goes on to the page
    return true;
}

void PreferenceForm::reportChange()
{
    if (!m_isFilling)
        emit changed();
}
