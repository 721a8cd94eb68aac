// SPDX-License-Identifier: MIT
#include "analysis/edoutlineview.h"
#include "analysis/edtreewidget.h"
#include "analysis/melparser.h"
#include "analysis/pythonparser.h"
#include "compat/icon.h"
#include "resources/resources.h"
#include "tests/support/datatable.h"
#include "tests/support/testmain.h"

#include <QApplication>
#include <QFocusEvent>
#include <QFile>
#include <QImage>
#include <QMenu>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTextCursor>
#include <QTextDocument>
#include <QToolButton>

#include <random>

namespace {

const char path[] = "/scripts/a.py";

OutlineItem item(int kind, const QString &name, int depth, int position = 0)
{
    OutlineItem result;
    result.kind = kind;
    result.name = name;
    result.depth = depth;
    result.position = position;
    return result;
}

PythonParser parserWith(const QList<OutlineItem> &items, const QString &file = path)
{
    PythonParser parser;
    parser.parse(QString(), file);
    for (const OutlineItem &item : items)
        parser.addOutlineItem(item.kind, item.name, item.position, item.depth);
    return parser;
}

PythonParser parsed(const QString &text, const QString &file = path)
{
    PythonParser parser;
    parser.parse(text, file);
    return parser;
}

EdTreeWidget *treeOf(const EdOutlineView &view)
{
    return view.findChild<EdTreeWidget *>();
}

QTreeWidgetItem *find(const EdOutlineView &view, const QString &name)
{
    return treeOf(view)->findItems(name, Qt::MatchExactly | Qt::MatchRecursive).value(0);
}

// One after the other, "(...)" around children; hidden ones in brackets, expanded ones with "+".
QString drawn(const QTreeWidgetItem *parent)
{
    QStringList parts;
    for (int i = 0; i < parent->childCount(); ++i) {
        const QTreeWidgetItem *node = parent->child(i);
        QString part = node->text(0);
        if (node->isExpanded())
            part += "+";
        if (node->isHidden())
            part = "[" + part + "]";
        if (node->childCount() > 0)
            part += "(" + drawn(node) + ")";
        parts << part;
    }
    return parts.join(" ");
}

QString drawn(const EdOutlineView &view)
{
    return drawn(treeOf(view)->invisibleRootItem());
}

// The same with positions and kinds, and without what the user expanded.
QString dump(const QTreeWidgetItem *parent, const QString &indent = "\n")
{
    QString text;
    for (int i = 0; i < parent->childCount(); ++i) {
        const QTreeWidgetItem *node = parent->child(i);
        text += indent + node->text(0) + (node->isHidden() ? " hidden " : " ") +
                node->data(1, Qt::UserRole).toString() + " " +
                node->data(2, Qt::UserRole).toString() + " " +
                QString::number(static_cast<const OutlineNode *>(node)->item().kind) +
                dump(node, indent + " ");
    }
    return text;
}

const char script[] = "import os\n"           // 0, the name at 7
                      "class Tool:\n"         // 10, 16
                      "    def run(self):\n"  // 22, 30
                      "        import re\n"   // 41, 56
                      "        return re\n"   // 59
                      "    def stop(self):\n" // 77, 85
                      "        pass\n"        // 97
                      "def main(): pass\n"    // 110, 114
                      "Tool().run()\n";       // 127

// Edits a list as somebody who writes a script would, by and large.
class RandomItems
{
public:
    explicit RandomItems(unsigned seed) : m_random(seed) {}

    QList<OutlineItem> next()
    {
        for (int edits = upTo(3); edits >= 0; --edits)
            edit();
        int position = 0;
        for (OutlineItem &item : m_items)
            item.position = position += 1 + upTo(9);
        return m_items;
    }

private:
    int upTo(int most) { return int(m_random() % unsigned(most + 1)); }
    OutlineItem newItem()
    {
        return item(1 + upTo(10), QString(QChar('a' + upTo(5))).repeated(1 + upTo(1)), upTo(3));
    }
    void edit()
    {
        const int place = upTo(int(m_items.size()));
        int count = upTo(upTo(4) == 0 ? 30 : 2);
        switch (upTo(2)) {
        case 0:
            for (; count > 0 && m_items.size() < 60; --count)
                m_items.insert(place, newItem());
            break;
        case 1:
            for (; count > 0 && place < m_items.size(); --count)
                m_items.removeAt(place);
            break;
        default:
            if (place < m_items.size())
                m_items[place].name = newItem().name;
        }
    }

