// SPDX-License-Identifier: MIT
#include "workspace/workspacescripts.h"

#include "editor/edcodeedit.h"
#include "editor/edcompleter.h"
#include "preferences/preferences.h"
#include "tests/support/scratchdir.h"
#include "tests/support/testmain.h"
#include "workspace/edcentralwidget.h"
#include "workspace/edcodeview.h"
#include "workspace/recovery.h"
#include "workspace/scriptdetails.h"

#include <QApplication>
#include <QDir>
#include <QSignalSpy>

class TestWorkspaceScripts : public QObject
{
    Q_OBJECT

private slots:
    void editorsKnowWhatOpenScriptsDeclare();
    void unseenScriptsAreRead();
    void slowCompletionIsReported();
};

namespace {

const char ownScript[] = "global proc own() {}\nproc ownLocal() {}\nglobal string $gOwn;\n";
const char otherScript[] = "global proc other() {}\nproc otherLocal() {}\nglobal int $gOther;\n";

QString namesFor(const QTextDocument *document)
{
    QStringList names;
    for (const Completion &completion : openScripts()->melNamesFor(document))
        names << completion.text;
    names.sort();
    return names.join(" ");
}

QString namesIn(const EdCodeView *view)
{
    return namesFor(view->codeEdit()->document());
}

// Of a single view.
class Host : public DocumentHost
{
public:
    explicit Host(EdCodeView *view) : m_view(view) {}
    QList<EdCodeView *> codeViews() const override { return QList<EdCodeView *>() << m_view; }
    int newBufferIndex() override { return 0; }
    QString nameOf(const EdCodeView &) const override { return QString(); }
    void addCodeView(EdCodeView *, const QString &) override {}

private:
    EdCodeView *m_view;
};

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
        QCOMPARE(openScripts()->folderOf(views[0]->codeEdit()->document()), folder.path());
        QCOMPARE(openScripts()->folderOf(nullptr), QString());
        views[0]->codeEdit()->appendPlainText("proc newest() {}");
        QCOMPARE(namesIn(views[0]), QString("$gOther $gOwn other own ownLocal"));
        openScripts()->refresh(views[0]->codeEdit()->document());
        QCOMPARE(namesIn(views[0]), QString("$gOther $gOwn newest other own ownLocal"));
        views[0]->codeEdit()->setText(ownScript);
        ScriptDetails::of(views[0]); // as for the outline
        central.newPythonBuffer();
        QCOMPARE(namesIn(central.currentCodeView()), QString("$gOther $gOwn other own"));
        views[0]->codeEdit()->setModified(false);
        central.closeBuffer(views[1]->bufferIndex());
        QCOMPARE(namesIn(views[0]), QString("$gOwn own ownLocal"));
    }
    QVERIFY(!openScripts());
}

void TestWorkspaceScripts::unseenScriptsAreRead()
{
    ScratchDir folder;
    const std::unique_ptr<EdCodeView> view(EdCodeView::createUnseen(nullptr));
    QCOMPARE(view->loadQuietly(QFileInfo(folder.write("other.mel", otherScript)), false, -1),
             QString());
    const Host host(view.get());
    const WorkspaceScripts scripts(&host);
    QCOMPARE(namesFor(nullptr), QString());
    QApplication::processEvents();
    QCOMPARE(namesFor(nullptr), QString("$gOther other"));
    QVERIFY(!view->knownCodeEdit());
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
