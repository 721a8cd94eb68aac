// SPDX-License-Identifier: MIT
#include "tests/support/testmain.h"

#include <QApplication>

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

int failedConnections = 0;

void judgeMessage(QtMsgType type, const char *text)
{
    // Qt 4 says "Object::connect:" where later versions say "QObject::connect".
    if (std::strstr(text, "Object::connect"))
        ++failedConnections;
    std::fprintf(stderr, "%s\n", text);
    if (type == QtFatalMsg)
        std::abort();
}

#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
void handleMessage(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    judgeMessage(type, text.toUtf8().constData());
}
#endif

void installMessageHandler()
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    qInstallMessageHandler(handleMessage);
#else
    qInstallMsgHandler(judgeMessage);
#endif
}

} // namespace

int runTests(QObject &tests, int argc, char **argv)
{
    QApplication application(argc, argv);
    installMessageHandler();
    const int failures = QTest::qExec(&tests, argc, argv);
    if (failedConnections > 0)
        std::fprintf(stderr, "FAIL!  %d signal or slot names do not exist\n", failedConnections);
    return failures + failedConnections;
}
