// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/scratchdir.h"
#include "tests/workspace/walkboxes.h"
#include "tests/workspace/walkmodel.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <random>

class EdCentralWidget;
class EdCodeView;
class WalkWindow;

// Takes random steps through what users and other programs do, in the program and in its model, and
// compares the two after each. The same seed gives the same steps.
class Walk
{
public:
    explicit Walk(unsigned seed);
    ~Walk();

    // Empty when program and model agree; else all there is to know.
    QString step();

    struct Action
    {
        int weight; // how often, among the sum of all
        const char *name;
        void (Walk::*act)();
    };

private:
    int below(int bound) { return int(m_random() % unsigned(bound)); }
    bool oneOf(int chances) { return below(chances) == 0; }
    QString anyName();
    QString anyPath() { return m_files.path() + '/' + anyName(); }
    QString anyText();
    int anyPaneWithTabs();
    void note(const QString &what) { m_log.last() += ' ' + what; }

    EdCentralWidget *central() const;
    EdCodeView *current() const;
    void listen();
    void settle();
    void noteUndoSteps();
    QString difference();
    QString report(const QStringList &complaints) const;
    const Action &anyAction();
    void showWindow();

    void newBuffer();
    void openFile();
    void chooseFromList();
    void type();
    void replace();
    void clearText();
    void convertTabs();
    void changeText();
    void undo();
    void redo();
    void stepBack(int step);
    void save();
    void saveAll();
    void saveBuffers();
    void saveAs();
    void rename();
    void renameOther();
    void closeActive();
    void closeOther();
    void closeAll();
    void closeAllBut();
    void move();
    void selectTab();
    void stepTabs();
    void reload();
    void changeFile();
    void removeFile();
    void changeFileOf(const QString &path, const std::optional<QByteArray> &bytes);
    void comeBack();
    void cleanUp();
    void setPreference();
    void restart();

    static const Action actions[];
    static const int actionCount;

    std::mt19937 m_random;
    unsigned m_seed;
    int m_steps = 0;
    ScratchDir m_files;
    ScratchDir m_buffers;
    WalkBoxes m_boxes;
    WalkModel m_model;
    QStringList m_log; // of the last steps
    std::unique_ptr<WalkWindow> m_window;
};
