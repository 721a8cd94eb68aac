// SPDX-License-Identifier: MIT
#pragma once

#include "editor/completion.h"
#include "editor/pythoncaret.h"

#include <QHash>
#include <QString>
#include <QStringList>

// What the names of a text are, as far as its statements tell by how they begin.
class DeclaredNames
{
public:
    explicit DeclaredNames(const PythonContext &context);

    // Name for what is not declared here.
    CompletionKind kind(const QString &name) const;
    // The full path of a name with dots, through the imports: "mc.ls" is "maya.cmds.ls". Maya's
    // commands are known by their usual module without an import, too.
    QString path(const QString &dotted) const;
    // Of which all names are imported: "from a.b import *".
    QStringList wholeModules() const { return m_wholeModules; }

private:
    void add(const QString &name, CompletionKind kind);
    void readStatement(const PythonContext &context, int index, bool isInReach);
    void readImports(const PythonContext &context, const QString &code);
    void readNames(const QString &module, const QString &names);

    QHash<QString, CompletionKind> m_kinds;
    QHash<QString, QString> m_paths;
    int m_importCount = 0;
    QStringList m_wholeModules;
};

// The names of the arguments that a call may still give, of what the text itself defines: a
// function, a class or a method of the class around, also one of its bases'.
QStringList openArguments(const PythonContext &context, const PythonCall &call);
