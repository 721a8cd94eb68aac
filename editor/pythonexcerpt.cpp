// SPDX-License-Identifier: MIT
#include "editor/pythonexcerpt.h"

#include "editor/pythonbindings.h"
#include "editor/pythonobject.h"
#include "editor/pythonpackage.h"

#include <QStringList>

#include <algorithm>
#include <cstdlib>

namespace {

const char locator[] = "__corvane_lctr_kvrt__";
// Units of text that take as long to parse as a statement does whatever is in it.
const int statementUnits = 12;
const int mostImports = 250; // of a long text: the first ones
// Of the statement at the caret, on either side of it.
const int mostUnitsAtCaret = 2000;

// How much a statement matters at the caret; the first ones are kept first.
enum Rank { AtCaret, Import, Near, Declaration, Member, Other };

// "print x", which would keep Python 3 from parsing the rest.
bool isPython2Output(const QString &code)
{
    for (const char *word : {"print", "exec"}) {
        const QString rest = code.mid(int(qstrlen(word)));
        if (!code.startsWith(QLatin1String(word)) || rest.isEmpty() || isPythonName(rest.at(0)))
            continue;
        const QString argument = rest.trimmed();
        return !argument.isEmpty() && argument.at(0) != QLatin1Char('(') &&
               argument.at(0) != QLatin1Char('=');
    }
    return false;
}

class Excerpt
{
public:
    explicit Excerpt(const PythonContext &context)
        : m_context(context), m_statements(context.statements), m_parents(m_statements.size(), -1),
          m_isKept(m_statements.size(), false), m_isAroundMoved(m_statements.size(), false)
    {
        findParents();
    }

    QString take(int mostUnits)
    {
        choose(mostUnits);
        appendAll(0, m_movedStart);
        if (m_movedStart < m_movedEnd)
            append(m_statements[m_movedStart].depth, emptyClass(m_movedStart));
        appendAll(m_movedEnd, int(m_statements.size()));
        appendAll(m_movedStart, m_movedEnd);
        appendLocalImports();
        append(0, Word("pass")); // ends a block that is still open
        return m_source;
    }

private:
    using Word = QLatin1String;

    QString word(int i) const { return firstWord(m_context.text, m_statements[i]); }
    int length(int i) const
    {
        return m_statements[i].codeEnd - m_statements[i].start + statementUnits;
    }
    bool isFunction(int i) const { return m_statements[i].keyword == PythonKeyword::Function; }
    bool isImport(int i) const
    {
        const PythonKeyword keyword = m_statements[i].keyword;
        return keyword == PythonKeyword::Import || keyword == PythonKeyword::From;
    }
    bool isClass(int i) const { return m_statements[i].keyword == PythonKeyword::Class; }

    void findParents()
    {
        std::vector<int> open; // the last statement of each depth
        for (int i = 0; i < int(m_statements.size()); ++i) {
            const int depth = std::min(m_statements[i].depth, int(open.size()));
            open.resize(depth);
            m_parents[i] = open.empty() ? -1 : open.back();
            open.push_back(i);
        }
        moveClass();
    }

    // The script does not look into a class inside a class or a function. Where the caret is in
    // one, that is moved to the end and to the margin.
    void moveClass()
    {
        const int moved = m_context.enclosingClass();
        const int count = int(m_statements.size());
        const bool isNested = moved >= 0 && m_parents[moved] >= 0;
        m_movedStart = m_movedEnd = isNested ? moved : count;
        while (m_movedEnd < count && (m_movedEnd == moved || m_parents[m_movedEnd] >= moved))
            ++m_movedEnd;
        for (int i = isNested ? m_parents[moved] : -1; i >= 0; i = m_parents[i])
            m_isAroundMoved[i] = true;
        if (isNested)
            m_parents[moved] = -1;
    }

    int depth(int i) const
    {
        const bool isMoved = i >= m_movedStart && i < m_movedEnd;
        return m_statements[i].depth - (isMoved ? m_statements[m_movedStart].depth : 0);
    }

    // The function or class whose names it binds; -1 at the margin.
    int scope(int i) const
    {
        do
            i = m_parents[i];
        while (i >= 0 && !isFunction(i) && !isClass(i));
        return i;
    }

    // Its outermost function, or -1.
    int functionAround(int i) const
    {
        int function = -1;
        for (int above = m_parents[i]; above >= 0; above = m_parents[above])
            function = isFunction(above) ? above : function;
        return function;
    }

    int depthBelow(int i, int ancestor) const
    {
        for (int depth = 0; i >= 0; i = m_parents[i], ++depth) {
            if (i == ancestor)
                return depth;
        }
        return -1;
    }

