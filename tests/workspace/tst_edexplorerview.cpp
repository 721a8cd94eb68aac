// SPDX-License-Identifier: MIT
#include "workspace/edexplorerview.h"

#include "compat/filesystem.h"
#include "preferences/preferences.h"
#include "tests/support/menuchoice.h"
#include "tests/support/modalanswer.h"
#include "tests/support/scratchdir.h"
#include "tests/support/testmain.h"
#include "workspace/edexplorerfilterproxymodel.h"
#include "workspace/edexplorertree.h"
#include "workspace/fileprogress.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDesktopServices>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QSignalSpy>
#include <QToolButton>
#include <QUrl>

namespace {

const int patience = 1000; // times 5 ms

template <typename Condition>
bool waitUntil(Condition condition)
{
    for (int i = 0; i < patience && !condition(); ++i)
        QTest::qWait(5);
    return condition();
}

// The view of a folder "root" with what a test puts into it before it shows the view.
struct Fixture
{
    Fixture() { QDir().mkpath(root()); }
    ~Fixture() { preferences() = Preferences(); }

    QString root() const { return dir.file("root"); }
    QString file(const char *name) const { return root() + "/" + name; }
    QString write(const char *name) const
    {
        return dir.write(QByteArray("root/") + name, QByteArray(name));
    }
    void show();
    EdExplorerTree *tree() const { return view.findChild<EdExplorerTree *>(); }
    // Of the root, in their order; " >" marks a folder.
    QString names() const;
    // Waits until they are these.
    bool comesToShow(const QString &expected) const
    {
        const bool shows = waitUntil([&] { return names() == expected; });
        if (!shows)
            qWarning("%s", qPrintable(names()));
        return shows;
    }
    QModelIndex find(const char *name) const;
    bool comesToSelect(const char *name) const
    {
        return waitUntil([&] { return tree()->currentIndex() == find(name); });
    }
    void select(const char *name);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    // Opens the menu on what is selected, or on the root.
    void openMenu();
    QStringList choose(const char *entry);

    ScratchDir dir;
    EdExplorerView view;
};

void Fixture::show()
{
    view.setProjectDirectory(root());
    view.show();
    QApplication::setActiveWindow(&view);
    waitUntil([&] { return tree() != nullptr; });
    tree()->setFocus();
}

QString Fixture::names() const
{
    QStringList found;
    const QModelIndex root = tree()->rootIndex();
    const QAbstractItemModel *model = tree()->model();
    for (int i = 0; root.isValid() && i < model->rowCount(root); ++i) {
        const QModelIndex index = model->index(i, 0, root);
        found << index.data().toString() + (view.filePath(index).isEmpty() ? " >" : "");
    }
    return found.join("|");
}

QModelIndex Fixture::find(const char *name) const
{
    return static_cast<EdExplorerFilterProxyModel *>(tree()->model())->indexOf(file(name));
}

// After a key, as a user would: what was made before is not selected again then.
void Fixture::select(const char *name)
{
    press(Qt::Key_Shift);
    tree()->setCurrentIndex(find(name));
}

void Fixture::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(tree(), key, modifiers);
    QCoreApplication::processEvents();
}

void Fixture::openMenu()
{
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5), QPoint(5, 5));
    QApplication::sendEvent(tree(), &event);
}

QStringList Fixture::choose(const char *entry)
{
    MenuChoice choice(entry);
    openMenu();
    waitUntil([&] { return !choice.entries().isEmpty(); });
    return choice.enabledEntries();
}

QStringList list(const QString &names)
{
    return names.split("|");
}

// Notes the files: not every version of Qt lets a spy keep an index.
class DoubleClicks : public QObject
{
    Q_OBJECT

public:
    explicit DoubleClicks(EdExplorerView *view) : m_view(view)
    {
        connect(view, SIGNAL(doubleClicked(QModelIndex)), SLOT(note(QModelIndex)));
    }

    QStringList paths;

public slots:
    void note(const QModelIndex &index) { paths << m_view->filePath(index); }

private:
    EdExplorerView *m_view;
};

