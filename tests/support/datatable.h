// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>
#include <QTest>

#include <initializer_list>

template <typename>
using ColumnName = const char *;

// The columns of a data-driven test: columns<QString, int>("given", "expected").
template <typename... Types>
void columns(ColumnName<Types>... names)
{
    (QTest::addColumn<Types>(names), ...);
}

// One of its rows, on one line where QTest's own way takes one for each text.
template <typename... Values>
void row(const char *tag, const Values &...values)
{
    (QTest::newRow(tag) << ... << values);
}

// What is between blanks; no list for no text.
inline QStringList words(const char *text)
{
    return *text ? QString::fromUtf8(text).split(QLatin1Char(' ')) : QStringList();
}

inline QStringList strings(std::initializer_list<QString> texts)
{
    QStringList list;
    for (const QString &text : texts)
        list << text;
    return list;
}
