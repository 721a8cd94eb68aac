// SPDX-License-Identifier: MIT
#include "licensing/license.h"

#include "licensing/licensefile.h"

#include <optional>

namespace {

const int demoTabs = 4;

struct State
{
    // As base64, from the build; without it no license is valid.
    QByteArray key = QByteArray::fromBase64(CORVANE_LICENSE_KEY);
    QDate day;
    // It was valid when it was taken, but may expire while the program runs.
    std::optional<License> license;
    QString problem; // with the one that was stored; empty where it was valid, or none was
};

State &state()
{
    static State state;
    return state;
}

QDate today()
{
    return state().day.isNull() ? QDate::currentDate() : state().day;
}

} // namespace

bool savingAllowed()
{
    return !isDemo();
}

int tabLimit()
{
    return isDemo() ? demoTabs : INT_MAX;
}

bool isDemo()
{
    return !currentLicense();
}

QString licenseProblem()
{
    return state().license ? expiryProblem(*state().license, today()) : state().problem;
}

QString restoreLicense(const QString &stored)
{
    state().license.reset();
    state().problem = stored.isEmpty() ? QString() : takeLicense(stored);
    return state().problem;
}

QString takeLicense(const QString &text)
{
    const LicenseAnswer answer = checkLicense(text, state().key, today());
    if (answer.problem.isEmpty())
        state().license = answer.license;
    return answer.problem;
}

const License *currentLicense()
{
    return state().license && licenseProblem().isEmpty() ? &*state().license : nullptr;
}

void setLicenseKey(const QByteArray &key)
{
    state().key = key;
}

void setLicenseDay(const QDate &day)
{
    state().day = day;
}
