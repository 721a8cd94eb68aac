// SPDX-License-Identifier: MIT
#include "licensing/licensefile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include <sodium.h>

namespace {

const int mostBytes = 16384; // nobody's name is that long
const char *const title = "Corvane Editor license";
const char *const neverExpires = "never";
const char *const signatureLabel = "Signature: ";
// In the order of the lines behind the title.
const char *const labels[] = {"Name: ", "Contact: ", "Expires: ", signatureLabel};
const int labelCount = sizeof labels / sizeof *labels;

QString translated(const char *text)
{
    return QCoreApplication::translate("License", text);
}

LicenseAnswer refused(const char *problem)
{
    LicenseAnswer answer;
    answer.problem = translated(problem);
    return answer;
}

// Without what was lost or added on the way: byte-order marks, blanks at the ends, empty lines.
QStringList textLines(QString text)
{
    text.remove(QChar::ByteOrderMark);
    text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    QStringList lines;
    for (const QString &line : text.split(QLatin1Char('\n'))) {
        if (!line.trimmed().isEmpty())
            lines << line.trimmed();
    }
    return lines;
}

// Strict, unlike Qt's function, which skips what it does not know.
QByteArray decoded(const QString &base64)
{
    const QByteArray bytes = QByteArray::fromBase64(base64.toLatin1());
    return QString::fromLatin1(bytes.toBase64()) == base64 ? bytes : QByteArray();
}

const unsigned char *unsignedBytes(const QByteArray &bytes)
{
    return reinterpret_cast<const unsigned char *>(bytes.constData());
}

bool isSigned(const QByteArray &text, const QByteArray &signature, const QByteArray &publicKey)
{
    return sodium_init() >= 0 && publicKey.size() == int(crypto_sign_PUBLICKEYBYTES) &&
           crypto_sign_verify_detached(unsignedBytes(signature), unsignedBytes(text),
                                       size_t(text.size()), unsignedBytes(publicKey)) == 0;
}

// The values behind the labels; fewer where the text ends early.
QStringList fieldValues(const QStringList &lines)
{
    QStringList values;
    for (int i = 0; i < labelCount && i + 1 < lines.size(); ++i) {
        const QString label = QLatin1String(labels[i]);
        values << (lines.at(i + 1).startsWith(label) ? lines.at(i + 1).mid(label.size())
                                                     : QString());
    }
    // A long line may have been broken.
    if (values.size() == labelCount)
        values.last() += QStringList(lines.mid(labelCount + 1)).join(QString());
    return values;
}

QString expiryText(const QDate &date)
{
    return date.isNull() ? QString::fromLatin1(neverExpires) : date.toString(Qt::ISODate);
}

} // namespace

QByteArray licenseText(const License &license)
{
    const QStringList values = QStringList()
                               << license.name << license.contact << expiryText(license.expires);
    QString text = QLatin1String(title) + QLatin1Char('\n');
    for (int i = 0; i < values.size(); ++i)
        text += QLatin1String(labels[i]) + values.at(i) + QLatin1Char('\n');
    return text.toUtf8();
}

QByteArray signatureLine(const QByteArray &signature)
{
    return signatureLabel + signature.toBase64() + '\n';
}

QString expiryProblem(const License &license, const QDate &today)
{
    const bool isOver = !license.expires.isNull() && license.expires < today;
    return isOver ? translated("The license expired on %1.").arg(expiryText(license.expires))
                  : QString();
}

LicenseAnswer checkLicense(const QString &text, const QByteArray &publicKey, const QDate &today)
{
    const QStringList lines = textLines(text);
    if (lines.isEmpty() || lines.first() != QLatin1String(title))
        return refused("This is no license of Corvane Editor.");
    const QStringList values = fieldValues(lines);
    const QByteArray signature = decoded(values.value(labelCount - 1));
    if (values.size() < labelCount || signature.size() != int(crypto_sign_BYTES))
        return refused("The license is incomplete or damaged.");
    LicenseAnswer answer;
    answer.license.name = values.at(0);
    answer.license.contact = values.at(1);
    answer.license.expires = QDate::fromString(values.at(2), Qt::ISODate);
    // Written anew, so that a date which is none, or another line, is not what was signed.
    if (!isSigned(licenseText(answer.license), signature, publicKey))
        return refused("The license was changed, or was not issued for this program.");
    answer.problem = expiryProblem(answer.license, today);
    if (!answer.problem.isEmpty())
        answer.license = License();
    return answer;
}

QString readLicenseFile(const QString &path, QString *problem)
{
    if (!QFileInfo(path).isFile()) { // opening a pipe would wait
        *problem = translated("This is no file.");
        return QString();
    }
    QFile file(path);
    const QByteArray bytes =
        file.open(QIODevice::ReadOnly) ? file.read(mostBytes + 1) : QByteArray();
    if (file.error() != QFile::NoError)
        *problem = translated("The file cannot be read: %1.").arg(file.errorString());
    else if (bytes.size() > mostBytes)
        *problem = translated("This is no license of Corvane Editor.");
    else
        return QString::fromUtf8(bytes);
    return QString();
}