    std::mt19937 m_random;
    QList<OutlineItem> m_items;
};

} // namespace

class TestEdOutlineView : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void buttonsStandInOrder();
    void kindsHaveTheirIcons();
    void itemsStandBelowWhatHoldsThem_data();
    void itemsStandBelowWhatHoldsThem();
    void updatesEqualAFreshFill_data();
    void updatesEqualAFreshFill();
    void whatDoesNotChangeStays();
    void aRenamedClassStaysOpen();
    void whatIsGoneForNowComesBackExpanded();
    void whatIsGoneForNowComesBackInPlace();
    void theViewStandsStillBelowNewItems();
    void documentsAreShownAsTheyWereLeft();
    void otherNamesOfADocumentKeepItsState();
    void anotherDocumentIsMarkedByItsOwnCaret();
    void forgottenDocumentsAreCollapsed();
    void sortingGoesByName();
    void hiddenKindsStayInTheTree();
    void theMenuShowsWhatIsHidden();
    void clicksReportTheName();
    void keysShowAndOpenItems();
    void namesAreFoundBetweenParses();
    void guessesAreFoundByAFreshParse();
    void preferencesAreTakenOver();
    void theCaretsItemIsMarked_data();
    void theCaretsItemIsMarked();
    void onlyVisibleItemsAreMarked();
    void theMarkLeavesTheFocusedTreeAlone();
    void theSelectionIsSubduedWithoutFocus();
};

void TestEdOutlineView::initTestCase()
{
    initResources();
}

void TestEdOutlineView::init()
{
    preferences() = Preferences();
}

void TestEdOutlineView::buttonsStandInOrder()
{
    EdOutlineView view;
    QStringList tips;
    for (const QToolButton *button : view.findChildren<QToolButton *>()) {
        tips << button->toolTip();
        QVERIFY(!button->icon().isNull());
    }
    QCOMPARE(tips, strings({"Sort by name", "Expand all", "Collapse all", "View"}));
}

void TestEdOutlineView::kindsHaveTheirIcons()
{
    const char *const icons[] = {"mel_global_proc",     "mel_proc",      "mel_global_var",
                                 "python_import",       "python_import", "python_import",
                                 "python_main",         "python_method", "python_static_method",
                                 "python_class_method", "python_class"};
    EdOutlineView view;
    QList<OutlineItem> items;
    for (int kind = GlobalProcedureItem; kind <= ClassItem; ++kind)
        items << item(kind, QString::number(kind), 0);
    items << item(77, "77", 0);
    view.parsePythonCode(parserWith(items));
    for (int kind = GlobalProcedureItem; kind <= ClassItem; ++kind) {
        const QString file = QString(":/icons/%1.png").arg(icons[kind - 1]);
        QVERIFY(QFile::exists(file));
        QCOMPARE(find(view, QString::number(kind))->icon(0).pixmap(16).toImage(),
                 compat::icon(file).pixmap(16).toImage());
    }
    QVERIFY(find(view, "77")->icon(0).isNull());
}

void TestEdOutlineView::itemsStandBelowWhatHoldsThem_data()
{
    columns<QString, QString>("text", "tree");

    row("nested", script, "os Tool(run(re) stop) main");
    row("depth-left-out", "class A:\n  if x:\n    def b(): pass\n  def c(): pass", "A(b c)");
    row("nothing-above", "if x:\n  import a\n  def b():\n    pass", "a b");
    row("import-between", "class A:\n  pass\nimport b\nif x:\n  def c(): pass", "A(c) b");
    row("function-between", "class A:\n  pass\ndef b(): pass\nif x:\n  def c(): pass", "A b(c)");
    row("deeper-is-forgotten", "class A:\n  def b(s): pass\nclass C:\n    def d(s): pass",
        "A(b) C(d)");
    row("main", "if __name__ == '__main__':\n  import a", "__main__(a)");
}

void TestEdOutlineView::itemsStandBelowWhatHoldsThem()
{
    QFETCH(QString, text);
    EdOutlineView view;
    view.parsePythonCode(parsed(text));
    QTEST(drawn(view), "tree");
}

