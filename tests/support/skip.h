// SPDX-License-Identifier: MIT
#pragma once

#include <QTest>

// Leaves out the running test, or only its row where it has data.
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
#define CORVANE_SKIP(reason) QSKIP(reason)
#else
#define CORVANE_SKIP(reason) QSKIP(reason, SkipSingle)
#endif
