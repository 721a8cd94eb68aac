// SPDX-License-Identifier: MIT
// The mouse on a pane's tabs.
#include "editor/edcodeedit.h"
#include "preferences/preferences.h"
#include "tests/support/scratchdir.h"
#include "tests/support/testmain.h"
#include "workspace/edcodetabbar.h"
#include "workspace/edcodetabwidget.h"
#include "workspace/edcodeview.h"

#include <QApplication>
#include <QDir>
#include <QMenu>
#include <QMouseEvent>
#include <QSignalSpy>

#include <memory>

namespace {

// A mouse that the bar has since a button went down on it, wherever it goes. Places are the bar's.
class Mouse
{
public:
    explicit Mouse(QWidget *bar) : m_bar(bar) {}

    void press(const QPoint &place, Qt::MouseButton button = Qt::LeftButton)
    {
        m_buttons = button;
        send(QEvent::MouseButtonPress, place, button);
    }
    void move(const QPoint &place) { send(QEvent::MouseMove, place, Qt::NoButton); }
    void release(const QPoint &place)
    {
        const Qt::MouseButton button = m_buttons;
        m_buttons = Qt::NoButton;
        send(QEvent::MouseButtonRelease, place, button);
    }
    // Somewhere else, so that the bar is not told.
    void loseButton() { m_buttons = Qt::NoButton; }
    void click(const QPoint &place, Qt::MouseButton button)
    {
        press(place, button);
        release(place);
    }
    void doubleClick(const QPoint &place)
    {
        click(place, Qt::LeftButton);
        m_buttons = Qt::LeftButton;
        send(QEvent::MouseButtonDblClick, place, Qt::LeftButton);
        release(place);
    }

private:
    void send(QEvent::Type type, const QPoint &place, Qt::MouseButton button)
    {
        QMouseEvent event(type, place, m_bar->mapToGlobal(place), button, m_buttons,
                          Qt::NoModifier);
        QApplication::sendEvent(m_bar, &event);
    }

    QWidget *m_bar;
    Qt::MouseButton m_buttons = Qt::NoButton;
};

// The entries of the menu that is open, and those that part them as "-".
QString openMenu()
{
    QMenu *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    if (!menu)
        return QString();
    QStringList entries;
    for (QAction *action : menu->actions())
        entries << (action->isSeparator() ? QString("-") : action->text());
    return entries.join(", ");
}

// Closes the menu, as the user's choice does.
void choose(const char *entry)
{
    QMenu *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QVERIFY(menu);
    menu->close();
    for (QAction *action : menu->actions()) {
        if (action->text() == entry)
            action->trigger();
    }
}

} // namespace

class TestEdCodeTabWidgetDrag : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void pressingTakesATabToTheFront();
    void theMenuIsAboutItsTab();
    void theMiddleButtonCloses();
    void doubleClicksCloseOrCreate();
    void draggedTabsTakeTheirViewsAlong();
    void widerTabsDoNotSwapBack();
    void theBarsEmptyPartTakesNoTab();
    void tabsDroppedInThePaneMayMove();
    void tabsDroppedOutsideAreHandedOn();
    void dragsEndWithoutARelease_data();
    void dragsEndWithoutARelease();
    void escapeEndsADrag();

private:
    QPoint tab(int index) const { return bar()->tabRect(index).center(); }
    QPoint outside() const { return {10, m_pane->height() + 100}; }
    EdCodeTabBar *bar() const { return m_pane->tabBar(); }
    QString labels() const;

    std::unique_ptr<ScratchDir> m_buffers;
    std::unique_ptr<EdCodeTabWidget> m_pane;
    std::unique_ptr<Mouse> m_mouse;
};

void TestEdCodeTabWidgetDrag::init()
{
    preferences() = Preferences();
    m_buffers = std::make_unique<ScratchDir>();
    EdCodeView::setBufferDirectory(QDir(m_buffers->path()));
    m_pane = std::make_unique<EdCodeTabWidget>(1);
    m_pane->resize(800, 300);
    int index = 0;
    for (const char *label : {"a", "wide and wider still", "c"})
        m_pane->newBuffer(index++, EdCodeView::Text, label);
    QApplication::processEvents();
    m_mouse = std::make_unique<Mouse>(bar());
}

void TestEdCodeTabWidgetDrag::cleanup()
{
    while (QWidget *popup = QApplication::activePopupWidget())
        popup->close();
    m_pane.reset();
    m_buffers.reset();
}

// By their first letters, that of the current tab as a capital.
QString TestEdCodeTabWidgetDrag::labels() const
{
    QString letters;
    for (int index = 0; index < m_pane->count(); ++index) {
        const QChar letter = m_pane->tabText(index).at(0);
        letters += index == m_pane->currentIndex() ? letter.toUpper() : letter;
    }
    return letters;
}

