// SPDX-License-Identifier: MIT
// The text of a license, and whether it is what was issued. Five lines:
//   Corvane Editor license
//   Name: Ada Lovelace
//   Contact: ada@example.org
//   Expires: 2030-12-31
//   Signature: the Ed25519 signature of the four lines before, in base64
#pragma once

#include <QByteArray>
#include <QDate>
#include <QString>

struct License
{
    QString name;
    QString contact; // an e-mail address or an organization
    QDate expires;   // the last day; null for never
};

// The lines that are signed, each with its end.
QByteArray licenseText(const License &license);
// The line that belongs behind them; the signature has 64 bytes.
QByteArray signatureLine(const QByteArray &signature);

struct LicenseAnswer
{
    License license; // empty where there is a problem
    QString problem; // a sentence for the user; empty for a valid license
};

// What there is to tell when its last day is over; else empty.
QString expiryProblem(const License &license, const QDate &today);

// What mail programs do to line ends and blanks does not matter. The key has 32 bytes.
LicenseAnswer checkLicense(const QString &text, const QByteArray &publicKey, const QDate &today);

// The text of a file; with a problem it is empty.
QString readLicenseFile(const QString &path, QString *problem);
