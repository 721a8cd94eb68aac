// SPDX-License-Identifier: MIT
// The outline of 10,000 items, from the parser's list to the tree on the screen, against a plain
// tree that is given the same items in one go.
#include "analysis/edoutlineview.h"
#include "analysis/pythonparser.h"
#include "bench/measure.h"
#include "compat/icon.h"
#include "resources/resources.h"

#include <QApplication>
#include <QTreeWidget>

namespace {

const int itemCount = 10000;
const int rounds = 7;
const double fillLimit = 50;   // ms
const double switchLimit = 33; // ms, two frames

// Alternately a class with nine methods, or procedures that hold nothing.
PythonParser parserOf(const QString &path, const QString &prefix, bool nested)
{
    PythonParser parser;
    parser.parse(QString(), path);
    for (int i = 0; i < itemCount; ++i) {
        const bool below = nested && i % 10 > 0;
        const int kind = nested && !below ? int(ClassItem) : int(FunctionItem);
        parser.addOutlineItem(kind, prefix + QString::number(i * 7919 % itemCount), 40 * i, below);
    }
    return parser;
}

// One name of the others' in its middle.
PythonParser withNewItem(const PythonParser &parser, const QString &path)
{
    PythonParser result;
    result.parse(QString(), path);
    for (int i = 0; i < itemCount; ++i) {
        const OutlineItem &item = parser.outlineItems()[i];
        result.addOutlineItem(item.kind, item.name, item.position + (i > itemCount / 2),
                              item.depth);
        if (i == itemCount / 2)
            result.addOutlineItem(item.kind, "added", item.position + 1, item.depth);
    }
    return result;
}

void fillPlainly(QTreeWidget &tree, const PythonParser &parser, const QIcon &icon)
{
    tree.clear();
    QList<QTreeWidgetItem *> top;
    for (const OutlineItem &item : parser.outlineItems()) {
        QTreeWidgetItem *node = new QTreeWidgetItem(QStringList(item.name));
        node->setIcon(0, icon);
        node->setData(1, Qt::UserRole, item.position);
        node->setData(2, Qt::UserRole, item.position + int(item.name.size()));
        if (item.depth > 0)
            top.last()->addChild(node);
        else
            top << node;
    }
    tree.addTopLevelItems(top);
}

// Until it is painted.
template <typename Work>
double timeToSee(Work work)
{
    return bestTime(rounds, [&] {
        work();
        QApplication::processEvents();
    });
}

bool judge(const char *what, bool nested, bool sorted)
{
    preferences().sort = sorted;
    const PythonParser first = parserOf("/a.py", "name", nested);
    const PythonParser second = parserOf("/b.py", "other", nested);
    const PythonParser changed = withNewItem(first, "/a.py");
    const QIcon icon = compat::icon(":/icons/python_method.png");

    QTreeWidget plain;
    plain.setUniformRowHeights(true);
    plain.resize(250, 700);
    plain.show();
    EdOutlineView view;
    view.resize(250, 700);
    view.show();
    QApplication::processEvents();

    const double floor = timeToSee([&] {
        fillPlainly(plain, first, icon);
        if (sorted)
            plain.sortItems(0, Qt::AscendingOrder);
    });
    // There and back, so that no round finds what it shall show.
    const double toSwitch = timeToSee([&] {
                                view.parsePythonCode(second);
                                view.followCaret(40 * itemCount / 2);
                                QApplication::processEvents();
                                view.parsePythonCode(first);
                            }) /
                            2;
    const double same = timeToSee([&] { view.parsePythonCode(first); });
    const double update = timeToSee([&] {
                              view.parsePythonCode(changed);
                              QApplication::processEvents();
                              view.parsePythonCode(first);
                          }) /
                          2;
    int place = 0;
    const double key = timeToSee([&] {
        view.contentsChange(++place, 0, 1);
        view.followCaret(place);
    });
    std::printf("%s: plain fill %.1f ms; to another document %.1f, the same again %.2f, "
                "one item more or less %.2f, a key %.3f\n",
                what, floor, toSwitch, same, update, key);
    bool ok = isAtMost("  to another document, ms", toSwitch, std::min(fillLimit, switchLimit));
    ok = isAtMost("  to another document, times a plain fill", toSwitch / floor, 1.0) && ok;
    ok = isAtMost("  the same items, times a plain fill", same / floor, 0.1) && ok;
    ok = isAtMost("  one item, times a plain fill", update / floor, sorted ? 0.8 : 0.5) && ok;
    return isAtMost("  a key, times a plain fill", key / floor, 0.01) && ok;
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    initResources();
    bool ok = judge("flat", false, false);
    ok = judge("flat, by name", false, true) && ok;
    ok = judge("classes with methods", true, false) && ok;
    ok = judge("classes with methods, by name", true, true) && ok;
    return ok ? 0 : 1;
}