void TestEdOutlineView::updatesEqualAFreshFill_data()
{
    columns<bool, bool>("sorted", "hiding");

    row("text-order", false, false);
    row("by-name", true, false);
    row("hiding", false, true);
    row("by-name-hiding", true, true);
}

void TestEdOutlineView::updatesEqualAFreshFill()
{
    QFETCH(bool, sorted);
    QFETCH(bool, hiding);
    preferences().sort = sorted;
    EdOutlineView view;
    view.resize(200, 200);
    view.show();
    RandomItems random(sorted + 2 * hiding);
    for (int round = 0; round < 400; ++round) {
        preferences().pythonHideImportInOutline = hiding && round % 3 == 0;
        preferences().melHideProcsInOutline = hiding;
        const PythonParser parser = parserWith(random.next());
        view.parsePythonCode(parser);
        EdOutlineView fresh;
        fresh.parsePythonCode(parser);
        QCOMPARE(dump(treeOf(view)->invisibleRootItem()), dump(treeOf(fresh)->invisibleRootItem()));
        if (round % 7 == 0)
            treeOf(view)->expandAll();
        if (round % 5 == 0 && treeOf(view)->topLevelItemCount() > 0)
            treeOf(view)->setCurrentItem(treeOf(view)->topLevelItem(0));
        if (round % 50 == 0)
            view.sortAlphabetically(sorted);
    }
}

void TestEdOutlineView::whatDoesNotChangeStays()
{
    EdOutlineView view;
    view.parsePythonCode(parsed(script));
    QTreeWidgetItem *tool = find(view, "Tool");
    QTreeWidgetItem *stop = find(view, "stop");
    tool->setExpanded(true);
    treeOf(view)->setCurrentItem(stop);
    QString edited = "import sys\nimport re\n" + QString(script).remove("import os\n");
    view.parsePythonCode(parsed(edited));
    QCOMPARE(drawn(view), QString("sys re Tool+(run(re) stop) main"));
    QCOMPARE(find(view, "Tool"), tool);
    QCOMPARE(treeOf(view)->currentItem(), stop);
    QCOMPARE(stop->data(1, Qt::UserRole).toInt(), 85 + 11);
    view.parsePythonCode(parsed(edited.remove("    def stop(self):\n")));
    QVERIFY(treeOf(view)->selectedItems().isEmpty()); // rather than a neighbour
}

void TestEdOutlineView::aRenamedClassStaysOpen()
{
    EdOutlineView view;
    view.parsePythonCode(parsed(script));
    find(view, "Tool")->setExpanded(true);
    view.parsePythonCode(parsed(QString(script).replace("Tool", "Toolbox")));
    QCOMPARE(drawn(view), QString("os Toolbox+(run(re) stop) main"));
}

void TestEdOutlineView::whatIsGoneForNowComesBackExpanded()
{
    EdOutlineView view;
    view.parsePythonCode(parsed(script));
    find(view, "Tool")->setExpanded(true);
    find(view, "run")->setExpanded(true);
    view.parsePythonCode(parsed("import os"));
    QCOMPARE(drawn(view), QString("os"));
    view.parsePythonCode(parsed(script));
    QCOMPARE(drawn(view), QString("os Tool+(run+(re) stop) main"));
    find(view, "run")->setExpanded(false);
    view.parsePythonCode(parsed("import os"));
    view.parsePythonCode(parsed(script));
    QCOMPARE(drawn(view), QString("os Tool+(run(re) stop) main"));
}

void TestEdOutlineView::whatIsGoneForNowComesBackInPlace()
{
    QList<OutlineItem> items;
    for (int i = 0; i < 200; ++i)
        items << item(FunctionItem, QString("f%1").arg(i), 0);
    EdOutlineView view;
    view.resize(200, 200);
    view.show();
    view.parsePythonCode(parserWith(items));
    treeOf(view)->doItemsLayout();
    QScrollBar *bar = treeOf(view)->verticalScrollBar();
    for (int left : {2, 60}) { // of which one is filled anew
        bar->setValue(100);
        view.parsePythonCode(parserWith(items.mid(0, left)));
        view.parsePythonCode(parserWith(items.mid(0, left + 1)));
        view.parsePythonCode(parserWith(items));
        QCOMPARE(treeOf(view)->itemAt(0, 0)->text(0), QString("f100"));
    }
    view.parsePythonCode(parserWith(items.mid(0, 60)));
    bar->setValue(20); // the user goes elsewhere
    view.parsePythonCode(parserWith(items));
    QCOMPARE(bar->value(), 20);
}

