// SPDX-License-Identifier: MIT
#pragma once

#include <QComboBox>

// A choice of the installed font families, those of fixed pitch first. A family that is not
// installed can be set all the same, and is kept until another is chosen.
class FontFamilyBox : public QComboBox
{
    Q_OBJECT
    Q_PROPERTY(QString family READ family WRITE setFamily NOTIFY familyChanged USER true)

public:
    explicit FontFamilyBox(QWidget *parent = nullptr);

    QString family() const;
    // Empty: the built-in family.
    void setFamily(const QString &family);

signals:
    void familyChanged();
};
