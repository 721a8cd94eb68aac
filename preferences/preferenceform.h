// SPDX-License-Identifier: MIT
#pragma once

#include "preferences/preferencerows.h"

#include <QWidget>

#include <vector>

class QFormLayout;
class QGridLayout;

// The controls of one page of the Preferences dialog, made from their rows. Holds no preferences
// itself: it is filled with values and asked for what the user made of them.
class PreferenceForm : public QWidget
{
    Q_OBJECT

public:
    explicit PreferenceForm(PreferencePage page, QWidget *parent = nullptr);

    // Shows the values; changed() is not emitted.
    void fill(const Preferences &values);
    // Gives the values what the controls show, and leaves those of other pages alone.
    void take(Preferences &values) const;
    // Disables what makes no sense with these values.
    void updateEnabled(const Preferences &values);
    // Returns false, and points out what is wrong, when a control shows what cannot be used.
    bool check();
    // Puts those sections below each other that stand side by side, for a screen that is too small.
    void stackSections();

    bool eventFilter(QObject *editor, QEvent *event) override;

signals:
    // By the user.
    void changed();

private slots:
    void reportChange();

private:
    struct Control
    {
        const PreferenceRow *row;
        QWidget *editor; // its user property is the value
        QWidget *label;  // null when the editor has a text of its own
    };

    struct Section
    {
        SectionPlace place;
        QWidget *box;
    };

    QWidget *createSection(const PreferenceSection &section);
    void addControl(const PreferenceRow &row, QFormLayout *layout);
    void arrange(bool isStacked);

    QGridLayout *m_grid;
    std::vector<Section> m_sections;
    std::vector<Control> m_controls; // in the order of the rows
    bool m_isFilling = false;
};