void TestEdOutlineView::theViewStandsStillBelowNewItems()
{
    QList<OutlineItem> items;
    for (int i = 0; i < 200; ++i)
        items << item(FunctionItem, QString("f%1").arg(i), 0);
    EdOutlineView view;
    view.resize(200, 200);
    view.show();
    view.parsePythonCode(parserWith(items));
    treeOf(view)->scrollToItem(find(view, "f100"), QTreeWidget::PositionAtTop);
    QTreeWidgetItem *first = treeOf(view)->itemAt(0, 0);
    items.insert(10, item(FunctionItem, "new", 0));
    view.parsePythonCode(parserWith(items));
    QCOMPARE(treeOf(view)->itemAt(0, 0), first);
    view.parsePythonCode(parsed(script, "/scripts/b.py"));
    view.parsePythonCode(parserWith(items));
    QCOMPARE(treeOf(view)->itemAt(0, 0)->text(0), QString("f100"));
}

void TestEdOutlineView::documentsAreShownAsTheyWereLeft()
{
    EdOutlineView view;
    view.parsePythonCode(parsed(script));
    find(view, "Tool")->setExpanded(true);
    find(view, "run")->setExpanded(true);
    MelParser other;
    other.parse("global proc Tool() { global int $a; }", "/scripts/b.mel");
    view.parseMelCode(other);
    QCOMPARE(drawn(view), QString("Tool($a)"));
    view.parsePythonCode(parsed(script));
    QCOMPARE(drawn(view), QString("os Tool+(run+(re) stop) main"));
}

void TestEdOutlineView::otherNamesOfADocumentKeepItsState()
{
    EdOutlineView view;
    view.parsePythonCode(parsed(script));
    find(view, "Tool")->setExpanded(true);
    view.renameStoredDetails(path, "/scripts/renamed.py");
    view.parsePythonCode(parsed(script, "/scripts/renamed.py"));
    QCOMPARE(drawn(view), QString("os Tool+(run(re) stop) main"));
    view.parsePythonCode(parsed("", "/scripts/b.py"));
    view.renameStoredDetails("/scripts/renamed.py", path); // while it is not shown
    view.parsePythonCode(parsed(script));
    QCOMPARE(drawn(view), QString("os Tool+(run(re) stop) main"));
    view.clearStoredDetails(path); // it is saved under another name
    view.parsePythonCode(parsed(script, "/scripts/saved.py"));
    QCOMPARE(drawn(view), QString("os Tool+(run(re) stop) main"));
}

// Its caret is still that of the document before.
void TestEdOutlineView::anotherDocumentIsMarkedByItsOwnCaret()
{
    QList<OutlineItem> items;
    for (int i = 0; i < 200; ++i)
        items << item(FunctionItem, QString("f%1").arg(i), 0, 10 * i);
    EdOutlineView view;
    view.resize(200, 200);
    view.show();
    view.parsePythonCode(parserWith(items));
    view.followCaret(0);
    QScrollBar *bar = treeOf(view)->verticalScrollBar();
    bar->setValue(50);
    view.parsePythonCode(parserWith(items, "/scripts/b.py"));
    QVERIFY(treeOf(view)->selectedItems().isEmpty());
    view.followCaret(1500);
    QCOMPARE(treeOf(view)->currentItem(), find(view, "f150"));
    view.parsePythonCode(parserWith(items));
    view.followCaret(0);
    QCOMPARE(treeOf(view)->currentItem(), find(view, "f0"));
    QCOMPARE(bar->value(), 50);
    view.followCaret(10);
    QCOMPARE(bar->value(), 1); // as ever
}

