// SPDX-License-Identifier: MIT
#include "workspace/recoverybar.h"

#include "tests/support/scratchdir.h"
#include "tests/support/testmain.h"
#include "workspace/comparedialog.h"
#include "workspace/edcodeview.h"

#include <QComboBox>
#include <QDir>
#include <QPlainTextEdit>
#include <QPushButton>

#include <memory>

class TestRecoveryBar : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void discardingGoesBackToTheFile();
    void discardingWithoutAFileCloses();
    void textsWithoutAPlaceAreKeptOrClosed();
    void documentsGoByThemselves();
    void keepingChangesNothing();
    void comparingShowsBothTexts();
    void answeringLeavesTheButtonsInPlace();

public slots:
    void close(EdCodeView *view) { m_closed = view; }

private:
    EdCodeView *addChanged(const char *name, const QByteArray &bytes);
    QPushButton *button(const char *text) const;
    void press(const char *text);
    QStringList listed() const;

    std::unique_ptr<ScratchDir> m_dir;
    std::unique_ptr<QWidget> m_window;
    RecoveryBar *m_bar = nullptr;
    EdCodeView *m_closed = nullptr; // at the bar's wish
};

void TestRecoveryBar::init()
{
    m_dir = std::make_unique<ScratchDir>();
    EdCodeView::setBufferDirectory(QDir(m_dir->path()));
    m_window = std::make_unique<QWidget>();
    m_bar = new RecoveryBar(m_window.get());
    m_closed = nullptr;
}

void TestRecoveryBar::cleanup()
{
    m_window.reset();
}

EdCodeView *TestRecoveryBar::addChanged(const char *name, const QByteArray &bytes)
{
    RecoveredDocument document;
    document.view = new EdCodeView(EdCodeView::AwaitsFile, EdCodeView::Text, m_window.get());
    document.name = name;
    const bool isBuffer = document.name.startsWith("corvaneEditorBuffer");
    if (!document.view->load(QFileInfo(m_dir->write(name, bytes)), isBuffer, 0))
        return nullptr;
    document.view->replace("new\n");
    m_bar->add(QList<RecoveredDocument>() << document);
    return document.view;
}

QPushButton *TestRecoveryBar::button(const char *text) const
{
    for (QPushButton *button : m_bar->findChildren<QPushButton *>()) {
        if (button->text() == text)
            return button;
    }
    return nullptr;
}

void TestRecoveryBar::press(const char *text)
{
    QTest::mouseClick(button(text), Qt::LeftButton);
}

QStringList TestRecoveryBar::listed() const
{
    QStringList names;
    const QComboBox *list = m_bar->findChild<QComboBox *>();
    for (int i = 0; i < list->count(); ++i)
        names << list->itemText(i);
    return names;
}

void TestRecoveryBar::discardingGoesBackToTheFile()
{
    EdCodeView *file = addChanged("a.mel", "old\n");
    EdCodeView *buffer = addChanged("corvaneEditorBuffer-0.mel", "scratch\n");
    QVERIFY(!m_bar->isHidden());
    press("Discard");
    QCOMPARE(file->text(), QString("old\n"));
    QVERIFY(!file->isModified());
    QCOMPARE(listed(), QStringList() << "corvaneEditorBuffer-0.mel");
    press("Discard");
    QCOMPARE(buffer->text(), QString("scratch\n"));
    QVERIFY(m_bar->isHidden());
    file->undo();
    QCOMPARE(file->text(), QString("new\nold\n"));
    QVERIFY(file->isModified());
}

void TestRecoveryBar::discardingWithoutAFileCloses()
{
    EdCodeView *view = addChanged("a.mel", "old\n");
    QVERIFY(QFile::remove(m_dir->file("a.mel")));
    connect(m_bar, SIGNAL(closeWanted(EdCodeView *)), SLOT(close(EdCodeView *)));
    press("Discard");
    QCOMPARE(m_closed, view);
    QVERIFY(m_bar->isHidden());
}

void TestRecoveryBar::textsWithoutAPlaceAreKeptOrClosed()
{
    QVERIFY(QDir(m_dir->path()).mkdir("drive"));
    EdCodeView *away = addChanged("drive/a.mel", "old\n");
    QVERIFY(QDir().rename(m_dir->file("drive"), m_dir->file("away")));
    connect(m_bar, SIGNAL(closeWanted(EdCodeView *)), SLOT(close(EdCodeView *)));
    press("Discard");
    QCOMPARE(m_bar->count(), 1);
    QCOMPARE(away->text(), QString("new\nold\n"));
    press("Keep");

    RecoveredDocument apart;
    apart.view = new EdCodeView(0, EdCodeView::Mel, m_window.get());
    apart.isApart = true;
    m_bar->add(QList<RecoveredDocument>() << apart);
    press("Discard"); // though it has a file
    QCOMPARE(m_closed, apart.view.data());
}

void TestRecoveryBar::documentsGoByThemselves()
{
    EdCodeView *saved = addChanged("saved.mel", "old");
    EdCodeView *closed = addChanged("closed.mel", "old");
    EdCodeView *retired = addChanged("retired.mel", "old");
    addChanged("left.mel", "old");
    saved->save();
    delete closed;
    m_bar->forget(retired);
    QCOMPARE(listed(), QStringList() << "left.mel");
    saved->replace("again");
    saved->save();
    QCOMPARE(m_bar->count(), 1);
}

void TestRecoveryBar::keepingChangesNothing()
{
    EdCodeView *first = addChanged("a.mel", "old");
    addChanged("b.mel", "old");
    addChanged("c.mel", "old");
    press("Keep");
    QCOMPARE(listed(), QStringList() << "b.mel"
                                     << "c.mel");
    QVERIFY(first->isModified());
    QCOMPARE(first->text(), QString("new\nold"));
    press("Keep All");
    QVERIFY(m_bar->isHidden());
}

void TestRecoveryBar::comparingShowsBothTexts()
{
    addChanged("a.mel", "one\r\ntwo\r\n");
    press("Compare");
    CompareDialog *dialog = m_window->findChild<CompareDialog *>();
    QVERIFY(dialog && !dialog->isModal());
    QCOMPARE(dialog->findChild<QPlainTextEdit *>()->toPlainText(),
             QString("+ new\n  one\n  two\n  "));
    QCOMPARE(m_bar->count(), 1);
    dialog->reject();
}

void TestRecoveryBar::answeringLeavesTheButtonsInPlace()
{
    for (const char *name : {"a.mel", "with_a_longer_name.mel", "c.mel"})
        addChanged(name, "old\n");
    m_bar->resize(1000, 40);
    m_window->show();
    const QRect place = button("Keep")->geometry();
    for (int left = 3; left > 1; --left) {
        press("Keep");
        QCoreApplication::processEvents();
        QCOMPARE(button("Keep")->geometry(), place);
    }
}

CORVANE_TEST_MAIN(TestRecoveryBar)
#include "tst_recoverybar.moc"
