// SPDX-License-Identifier: MIT
#include "standin/ui/shelffile.h"

#include "standin/host/utf8.h"
#include "standin/ui/elementtree.h"

#include <QFile>
#include <QWidget>

namespace standin {

namespace {

QString quoted(const std::string &text)
{
    QString literal = toQt(text);
    // The backslash first: the other escapes bring backslashes of their own.
    literal.replace("\\", "\\\\").replace("\"", "\\\"");
    literal.replace("\n", "\\n").replace("\r", "\\r").replace("\t", "\\t");
    return "\"" + literal + "\"";
}

// By the long names of their flags, which are the keys they are kept under.
const char *const savedTexts[] = {"label", "imageOverlayLabel", "image1", "command", "sourceType"};

QString buttonScript(const Element &button)
{
    QString script = "    shelfButton\n";
    script += "        -annotation " + quoted(toUtf8(button.widget()->toolTip())) + "\n";
    for (const char *key : savedTexts) {
        // What was never set is left out.
        if (button.texts.count(key) > 0)
            script += QString("        -%1 ").arg(key) + quoted(button.text(key)) + "\n";
    }
    return script + "    ;\n";
}

} // namespace

QString shelfScript(const Element &shelf)
{
    QString script = "global proc shelf_" + toQt(shelf.name) + "() {\n";
    for (const auto &child : shelf.children) {
        if (child->type == "shelfButton")
            script += buttonScript(*child);
    }
    return script + "}\n";
}

// Written beside the old file first, so that a full disk costs no shelf.
bool writeShelf(const Element &shelf, const QString &fileName)
{
    QFile file(fileName + ".new");
    const QByteArray text = shelfScript(shelf).toUtf8();
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.flush())
        return false;
    file.close();
    // Qt's rename() replaces nothing.
    QFile::remove(fileName);
    return file.rename(fileName);
}

} // namespace standin