void TestEdCodeTabWidgetDrag::pressingTakesATabToTheFront()
{
    QSignalSpy changed(m_pane.get(), SIGNAL(tabChanged()));
    QSignalSpy selected(bar(), SIGNAL(tabBarSelected()));
    m_mouse->click(tab(1), Qt::LeftButton);
    QCOMPARE(labels(), QString("aWc"));
    QVERIFY(m_pane->codeViewAt(1)->isVisible());
    m_mouse->click(QPoint(bar()->width() - 2, 2), Qt::LeftButton);
    QCOMPARE(labels(), QString("aWc"));
    QCOMPARE(int(changed.size()), 1);
    QCOMPARE(int(selected.size()), 2);
    QVERIFY(openMenu().isNull());
}

void TestEdCodeTabWidgetDrag::theMenuIsAboutItsTab()
{
    m_mouse->click(tab(0), Qt::RightButton);
    QCOMPARE(labels(), QString("Awc"));
    QCOMPARE(openMenu(), QString("Close, Close All But This, -, Save, Save As, Rename..., -, "
                                 "Move to Other View"));
    choose("Close");
    QCOMPARE(labels(), QString("Wc"));
    preferences().closeAllButThis = false;
    m_mouse->click(tab(0), Qt::RightButton);
    QVERIFY(!openMenu().contains("All"));
    QSignalSpy moved(m_pane.get(), SIGNAL(otherViewRequested(int, int)));
    choose("Move to Other View");
    QCOMPARE(moved.first().at(0).toInt(), 1);
    QCOMPARE(moved.first().at(1).toInt(), 0);
    m_mouse->click(QPoint(bar()->width() - 2, 2), Qt::RightButton);
    QVERIFY(openMenu().isNull());
    m_mouse->press(tab(0), Qt::RightButton);
    m_mouse->release(tab(1)); // all commands are then about that one
    QCOMPARE(labels(), QString("wC"));
}

void TestEdCodeTabWidgetDrag::theMiddleButtonCloses()
{
    m_mouse->click(tab(0), Qt::MiddleButton);
    QCOMPARE(labels(), QString("wC"));
    m_mouse->click(QPoint(bar()->width() - 2, 2), Qt::MiddleButton);
    m_mouse->press(tab(0), Qt::MiddleButton);
    m_mouse->release(tab(1)); // slid off
    m_pane->setTabsClosable(false);
    m_mouse->click(tab(0), Qt::MiddleButton);
    QCOMPARE(labels(), QString("wC"));
}

void TestEdCodeTabWidgetDrag::doubleClicksCloseOrCreate()
{
    QSignalSpy created(m_pane.get(), SIGNAL(createNewBufferTriggered()));
    m_mouse->doubleClick(tab(0));
    QCOMPARE(labels(), QString("Awc"));
    m_pane->setTabsDoubleClickToClose(true);
    m_mouse->doubleClick(tab(0));
    QCOMPARE(labels(), QString("Wc"));
    QCOMPARE(int(created.size()), 0);
    m_mouse->doubleClick(QPoint(bar()->width() - 2, 2));
    QCOMPARE(int(created.size()), 1);
}

void TestEdCodeTabWidgetDrag::draggedTabsTakeTheirViewsAlong()
{
    EdCodeView *view = m_pane->codeViewAt(0);
    QSignalSpy reordered(m_pane.get(), SIGNAL(tabsReordered()));
    m_mouse->click(tab(0), Qt::LeftButton);
    m_mouse->press(tab(0));
    m_mouse->move(tab(1));
    QCOMPARE(labels(), QString("wAc"));
    m_mouse->move(tab(2));
    QCOMPARE(labels(), QString("wcA"));
    QCOMPARE(m_pane->cursor().shape(), Qt::ClosedHandCursor);
    QCOMPARE(int(reordered.size()), 0);
    m_mouse->release(tab(2));
    QCOMPARE(int(reordered.size()), 1);
    QCOMPARE(m_pane->cursor().shape(), Qt::ArrowCursor);
    QCOMPARE(m_pane->currentCodeView(), view);
    QVERIFY(view->isVisible());
    m_mouse->move(tab(0)); // the button is up
    QCOMPARE(labels(), QString("wcA"));
}

void TestEdCodeTabWidgetDrag::widerTabsDoNotSwapBack()
{
    const QPoint swapsRight(bar()->tabRect(1).left() + 4, tab(1).y());
    m_mouse->press(tab(0));
    m_mouse->move(swapsRight);
    QCOMPARE(labels(), QString("wAc"));
    m_mouse->move(swapsRight + QPoint(5, 0));
    m_mouse->move(swapsRight + QPoint(2, 0));
    QCOMPARE(labels(), QString("wAc"));
    m_mouse->move(swapsRight - QPoint(1, 0));
    QCOMPARE(labels(), QString("Awc"));
    m_mouse->release(tab(0));

    const QPoint swapsLeft(bar()->tabRect(1).right() - 4, tab(1).y());
    m_mouse->press(tab(2));
    m_mouse->move(swapsLeft);
    QCOMPARE(labels(), QString("aCw"));
    m_mouse->move(swapsLeft - QPoint(5, 0));
    QCOMPARE(labels(), QString("aCw"));
    m_mouse->move(swapsLeft + QPoint(1, 0));
    QCOMPARE(labels(), QString("awC"));
}

