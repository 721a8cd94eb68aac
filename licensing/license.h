// SPDX-License-Identifier: MIT
// What the license allows. In ordinary builds that is everything, and the compiler knows it. Builds
// with the option CORVANE_DEMO allow less until the user has given them a license; the answers are
// then those of the process, for the GUI thread.
#pragma once

#include <QString>

#include <climits>

#ifdef CORVANE_DEMO

#include <QByteArray>
#include <QDate>

struct License;

bool savingAllowed(); // to files; buffers, journals and settings are always written
int tabLimit();       // how many may be open before a new one is refused
bool isDemo();        // whether the two say no more than a demo's

// Why this is a demo although there was a license; empty where there was none.
QString licenseProblem();

// Takes a stored license, perhaps an empty text, for the session. Of one that is not valid (any
// more) it returns why, and leaves a demo.
QString restoreLicense(const QString &stored);
// Takes another one, or changes nothing and returns what is wrong with it.
QString takeLicense(const QString &text);
// Null in a demo, and so once its last day is over.
const License *currentLicense();

// The public key of those who issue licenses, which is built in; another one for tests.
void setLicenseKey(const QByteArray &key);
// The day by which licenses are judged: a null one, as at first, is the system's; others for tests.
void setLicenseDay(const QDate &day);

#else

constexpr bool savingAllowed()
{
    return true;
}
constexpr int tabLimit()
{
    return INT_MAX;
}
constexpr bool isDemo()
{
    return false;
}
inline QString licenseProblem()
{
    return QString();
}

#endif
