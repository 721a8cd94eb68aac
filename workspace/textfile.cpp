// SPDX-License-Identifier: MIT
#include "workspace/textfile.h"

#include "workspace/lineends.h"
#include "workspace/safesave.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cstring>

namespace {

const qint64 mostMegabytes = 256;
const int mostMegalines = 4; // a short line of code takes about 600 bytes when it is shown

QString translated(const char *text)
{
    return QCoreApplication::translate("TextFile", text);
}

// Empty for what can be read, and for what is not there. Opening a pipe would wait for its writer.
QString whyNotRead(const QFileInfo &info)
{
    if (info.isDir())
        return translated("This is a folder");
    if (info.exists() && !info.isFile())
        return translated("This is not a regular file");
    if (info.size() > mostMegabytes * 1024 * 1024)
        return translated("The file is larger than %1 MB").arg(mostMegabytes);
    return QString();
}

// Before decoding: bytes that look like line ends in UTF-16 are too few to matter.
bool hasTooManyLines(const QByteArray &bytes)
{
    if (bytes.size() <= mostMegalines * 1000000) // as files are: the bytes need not be counted
        return false;
    const auto lineFeeds = std::count(bytes.constBegin(), bytes.constEnd(), '\n');
    const auto carriageReturns = std::count(bytes.constBegin(), bytes.constEnd(), '\r');
    return std::max(lineFeeds, carriageReturns) > mostMegalines * 1000000;
}

// Stray surrogates cannot be shown.
QString described(const QString &text, int position)
{
    const QChar first = text.at(position);
    const bool isPair = first.isHighSurrogate() && position + 1 < text.size() &&
                        text.at(position + 1).isLowSurrogate();
    const uint codePoint =
        isPair ? QChar::surrogateToUcs4(first, text.at(position + 1)) : first.unicode();
    const QString number =
        QLatin1String("U+") +
        QString::number(codePoint, 16).toUpper().rightJustified(4, QLatin1Char('0'));
    if (!isPair && (first.isHighSurrogate() || first.isLowSurrogate()))
        return number;
    return QString::fromLatin1("'%1' (%2)").arg(text.mid(position, isPair ? 2 : 1), number);
}

// The same in every program: journals keep it. Eight bytes at a time, as files may be large.
quint64 hashOf(const QByteArray &bytes)
{
    const int step = sizeof(quint64);
    quint64 hash = 0;
    for (int at = 0; at < bytes.size(); at += step) {
        quint64 word = 0;
        std::memcpy(&word, bytes.constData() + at,
                    size_t(std::min<qint64>(step, bytes.size() - at)));
        hash = (hash ^ word) * 0x9E3779B97F4A7C15u;
        hash ^= hash >> 32;
    }
    return hash;
}

Fingerprint fingerprintOf(const QByteArray &bytes)
{
    return {bytes.size(), hashOf(bytes)};
}

// On failure it returns false and puts the reason into errorMessage.
bool readBytes(const QString &path, QByteArray *bytes, QString *errorMessage)
{
    *errorMessage = whyNotRead(QFileInfo(path));
    if (!errorMessage->isEmpty())
        return false;
    QFile source(path);
    if (source.open(QIODevice::ReadOnly))
        *bytes = source.readAll();
    // A failure on the way leaves what was read before it.
    const bool read = source.error() == QFile::NoError;
    if (!read)
        *errorMessage = source.errorString();
    return read;
}

} // namespace

bool readTextFile(const QString &path, TextFile *file, QString *errorMessage,
                  Fingerprint *fingerprint)
{
    QByteArray bytes;
    if (!readTextBytes(path, &bytes, errorMessage, fingerprint))
        return false;
    file->encoding = decodeText(bytes, &file->text);
    return true;
}

bool readTextBytes(const QString &path, QByteArray *bytes, QString *errorMessage,
                   Fingerprint *fingerprint)
{
    if (!readBytes(path, bytes, errorMessage))
        return false;
    if (hasTooManyLines(*bytes)) {
        *errorMessage = translated("The file has more than %1 million lines").arg(mostMegalines);
        return false;
    }
    if (fingerprint)
        *fingerprint = fingerprintOf(*bytes);
    return true;
}

std::optional<MissingCharacter> missingCharacter(const TextFile &file)
{
    QByteArray bytes;
    const int missing = encodeText(file.text, file.encoding, &bytes);
    if (missing < 0)
        return std::nullopt;
    return MissingCharacter{described(file.text, missing), lineNumber(file.text, missing)};
}

bool writeTextFile(const QString &path, const TextFile &file, QString *errorMessage,
                   Fingerprint *fingerprint)
{
    QByteArray bytes;
    const int missing = encodeText(file.text, file.encoding, &bytes);
    if (missing < 0) {
        const bool written = writeFileSafely(path, bytes, errorMessage);
        if (written && fingerprint)
            *fingerprint = fingerprintOf(bytes);
        return written;
    }
    *errorMessage = translated("Line %1 has the character %2, which is not in %3")
                        .arg(QString::number(lineNumber(file.text, missing)),
                             described(file.text, missing), encodingName(file.encoding));
    return false;
}

// Most changes change the size.
bool hasOtherBytes(const QString &path, const Fingerprint &fingerprint)
{
    const QFileInfo info(path);
    if (info.isFile() && info.isReadable() && info.size() != fingerprint.size)
        return true;
    const std::optional<Fingerprint> now = fingerprintOfFile(path);
    return now && (now->size != fingerprint.size || now->hash != fingerprint.hash);
}

std::optional<Fingerprint> fingerprintOfFile(const QString &path)
{
    QByteArray bytes;
    QString ignored;
    if (!readBytes(path, &bytes, &ignored))
        return std::nullopt;
    return fingerprintOf(bytes);
}
