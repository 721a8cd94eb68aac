// SPDX-License-Identifier: MIT
// Makes the pair of keys that licenses are signed and checked with, and signs licenses.
#include "compat/filesystem.h"
#include "licensing/licensefile.h"

#include <QCoreApplication>
#include <QFile>
#include <QStringList>

#include <sodium.h>

#include <cstdio>

namespace {

const char usage[] =
    "corvane-license keys FILE                        makes a pair of keys: the secret one in "
    "FILE,\n"
    "                                                 the public one is printed\n"
    "corvane-license sign FILE NAME CONTACT EXPIRES   prints a license, signed with the key in\n"
    "                                                 FILE; EXPIRES is YYYY-MM-DD or \"never\"\n";

unsigned char *unsignedBytes(QByteArray *bytes)
{
    return reinterpret_cast<unsigned char *>(bytes->data());
}

int fail(const QString &reason)
{
    fprintf(stderr, "corvane-license: %s\n", reason.toLocal8Bit().constData());
    return 1;
}

void print(const QByteArray &text)
{
    fputs(text.constData(), stdout);
}

int makeKeys(const QString &path)
{
    QByteArray publicKey(int(crypto_sign_PUBLICKEYBYTES), '\0');
    QByteArray secretKey(int(crypto_sign_SECRETKEYBYTES), '\0');
    crypto_sign_keypair(unsignedBytes(&publicKey), unsignedBytes(&secretKey));
    const QByteArray line = secretKey.toBase64() + '\n';
    // Nobody else may read it, not even for a moment.
    QFile file;
    QString reason;
    if (!compat::createFile(&file, path, compat::Access::UserOnly, &reason))
        return fail(path + QLatin1String(": ") + reason);
    if (file.write(line) != line.size() || !file.flush())
        return fail(file.errorString());
    print(publicKey.toBase64() + '\n');
    return 0;
}

// Whether the text comes back as it is when the license is read.
bool isOneLine(const QString &text)
{
    return !text.isEmpty() && text == text.simplified();
}

int sign(const QStringList &arguments)
{
    QFile file(arguments.at(2));
    if (!file.open(QIODevice::ReadOnly))
        return fail(file.errorString());
    QByteArray secretKey = QByteArray::fromBase64(file.readAll());
    if (secretKey.size() != int(crypto_sign_SECRETKEYBYTES))
        return fail(QLatin1String("there is no secret key in that file"));

    License license;
    license.name = arguments.at(3);
    license.contact = arguments.at(4);
    license.expires = QDate::fromString(arguments.at(5), Qt::ISODate);
    if (!isOneLine(license.name) || !isOneLine(license.contact))
        return fail(QLatin1String("name and contact are one line each, and not empty"));
    if (license.expires.isNull() && arguments.at(5) != QLatin1String("never"))
        return fail(QLatin1String("the date is none"));

    QByteArray text = licenseText(license);
    QByteArray signature(int(crypto_sign_BYTES), '\0');
    crypto_sign_detached(unsignedBytes(&signature), nullptr, unsignedBytes(&text),
                         size_t(text.size()), unsignedBytes(&secretKey));
    print(text + signatureLine(signature));
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const QString command = arguments.value(1);
    if (sodium_init() < 0)
        return fail(QLatin1String("libsodium does not start"));
    if (command == QLatin1String("keys") && arguments.size() == 3)
        return makeKeys(arguments.at(2));
    if (command == QLatin1String("sign") && arguments.size() == 6)
        return sign(arguments);
    fputs(usage, stderr);
    return 2;
}
