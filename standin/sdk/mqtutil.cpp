// SPDX-License-Identifier: MIT
#include <maya/MQtUtil.h>

#include "standin/sdk/convert.h"
#include "standin/sdk/hostaccess.h"
#include "standin/sdk/hostservices.h"

#include <QAction>
#include <QString>
#include <QWidget>

using namespace standin;

STANDIN_API_OPEN

namespace {

// Asked anew for each call: the interface comes after the host and goes before it.
InterfaceLookup *lookup()
{
    return hostServices() ? hostServices()->interfaceLookup() : nullptr;
}

// The widget, unless it lies outside of the ancestor, as one in another window always does.
QWidget *within(QWidget *widget, const QWidget *ancestor)
{
    return widget && (!ancestor || ancestor->isAncestorOf(widget)) ? widget : nullptr;
}

} // namespace

QWidget *MQtUtil::mainWindow()
{
    return lookup() ? lookup()->mainWindow() : nullptr;
}

QWidget *MQtUtil::findControl(MString controlName, const QWidget *ancestor)
{
    return lookup() ? within(lookup()->findControl(utf8(controlName)), ancestor) : nullptr;
}

QWidget *MQtUtil::findLayout(MString layoutName, const QWidget *ancestor)
{
    return lookup() ? within(lookup()->findLayout(utf8(layoutName)), ancestor) : nullptr;
}

QWidget *MQtUtil::findWindow(MString windowName)
{
    return lookup() ? lookup()->findWindow(utf8(windowName)) : nullptr;
}

QAction *MQtUtil::findMenuItem(MString menuItemName)
{
    return lookup() ? lookup()->findMenuItem(utf8(menuItemName)) : nullptr;
}

MString MQtUtil::fullName(const QObject *object)
{
    return lookup() && object ? apiString(lookup()->fullName(object)) : MString();
}

QWidget *MQtUtil::getParent(const QObject *object)
{
    // By parents and not by parentWidget(): actions and layouts are no widgets.
    for (QObject *above = object ? object->parent() : nullptr; above; above = above->parent()) {
        if (QWidget *widget = qobject_cast<QWidget *>(above))
            return widget;
    }
    return nullptr;
}

MString MQtUtil::toMString(const QString &text)
{
    // With lengths both ways, so that null characters survive.
    const QByteArray bytes = text.toUtf8();
    return MString(bytes.constData(), bytes.size());
}

QString MQtUtil::toQString(const MString &text)
{
    int length = 0;
    const char *bytes = text.asUTF8(length);
    return QString::fromUtf8(bytes, length);
}

STANDIN_API_CLOSE
