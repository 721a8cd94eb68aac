// SPDX-License-Identifier: MIT
#include "mainwindow/aboutdialog.h"

#include "bridge/hostversions.h"
#include "compat/icon.h"
#include "mainwindow/actions.h"
#include "mainwindow/programnames.h"

#include <QApplication>
#include <QBoxLayout>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QList>
#include <QPair>
#include <QPixmap>
#include <QPushButton>

namespace {

const int partSpacing = 14;
const int factSpacing = 6;
const int widestFact = 360;

typedef QPair<QString, QString> Fact; // what, and its value

QString orUnknown(const QString &version)
{
    return version.isEmpty() ? QApplication::translate("AboutDialog", "unknown") : version;
}

QLabel *createLabel(const QString &text)
{
    QLabel *label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setWordWrap(true);
    return label;
}

} // namespace

AboutDialog::AboutDialog(QWidget *parent) : QDialog(parent)
{
    setObjectName(QLatin1String("AboutDialogCorvane"));
    setWindowTitle(tr("About %1").arg(QLatin1String(CORVANE_APPLICATION_NAME)));
    QVBoxLayout *layout = new QVBoxLayout(this);
    layout->setSpacing(partSpacing);
    layout->addLayout(createHead());
    layout->addLayout(createFacts());
    layout->addLayout(createButtons());
    layout->setSizeConstraint(QLayout::SetFixedSize); // there is nothing to make larger
}

QLayout *AboutDialog::createHead()
{
    QLabel *icon = new QLabel;
    icon->setObjectName(QLatin1String("icon"));
    icon->setPixmap(QPixmap::fromImage(compat::image(iconPath("corvane64"))));
    const QString name =
        QLatin1String(CORVANE_APPLICATION_NAME) + QLatin1String(" " CORVANE_VERSION);
    QLabel *title = createLabel(name);
    QFont font = title->font();
    font.setBold(true);
    if (font.pixelSize() > 0) // the host may count like this
        font.setPixelSize(font.pixelSize() + 5);
    else
        font.setPointSize(font.pointSize() + 4);
    title->setFont(font);
    m_text = name + QLatin1Char('\n');

    QVBoxLayout *words = new QVBoxLayout;
    words->addWidget(title);
    words->addWidget(createLabel(tr("A code editor for MEL and Python")));
    QHBoxLayout *head = new QHBoxLayout;
    head->setSpacing(partSpacing);
    head->addWidget(icon);
    head->addLayout(words, 1);
    return head;
}

QLayout *AboutDialog::createFacts()
{
    const HostVersions host = hostVersions();
    const QString qt =
        tr("%1, built with %2").arg(QLatin1String(qVersion()), QLatin1String(QT_VERSION_STR));
    const QList<Fact> facts =
        QList<Fact>() << Fact(tr("Maya"), orUnknown(host.maya))
                      << Fact(tr("Python"), orUnknown(host.python)) << Fact(tr("Qt"), qt)
                      << Fact(tr("License"), tr("MIT: free software, see the file LICENSE"))
                      << Fact(tr("Icons"), tr("Lucide, ISC license, see resources/icons/LICENSE"));
    QFormLayout *layout = new QFormLayout;
    layout->setVerticalSpacing(factSpacing);
    for (const Fact &fact : facts) {
        QLabel *value = createLabel(fact.second);
        value->setMinimumWidth(widestFact);
        layout->addRow(fact.first + QLatin1Char(':'), value);
        m_text += fact.first + QLatin1String(": ") + fact.second + QLatin1Char('\n');
    }
    return layout;
}

QLayout *AboutDialog::createButtons()
{
    QDialogButtonBox *buttons = new QDialogButtonBox(QDialogButtonBox::Close, Qt::Horizontal, this);
    QPushButton *copy = buttons->addButton(tr("&Copy"), QDialogButtonBox::ActionRole);
    connect(copy, SIGNAL(clicked()), SLOT(copyText()));
    connect(buttons, SIGNAL(rejected()), SLOT(reject()));
    buttons->button(QDialogButtonBox::Close)->setDefault(true);
    buttons->button(QDialogButtonBox::Close)->setFocus();
    QHBoxLayout *layout = new QHBoxLayout;
    layout->addWidget(buttons);
    return layout;
}

void AboutDialog::copyText()
{
    QApplication::clipboard()->setText(m_text);
}
