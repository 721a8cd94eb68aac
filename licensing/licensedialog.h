// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QString>

class QLabel;

// What the license is, and the way to give the program one. Only in builds that want a license.
class LicenseDialog : public QDialog
{
    Q_OBJECT

public:
    explicit LicenseDialog(QWidget *parent = nullptr);

public slots:
    // Asks for the file.
    void chooseFile();
    // Takes the license in it for the session, or says what is wrong with it and changes nothing.
    void useFile(const QString &path);

signals:
    // A license was taken; the text is what to keep.
    void licenseChanged(const QString &text);

protected:
    void showEvent(QShowEvent *event) override;

private:
    void showState();
    void showProblem(const QString &problem);

    QLabel *m_state;
    QLabel *m_problem;
};