void TestEdOutlineView::forgottenDocumentsAreCollapsed()
{
    EdOutlineView view;
    view.parsePythonCode(parsed(script));
    const QString collapsed = drawn(view);
    treeOf(view)->expandAll();
    view.clear();
    QCOMPARE(treeOf(view)->topLevelItemCount(), 0);
    view.parsePythonCode(parsed(script));
    QCOMPARE(drawn(view), collapsed);

    treeOf(view)->expandAll();
    view.clearStoredDetails(path);
    view.parsePythonCode(parsed("", "/scripts/b.py"));
    view.parsePythonCode(parsed(script));
    QCOMPARE(drawn(view), collapsed);
}

void TestEdOutlineView::sortingGoesByName()
{
    EdOutlineView view;
    QToolButton *button = view.findChildren<QToolButton *>().first();
    view.parsePythonCode(parsed("def c(): pass\nclass B:\n  def z(s): pass\n  def y(s): pass\n"
                                "def a(): pass"));
    find(view, "B")->setExpanded(true);
    button->click();
    QVERIFY(preferences().sort);
    QVERIFY(treeOf(view)->isSortingEnabled());
    QCOMPARE(drawn(view), QString("a B+(y z) c"));
    QVERIFY(EdOutlineView().findChildren<QToolButton *>().first()->isChecked());
    view.sortAlphabetically(false);
    QVERIFY(!button->isChecked());
    QVERIFY(!treeOf(view)->isSortingEnabled());
    QCOMPARE(drawn(view), QString("c B+(z y) a"));
}

void TestEdOutlineView::hiddenKindsStayInTheTree()
{
    EdOutlineView view;
    QSignalSpy changes(&view, SIGNAL(outlineViewChanged()));
    view.parsePythonCode(
        parserWith(QList<OutlineItem>()
                   << item(GlobalProcedureItem, "a", 0) << item(LocalProcedureItem, "b", 0)
                   << item(GlobalVariableItem, "c", 0) << item(ImportItem, "d", 0)
                   << item(ImportAliasItem, "e", 0) << item(ImportedNameItem, "f", 0)
                   << item(MainBlockItem, "g", 0) << item(FunctionItem, "h", 0)));
    view.toggleImportVisibility();
    QCOMPARE(drawn(view), QString("a b c [d] [e] [f] g h"));
    view.toggleMainVisibility();
    view.toggleGlobalVariableVisibility();
    view.toggleGlobalProcVisibility();
    view.toggleProcVisibility();
    QCOMPARE(drawn(view), QString("[a] [b] [c] [d] [e] [f] [g] h"));
    view.toggleImportVisibility();
    QCOMPARE(drawn(view), QString("[a] [b] [c] d e f [g] h"));
    QCOMPARE(int(changes.size()), 6);
}

void TestEdOutlineView::theMenuShowsWhatIsHidden()
{
    preferences().melHideProcsInOutline = true;
    EdOutlineView view;
    view.show();
    view.showViewDialog();
    QMenu *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QVERIFY(menu);
    QStringList entries;
    for (const QAction *action : menu->actions())
        entries << (action->isSeparator() ? QString("|") : action->text());
    QCOMPARE(entries, strings({"Hide Imports", "Hide __main__", "|", "Hide Global Variables (MEL)",
                               "Hide Global Procs (MEL)", "Hide Procs (MEL)"}));
    QVERIFY(!menu->actions().first()->isChecked());
    QVERIFY(menu->actions().last()->isChecked());
    menu->actions().first()->trigger();
    menu->actions().last()->trigger();
    QVERIFY(preferences().pythonHideImportInOutline);
    QVERIFY(!preferences().melHideProcsInOutline);
    menu->close();
}

void TestEdOutlineView::clicksReportTheName()
{
    EdOutlineView view;
    view.show();
    view.parsePythonCode(parsed(script));
    QSignalSpy clicks(&view, SIGNAL(outlineItemClicked(int, int, bool)));
    QSignalSpy doubleClicks(&view, SIGNAL(outlineItemDoubleClicked(int, int, bool)));
    const QPoint place = treeOf(view)->visualItemRect(find(view, "Tool")).center();
    QWidget *viewport = treeOf(view)->viewport();
    QTest::mouseClick(viewport, Qt::LeftButton, Qt::KeyboardModifiers(), place);
    QCOMPARE(int(clicks.size()), 1);
    QCOMPARE(clicks.first(), QList<QVariant>() << 16 << 20 << false);
    QTest::mouseDClick(viewport, Qt::LeftButton, Qt::KeyboardModifiers(), place);
    QCOMPARE(int(doubleClicks.size()), 1);
    QCOMPARE(doubleClicks.first(), QList<QVariant>() << 16 << 20 << true);
}

