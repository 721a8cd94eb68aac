// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <QString>

#include <filesystem>
#include <system_error>

// Between Qt's and the standard library's notions of a path and of a failure; for compat/ only.
namespace compat {

inline QString messageOf(const std::error_code &error)
{
    return QString::fromLocal8Bit(error.message().c_str());
}

inline std::filesystem::path nativePath(const QString &path)
{
#ifdef Q_OS_WIN
    return std::filesystem::path(path.toStdWString());
#else
    return std::filesystem::path(QFile::encodeName(path).constData());
#endif
}

inline QString qtPath(const std::filesystem::path &path)
{
#ifdef Q_OS_WIN
    return QString::fromStdWString(path.generic_wstring());
#else
    return QFile::decodeName(path.c_str());
#endif
}

} // namespace compat
