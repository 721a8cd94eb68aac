// SPDX-License-Identifier: MIT
#pragma once

#include "preferences/textformats.h"

#include <QListWidget>

// The list of text categories, each drawn in its own format, under a heading for the editor and one
// for the output.
class CategoryList : public QListWidget
{
    Q_OBJECT

public:
    explicit CategoryList(QWidget *parent = nullptr);

    void showFormats(const TextFormats &formats);

    // The chosen category as a text index; there always is one.
    int category() const;

signals:
    void categoryChanged();

private:
    void addHeading(const QString &text);
    void addCategories(int begin, int end);
};
