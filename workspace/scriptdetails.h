// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/melparser.h"
#include "analysis/pythonparser.h"

#include <QObject>
#include <QString>

class EdCodeView;
class SyntaxCheck;

// What is known of the script in a view: the parser's results, kept until something they depend on
// changes, and the diagnostics in its editor, which this class alone sets. The scan can be wrong
// about valid Python; so where there is an interpreter, it is asked before errors are shown. A
// child of the view, made when first asked for.
class ScriptDetails : public QObject
{
    Q_OBJECT

public:
    // Characters of a text; to parse more takes some ten milliseconds.
    static const int longText = 300000;

    // Brought up to date, which parses only if need be.
    static const ScriptDetails &of(EdCodeView *view);
    // Whether that would have somebody wait for what he wants to see.
    static bool areLongInComing(const EdCodeView *view);

    // As of the last parse; null when there was none.
    static const ScriptDetails *known(const EdCodeView *view);

    // Whether the text, its language and name, and the wish for diagnostics are those of the last
    // parse.
    bool isCurrent() const;
    // Null for a text in another language; may be copied, does not move.
    const MelParser *mel() const;
    const PythonParser *python() const;
    // How often the text was parsed.
    int parseCount() const { return m_parseCount; }

private slots:
    void showAnswer();

private:
    // All that the results depend on.
    struct Origin
    {
        int language = -1; // EdCodeView::Language; -1 before the first parse
        int revision = 0;  // of the document
        QString path;
        bool showsDiagnostics = false;
    };

    explicit ScriptDetails(EdCodeView *view);
    Origin origin() const;
    void update();
    void parseMel(const QString &text);
    void parsePython(const QString &text);
    bool needsCheck() const;
    void checkPython(const QString &text);
    void dropCheck();
    DiagnosticList errorsAfter(const SyntaxCheck &check) const;

    EdCodeView *m_view;
    Origin m_origin;
    MelParser m_mel;
    PythonParser m_python;
    int m_parseCount = 0;
    SyntaxCheck *m_check = nullptr; // under way; null: none
    bool m_wasInvalid = false;      // the interpreter's last word on the text
};
