// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <string>

namespace standin {

// Between the interpreter's UTF-8 and Qt; QString's own functions of that kind mean Latin-1 on
// Qt 4.
inline QString toQt(const std::string &text)
{
    return QString::fromUtf8(text.data(), static_cast<int>(text.size()));
}

inline std::string toUtf8(const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    return std::string(bytes.constData(), static_cast<size_t>(bytes.size()));
}

} // namespace standin
