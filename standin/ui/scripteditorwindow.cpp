// SPDX-License-Identifier: MIT
#include "standin/ui/scripteditorwindow.h"

#include "standin/ui/executerfield.h"
#include "standin/ui/reporterfield.h"
#include "standin/ui/userinterface.h"

#include <QSplitter>
#include <QTabWidget>
#include <QVBoxLayout>

namespace standin {

namespace {

ExecuterField *newField(UserInterface &ui, Language language)
{
    ExecuterField *field = new ExecuterField(ui.session());
    field->setLanguage(language);
    return field;
}

} // namespace

ScriptEditorWindow::ScriptEditorWindow(UserInterface &ui, QWidget *parent)
    : QWidget(parent, Qt::Window)
{
    setWindowTitle("Script Editor");
    resize(640, 480);
    QTabWidget *tabs = new QTabWidget;
    tabs->addTab(newField(ui, Language::Mel), "MEL");
    tabs->addTab(newField(ui, Language::Python), "Python");
    QSplitter *splitter = new QSplitter(Qt::Vertical);
    splitter->addWidget(new ReporterField(ui));
    splitter->addWidget(tabs);
    QVBoxLayout *layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(splitter);
    // MEL comes first, as in the command line.
    tabs->currentWidget()->setFocus();
}

} // namespace standin