// Notes what a desktop would have been asked to open.
class Desktop : public QObject
{
    Q_OBJECT

public:
    Desktop() { QDesktopServices::setUrlHandler("file", this, "note"); }
    ~Desktop() override { QDesktopServices::unsetUrlHandler("file"); }

    QString opened;

public slots:
    void note(const QUrl &url) { opened = url.toLocalFile(); }
};

} // namespace

class TestEdExplorerView : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void foldersComeFirstInNaturalOrder();
    void compiledFilesFollowThePreference();
    void aRootOfAnyNameIsShown();
    void filesAreOpenedByKeyAndMouse();
    void foldersAreOpenedInPlace();
    void itsKeysGoBeforeThoseOfTheWindow();
    void newFilesAreMadeAndOpened();
    void newFoldersAreMadeInTheSelectedOne();
    void namesThatCannotBeAreSaid();
    void copiedFilesArePastedBesideTheirNames();
    void filesOfOtherProgramsArePasted();
    void pathsAreCopied();
    void filesAreRenamedInPlace();
    void commandsAreForTheSelectedFile();
    void whatGoesUnderAnOpenMenuIsLeftAlone();
    void takenNamesAreRefused();
    void deletingAsks();
    void deletedFoldersSayHowMuchTheyHold();
    void deletingALinkKeepsWhatItLeadsTo();
    void severalFilesAreDeletedAtOnce();
    void theDesktopShowsTheFolder();
    void theMenuOffersWhatIsPossible();
    void theRootIsChosenAndKept();
    void aMissingRootIsSaidUntilItIsThere();
    void aRootThatTookThePlaceOfAnotherIsListed();
    void longOperationsCanBeEnded();
    void thousandsOfFilesDoNotBlock();

private:
    ScratchDir m_home;
};

// So that the trash is one of its own.
void TestEdExplorerView::initTestCase()
{
    qputenv("HOME", QFile::encodeName(m_home.path()));
    qputenv("XDG_DATA_HOME", QFile::encodeName(m_home.path()));
}

void TestEdExplorerView::foldersComeFirstInNaturalOrder()
{
    Fixture fixture;
    for (const char *name : {"b10.py", "B9.py", "b009.py", "a.mel", ".hidden"})
        fixture.write(name);
    QVERIFY(QDir(fixture.root()).mkdir("z"));
    fixture.show();
    QVERIFY(fixture.comesToShow("z >|a.mel|B9.py|b009.py|b10.py"));
    fixture.write("b2.py");
    QVERIFY(QDir(fixture.root()).mkdir("Y"));
    QVERIFY(fixture.comesToShow("Y >|z >|a.mel|b2.py|B9.py|b009.py|b10.py"));
}

void TestEdExplorerView::compiledFilesFollowThePreference()
{
    Fixture fixture;
    for (const char *name : {"a.py", "a.pyc", "a.pyo"})
        fixture.write(name);
    QVERIFY(QDir(fixture.root()).mkdir("__pycache__"));
    fixture.show();
    QVERIFY(fixture.comesToShow("a.py"));
    preferences().pythonHideCompiledFiles = false;
    fixture.view.updateFilter();
    QVERIFY(fixture.comesToShow("__pycache__ >|a.py|a.pyc|a.pyo"));
    preferences().pythonHideCompiledFiles = true;
    fixture.view.updateFilter();
    QCOMPARE(fixture.names(), QString("a.py"));
}

// Neither hidden nor compiled files are hidden from one who asks for them.
void TestEdExplorerView::aRootOfAnyNameIsShown()
{
    Fixture fixture;
    QVERIFY(QDir(fixture.root()).mkpath(".hidden/__pycache__/inner"));
    fixture.write(".hidden/__pycache__/inner/a.py");
    fixture.show();
    for (const char *name : {".hidden/__pycache__/inner", ".hidden/__pycache__"}) {
        fixture.view.setProjectDirectory(fixture.file(name));
        QVERIFY(fixture.comesToShow(QString(name).endsWith("inner") ? "a.py" : "inner >"));
    }
}