    // All of them while they are few, else by rank and, where ranks are equal, nearest first.
    void choose(int mostUnits)
    {
        int units = 0;
        for (int i = 0; i < int(m_statements.size()) && units <= mostUnits; ++i)
            units += length(i);
        if (units <= mostUnits)
            m_isKept.assign(m_statements.size(), true);
        else
            chooseByRank(mostUnits);
        for (int i = 0; i < int(m_statements.size()); ++i) {
            const bool isHidden = m_parents[i] >= 0 && !m_isKept[m_parents[i]];
            m_isKept[i] = m_isKept[i] && !isHidden && !isForeignBody(m_parents[i]);
        }
    }

    void chooseByRank(int mostUnits)
    {
        const std::vector<int> ranks = allRanks();
        std::vector<int> order;
        int imports = 0;
        for (int i = 0; i < int(m_statements.size()); ++i) {
            imports += ranks[i] == Import ? 1 : 0;
            if (ranks[i] != Other && (ranks[i] != Import || imports <= mostImports))
                order.push_back(i);
        }
        // No more of them than there is room for need to be in order.
        const int most = std::min(int(order.size()), mostUnits / statementUnits);
        const int caret = m_context.current;
        std::partial_sort(
            order.begin(), order.begin() + most, order.end(), [&ranks, caret](int a, int b) {
                return ranks[a] != ranks[b] ? ranks[a] < ranks[b]
                                            : std::abs(a - caret) < std::abs(b - caret);
            });
        order.resize(most);
        int left = mostUnits;
        for (int i : order)
            keep(i, &left);
    }

    // With the headers that it lies under.
    void keep(int statement, int *unitsLeft)
    {
        int units = 0;
        for (int i = statement; i >= 0 && !m_isKept[i]; i = m_parents[i])
            units += i == m_context.current ? 0 : length(i);
        if (units > *unitsLeft)
            return;
        *unitsLeft -= units;
        for (int i = statement; i >= 0 && !m_isKept[i]; i = m_parents[i])
            m_isKept[i] = true;
    }

    std::vector<int> allRanks() const
    {
        const int function = functionAround(m_context.current);
        const int ownClass = m_context.enclosingClass();
        std::vector<int> ranks;
        ranks.reserve(m_statements.size());
        for (int i = 0; i < int(m_statements.size()); ++i)
            ranks.push_back(i == m_context.current ? AtCaret : rank(i, function, ownClass));
        return ranks;
    }

    Rank rank(int i, int function, int ownClass) const
    {
        const int level = depth(i);
        if (level == 0 && isImport(i))
            return Import;
        if (function >= 0 && i > function && depthBelow(i, function) > 0)
            return Near;
        const QString assigned = assignedName(m_context.text, m_statements[i]);
        const bool declares = !assigned.isEmpty() || isClass(i) || isFunction(i);
        if (level == 0)
            return declares || m_statements[i].opensBlock ? Declaration : Other;
        const bool isOfObject =
            assigned.startsWith(Word("self.")) || assigned.startsWith(Word("cls."));
        if (isOfObject || (declares && level == 1 && isClass(m_parents[i])))
            return ownClass >= 0 && depthBelow(i, ownClass) > 0 ? Declaration : Member;
        return Other;
    }

    // The body of a function inside one, without the caret: its names are out of reach.
    bool isForeignBody(int header) const
    {
        return header >= 0 && isFunction(header) && functionAround(header) >= 0 &&
               depthBelow(m_context.current, header) < 0;
    }

    void appendAll(int begin, int end)
    {
        for (int i = begin; i < end; ++i) {
            if (i == m_context.current)
                appendCaret();
            else if (m_isKept[i])
                append(depth(i), lineOf(i));
        }
    }

    // Indented anew, since blocks that do not fit together would not parse: a line lies below the
    // last one only if that opens a block.
    void append(int depth, const QString &line)
    {
        if (line.isEmpty())
            return;
        const bool isInBlock = m_opensBlock && depth > m_depth;
        if (m_opensBlock && !isInBlock)
            m_source += Word(" pass");
        m_depth = std::min(depth, m_depth + (isInBlock ? 1 : 0));
        m_opensBlock = line.endsWith(QLatin1Char(':'));
        m_source += QLatin1Char('\n') + QString(m_depth, QLatin1Char(' ')) + line;
    }