void TestEdOutlineView::keysShowAndOpenItems()
{
    EdOutlineView view;
    view.parsePythonCode(parsed(script));
    treeOf(view)->setCurrentItem(find(view, "os"));
    QSignalSpy clicks(&view, SIGNAL(outlineItemClicked(int, int, bool)));
    QSignalSpy doubleClicks(&view, SIGNAL(outlineItemDoubleClicked(int, int, bool)));
    QTest::keyClick(treeOf(view), Qt::Key_Down);
    QCOMPARE(clicks.takeLast(), QList<QVariant>() << 16 << 20 << false);
    QTest::keyClick(treeOf(view), 'm');
    QCOMPARE(clicks.takeLast(), QList<QVariant>() << 114 << 118 << false);
    QTest::keyClick(treeOf(view), Qt::Key_Down); // there is nothing below
    QCOMPARE(int(clicks.size()), 0);
    QTest::keyClick(treeOf(view), Qt::Key_Return);
    QCOMPARE(int(doubleClicks.size()), 1);
    QCOMPARE(doubleClicks.first(), QList<QVariant>() << 114 << 118 << true);
}

void TestEdOutlineView::namesAreFoundBetweenParses()
{
    QTextDocument document(script);
    document.documentLayout(); // without one a document reports no change
    EdOutlineView view;
    view.parsePythonCode(parsed(script));
    connect(&document, SIGNAL(contentsChange(int, int, int)), &view,
            SLOT(contentsChange(int, int, int)));
    QTextCursor cursor(&document);
    cursor.insertText("# a note\n");
    cursor.setPosition(int(document.toPlainText().indexOf("def stop")));
    cursor.insertText("x = 1\n    ");
    for (const char *name : {"os", "Tool", "run", "stop", "main"}) {
        const QTreeWidgetItem *node = find(view, name);
        cursor.setPosition(node->data(1, Qt::UserRole).toInt());
        cursor.setPosition(node->data(2, Qt::UserRole).toInt(), QTextCursor::KeepAnchor);
        QCOMPARE(cursor.selectedText(), QString(name));
    }
    view.parsePythonCode(parsed(document.toPlainText()));
    QCOMPARE(find(view, "Tool")->data(1, Qt::UserRole).toInt(), 16 + 9);
}

// Parses a text anew when an outline wants it.
class FreshParser : public QObject
{
    Q_OBJECT

public:
    FreshParser(EdOutlineView *view, const QString &text) : m_view(view), m_text(text)
    {
        connect(view, SIGNAL(freshParseWanted()), SLOT(parse()));
    }

public slots:
    void parse() { m_view->parsePythonCode(parsed(m_text)); }

private:
    EdOutlineView *m_view;
    QString m_text;
};

void TestEdOutlineView::guessesAreFoundByAFreshParse()
{
    EdOutlineView view;
    view.parsePythonCode(parsed(script));
    treeOf(view)->expandAll();
    view.followCaret(80);
    const QTreeWidgetItem *marked = treeOf(view)->currentItem();
    const QString indented = QString(script).replace("\n    ", "\n      ");
    view.contentsChange(22, 75, 83); // all lines of the class, in one go
    view.followCaret(30);
    QCOMPARE(treeOf(view)->currentItem(), marked);
    FreshParser parser(&view, indented);
    QSignalSpy clicks(&view, SIGNAL(outlineItemClicked(int, int, bool)));
    view.onItemClicked(find(view, "stop"), 0);
    const int stop = int(indented.indexOf("stop"));
    QCOMPARE(clicks.takeFirst(), QList<QVariant>() << stop << stop + 4 << false);

    view.contentsChange(0, int(indented.size()), 3);
    FreshParser without(&view, "x=1");
    view.onItemClicked(find(view, "stop"), 0); // no longer there
    QCOMPARE(int(clicks.size()), 0);
}

