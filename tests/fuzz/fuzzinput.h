// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <vector>

// Ends the program when the property is broken; the fuzzer keeps the input.
inline void require(bool holds, const char *property)
{
    if (holds)
        return;
    std::fprintf(stderr, "Broken: %s.\n", property);
    std::abort();
}

// Any UTF-16 units behind the byte-order mark FF FE, lone surrogates too; UTF-8 without it, so that
// a script is an input as it is.
inline QString fuzzText(const uint8_t *data, size_t size)
{
    if (size < 2 || data[0] != 0xff || data[1] != 0xfe)
        return QString::fromUtf8(reinterpret_cast<const char *>(data), int(size));
    QString text;
    for (size_t i = 2; i + 1 < size; i += 2)
        text += QChar(ushort(data[i] | data[i + 1] << 8));
    return text;
}

// A text that ends where its memory does, so that reading on is noticed.
class TightText
{
public:
    explicit TightText(const QString &text) : m_units(text.constBegin(), text.constEnd()) {}

    // Valid no longer than this.
    QString text() const { return QString::fromRawData(m_units.data(), int(m_units.size())); }

private:
    std::vector<QChar> m_units;
};
