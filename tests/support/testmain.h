// SPDX-License-Identifier: MIT
#pragma once

#include <QTest>

// Runs the tests of one object in a widget application. A failed string-based connection, which
// Qt only reports as a warning, makes the program fail. Returns the exit status for main().
int runTests(QObject &tests, int argc, char **argv);

#define CORVANE_TEST_MAIN(TestClass)                                                               \
    int main(int argc, char **argv)                                                                \
    {                                                                                              \
        TestClass tests;                                                                           \
        return runTests(tests, argc, argv);                                                        \
    }
