// SPDX-License-Identifier: MIT
#include "workspace/workspacescripts.h"

#include "editor/edcodeedit.h"
#include "editor/edcompleter.h"
#include "preferences/preferences.h"
#include "tests/support/scratchdir.h"
#include "tests/support/testmain.h"
#include "workspace/edcentralwidget.h"
#include "workspace/edcodeview.h"

#include <QDir>
#include <QSignalSpy>

class TestWorkspaceScripts : public QObject
{
    Q_OBJECT

private slots:
    void editorsKnowWhatOpenScriptsDeclare();
    void slowCompletionIsReported();
};

namespace {

const char ownScript[] = "global proc own() {}\nproc ownLocal() {}\nglobal string $gOwn;\n";
const char otherScript[] = "global proc other() {}\nproc otherLocal() {}\nglobal int $gOther;\n";

QString namesIn(const EdCodeView *view)
{
    QStringList names;
    for (const Completion &completion : openScripts()->melNamesFor(view->codeEdit()->document()))
        names << completion.text;
    names.sort();
    return names.join(" ");
}

} // namespace

void TestWorkspaceScripts::editorsKnowWhatOpenScriptsDeclare()
{
    ScratchDir folder;
    EdCodeView::setBufferDirectory(QDir(folder.path()));
    preferences().confirmCloseTemporaryBuffer = false;
    {
        EdCentralWidget central;
        EdCodeView *views[2];
        for (int i = 0; i < 2; ++i) {
            central.newMelBuffer();
            views[i] = central.currentCodeView();
            views[i]->codeEdit()->setText(i == 0 ? ownScript : otherScript);
            central.activeViewChange();
        }
        QCOMPARE(namesIn(views[0]), QString("$gOther $gOwn other own ownLocal"));
        central.newPythonBuffer();
        QCOMPARE(namesIn(central.currentCodeView()), QString("$gOther $gOwn other own"));
        views[0]->codeEdit()->setModified(false);
        central.closeBuffer(views[1]->bufferIndex());
        QCOMPARE(namesIn(views[0]), QString("$gOwn own ownLocal"));
    }
    QVERIFY(!openScripts());
}

void TestWorkspaceScripts::slowCompletionIsReported()
{
    ScratchDir folder;
    EdCodeView::setBufferDirectory(QDir(folder.path()));
    EdCentralWidget central;
    central.newMelBuffer();
    QSignalSpy slow(&central, SIGNAL(completionSlow()));
    QMetaObject::invokeMethod(central.currentCodeView()->codeEdit()->completer(),
                              "lettersSwitchedOff");
    QCOMPARE(int(slow.size()), 1);
}

CORVANE_TEST_MAIN(TestWorkspaceScripts)

#include "tst_workspacescripts.moc"