void TestEdOutlineView::preferencesAreTakenOver()
{
    EdOutlineView view;
    view.parsePythonCode(parsed(script));
    preferences().sort = true;
    preferences().pythonHideImportInOutline = true;
    view.updatePreferences();
    QVERIFY(view.findChildren<QToolButton *>().first()->isChecked());
    QCOMPARE(drawn(view), QString("main [os] Tool(run([re]) stop)"));
}

void TestEdOutlineView::theCaretsItemIsMarked_data()
{
    columns<int, QString>("position", "marked");

    row("start-of-line", 0, "os");
    row("end-of-import", 9, "os");
    row("before-the-name", 10, "Tool");
    row("line-above-method", 21, "Tool");
    row("method-line", 22, "run");
    row("import-inside", 50, "re");
    row("below-import-inside", 68, "run");
    row("body", 108, "stop");
    row("next-function", 110, "main");
    row("end", 139, "main");
}

void TestEdOutlineView::theCaretsItemIsMarked()
{
    QFETCH(int, position);
    QFETCH(QString, marked);
    QTextDocument document(script);
    QTextCursor caret(&document);
    caret.setPosition(position);
    EdOutlineView view;
    QSignalSpy clicks(&view, SIGNAL(outlineItemClicked(int, int, bool)));
    view.parsePythonCode(parsed(script));
    treeOf(view)->expandAll();
    view.followCaret(caret);
    const QList<QTreeWidgetItem *> selected = treeOf(view)->selectedItems();
    QCOMPARE(int(selected.size()), 1);
    QCOMPARE(selected.first()->text(0), marked);
    QCOMPARE(int(clicks.size()), 0);
}

void TestEdOutlineView::onlyVisibleItemsAreMarked()
{
    EdOutlineView view;
    view.parsePythonCode(parsed(script));
    view.followCaret(100);
    QCOMPARE(treeOf(view)->currentItem(), find(view, "Tool"));
    QVERIFY(!find(view, "Tool")->isExpanded());
    view.findChildren<QToolButton *>().at(1)->click();
    QCOMPARE(treeOf(view)->currentItem(), find(view, "stop"));
    view.toggleImportVisibility();
    view.followCaret(8);
    QVERIFY(treeOf(view)->selectedItems().isEmpty());
    view.toggleImportVisibility();
    QCOMPARE(treeOf(view)->selectedItems(), QList<QTreeWidgetItem *>() << find(view, "os"));
    view.contentsChange(0, 0, 90); // typed above
    view.followCaret(100);
    QCOMPARE(treeOf(view)->currentItem(), find(view, "os"));
}

void TestEdOutlineView::theMarkLeavesTheFocusedTreeAlone()
{
    EdOutlineView view;
    view.show();
    QApplication::setActiveWindow(&view);
    view.parsePythonCode(parsed(script));
    treeOf(view)->setFocus();
    QVERIFY(treeOf(view)->hasFocus());
    treeOf(view)->setCurrentItem(find(view, "os"));
    view.followCaret(120);
    QCOMPARE(treeOf(view)->currentItem(), find(view, "os"));
    treeOf(view)->clearFocus();
    QCOMPARE(treeOf(view)->currentItem(), find(view, "main"));
}

void TestEdOutlineView::theSelectionIsSubduedWithoutFocus()
{
    EdOutlineView view;
    QTreeWidget *tree = treeOf(view);
    const QPalette::ColorGroup active = QPalette::Active;
    QFocusEvent in(QEvent::FocusIn);
    QFocusEvent out(QEvent::FocusOut);
    QCoreApplication::sendEvent(tree, &in);
    QCOMPARE(tree->palette().color(active, QPalette::Highlight),
             QApplication::palette(tree).color(active, QPalette::Highlight));
    QCoreApplication::sendEvent(tree, &out);
    QCOMPARE(tree->palette().color(active, QPalette::Highlight),
             tree->palette().color(active, QPalette::AlternateBase));
    QPalette red = view.palette();
    red.setColor(QPalette::Highlight, Qt::red);
    view.setPalette(red);
    QCoreApplication::sendEvent(tree, &in);
    QCOMPARE(tree->palette().color(active, QPalette::Highlight), QColor(Qt::red));
}

CORVANE_TEST_MAIN(TestEdOutlineView)
#include "tst_edoutlineview.moc"