void TestEdCodeTabWidgetDrag::theBarsEmptyPartTakesNoTab()
{
    const QPoint empty(bar()->width() - 2, 2);
    m_mouse->press(tab(0));
    m_mouse->move(outside()); // nobody is told any more
    m_mouse->move(empty);
    QCOMPARE(m_pane->cursor().shape(), Qt::ForbiddenCursor);
    QSignalSpy moved(m_pane.get(), SIGNAL(tabMovedOutsideCurrent(int, QPoint, bool)));
    m_mouse->release(empty);
    QVERIFY(openMenu().isNull());
    QCOMPARE(int(moved.size()), 0);
    QCOMPARE(labels(), QString("Awc"));
}

void TestEdCodeTabWidgetDrag::tabsDroppedInThePaneMayMove()
{
    QSignalSpy moved(m_pane.get(), SIGNAL(otherViewRequested(int, int)));
    const QPoint inPane(100, bar()->height() + 50);
    m_mouse->press(tab(1));
    m_mouse->move(inPane);
    m_mouse->move(tab(1)); // back again
    m_mouse->release(tab(1));
    QVERIFY(openMenu().isNull());
    m_mouse->press(tab(1));
    m_mouse->move(inPane);
    m_mouse->release(inPane);
    QCOMPARE(openMenu(), QString("Move to Other View"));
    choose("Move to Other View");
    QCOMPARE(moved.first().at(1).toInt(), 1);
}

void TestEdCodeTabWidgetDrag::tabsDroppedOutsideAreHandedOn()
{
    QSignalSpy moved(m_pane.get(), SIGNAL(tabMovedOutsideCurrent(int, QPoint, bool)));
    m_mouse->press(tab(1));
    m_mouse->move(outside());
    m_mouse->release(outside());
    QCOMPARE(int(moved.size()), 2);
    for (const QList<QVariant> &arguments : moved) {
        QCOMPARE(arguments.at(0).toInt(), 1);
        QCOMPARE(arguments.at(1).toPoint(), bar()->mapToGlobal(outside()));
    }
    QVERIFY(moved.at(0).at(2).toBool());
    QVERIFY(!moved.at(1).at(2).toBool());

    m_pane->setTabsMovable(false);
    m_mouse->press(tab(0));
    m_mouse->move(tab(1));
    m_mouse->release(outside());
    QCOMPARE(labels(), QString("Awc"));
    QCOMPARE(int(moved.size()), 2);
}

void TestEdCodeTabWidgetDrag::dragsEndWithoutARelease_data()
{
    QTest::addColumn<int>("event"); // that the bar gets

    QTest::newRow("button-lost") << int(QEvent::None);
    QTest::newRow("other-window") << int(QEvent::WindowDeactivate);
    QTest::newRow("other-grab") << int(QEvent::UngrabMouse);
}

void TestEdCodeTabWidgetDrag::dragsEndWithoutARelease()
{
    QFETCH(int, event);
    m_mouse->press(tab(0));
    m_mouse->move(tab(1));
    if (event == QEvent::None)
        m_mouse->loseButton();
    QEvent loss(static_cast<QEvent::Type>(event));
    QApplication::sendEvent(bar(), &loss);
    m_mouse->move(tab(2));
    QCOMPARE(labels(), QString("wAc"));
    QCOMPARE(m_pane->cursor().shape(), Qt::ArrowCursor);
}

// The keys are those of the editor, which may type on.
void TestEdCodeTabWidgetDrag::escapeEndsADrag()
{
    m_mouse->press(tab(0));
    m_mouse->move(tab(1));
    EdCodeEdit *edit = m_pane->currentCodeView()->codeEdit();
    QTest::keyClick(edit, Qt::Key_X);
    m_mouse->move(tab(2));
    QCOMPARE(labels(), QString("wcA"));
    QTest::keyClick(edit, Qt::Key_Escape);
    m_mouse->move(tab(0));
    QCOMPARE(labels(), QString("wcA"));
    QCOMPARE(edit->text(), QString("x"));
    // A tab that goes takes its drag along.
    m_mouse->release(tab(2));
    m_mouse->press(tab(0));
    m_pane->forceCloseTab(1);
    m_mouse->move(tab(1));
    QCOMPARE(labels(), QString("Wa"));
}

CORVANE_TEST_MAIN(TestEdCodeTabWidgetDrag)
#include "tst_edcodetabwidgetdrag.moc"
