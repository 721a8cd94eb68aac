// SPDX-License-Identifier: MIT
#include "licensing/licensedialog.h"

#include "licensing/license.h"
#include "licensing/licensefile.h"

#include <QBoxLayout>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QPointer>
#include <QPushButton>

namespace {

const int textWidth = 420; // pixels

QLabel *createLabel(const char *name, QWidget *parent)
{
    QLabel *label = new QLabel(parent);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setFixedWidth(textWidth);
    return label;
}

} // namespace

LicenseDialog::LicenseDialog(QWidget *parent)
    : QDialog(parent), m_state(createLabel("state", this)), m_problem(createLabel("problem", this))
{
    setObjectName(QLatin1String("LicenseDialogCorvane"));
    setWindowTitle(tr("Licensing"));
    QDialogButtonBox *buttons = new QDialogButtonBox(QDialogButtonBox::Close, Qt::Horizontal, this);
    QPushButton *choose =
        buttons->addButton(tr("Choose License File..."), QDialogButtonBox::ActionRole);
    connect(choose, SIGNAL(clicked()), SLOT(chooseFile()));
    connect(buttons, SIGNAL(rejected()), SLOT(reject()));
    choose->setDefault(isDemo());
    QVBoxLayout *layout = new QVBoxLayout(this);
    layout->addWidget(m_state);
    layout->addWidget(m_problem);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize); // grows with what there is to say
    showState();
}

// It may be shown again on another day.
void LicenseDialog::showEvent(QShowEvent *event)
{
    showState();
    QDialog::showEvent(event);
}

// Maya may quit and take this dialog with it while the other is open.
void LicenseDialog::chooseFile()
{
    const QPointer<LicenseDialog> guard = this;
    const QString path =
        QFileDialog::getOpenFileName(this, tr("Choose License File"), QDir::homePath());
    if (guard && !path.isEmpty())
        useFile(path);
}

void LicenseDialog::useFile(const QString &path)
{
    QString problem;
    const QString text = readLicenseFile(path, &problem);
    if (problem.isEmpty())
        problem = takeLicense(text);
    if (!problem.isEmpty()) {
        showProblem(tr("%1: %2").arg(QFileInfo(path).fileName(), problem));
        return;
    }
    showState();
    emit licenseChanged(text);
}

void LicenseDialog::showState()
{
    showProblem(licenseProblem());
    const License *license = currentLicense();
    if (!license) {
        m_state->setText(tr("This is a demo: it does not save to files, and opens at most %1 "
                            "documents. Buffers are kept, and so is unsaved text. A license file "
                            "lifts these limits.")
                             .arg(tabLimit()));
        return;
    }
    const QString days =
        license->expires.isNull()
            ? tr("It does not expire.")
            : tr("Its last day is %1.").arg(license->expires.toString(Qt::ISODate));
    m_state->setText(tr("Licensed to %1 (%2).").arg(license->name, license->contact) +
                     QLatin1Char('\n') + days);
}

void LicenseDialog::showProblem(const QString &problem)
{
    m_problem->setText(problem);
    m_problem->setVisible(!problem.isEmpty());
}