    QString lineOf(int i) const
    {
        const PythonStatement &statement = m_statements[i];
        const QString first = word(i);
        if (isFunction(i) || isClass(i))
            return definition(i);
        if (statement.isBroken || isPython2Output(text(i)))
            return QString();
        if (clauses().contains(first))
            return clause(i, first);
        const bool isDecorator = m_context.text.at(statement.start) == QLatin1Char('@');
        return isDecorator && functionAround(i) >= 0 ? QString() : text(i);
    }

    QString text(int i) const
    {
        const QString whole = m_context.text.mid(m_statements[i].start,
                                                 m_statements[i].codeEnd - m_statements[i].start);
        return m_statements[i].keyword == PythonKeyword::From
                   ? absoluteImport(whole, m_context.package)
                   : whole;
    }

    QString emptyClass(int i) const
    {
        return Word("class ") + definedName(m_context.text, m_statements[i]) + Word(": pass");
    }

    QString definition(int i) const
    {
        const PythonStatement &statement = m_statements[i];
        const QString name = definedName(m_context.text, statement);
        if (name.isEmpty())
            return QString();
        const QStringList arguments = argumentNames(m_context.text, statement);
        // The script does not look into functions inside functions; as a loop they bind the same
        // names, those of the arguments where the caret is in reach of them.
        if (isFunction(i) && (functionAround(i) >= 0 || m_isAroundMoved[i])) {
            const bool isInReach = depthBelow(m_context.current, i) >= 0 || m_isAroundMoved[i];
            const QStringList bound = isInReach ? arguments : QStringList();
            return Word("for ") + (QStringList() << bound << name).join(Word(", ")) +
                   Word(" in ():");
        }
        const bool isWhole = headerEnd(m_context.text, statement) < statement.codeEnd;
        if (isWhole && !statement.isBroken)
            return text(i);
        return isFunction(i) ? Word("def ") + name + QLatin1Char('(') + arguments.join(Word(", ")) +
                                   Word("):")
                             : Word("class ") + name + QLatin1Char(':');
    }

    static QStringList clauses()
    {
        return QStringList() << Word("try") << Word("except") << Word("finally") << Word("else")
                             << Word("elif");
    }

    // What only parses together with other clauses, of which one may be missing yet.
    QString clause(int i, const QString &first) const
    {
        const int colon = headerEnd(m_context.text, m_statements[i]) - m_statements[i].start;
        const QString line = text(i);
        const int as = int(line.left(colon).indexOf(Word(" as ")));
        const QString caught = line.mid(first.size(), as - first.size());
        if (first == Word("except") && as > 0) // of several classes nobody knows which one it was
            return Word("with") + caught +
                   (caught.contains(QLatin1Char(',')) ? Word("") : Word("()")) + line.mid(as);
        return Word("if 1") + (colon < line.size() ? line.mid(colon) : QString(Word(":")));
    }

    // The locator, below what is finished before it on the same line: "import a; a.|".
    void appendCaret()
    {
        const int current = m_context.current;
        const PythonStatement &statement = m_statements[current];
        const bool isDefinition = isFunction(current) || isClass(current);
        const int colon = headerEnd(m_context.text, statement);
        const bool isInBody = colon < statement.codeEnd && m_context.position > colon;
        if (isDefinition && !isInBody) {
            append(depth(current), functionAround(current) >= 0 ? Word(locator) : unfinished());
            return;
        }
        if (isDefinition && functionAround(current) < 0)
            append(depth(current), text(current).left(colon + 1 - statement.start));
        else if (isFunction(current)) // the script would not look into a class there
            append(depth(current), definition(current));
        const int innerDepth = depth(current) + (isDefinition ? 1 : 0);
        m_caretLines = linesAtCaret(isDefinition ? colon + 1 : statement.start);
        for (const QString &line : m_caretLines)
            append(innerDepth, line);
        append(innerDepth, Word(locator));
    }

    // A definition whose header has the caret.
    QString unfinished() const
    {
        const PythonStatement &statement = m_statements[m_context.current];
        const bool isMethod = isFunction(m_context.current);
        const int opener = int(m_context.text.indexOf(QLatin1Char('('), statement.start));
        const bool isNamed = opener >= 0 && opener < m_context.position;
        if (isNamed)
            return (isMethod ? Word("def ") : Word("class ")) +
                   definedName(m_context.text, statement) + QLatin1Char('(') + Word(locator) +
                   Word("):");
        return isMethod ? Word("def __kedefloc__(self): ") + Word(locator) : Word(locator);
    }

