// SPDX-License-Identifier: MIT
#include "workspace/textfile.h"

#include <QCoreApplication>
#include <QFile>

namespace {

const char utf8Mark[] = "\xEF\xBB\xBF";
const int utf8MarkSize = 3;

QString translated(const char *text)
{
    return QCoreApplication::translate("TextFile", text);
}

// By the first line end; a text of one line has none, and "\n" is as good.
bool usesCarriageReturns(const QByteArray &bytes)
{
    const int lineEnd = bytes.indexOf('\n');
    return lineEnd > 0 && bytes.at(lineEnd - 1) == '\r';
}

} // namespace

bool decodeText(const QByteArray &bytes, TextFile *file)
{
    TextFile decoded;
    decoded.byteOrderMark = bytes.startsWith(utf8Mark);
    const QByteArray body = decoded.byteOrderMark ? bytes.mid(utf8MarkSize) : bytes;
    decoded.text = QString::fromUtf8(body.constData(), int(body.size()));
    // The one test that is the same on every Qt version, whose decoders report errors differently.
    if (decoded.text.toUtf8() != body)
        return false;
    decoded.carriageReturns = usesCarriageReturns(body);
    decoded.text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    *file = decoded;
    return true;
}

QByteArray encodeText(const TextFile &file)
{
    QString text = file.text;
    if (file.carriageReturns)
        text.replace(QLatin1Char('\n'), QLatin1String("\r\n"));
    return (file.byteOrderMark ? QByteArray(utf8Mark) : QByteArray()) + text.toUtf8();
}

bool readTextFile(const QString &path, TextFile *file, QString *errorMessage)
{
    QFile source(path);
    if (!source.open(QIODevice::ReadOnly)) {
        *errorMessage = source.errorString();
        return false;
    }
    const QByteArray bytes = source.readAll();
    // A failure on the way leaves what was read before it.
    if (source.error() != QFile::NoError) {
        *errorMessage = source.errorString();
        return false;
    }
    if (!decodeText(bytes, file)) {
        *errorMessage = translated("The file is not UTF-8 text");
        return false;
    }
    return true;
}

bool writeTextFile(const QString &path, const TextFile &file, QString *errorMessage)
{
    const QByteArray bytes = encodeText(file);
    QFile target(path);
    // Unbuffered errors such as a full disk may show only when the file is flushed.
    const bool written =
        target.open(QIODevice::WriteOnly) && target.write(bytes) == bytes.size() && target.flush();
    if (!written)
        *errorMessage = target.errorString();
    return written;
}
