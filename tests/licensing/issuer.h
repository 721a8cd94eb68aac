// SPDX-License-Identifier: MIT
#pragma once

#include "licensing/licensefile.h"

#include <sodium.h>

// Somebody with a pair of keys, who issues licenses.
class Issuer
{
public:
    Issuer()
    {
        if (sodium_init() >= 0)
            crypto_sign_keypair(bytes(&m_publicKey), bytes(&m_secretKey));
    }

    QByteArray publicKey() const { return m_publicKey; }

    QByteArray license(const char *name, const QDate &expires = QDate())
    {
        License license;
        license.name = QString::fromUtf8(name);
        license.contact = "ada@example.org";
        license.expires = expires;
        QByteArray text = licenseText(license);
        QByteArray signature(crypto_sign_BYTES, '\0');
        crypto_sign_detached(bytes(&signature), nullptr, bytes(&text), size_t(text.size()),
                             bytes(&m_secretKey));
        return text + signatureLine(signature);
    }

private:
    static unsigned char *bytes(QByteArray *array)
    {
        return reinterpret_cast<unsigned char *>(array->data());
    }

    QByteArray m_publicKey = QByteArray(crypto_sign_PUBLICKEYBYTES, '\0');
    QByteArray m_secretKey = QByteArray(crypto_sign_SECRETKEYBYTES, '\0');
};
