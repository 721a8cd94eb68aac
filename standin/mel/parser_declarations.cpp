// SPDX-License-Identifier: MIT
#include "standin/mel/parser.h"

#include "standin/mel/statements.h"

#include <algorithm>

namespace mel {

namespace {

// Elements, which are allocated while compiling: 8 MB.
constexpr int largestMatrix = 1000 * 1000;

// What a declaration may ask for at once; assigning elements can make an array larger.
constexpr int largestDeclaredSize = 1000 * 1000;

Value arrayOfSize(Type array, int size)
{
    if (size > largestDeclaredSize)
        throw CompileError("Array is too large.");
    Value value = defaultValue(array);
    std::visit(
        [size](auto &held) {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, IntArray> || std::is_same_v<Held, FloatArray> ||
                          std::is_same_v<Held, StringArray> || std::is_same_v<Held, VectorArray>)
                held.edit().resize(size_t(size));
        },
        value);
    return value;
}

} // namespace

//   declaration = "global"? type declarator ("," declarator)* ";"
StatementPointer Parser::declaration(int line)
{
    const bool isGlobal = acceptWord("global");
    const Type type = token().kind == TokenKind::Identifier ? typeWord(token().text) : Type::Void;
    if (type == Type::Void)
        failSyntax();
    next();
    ExpressionList actions;
    do {
        if (ExpressionPointer action = declarator(type, isGlobal))
            actions.push_back(std::move(action));
    } while (accept(','));
    endStatement();
    return statements::declaration(std::move(actions), line);
}

// One name with its own brackets and initialiser.
//   declarator = variable ("[" int? "]" | "[" int "]" "[" int "]")? ("=" expression)?
// The name is known from here on, its own initialiser included.
ExpressionPointer Parser::declarator(Type type, bool isGlobal)
{
    if (token().kind != TokenKind::Variable)
        failSyntax();
    Builder::Declaration declaration;
    declaration.name = token().text;
    declaration.isGlobal = isGlobal;
    declaration.line = token().startLine;
    next();
    declaration.initial = defaultValue(type);
    declaration.type = declaratorBrackets(type, declaration.initial);
    const Builder::Declared declared = m_builder.declare(declaration);
    return m_builder.initialise(declaration, declared, accept('=') ? expression() : nullptr);
}

// The brackets after a declared name: those of an array, or the two sizes of a matrix.
Type Parser::declaratorBrackets(Type type, Value &initial)
{
    if (type == Type::Matrix) {
        const int rows = constantSize();
        const int columns = constantSize();
        if (std::int64_t(rows) * columns > largestMatrix)
            throw CompileError("Matrix is too large.");
        initial = Matrix{rows, columns, std::vector<double>(size_t(rows) * size_t(columns))};
        return type;
    }
    if (!accept('['))
        return type;
    const Type array = arrayOf(type);
    if (array == Type::Void)
        failSyntax();
    int size = 0;
    if (token().kind == TokenKind::Int) {
        size = std::max(0, token().number);
        next();
    }
    expect(']');
    // Deliberate: an array declared with a size starts with that many elements, and may still grow.
    initial = arrayOfSize(array, size);
    return array;
}

//   "[" int "]", both sizes of a matrix being part of its type
int Parser::constantSize()
{
    expect('[');
    if (token().kind != TokenKind::Int || token().number < 1)
        failSyntax();
    const int size = token().number;
    next();
    expect(']');
    return size;
}

// A procedure is known from its head on, so that its body can call it.
//   procedure = "global"? "proc" type? name "(" parameters ")" "{" statement* "}"
void Parser::procedure(bool isGlobal)
{
    next();
    if (m_builder.inProcedure() || !m_builder.atTopLevel())
        failSyntax();
    const Type returnType = returnTypeOfProcedure();
    if (token().kind != TokenKind::Identifier || isKeyword(token().text))
        failSyntax();
    const std::string name = token().text;
    next();
    expect('(');
    const std::vector<Parameter> names = parameters();
    expect(')');
    if (!token().is('{'))
        failSyntax();
    m_builder.beginProcedure(name, isGlobal, returnType, names);
    next();
    StatementList body;
    while (!token().is('}')) {
        if (token().kind == TokenKind::End)
            failSyntax();
        if (StatementPointer read = nestedStatement())
            body.push_back(std::move(read));
    }
    // Before the brace is passed, as the error is placed at it.
    m_builder.checkReturns();
    m_builder.endProcedure(std::move(body));
    next();
}

// The brackets follow the type here, and only here.
Type Parser::returnTypeOfProcedure()
{
    const Type type = token().kind == TokenKind::Identifier ? typeWord(token().text) : Type::Void;
    if (type == Type::Void)
        return type;
    next();
    if (!accept('['))
        return type;
    expect(']');
    if (arrayOf(type) == Type::Void)
        failSyntax();
    return arrayOf(type);
}

//   parameters = (type variable "[]"? ("," type variable "[]"?)*)?
std::vector<Parameter> Parser::parameters()
{
    std::vector<Parameter> list;
    if (token().is(')'))
        return list;
    do {
        Type type = token().kind == TokenKind::Identifier ? typeWord(token().text) : Type::Void;
        if (type == Type::Void)
            failSyntax();
        next();
        if (token().kind != TokenKind::Variable)
            failSyntax();
        const Token &name = token();
        next();
        if (accept('[')) {
            expect(']');
            type = arrayOf(type);
            if (type == Type::Void)
                failSyntax();
        }
        list.push_back({name.text, type, name.startLine});
    } while (accept(','));
    return list;
}

} // namespace mel