void TestEdExplorerView::filesAreOpenedByKeyAndMouse()
{
    Fixture fixture;
    const QString path = fixture.write("a.py");
    fixture.show();
    QVERIFY(fixture.comesToShow("a.py"));
    QSignalSpy opened(&fixture.view, SIGNAL(openSelected(QString)));
    fixture.select("a.py");
    fixture.press(Qt::Key_Return);
    fixture.press(Qt::Key_Enter, Qt::KeypadModifier);
    fixture.choose("Open");
    QCOMPARE(int(opened.count()), 3);
    QCOMPARE(opened.at(2).at(0).toString(), path);

    DoubleClicks clicks(&fixture.view);
    const QPoint place = fixture.tree()->visualRect(fixture.find("a.py")).center();
    QTest::mouseClick(fixture.tree()->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseDClick(fixture.tree()->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QCOMPARE(clicks.paths, QStringList(path));
}

void TestEdExplorerView::foldersAreOpenedInPlace()
{
    Fixture fixture;
    QVERIFY(QDir(fixture.root()).mkdir("inner"));
    fixture.write("inner/a.py");
    fixture.show();
    QSignalSpy opened(&fixture.view, SIGNAL(openSelected(QString)));
    fixture.select("inner");
    QCOMPARE(fixture.view.filePath(fixture.find("inner")), QString());
    fixture.press(Qt::Key_Return);
    QVERIFY(fixture.tree()->isExpanded(fixture.find("inner")));
    fixture.select("inner/a.py");
    fixture.press(Qt::Key_Backspace);
    QCOMPARE(fixture.tree()->currentIndex(), fixture.find("inner"));
    fixture.press(Qt::Key_Backspace); // not to the root, which is not shown
    QCOMPARE(fixture.tree()->currentIndex(), fixture.find("inner"));
    fixture.press(Qt::Key_Return);
    QVERIFY(!fixture.tree()->isExpanded(fixture.find("inner")));
    QCOMPARE(int(opened.count()), 0);
}

void TestEdExplorerView::itsKeysGoBeforeThoseOfTheWindow()
{
    Fixture fixture;
    fixture.write("a.py");
    QAction windowCopy(&fixture.view);
    windowCopy.setShortcut(QKeySequence("Ctrl+C"));
    fixture.view.addAction(&windowCopy);
    QSignalSpy copied(&windowCopy, SIGNAL(triggered()));
    fixture.show();
    fixture.select("a.py");
    QApplication::clipboard()->clear();
    fixture.press(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(int(copied.count()), 0);
    QCOMPARE(QApplication::clipboard()->mimeData()->urls(),
             QList<QUrl>() << QUrl::fromLocalFile(fixture.file("a.py")));
    QToolButton *button = fixture.view.findChild<QToolButton *>();
    QTest::keyClick(button, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(int(copied.count()), 1);
}

void TestEdExplorerView::newFilesAreMadeAndOpened()
{
    Fixture fixture;
    fixture.show();
    QSignalSpy opened(&fixture.view, SIGNAL(fileOpened(QString)));
    ModalAnswer answer("OK");
    answer.enter("new.py");
    fixture.choose("New File...");
    QCOMPARE(answer.title(), QString("New File"));
    QCOMPARE(fixture.dir.read("root/new.py"), QByteArray());
    QCOMPARE(int(opened.count()), 1);
    QCOMPARE(opened.at(0).at(0).toString(), fixture.file("new.py"));
    QCOMPARE(fixture.names(), QString("new.py")); // at once
    QCOMPARE(fixture.tree()->currentIndex(), fixture.find("new.py"));
}

void TestEdExplorerView::newFoldersAreMadeInTheSelectedOne()
{
    Fixture fixture;
    fixture.write("a.py");
    QVERIFY(QDir(fixture.root()).mkdir("inner"));
    fixture.show();
    for (const char *name : {"a.py", "inner"}) {
        fixture.select(name);
        ModalAnswer answer("OK");
        answer.enter("made");
        fixture.choose("New Folder...");
    }
    QVERIFY(QFileInfo(fixture.file("made")).isDir());
    QVERIFY(QFileInfo(fixture.file("inner/made")).isDir());
    QVERIFY(fixture.tree()->isExpanded(fixture.find("inner")));
}

void TestEdExplorerView::namesThatCannotBeAreSaid()
{
    Fixture fixture;
    fixture.write("a.py");
    fixture.show();
    QSignalSpy opened(&fixture.view, SIGNAL(fileOpened(QString)));
    ModalAnswer answer("OK");
    answer.enter("a.py");
    answer.thenPress("OK");
    fixture.choose("New File...");
    QCOMPARE(answer.text(),
             QString("Cannot create a.py:\nThere is something of that name already."));
    QCOMPARE(fixture.dir.read("root/a.py"), QByteArray("a.py"));
    QCOMPARE(int(opened.count()), 0);
}

void TestEdExplorerView::copiedFilesArePastedBesideTheirNames()
{
    Fixture fixture;
    fixture.write("a.py");
    fixture.show();
    fixture.select("a.py");
    fixture.press(Qt::Key_C, Qt::ControlModifier);
    fixture.press(Qt::Key_V, Qt::ControlModifier);
    fixture.press(Qt::Key_V, Qt::ControlModifier);
    QVERIFY(fixture.comesToShow("a copy 2.py|a copy.py|a.py"));
    QCOMPARE(fixture.dir.read("root/a copy 2.py"), QByteArray("a.py"));
    QVERIFY(fixture.comesToSelect("a copy 2.py"));
}

void TestEdExplorerView::filesOfOtherProgramsArePasted()
{
    Fixture fixture;
    QVERIFY(QDir(fixture.root()).mkdir("inner"));
    const QString first = fixture.dir.write("first.py", "first");
    QMimeData *files = new QMimeData;
    files->setUrls(QList<QUrl>() << QUrl::fromLocalFile(first)
                                 << QUrl::fromLocalFile(fixture.dir.file("gone.py"))
                                 << QUrl::fromLocalFile(first));
    QApplication::clipboard()->setMimeData(files);
    fixture.show();
    fixture.select("inner");
    ModalAnswer answer("OK");
    fixture.press(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(answer.text(),
             QString("Cannot copy %1:\nIt does not exist any more.\n1 more was left out.")
                 .arg(fixture.dir.file("gone.py")));
    QCOMPARE(fixture.dir.read("root/inner/first.py"), QByteArray("first"));
    QVERIFY(!QFile::exists(fixture.file("inner/first copy.py")));
    QCOMPARE(fixture.dir.read("first.py"), QByteArray("first"));
}

void TestEdExplorerView::pathsAreCopied()
{
    Fixture fixture;
    const QString path = fixture.write("a.py");
    fixture.show();
    fixture.select("a.py");
    fixture.choose("Copy Path");
    QCOMPARE(QApplication::clipboard()->text(), QDir::toNativeSeparators(path));
}

void TestEdExplorerView::filesAreRenamedInPlace()
{
    Fixture fixture;
    const QString path = fixture.write("a.b.py");
    fixture.show();
    QSignalSpy renamed(&fixture.view, SIGNAL(fileRenamed(QString, QString)));
    QSignalSpy opened(&fixture.view, SIGNAL(openSelected(QString)));
    fixture.select("a.b.py");
    fixture.press(Qt::Key_F2);
    QLineEdit *edit = fixture.tree()->findChild<QLineEdit *>();
    QVERIFY(edit);
    QCoreApplication::processEvents();
    QCOMPARE(edit->selectedText(), QString("a.b"));
    QTest::keyClicks(edit, "c");
    fixture.tree()->dataChanged(fixture.find("a.b.py"), fixture.find("a.b.py")); // saved meanwhile
    QTest::keyClick(edit, Qt::Key_Return);
    QVERIFY(fixture.comesToShow("c.py"));
    QCOMPARE(fixture.dir.read("root/c.py"), QByteArray("a.b.py"));
    QCOMPARE(int(renamed.count()), 1);
    QCOMPARE(renamed.at(0).at(0).toString(), path);
    QCOMPARE(renamed.at(0).at(1).toString(), fixture.file("c.py"));
    QVERIFY(fixture.comesToSelect("c.py"));
    QCOMPARE(int(opened.count()), 0); // by the Return that ended the name
}

// Ctrl and a click that takes a file out of the selection leaves it the current one.
void TestEdExplorerView::commandsAreForTheSelectedFile()
{
    Fixture fixture;
    fixture.write("a.py");
    fixture.write("b.py");
    fixture.show();
    QVERIFY(fixture.comesToShow("a.py|b.py"));
    QSignalSpy opened(&fixture.view, SIGNAL(openSelected(QString)));
    fixture.select("b.py");
    fixture.tree()->selectionModel()->setCurrentIndex(fixture.find("a.py"),
                                                      QItemSelectionModel::NoUpdate);
    fixture.press(Qt::Key_Return);
    QCOMPARE(int(opened.count()), 1);
    QCOMPARE(opened.at(0).at(0).toString(), fixture.file("b.py"));
    fixture.press(Qt::Key_F2);
    QLineEdit *edit = fixture.tree()->findChild<QLineEdit *>();
    QVERIFY(edit);
    QCOMPARE(edit->text(), QString("b.py"));
}

void TestEdExplorerView::whatGoesUnderAnOpenMenuIsLeftAlone()
{
    Fixture fixture;
    fixture.write("a.py");
    fixture.show();
    for (const char *entry : {"Open", "Copy", "Rename", "Delete", "Use as Project Folder"}) {
        fixture.view.setProjectDirectory(fixture.root());
        fixture.select("a.py");
        fixture.openMenu();
        QMenu *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu);
        fixture.view.setProjectDirectory(fixture.file("gone"));
        for (QAction *action : menu->actions()) {
            if (action->text() == entry)
                action->trigger(); // would fail or ask
        }
        menu->close();
    }
}

void TestEdExplorerView::takenNamesAreRefused()
{
    Fixture fixture;
    const QString path = fixture.write("a.py");
    fixture.write("b.py");
    fixture.show();
    QSignalSpy renamed(&fixture.view, SIGNAL(fileRenamed(QString, QString)));
    fixture.select("a.py");
    fixture.press(Qt::Key_F2);
    QLineEdit *edit = fixture.tree()->findChild<QLineEdit *>();
    QVERIFY(edit);
    edit->setText("b.py");
    ModalAnswer answer("OK");
    QTest::keyClick(edit, Qt::Key_Return);
    QTest::qWait(1);
    QCOMPARE(answer.text(),
             QString("Cannot rename %1:\nThere is something of that name already.").arg(path));
    QCOMPARE(fixture.dir.read("root/a.py"), QByteArray("a.py"));
    QCOMPARE(fixture.dir.read("root/b.py"), QByteArray("b.py"));
    QCOMPARE(int(renamed.count()), 0);
}

void TestEdExplorerView::deletingAsks()
{
    Fixture fixture;
    const QString path = fixture.write("a <b>.py");
    fixture.write("b.py");
    fixture.show();
    QVERIFY(fixture.comesToShow("a <b>.py|b.py"));
    QSignalSpy deleted(&fixture.view, SIGNAL(fileDeleted(QString)));
    fixture.select("a <b>.py");
    {
        ModalAnswer answer("No");
        fixture.press(Qt::Key_Delete);
        QVERIFY(answer.text().startsWith("Delete 'a <b>.py'?\n"));
        QCOMPARE(answer.textFormat(), Qt::PlainText);
        QCOMPARE(answer.text().contains("trash"), compat::hasTrash());
    }
    QVERIFY(QFile::exists(path));
    ModalAnswer answer("Yes");
    answer.thenPress("Yes"); // to delete it for good where the system has no place for it
    fixture.press(Qt::Key_Delete);
    QVERIFY(!QFile::exists(path));
    QCOMPARE(int(deleted.count()), 1);
    QCOMPARE(deleted.at(0).at(0).toString(), path);
    QVERIFY(fixture.comesToShow("b.py"));
}

void TestEdExplorerView::deletedFoldersSayHowMuchTheyHold()
{
    Fixture fixture;
    QVERIFY(QDir(fixture.root()).mkpath("inner/deep"));
    fixture.write("inner/a.py");
    fixture.write("inner/deep/.b");
    fixture.show();
    fixture.select("inner");
    {
        ModalAnswer answer("No");
        fixture.press(Qt::Key_Delete);
        QVERIFY(answer.text().startsWith("Delete 'inner'?\nIt holds 2 files.\n"));
    }
    QVERIFY(QFile::exists(fixture.file("inner/deep/.b")));
    ModalAnswer answer("Yes");
    answer.thenPress("Yes");
    fixture.press(Qt::Key_Delete);
    QVERIFY(!QFile::exists(fixture.file("inner")));
}

void TestEdExplorerView::deletingALinkKeepsWhatItLeadsTo()
{
#ifdef Q_OS_UNIX
    Fixture fixture;
    QVERIFY(QDir(fixture.dir.path()).mkdir("outside"));
    fixture.dir.write("outside/a.py", "kept");
    QVERIFY(QFile::link(fixture.dir.file("outside"), fixture.file("link")));
    fixture.show();
    QVERIFY(fixture.comesToShow("link >"));
    QSignalSpy deleted(&fixture.view, SIGNAL(fileDeleted(QString)));
    fixture.select("link");
    ModalAnswer answer("Yes");
    fixture.press(Qt::Key_Delete);
    QCOMPARE(answer.text(), QString("Delete 'link'?\nWhat a link leads to stays."));
    QVERIFY(!compat::isLink(fixture.file("link")));
    QCOMPARE(fixture.dir.read("outside/a.py"), QByteArray("kept"));
    QCOMPARE(deleted.at(0).at(0).toString(), fixture.file("link"));
#endif
}

void TestEdExplorerView::severalFilesAreDeletedAtOnce()
{
    Fixture fixture;
    for (const char *name : {"a.py", "b.py", "c.py"})
        fixture.write(name);
    fixture.show();
    QVERIFY(fixture.comesToShow("a.py|b.py|c.py"));
    QSignalSpy deleted(&fixture.view, SIGNAL(fileDeleted(QString)));
    fixture.select("a.py");
    fixture.press(Qt::Key_Down, Qt::ShiftModifier);
    ModalAnswer answer("Yes");
    fixture.press(Qt::Key_Delete);
    QVERIFY(answer.text().startsWith("Delete 2 files and folders?\n"));
    QCOMPARE(int(deleted.count()), 2);
    QVERIFY(fixture.comesToShow("c.py"));
}

void TestEdExplorerView::theDesktopShowsTheFolder()
{
    Fixture fixture;
    QVERIFY(QDir(fixture.root()).mkdir("inner"));
    fixture.write("inner/a.py");
    fixture.show();
    Desktop desktop;
    fixture.choose("Show in Folder");
    QCOMPARE(desktop.opened, fixture.root());
    fixture.select("inner/a.py");
    fixture.choose("Show in Folder");
    QCOMPARE(desktop.opened, fixture.file("inner"));
}

void TestEdExplorerView::theMenuOffersWhatIsPossible()
{
    Fixture fixture;
    fixture.write("a.py");
    QVERIFY(QDir(fixture.root()).mkdir("inner"));
    QApplication::clipboard()->setText("no files");
    fixture.show();
    QCOMPARE(fixture.choose("none"),
             list("Show in Folder|New File...|New Folder...|Set Project Folder..."));
    fixture.select("a.py");
    QCOMPARE(fixture.choose("none"), list("Open|Show in Folder|New File...|New Folder...|Copy|"
                                          "Copy Path|Rename|Delete|Set Project Folder..."));
    fixture.select("inner");
    QVERIFY(fixture.choose("none").contains("Use as Project Folder"));
    fixture.press(Qt::Key_C, Qt::ControlModifier);
    QVERIFY(fixture.choose("none").contains("Paste"));
}

void TestEdExplorerView::theRootIsChosenAndKept()
{
    Fixture fixture;
    QVERIFY(QDir(fixture.root()).mkdir("inner"));
    fixture.write("inner/a.py");
    QSignalSpy changed(&fixture.view, SIGNAL(projectDirectoryChanged(QString)));
    fixture.show();
    QCOMPARE(int(changed.count()), 0);
    fixture.select("inner");
    fixture.choose("Use as Project Folder");
    QCOMPARE(preferences().projectDir, fixture.file("inner"));
    QVERIFY(fixture.comesToShow("a.py"));
    fixture.view.goUp();
    QCOMPARE(preferences().projectDir, fixture.root());
    QVERIFY(fixture.comesToShow("inner >"));
    ModalAnswer answer("Choose");
    answer.enter(fixture.file("inner"));
    fixture.view.chooseProjectDirectory();
    QCOMPARE(answer.title(), QString("Set Project Folder"));
    QCOMPARE(preferences().projectDir, fixture.file("inner"));
    QCOMPARE(int(changed.count()), 3);
    QCOMPARE(changed.at(2).at(0).toString(), fixture.file("inner"));
}

void TestEdExplorerView::aMissingRootIsSaidUntilItIsThere()
{
    Fixture fixture;
    fixture.write("a.py");
    fixture.show();
    QVERIFY(fixture.comesToShow("a.py"));
    QVERIFY(QFile::remove(fixture.file("a.py")));
    QVERIFY(QDir(fixture.dir.path()).rmdir("root"));
    waitUntil([&] { return !fixture.tree()->isVisible(); });
    QVERIFY(!fixture.tree()->isVisible());
    bool isSaid = false;
    for (const QLabel *label : fixture.view.findChildren<QLabel *>())
        isSaid = isSaid || (label->isVisible() && label->text().contains(fixture.root() + " does"));
    QVERIFY(isSaid);
    QVERIFY(QDir(fixture.dir.path()).mkdir("root"));
    fixture.write("b.py");
    waitUntil([&] { return fixture.tree()->isVisible(); });
    QVERIFY(fixture.comesToShow("b.py"));
}

void TestEdExplorerView::aRootThatTookThePlaceOfAnotherIsListed()
{
    Fixture fixture;
    fixture.write("a.py");
    QVERIFY(QDir(fixture.dir.path()).mkdir("other"));
    fixture.dir.write("other/b.py", "");
    fixture.show();
    QVERIFY(fixture.comesToShow("a.py"));
    QVERIFY(QDir().rename(fixture.root(), fixture.dir.file("old")));
    QVERIFY(QDir().rename(fixture.dir.file("other"), fixture.root()));
    QVERIFY(fixture.comesToShow("b.py"));
    fixture.write("c.py");
    QVERIFY(fixture.comesToShow("b.py|c.py"));
}

void TestEdExplorerView::longOperationsCanBeEnded()
{
    QWidget window;
    window.show();
    FileProgress progress("Copying...", &window);
    ModalAnswer answer("Cancel");
    QElapsedTimer time;
    for (time.start(); progress.goesOn() && time.elapsed() < 60000;)
        QTest::qSleep(1);
    QVERIFY(answer.wasAsked());
    progress.stop();
    QVERIFY(progress.goesOn()); // with the next operation
}

// Its events are answered all the while; each of them has its bound, a slow machine included.
void TestEdExplorerView::thousandsOfFilesDoNotBlock()
{
    const int count = 10000;
    Fixture fixture;
    for (int i = 0; i < count; ++i)
        fixture.write(QByteArray("file" + QByteArray::number(i) + ".py"));
    fixture.show();
    qint64 longest = 0;
    for (int i = 0; i < patience && fixture.names().count('|') < count - 1; ++i) {
        QElapsedTimer time;
        time.start();
        QTest::qWait(5);
        longest = qMax(longest, time.elapsed());
    }
    const QStringList names = list(fixture.names());
    QCOMPARE(int(names.size()), count);
    QCOMPARE(names.at(2), QString("file2.py"));
    QVERIFY2(longest < 1000, QByteArray::number(longest));
}

CORVANE_TEST_MAIN(TestEdExplorerView)
#include "tst_edexplorerview.moc"
