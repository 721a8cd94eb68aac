// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace standin {

class UserInterface;

// The host's own small script editor: the history above, an input per language below. Has no state:
// the history is the session's. A script can make the same from its commands.
class ScriptEditorWindow : public QWidget
{
public:
    explicit ScriptEditorWindow(UserInterface &ui, QWidget *parent);
};

} // namespace standin
