// SPDX-License-Identifier: MIT
// The window and its license: the dialog, and what shows that this is a demo.
#include "mainwindow/kestrowl.h"

#include "licensing/license.h"
#include "mainwindow/dialogs.h"
#include "workspace/edcentralwidget.h"
#include "workspace/edcodetabwidget.h"
#include "workspace/edcodeview.h"
#ifdef CORVANE_DEMO
#include "licensing/licensedialog.h"
#endif

#include <QAction>
#include <QMenuBar>
#include <QToolButton>

#ifdef CORVANE_DEMO

void Kestrowl::showLicenseDialog()
{
    LicenseDialog *dialog = findChild<LicenseDialog *>();
    if (!dialog) {
        dialog = new LicenseDialog(this);
        connect(dialog, SIGNAL(licenseChanged(QString)), SLOT(storeLicense(QString)));
    }
    presentDialog(dialog);
}

void Kestrowl::readLicense()
{
    restoreLicense(m_license);
    updateDemoNotice();
    for (int id = 0; id < EdCentralWidget::PaneCount; ++id)
        connect(m_central->pane(id), SIGNAL(codeViewRetired(EdCodeView *)),
                SLOT(explainClosed(EdCodeView *)));
}

#else

void Kestrowl::showLicenseDialog()
{
    showLicense(this);
}

// The stored one is kept for builds that want it.
void Kestrowl::readLicense() {}

#endif

void Kestrowl::storeLicense(const QString &text)
{
    m_license = text;
    updateDemoNotice();
    warnOf(writeSettings());
}

void Kestrowl::explainClosed(EdCodeView *view)
{
    if (!view->keptJournal().isEmpty())
        setStatusText(tr("The demo does not save: the changes of %1 come back when it is opened "
                         "again, or at the next start.")
                          .arg(view->fileInfo().fileName()));
}

// In the menu bar's corner, which no setting hides. Saving under another name is for files alone;
// the other actions save buffers too.
void Kestrowl::updateDemoNotice()
{
    const bool wasDemo = m_demoNotice && !m_demoNotice->isHidden();
    if (isDemo() && !wasDemo) {
        warnOf(licenseProblem());
        warnOf(tr("This is a demo: it does not save to files."));
    }
    action(Action::SaveAs)->setEnabled(savingAllowed());
    if (isDemo() && !m_demoNotice) {
        m_demoNotice = new QToolButton(menuBar());
        m_demoNotice->setObjectName(QLatin1String("demoNotice"));
        m_demoNotice->setAutoRaise(true);
        m_demoNotice->setText(tr("Demo: files are not saved"));
        m_demoNotice->setToolTip(tr("Choose a license file"));
        connect(m_demoNotice, SIGNAL(clicked()), SLOT(showLicenseDialog()));
        menuBar()->setCornerWidget(m_demoNotice);
    }
    if (m_demoNotice)
        m_demoNotice->setVisible(isDemo());
}
