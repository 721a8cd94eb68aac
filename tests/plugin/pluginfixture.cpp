// SPDX-License-Identifier: MIT
#include "tests/plugin/pluginfixture.h"

#include "standin/host/idlequeue.h"
#include "standin/host/pluginloader.h"
#include "standin/python/python.h"

#include <QApplication>
#include <QPlainTextEdit>
#include <QTest>

void PluginFixture::startSession(bool batch)
{
    endSession();
    m_folder = std::make_unique<ScratchDir>();
    openSession(batch);
}

void PluginFixture::restartSession()
{
    endSession();
    openSession(false);
}

void PluginFixture::openSession(bool batch)
{
    qputenv("MAYA_LOCATION", "/opt/maya"); // as the host's own start does
    standin::SessionOptions options;
    options.batch = batch;
    options.userDirectory = m_folder->path();
    m_session = std::make_unique<standin::Session>(options);
    m_session->setPython(standin::createPythonEngine(*m_session, m_session->mel()));
    m_log = std::make_unique<SessionLog>(*m_session);
    if (!batch)
        m_ui = std::make_unique<standin::UserInterface>(*m_session);
}

void PluginFixture::endSession()
{
    if (m_session)
        m_session->plugins().unloadAll();
    m_ui.reset();
    m_log.reset();
    m_session.reset();
    QCOMPARE(editorWindow(), static_cast<QWidget *>(nullptr));
}

bool PluginFixture::load()
{
    return m_session->plugins().load(QString::fromUtf8(PLUGIN_FILE));
}

void PluginFixture::unload()
{
    QVERIFY(m_session->plugins().unload(QLatin1String("corvaneEditor")));
    runIdle();
}

void PluginFixture::runIdle()
{
    QVERIFY(m_session->idleQueue().processUntilEmpty());
}

QString PluginFixture::mel(const char *text)
{
    return QString::fromUtf8(mel::printText(m_session->executeMel(text, false).value).c_str());
}

QWidget *PluginFixture::editorWindow()
{
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (widget->inherits("Kestrowl"))
            return widget;
    }
    return nullptr;
}

QPlainTextEdit *PluginFixture::activeEditor()
{
    for (QPlainTextEdit *edit : widgetsOf<QPlainTextEdit>("EdCodeEdit")) {
        if (edit->isVisible())
            return edit;
    }
    return nullptr;
}

QPlainTextEdit *PluginFixture::outputView()
{
    return widgetsOf<QPlainTextEdit>("EdOutputView").value(0);
}
