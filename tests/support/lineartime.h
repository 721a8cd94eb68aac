// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QString>

// The pattern over and over, a million units long; "%1" in it is the number of the repetition.
inline QString longText(const QString &pattern)
{
    const int size = 1000000;
    if (!pattern.contains(QLatin1String("%1")))
        return pattern.repeated(size / int(pattern.size()));
    QString text;
    for (int i = 0; text.size() < size; ++i)
        text += QString(pattern).replace(QLatin1String("%1"), QString::number(i));
    text.truncate(size);
    return text;
}

template <typename Work>
qint64 milliseconds(const QString &text, Work work)
{
    QElapsedTimer clock;
    clock.start();
    work(text);
    return clock.elapsed();
}

// Empty when the work on a text of a million units takes no longer than 100 ms, or, where machine
// or build are too slow for that, no longer than its size lets expect from a sixteenth of it.
template <typename Work>
QString slowness(const QString &text, Work work)
{
    QString complaint;
    // Other programs may slow down any run, but hardly three.
    for (int run = 0; run < 3; ++run) {
        const qint64 whole = milliseconds(text, work);
        if (whole <= 100)
            return QString();
        // One more, as the clock cuts off what is no whole millisecond.
        const qint64 part = milliseconds(text.left(int(text.size()) / 16), work) + 1;
        if (whole <= 16 * 3 * part)
            return QString();
        complaint = QString::fromLatin1("%1 ms, %2 for a sixteenth").arg(whole).arg(part);
    }
    return complaint;
}
