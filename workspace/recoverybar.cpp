// SPDX-License-Identifier: MIT
#include "workspace/recoverybar.h"

#include "workspace/comparedialog.h"
#include "workspace/edcodeview.h"
#include "workspace/textfile.h"

#include <QComboBox>
#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace {

QString pathOf(const EdCodeView &view)
{
    return view.fileInfo().absoluteFilePath();
}

QVariant keyOf(const QObject *view)
{
    return QVariant(qulonglong(quintptr(view)));
}

} // namespace

RecoveryBar::RecoveryBar(QWidget *parent)
    : QFrame(parent), m_message(new QLabel(this)), m_list(new QComboBox(this))
{
    setObjectName(QLatin1String("recoverybar"));
    setFrameStyle(QFrame::StyledPanel);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    m_list->setAccessibleName(tr("Recovered documents"));
    m_list->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_message->setTextFormat(Qt::PlainText); // names may look like markup
    QHBoxLayout *layout = new QHBoxLayout(this);
    layout->setContentsMargins(6, 2, 6, 2);
    layout->addWidget(m_message, 1);
    layout->addWidget(m_list);
    // First of them, so that the others stay in their places when it goes.
    m_keepAll = addButton(tr("Keep All"), tr("Keep all recovered texts"), SLOT(keepAll()));
    addButton(tr("Compare"), tr("Show what differs from the file"), SLOT(compare()));
    addButton(tr("Keep"), tr("Keep the recovered text"), SLOT(keep()));
    addButton(tr("Discard"), tr("Go back to the text of the file"), SLOT(discard()));
    connect(m_list, SIGNAL(activated(int)), SLOT(choose(int)));
    hide();
}

QPushButton *RecoveryBar::addButton(const QString &text, const QString &toolTip, const char *slot)
{
    auto *button = new QPushButton(text, this);
    button->setToolTip(toolTip);
    button->setAutoDefault(false);
    connect(button, SIGNAL(clicked()), slot);
    connect(button, SIGNAL(clicked()), SIGNAL(answered())); // after it
    layout()->addWidget(button);
    return button;
}

void RecoveryBar::add(const QList<RecoveredDocument> &documents)
{
    for (const RecoveredDocument &document : documents) {
        if (!document.view)
            continue;
        m_documents << document;
        m_list->addItem(document.isOutdated ? tr("%1 (changed on disk since)").arg(document.name)
                                            : document.name);
        m_list->setItemData(m_list->count() - 1, keyOf(document.view));
        m_list->setItemData(m_list->count() - 1, QDir::toNativeSeparators(pathOf(*document.view)),
                            Qt::ToolTipRole);
        connect(document.view, SIGNAL(modificationChanged(bool)), SLOT(forgetSaved(bool)));
        connect(document.view, SIGNAL(destroyed(QObject *)), SLOT(forgetClosed(QObject *)));
    }
    refresh();
}

EdCodeView *RecoveryBar::chosen() const
{
    const int index = m_list->currentIndex();
    return index < 0 || index >= count() ? nullptr : m_documents.at(index).view.data();
}

void RecoveryBar::compare()
{
    const EdCodeView *view = chosen();
    if (!view)
        return;
    TextFile file; // stays empty where there is none
    QString reason;
    const QString path = pathOf(*view);
    if (!readTextFile(path, &file, &reason) && QFileInfo(path).exists()) {
        say(tr("The file cannot be read: %1.").arg(reason), LongText);
        return;
    }
    const QString title = tr("%1: File and Recovered Text").arg(m_list->currentText());
    (new CompareDialog(title, file.text, view->text(), window()))->show();
}

void RecoveryBar::keep()
{
    if (m_list->currentIndex() >= 0)
        remove(m_list->currentIndex());
}

void RecoveryBar::discard()
{
    EdCodeView *view = chosen();
    if (!view)
        return;
    const QFileInfo file(pathOf(*view));
    if (!view->isBuffer() && !file.dir().exists()) {
        say(tr("The folder of %1 is not there now, so its text is kept.").arg(file.fileName()),
            LongText);
        return;
    }
    if (m_documents.at(m_list->currentIndex()).isApart || !file.exists()) {
        forget(view);
        view->discardJournal(); // or a demo would keep it
        emit closeWanted(view);
        return;
    }
    const QString reason = view->reloadQuietly();
    if (reason.isEmpty())
        forget(view);
    else
        say(tr("The file cannot be read: %1.").arg(reason), LongText);
}

void RecoveryBar::keepAll()
{
    while (count() > 0)
        remove(0);
}

void RecoveryBar::forget(EdCodeView *view)
{
    for (int i = count() - 1; i >= 0; --i) {
        if (m_documents.at(i).view == view)
            remove(i);
    }
}

void RecoveryBar::choose(int index)
{
    if (index >= 0 && index < count() && m_documents.at(index).view)
        emit documentChosen(m_documents.at(index).view);
}

void RecoveryBar::forgetSaved(bool modified)
{
    if (!modified)
        forget(qobject_cast<EdCodeView *>(sender()));
}

// What is left of the view by now is no view any more, whatever the guarded pointer says.
void RecoveryBar::forgetClosed(QObject *view)
{
    drop(m_list->findData(keyOf(view)));
}

void RecoveryBar::remove(int index)
{
    if (EdCodeView *view = m_documents.at(index).view)
        view->disconnect(this);
    drop(index);
}

void RecoveryBar::drop(int index)
{
    if (index < 0)
        return;
    m_documents.removeAt(index);
    m_list->removeItem(index);
    refresh();
}

// A long text takes lines, and gives way in narrow windows, where a short one is still whole.
void RecoveryBar::say(const QString &text, TextLength length)
{
    m_message->setText(text);
    m_message->setWordWrap(length == LongText);
    m_message->setSizePolicy(length == LongText ? QSizePolicy::Ignored : QSizePolicy::Preferred,
                             QSizePolicy::Preferred);
}

void RecoveryBar::refresh()
{
    const bool isOne = count() == 1;
    if (isOne)
        say(tr("Recovered unsaved text of %1.").arg(m_list->itemText(0)), LongText);
    else
        say(tr("Recovered (%1):").arg(count()), ShortText);
    m_message->setToolTip(tr("These texts were not saved before."));
    m_list->setVisible(!isOne);
    m_keepAll->setVisible(!isOne);
    setVisible(count() > 0);
}
