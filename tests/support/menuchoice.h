// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>

// Triggers an entry of the next popup menu, or closes it for a text that no entry has. To be made
// before the call that opens the menu.
class MenuChoice : public QObject
{
    Q_OBJECT

public:
    explicit MenuChoice(const QString &text);

    QStringList entries() const { return m_entries; }
    // Those that could be chosen.
    QStringList enabledEntries() const { return m_enabledEntries; }

private slots:
    void choose();

private:
    QString m_text;
    QStringList m_entries;
    QStringList m_enabledEntries;
    QTimer m_timer;
};
