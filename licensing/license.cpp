// SPDX-License-Identifier: MIT
#include "licensing/license.h"

#include "licensing/licensefile.h"

#include <QDate>

#include <optional>

namespace {

const int demoTabs = 4;

struct State
{
    // As base64, from the build; without it no license is valid.
    QByteArray key = QByteArray::fromBase64(CORVANE_LICENSE_KEY);
    // Looked at once: one that expires while the program runs is good to its end.
    std::optional<License> license;
};

State &state()
{
    static State state;
    return state;
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
    return !state().license;
}

QString restoreLicense(const QString &stored)
{
    state().license.reset();
    return stored.isEmpty() ? QString() : takeLicense(stored);
}

QString takeLicense(const QString &text)
{
    const LicenseAnswer answer = checkLicense(text, state().key, QDate::currentDate());
    if (answer.problem.isEmpty())
        state().license = answer.license;
    return answer.problem;
}

const License *currentLicense()
{
    return state().license ? &*state().license : nullptr;
}

void setLicenseKey(const QByteArray &key)
{
    state().key = key;
}
