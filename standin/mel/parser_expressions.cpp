// SPDX-License-Identifier: MIT
#include "standin/mel/parser.h"

#include "standin/mel/parserlevel.h"
#include "standin/mel/sourcenode.h"

namespace mel {

namespace {

struct OperatorRow
{
    int level; // binding loosest first
    int symbol;
    Operator op;
};

// && and || are no operators on values, as they may leave out their right side.
const OperatorRow operatorRows[] = {
    {2, symbol::Equal, Operator::Equal},
    {2, symbol::NotEqual, Operator::NotEqual},
    {3, '<', Operator::Less},
    {3, symbol::LessEqual, Operator::LessEqual},
    {3, '>', Operator::Greater},
    {3, symbol::GreaterEqual, Operator::GreaterEqual},
    {4, '+', Operator::Add},
    {4, '-', Operator::Subtract},
    {5, '*', Operator::Multiply},
    {5, '/', Operator::Divide},
    {5, '%', Operator::Remainder},
    {5, '^', Operator::Cross},
};
constexpr int orLevel = 0;
constexpr int andLevel = 1;
constexpr int unaryLevel = 6;

const OperatorRow *findOperator(const Token &token, int level)
{
    for (const OperatorRow &row : operatorRows) {
        if (row.level == level && token.is(row.symbol))
            return &row;
    }
    return nullptr;
}

std::optional<Operator> compoundOperator(const Token &token)
{
    const std::pair<int, Operator> operators[] = {
        {symbol::AddAssign, Operator::Add},
        {symbol::SubtractAssign, Operator::Subtract},
        {symbol::MultiplyAssign, Operator::Multiply},
        {symbol::DivideAssign, Operator::Divide},
        {symbol::RemainderAssign, Operator::Remainder},
        {symbol::CrossAssign, Operator::Cross},
    };
    for (const auto &entry : operators) {
        if (token.is(entry.first))
            return entry.second;
    }
    return std::nullopt;
}

} // namespace

//   expression = conditional (("=" | "+=" | ...) expression)?
ExpressionPointer Parser::expression()
{
    const Level level(*this);
    return assignment(conditional());
}

// Right associative: the value of an assignment may be assigned again.
// The left side has been read as an expression; only here does it turn out to be a target.
ExpressionPointer Parser::assignment(ExpressionPointer left)
{
    const std::optional<Operator> compound = compoundOperator(token());
    if (!compound && !token().is('='))
        return left;
    std::unique_ptr<Target> target = asTarget(std::move(left));
    next();
    ExpressionPointer value = expression();
    return compound ? m_builder.compoundAssign(*compound, std::move(target), std::move(value))
                    : m_builder.assign(std::move(target), std::move(value));
}

std::unique_ptr<Target> Parser::asTarget(ExpressionPointer expression) const
{
    Target *target = dynamic_cast<Target *>(expression.get());
    if (!target)
        failSyntax();
    (void)expression.release(); // the target is the same object
    return std::unique_ptr<Target>(target);
}

//   conditional = or ("?" conditional ":" conditional)?
// Right associative, so that a ? b : c ? d : e has the second choice as its last operand.
ExpressionPointer Parser::conditional()
{
    ExpressionPointer condition = binary(orLevel);
    if (!token().is('?'))
        return condition;
    const Level level(*this);
    condition = m_builder.condition(std::move(condition));
    next();
    ExpressionPointer yes = conditional();
    expect(':');
    ExpressionPointer no = conditional();
    return m_builder.conditional(std::move(condition), std::move(yes), std::move(no));
}

// Left associative operators of one level and, inside, of all that bind tighter.
//   or: ||   and: &&   equality: == !=   order: < <= > >=   sum: + -   product: * / % ^
// The cross product ^ binds like a product; it is no power.
ExpressionPointer Parser::binary(int level)
{
    if (level == unaryLevel)
        return unary();
    ExpressionPointer left = binary(level + 1);
    while (true) {
        const bool isAnd = level == andLevel && token().is(symbol::And);
        const bool isOr = level == orLevel && token().is(symbol::Or);
        const OperatorRow *row = findOperator(token(), level);
        if (!isAnd && !isOr && !row)
            return left;
        // Here, not after the right side, so that an error is placed at the operator.
        if (isAnd || isOr)
            left = m_builder.condition(std::move(left));
        next();
        ExpressionPointer right = binary(level + 1);
        left = row ? m_builder.binary(row->op, std::move(left), std::move(right))
                   : m_builder.logical(isAnd, std::move(left), std::move(right));
    }
}

//   unary = ("!" | "-" | "+" | "++" | "--" | "(" type ")") unary | postfix
ExpressionPointer Parser::unary()
{
    const Level level(*this);
    if (accept('!'))
        return nodes::logicalNot(m_builder.condition(unary()));
    if (accept('-'))
        return m_builder.negate(unary());
    if (accept('+'))
        return unary();
    for (const auto &step :
         {std::make_pair(int(symbol::Increment), 1), std::make_pair(int(symbol::Decrement), -1)}) {
        if (accept(step.first))
            return m_builder.increment(asTarget(unary()), step.second, true);
    }
    // A type between parentheses is a cast: nothing else may stand there.
    const Type type =
        token().is('(') && tokenAfter(2).is(')') ? typeWord(tokenAfter().text) : Type::Void;
    if (type == Type::Void)
        return postfix();
    next();
    next();
    next();
    return m_builder.convert(unary(), type);
}

//   postfix = primary ("++" | "--")?
ExpressionPointer Parser::postfix()
{
    ExpressionPointer operand = primary();
    for (const auto &step :
         {std::make_pair(int(symbol::Increment), 1), std::make_pair(int(symbol::Decrement), -1)}) {
        if (accept(step.first))
            return m_builder.increment(asTarget(std::move(operand)), step.second, false);
    }
    return operand;
}

ExpressionPointer Parser::literal(Value value)
{
    next();
    return nodes::constant(std::move(value));
}

//   primary = number | string | variable | word | captured | vector | array | "(" expression ")"
ExpressionPointer Parser::primary()
{
    switch (token().kind) {
    case TokenKind::Int:
        return literal(token().number);
    case TokenKind::Float:
        return literal(token().real);
    case TokenKind::String:
        return literal(token().text);
    case TokenKind::Variable:
        return component(variable());
    case TokenKind::Identifier:
        return wordExpression();
    default:
        break;
    }
    if (token().is('`'))
        return capturedCommand();
    if (token().is(symbol::VectorOpen))
        return vectorOrMatrix();
    if (token().is('{'))
        return arrayLiteral();
    // Parentheses hide the backtick around them, so that a capture inside may open a nested one.
    expect('(');
    const bool outer = std::exchange(m_inBacktick, false);
    ExpressionPointer inner = expression();
    m_inBacktick = outer;
    expect(')');
    return component(std::move(inner));
}

// What may start with a word: booleans, casts, catch and function calls.
ExpressionPointer Parser::wordExpression()
{
    const std::string word = token().text;
    const int boolean = booleanWord(word);
    if (boolean >= 0)
        return literal(boolean);
    const Type type = typeWord(word);
    if (type != Type::Void && tokenAfter().is('(')) {
        next();
        return cast(type);
    }
    if (word == "catch" || word == "catchQuiet") {
        next();
        return catching(word == "catchQuiet");
    }
    if (isKeyword(word))
        failSyntax();
    return functionCall();
}

// int(7.5), the second spelling of a cast.
//   cast = type "(" expression ")"
ExpressionPointer Parser::cast(Type type)
{
    expect('(');
    ExpressionPointer operand = expression();
    expect(')');
    return m_builder.convert(std::move(operand), type);
}

// catch(...) around an expression, or around a captured command.
// Its operand runs only when the node is evaluated, which is why catch cannot be a mere command.
ExpressionPointer Parser::catching(bool quiet)
{
    if (token().is('`'))
        return nodes::catching(capturedCommand(), quiet);
    expect('(');
    const bool outer = std::exchange(m_inBacktick, false);
    ExpressionPointer operand = expression();
    m_inBacktick = outer;
    expect(')');
    return nodes::catching(std::move(operand), quiet);
}

//   call = name "(" (expression ("," expression)*)? ")"
ExpressionPointer Parser::functionCall()
{
    const std::string name = token().text;
    const int line = token().startLine;
    next();
    if (!token().is('('))
        failSyntax();
    if (name == "source") {
        next();
        const std::string file = sourcedFile();
        expect(')');
        return nodes::sourceFile(m_runtime, file, {m_source, line});
    }
    next();
    const bool outer = std::exchange(m_inBacktick, false);
    ExpressionList arguments = expressionList(')');
    m_inBacktick = outer;
    expect(')');
    return m_builder.call(name, std::move(arguments), line);
}

// The comma-separated expressions before `end`, which is not consumed.
ExpressionList Parser::expressionList(int end)
{
    ExpressionList list;
    if (token().is(end))
        return list;
    do {
        list.push_back(expression());
    } while (accept(','));
    return list;
}

//   index = "[" expression "]"
ExpressionPointer Parser::index()
{
    expect('[');
    const bool outer = std::exchange(m_inBacktick, false);
    ExpressionPointer index = expression();
    m_inBacktick = outer;
    expect(']');
    return index;
}

ExpressionPointer Parser::variable()
{
    const std::string name = token().text;
    const int line = token().startLine;
    next();
    if (!m_builder.find(name))
        return newVariable(name, line);
    if (token().is('['))
        return indexed(name);
    return m_builder.variable(name);
}

// A second index makes it an element of a matrix; arrays have one dimension.
ExpressionPointer Parser::indexed(const std::string &name)
{
    ExpressionPointer row = index();
    if (!token().is('['))
        return m_builder.element(name, std::move(row));
    return m_builder.matrixElement(name, std::move(row), index());
}

// Assigning to a name that is not known yet declares it.
//   $x = 1;   $list[2] = "a";
ExpressionPointer Parser::newVariable(const std::string &name, int line)
{
    ExpressionPointer position = token().is('[') ? index() : nullptr;
    if (!token().is('='))
        throw CompileError("\"" + name + "\" is an undeclared variable.");
    next();
    ExpressionPointer value = expression();
    return m_builder.assignNew(name, std::move(position), std::move(value), line);
}

// $v.x: no blank may stand before the dot.
// Deliberate: also after an element and after parentheses, where it does no harm.
ExpressionPointer Parser::component(ExpressionPointer operand)
{
    const Token &axis = tokenAfter();
    const bool named = axis.isWord("x") || axis.isWord("y") || axis.isWord("z");
    if (!token().is('.') || !adjacent() || !named)
        return operand;
    const char letter = axis.text[0];
    next();
    next();
    return m_builder.component(std::move(operand), letter);
}

//   vector = "<<" expressions (";" expressions)* ">>"
ExpressionPointer Parser::vectorOrMatrix()
{
    expect(symbol::VectorOpen);
    std::vector<ExpressionList> rows;
    do {
        rows.push_back(expressionList(symbol::VectorClose));
        if (rows.back().empty())
            failSyntax();
    } while (accept(';'));
    expect(symbol::VectorClose);
    return m_builder.vectorOrMatrix(std::move(rows));
}

//   array = "{" expressions? "}"
ExpressionPointer Parser::arrayLiteral()
{
    expect('{');
    ExpressionList elements = expressionList('}');
    expect('}');
    return m_builder.arrayLiteral(std::move(elements));
}

} // namespace mel
