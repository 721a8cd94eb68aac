// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

// How both sides of a walk write down what they see, so that only the same things read the same.
namespace walkpicture {

struct Tab
{
    QString label;
    QString path;
    int bufferIndex;
    bool isModified;
    int language; // of EdCodeView
    QString text;
};

inline QString visible(QString text)
{
    text.replace(QLatin1Char('\n'), QLatin1String("\\n"));
    text.replace(QLatin1Char('\r'), QLatin1String("\\r"));
    return text.replace(QLatin1Char('\t'), QLatin1String("\\t"));
}

inline QString line(int pane, int tab, const Tab &shown)
{
    return QString::fromLatin1("tab %1.%2 ").arg(pane).arg(tab) + shown.label + QLatin1Char('|') +
           shown.path + QLatin1Char('|') + QString::number(shown.bufferIndex) +
           QLatin1String(shown.isModified ? "|changed|" : "|saved|") +
           QString::number(shown.language) + QLatin1Char('|') + visible(shown.text);
}

inline QString currentLine(int pane, int current)
{
    return QString::fromLatin1("current of %1: %2").arg(pane).arg(current);
}

inline QString activeLine(int pane, const QString &name)
{
    return QString::fromLatin1("active: %1 ").arg(pane) + name;
}

inline QString listLine(const char *list, QStringList entries, const QString &current)
{
    entries.sort();
    return QString::fromLatin1(list) + QLatin1String(": ") + entries.join(QLatin1String("; ")) +
           QLatin1String("; current ") + current;
}

inline QStringList fileLines(const QMap<QString, QByteArray> &files)
{
    QStringList lines;
    for (auto file = files.constBegin(); file != files.constEnd(); ++file)
        lines << QLatin1String("file ") + file.key() + QLatin1Char('|') +
                     visible(QString::fromUtf8(file.value()));
    return lines;
}

} // namespace walkpicture