    // if a: import b; f(c for c in |
    // -----             a loop over c; the import as it is
    QStringList linesAtCaret(int start) const
    {
        QString before = pythonCode(m_context.text, start, m_context.position).text;
        while (!before.isEmpty() && isPythonName(before.at(before.size() - 1)))
            before.chop(1);
        QStringList lines;
        if (before.size() < mostUnitsAtCaret) {
            const QString header = blockHeader(before);
            lines = codeParts(before.mid(header.size()), QLatin1Char(';'));
            before = header + lines.takeLast();
        }
        const QString bound =
            before.right(mostUnitsAtCaret) + QLatin1Char(' ') + restOfStatement(start);
        const QStringList names = pythonBindings(bound);
        for (QString &line : lines)
            line = isPython2Output(line.trimmed())
                       ? QString()
                       : absoluteImport(line.trimmed(), m_context.package);
        if (!names.isEmpty())
            lines << Word("for ") + names.join(Word(", ")) + Word(" in (): pass");
        return lines;
    }

    // Of the statement what stands behind the caret, and all of an expression in a string that the
    // caret is in.
    QString restOfStatement(int start) const
    {
        const QString &text = m_context.text;
        int caret = m_context.position;
        while (caret < text.size() && isPythonName(text.at(caret)))
            ++caret;
        const int end = qMax(caret, m_statements[m_context.current].codeEnd);
        const PythonField field = pythonField(text, start, m_context.position);
        const QString inside = field.start < 0 ? QString()
                                               : pythonCode(text, field.start, caret).text +
                                                     pythonCode(text, caret, field.end).text;
        const int behind = field.start < 0 ? caret : field.stringEnd;
        return inside + QLatin1Char(' ') +
               pythonCode(text, behind, end).text.left(mostUnitsAtCaret);
    }

    // "if a:" of "if a: b = 1"; empty where no block begins.
    QString blockHeader(const QString &code) const
    {
        const QStringList words = clauses() << Word("if") << Word("for") << Word("while")
                                            << Word("with") << Word("async");
        const QStringList parts = codeParts(code, QLatin1Char(':'));
        const bool isBlock = parts.size() > 1 && words.contains(word(m_context.current));
        return isBlock ? parts[0] + QLatin1Char(':') : QString();
    }

    // The script passes over what functions import; at the margin it finds that.
    void appendLocalImports()
    {
        std::vector<bool> isAround(m_statements.size(), false);
        for (int i = m_parents[m_context.current]; i >= 0; i = m_parents[i])
            isAround[i] = isFunction(i);
        int imports = 0;
        for (int i = 0; i < int(m_statements.size()) && imports < mostImports; ++i) {
            const bool isElsewhere = m_parents[i] >= 0 && i != m_context.current;
            const QString line = isElsewhere ? importIn(i) : QString();
            const int owner = line.isEmpty() ? -1 : scope(i);
            if (owner < 0 || !isAround[owner] || m_statements[i].isBroken ||
                length(i) > mostUnitsAtCaret)
                continue;
            ++imports;
            append(0, line);
        }
        const bool isInFunction =
            functionAround(m_context.current) >= 0 || isFunction(m_context.current);
        for (const QString &line : m_caretLines) {
            if (isInFunction &&
                (line.startsWith(Word("import ")) || line.startsWith(Word("from "))))
                append(0, line);
        }
    }

    // An import, also "import a" of "try: import a"; else empty.
    QString importIn(int i) const
    {
        const PythonStatement &statement = m_statements[i];
        const QChar first = m_context.text.at(statement.start);
        const bool mayBeClause = first == QLatin1Char('t') || first == QLatin1Char('e');
        if (isImport(i) || !mayBeClause || statement.opensBlock || !clauses().contains(word(i)))
            return isImport(i) ? text(i) : QString();
        const int body = headerEnd(m_context.text, statement) + 1;
        const QString code = m_context.text.mid(body, statement.codeEnd - body).trimmed();
        return code.startsWith(Word("import ")) || code.startsWith(Word("from "))
                   ? absoluteImport(code, m_context.package)
                   : QString();
    }

    const PythonContext &m_context;
    const std::vector<PythonStatement> &m_statements;
    std::vector<int> m_parents; // the header above; -1 at the margin
    std::vector<bool> m_isKept;
    std::vector<bool> m_isAroundMoved;
    int m_movedStart = 0; // a class with what is in it
    int m_movedEnd = 0;
    QStringList m_caretLines; // of what stands on the caret's line
    QString m_source;
    int m_depth = 0; // of the last line
    bool m_opensBlock = false;
};

} // namespace

QString pythonExcerpt(const PythonContext &context, int mostUnits)
{
    return Excerpt(context).take(mostUnits);
}
