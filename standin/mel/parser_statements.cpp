// SPDX-License-Identifier: MIT
#include "standin/mel/parser.h"

#include "standin/mel/parserlevel.h"
#include "standin/mel/statements.h"

namespace mel {

//   statement = ";" | block | procedure | declaration | control | (command | expression) ";"
// Null for what leaves nothing to run: a lone semicolon and a definition.
StatementPointer Parser::statement()
{
    const Level level(*this);
    const int line = token().startLine;
    if (accept(';'))
        return nullptr;
    if (token().is('{'))
        return block(line);
    if (startsProcedure()) {
        procedure(acceptWord("global"));
        return nullptr;
    }
    if (startsDeclaration())
        return declaration(line);
    if (token().kind == TokenKind::Identifier && isKeyword(token().text))
        return statementOf(token().text, line);
    return simpleStatement(line);
}

StatementPointer Parser::statementOf(const std::string &keyword, int line)
{
    using Rule = StatementPointer (Parser::*)(int);
    static const std::pair<const char *, Rule> rules[] = {
        {"if", &Parser::ifStatement},         {"while", &Parser::whileStatement},
        {"do", &Parser::doStatement},         {"for", &Parser::forStatement},
        {"switch", &Parser::switchStatement}, {"return", &Parser::returnStatement},
    };
    for (const auto &rule : rules) {
        if (keyword == rule.first) {
            next();
            return (this->*rule.second)(line);
        }
    }
    if (keyword == "break" || keyword == "continue")
        return jump(std::string(keyword), line);
    return simpleStatement(line);
}

// Procedures are defined at the top level only.
bool Parser::startsProcedure() const
{
    return token().isWord("proc") || (token().isWord("global") && tokenAfter().isWord("proc"));
}

bool Parser::startsDeclaration() const
{
    if (token().isWord("global"))
        return true;
    // A type before a parenthesis is a cast.
    return token().kind == TokenKind::Identifier && typeWord(token().text) != Type::Void &&
           !tokenAfter().is('(');
}

// Braces open a scope: what is declared inside ends with them.
//   block = "{" statement* "}"
StatementPointer Parser::block(int line)
{
    expect('{');
    m_builder.openScope();
    StatementList statements;
    while (!token().is('}')) {
        if (token().kind == TokenKind::End)
            failSyntax();
        if (StatementPointer read = statement())
            statements.push_back(std::move(read));
    }
    m_builder.closeScope();
    next();
    return statements::block(std::move(statements), line);
}

// A loop's or branch's body: a lone ";" gives null.
StatementPointer Parser::nestedStatement()
{
    if (startsProcedure())
        failSyntax();
    return statement();
}

ExpressionPointer Parser::parenthesisedCondition()
{
    expect('(');
    ExpressionPointer condition = m_builder.condition(expression());
    expect(')');
    return condition;
}

// A chain of else-ifs is one statement, however long it is.
//   if = "if" "(" expression ")" statement ("else" statement)?
// An else belongs to the nearest if. Held flat, a long chain costs neither nesting nor stack.
StatementPointer Parser::ifStatement(int line)
{
    std::vector<statements::Branch> branches;
    do {
        ExpressionPointer condition = parenthesisedCondition();
        StatementPointer body = nestedStatement();
        branches.push_back({std::move(condition), std::move(body)});
        if (!acceptWord("else"))
            return statements::branches(std::move(branches), line);
    } while (acceptWord("if"));
    branches.push_back({nullptr, nestedStatement()});
    return statements::branches(std::move(branches), line);
}

// Counts the loops around a statement, which break and continue need.
// Definitions inside a loop are refused, so the counts never leak into a procedure.
StatementPointer Parser::loopBody()
{
    ++m_loops;
    ++m_breakable;
    StatementPointer body = nestedStatement();
    --m_loops;
    --m_breakable;
    return body;
}

//   while = "while" "(" expression ")" statement
StatementPointer Parser::whileStatement(int line)
{
    statements::Loop loop;
    loop.condition = parenthesisedCondition();
    loop.body = loopBody();
    return statements::loop(std::move(loop), line);
}

//   do = "do" statement "while" "(" expression ")" ";"
StatementPointer Parser::doStatement(int line)
{
    StatementPointer body = loopBody();
    if (!acceptWord("while"))
        failSyntax();
    ExpressionPointer condition = parenthesisedCondition();
    endStatement();
    return statements::doLoop(std::move(body), std::move(condition), line);
}

//   for = "for" "(" (declaration | expressions? ";") expression? ";" expressions? ")" statement
// Deliberate: what the head declares belongs to the scope around the loop and outlives it.
StatementPointer Parser::forStatement(int line)
{
    expect('(');
    const size_t name = typeWord(token().text) == Type::Void ? 0 : 1;
    if (tokenAfter(name).kind == TokenKind::Variable && tokenAfter(name + 1).isWord("in"))
        return forInStatement(line);
    statements::Loop loop;
    if (startsDeclaration())
        loop.start = declaration(line);
    else if (!accept(';')) {
        loop.start = statements::declaration(expressionList(';'), line);
        expect(';');
    }
    if (!token().is(';'))
        loop.condition = m_builder.condition(expression());
    expect(';');
    loop.steps = expressionList(')');
    expect(')');
    loop.body = loopBody();
    return statements::loop(std::move(loop), line);
}

//   for-in = "for" "(" type? variable "in" expression ")" statement
StatementPointer Parser::forInStatement(int line)
{
    const Type wanted = typeWord(token().text);
    if (wanted != Type::Void)
        next();
    const std::string name = token().text;
    next();
    next();
    ExpressionPointer array = expression();
    const Type element = array->type() == Type::Dynamic ? Type::Dynamic : elementOf(array->type());
    if (element == Type::Void)
        failCast(array->type(), Type::Strings);
    const Symbol variable = loopVariable(name, wanted, element, line);
    expect(')');
    StatementPointer body = loopBody();
    return statements::forIn(variable.storage, variable.type, std::move(array), std::move(body),
                             line);
}

// The variable of a for-in loop: the one declared in its head, else a known one that can take the
// elements, else a new one.
// An implicit one takes the element's type; the elements convert where a known one has another.
Symbol Parser::loopVariable(const std::string &name, Type wanted, Type element, int line)
{
    const std::optional<Symbol> known = wanted == Type::Void ? m_builder.find(name) : std::nullopt;
    if (known && canConvert(element, known->type))
        return *known;
    const Type type = wanted == Type::Void ? element : wanted;
    if (!canConvert(element, type))
        failCast(element, type);
    return m_builder.declare({name, type, false, defaultValue(type), line}).symbol;
}

//   switch = "switch" "(" expression ")" "{" (("case" expression | "default") ":" statement*)* "}"
StatementPointer Parser::switchStatement(int line)
{
    expect('(');
    ExpressionPointer value = expression();
    expect(')');
    expect('{');
    m_builder.openScope();
    ++m_breakable;
    std::vector<statements::Case> cases;
    while (!token().is('}')) {
        statements::Case next;
        if (acceptWord("case"))
            next.label = caseLabel(*value);
        else if (!acceptWord("default"))
            failSyntax();
        expect(':');
        next.body = caseBody();
        cases.push_back(std::move(next));
    }
    --m_breakable;
    m_builder.closeScope();
    next();
    return statements::choice(std::move(value), std::move(cases), line);
}

// Labels are expressions like any other, variables included.
ExpressionPointer Parser::caseLabel(const Expression &value)
{
    ExpressionPointer label = expression();
    const Type type = resultType(Operator::Equal, value.type(), label->type());
    if (type == Type::Void)
        throw CompileError(illegalOperation(Operator::Equal, value.type(), label->type()));
    return label;
}

// Up to the next label or the end of the switch.
StatementList Parser::caseBody()
{
    StatementList body;
    while (!token().is('}') && !token().isWord("case") && !token().isWord("default")) {
        if (token().kind == TokenKind::End)
            failSyntax();
        if (StatementPointer read = nestedStatement())
            body.push_back(std::move(read));
    }
    return body;
}

//   jump = ("break" | "continue") ";"    break also leaves a switch, continue does not
StatementPointer Parser::jump(const std::string &keyword, int line)
{
    const bool leaves = keyword == "break";
    next();
    if ((leaves ? m_breakable : m_loops) == 0)
        throw CompileError("\"" + keyword + "\" must be inside a loop" +
                           (leaves ? " or switch." : "."));
    endStatement();
    return statements::jump(leaves ? Flow::Break : Flow::Continue, line);
}

//   return = "return" expression? ";"    a value only where a type was declared
StatementPointer Parser::returnStatement(int line)
{
    const bool hasValue = !token().is(';') && token().kind != TokenKind::End;
    ExpressionPointer value = m_builder.returned(hasValue ? expression() : nullptr);
    endStatement();
    return statements::returned(std::move(value), line);
}

// A name may start a command line; anything else can only be an expression.
StatementPointer Parser::simpleStatement(int line)
{
    const bool word = token().kind == TokenKind::Identifier && !isKeyword(token().text);
    ExpressionPointer value = word ? commandOrCall() : expression();
    endStatement();
    return statements::expression(std::move(value), line);
}

// The last statement of a text may do without its semicolon.
// Before a closing brace it is required all the same.
void Parser::endStatement()
{
    if (token().kind != TokenKind::End)
        expect(';');
}

} // namespace mel
