// SPDX-License-Identifier: MIT
#include "workspace/fileprogress.h"

#include <QApplication>
#include <QProgressDialog>

namespace {

const int patience = 1000; // ms
const int interval = 50;   // ms between looks at the events

} // namespace

FileProgress::FileProgress(const QString &text, QWidget *parent) : m_text(text), m_parent(parent) {}

FileProgress::~FileProgress()
{
    stop();
}

bool FileProgress::goesOn()
{
    if (!m_isUnderWay)
        start();
    if (m_clock.elapsed() >= (m_isShown ? interval : patience)) {
        if (!m_isShown)
            showDialog();
        QApplication::processEvents();
        m_clock.start();
    }
    return !m_isShown || (m_dialog && !m_dialog->wasCanceled());
}

void FileProgress::stop()
{
    if (m_isUnderWay && !m_isShown)
        QApplication::restoreOverrideCursor();
    delete m_dialog;
    m_isUnderWay = false;
    m_isShown = false;
}

void FileProgress::start()
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    m_isUnderWay = true;
    m_clock.start();
}

// How many files there are in all is not known.
void FileProgress::showDialog()
{
    QApplication::restoreOverrideCursor();
    const QString cancel = QCoreApplication::translate("FileProgress", "Cancel");
    m_dialog = new QProgressDialog(m_text, cancel, 0, 0, m_parent);
    m_dialog->setModal(true);
    m_dialog->show();
    m_isShown = true;
}
