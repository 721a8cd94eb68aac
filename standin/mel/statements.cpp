// SPDX-License-Identifier: MIT
#include "standin/mel/statements.h"

#include "standin/mel/runtime.h"

namespace mel {

// The place first: the step may throw, and names it then.
void Statement::step(Frame &frame) const
{
    frame.line = m_line;
    frame.runtime.step();
}

Flow Statement::execute(Frame &frame) const
{
    step(frame);
    return run(frame);
}

Value Statement::evaluate(Frame &frame) const
{
    step(frame);
    return value(frame);
}

Value Statement::value(Frame &frame) const
{
    run(frame);
    return {};
}

namespace statements {

namespace {

// Only the last statement of a text asks for its value.
// Everywhere else run() is called, which spares the copy.
class ExpressionStatement : public Statement
{
public:
    ExpressionStatement(ExpressionPointer expression, int line)
        : Statement(line), m_expression(std::move(expression))
    {
    }

protected:
    Flow run(Frame &frame) const override
    {
        m_expression->run(frame);
        return Flow::Normal;
    }
    Value value(Frame &frame) const override { return m_expression->eval(frame); }

private:
    ExpressionPointer m_expression;
};

// The initialisers, in the order of the names, which were declared while compiling; also the start
// of a for loop.
class Declaration : public Statement
{
public:
    Declaration(ExpressionList actions, int line) : Statement(line), m_actions(std::move(actions))
    {
    }

protected:
    Flow run(Frame &frame) const override
    {
        for (const ExpressionPointer &action : m_actions)
            action->run(frame);
        return Flow::Normal;
    }
    Value value(Frame &frame) const override
    {
        Value last;
        for (const ExpressionPointer &action : m_actions)
            last = action->eval(frame);
        return last;
    }

private:
    ExpressionList m_actions;
};

// Stops at whatever leaves the list early and hands it on.
Flow runAll(const StatementList &statements, Frame &frame)
{
    for (const StatementPointer &statement : statements) {
        const Flow flow = statement->execute(frame);
        if (flow != Flow::Normal)
            return flow;
    }
    return Flow::Normal;
}

class Block : public Statement
{
public:
    Block(StatementList statements, int line) : Statement(line), m_statements(std::move(statements))
    {
    }

protected:
    Flow run(Frame &frame) const override { return runAll(m_statements, frame); }

private:
    StatementList m_statements;
};

// A whole chain of if and else if.
class Branches : public Statement
{
public:
    Branches(std::vector<Branch> branches, int line)
        : Statement(line), m_branches(std::move(branches))
    {
    }

protected:
    Flow run(Frame &frame) const override
    {
        for (const Branch &branch : m_branches) {
            if (!branch.condition || branch.condition->evalInt(frame))
                return branch.body ? branch.body->execute(frame) : Flow::Normal;
        }
        return Flow::Normal;
    }

private:
    std::vector<Branch> m_branches;
};

// Runs a loop's body once. False: leave the loop, with what `flow` says.
bool runBody(const StatementPointer &body, Frame &frame, Flow &flow)
{
    flow = body ? body->execute(frame) : Flow::Normal;
    if (flow == Flow::Return)
        return false;
    const bool goOn = flow != Flow::Break;
    flow = Flow::Normal;
    return goOn;
}

// for and while.
class LoopStatement : public Statement
{
public:
    LoopStatement(Loop loop, int line) : Statement(line), m_loop(std::move(loop)) {}

protected:
    Flow run(Frame &frame) const override
    {
        Flow flow = Flow::Normal;
        if (m_loop.start)
            m_loop.start->execute(frame);
        // A step for each round, or an empty body would loop without ever being stopped.
        while (true) {
            step(frame);
            if (m_loop.condition && !m_loop.condition->evalInt(frame))
                return Flow::Normal;
            // continue comes back as "go on", hence runs the steps as well.
            if (!runBody(m_loop.body, frame, flow))
                return flow;
            for (const ExpressionPointer &action : m_loop.steps)
                action->run(frame);
        }
    }

private:
    Loop m_loop;
};

// The condition is outside the body's scope and sees nothing declared in it.
class DoLoop : public Statement
{
public:
    DoLoop(StatementPointer body, ExpressionPointer condition, int line)
        : Statement(line), m_body(std::move(body)), m_condition(std::move(condition))
    {
    }

protected:
    Flow run(Frame &frame) const override
    {
        Flow flow = Flow::Normal;
        do {
            if (!runBody(m_body, frame, flow))
                return flow;
            // After the body, so that a failing condition names the loop and not the body's last
            // statement.
            step(frame);
        } while (m_condition->evalInt(frame));
        return Flow::Normal;
    }

private:
    StatementPointer m_body;
    ExpressionPointer m_condition;
};

// The loop runs over the array as it is at the start.
class ForIn : public Statement
{
public:
    ForIn(Storage variable, Type type, ExpressionPointer array, StatementPointer body, int line)
        : Statement(line), m_variable(variable), m_type(type), m_array(std::move(array)),
          m_body(std::move(body))
    {
    }

protected:
    Flow run(Frame &frame) const override;

private:
    template <typename Held>
    Flow runOver(const Array<Held> &array, Frame &frame) const;

    Storage m_variable;
    Type m_type;
    ExpressionPointer m_array;
    StatementPointer m_body;
};

template <typename Held>
Flow ForIn::runOver(const Array<Held> &array, Frame &frame) const
{
    Flow flow = Flow::Normal;
    for (const Held &element : array) {
        step(frame);
        // A copy of the element: assigning to the variable leaves the array alone.
        m_variable.in(frame) = convert(element, m_type, frame.runtime);
        if (!runBody(m_body, frame, flow))
            break;
    }
    return flow;
}

Flow ForIn::run(Frame &frame) const
{
    // A copy, as the body may change the array.
    const Value array = m_array->eval(frame);
    switch (typeOf(array)) {
    case Type::Ints:
        return runOver(std::get<IntArray>(array), frame);
    case Type::Floats:
        return runOver(std::get<FloatArray>(array), frame);
    case Type::Strings:
        return runOver(std::get<StringArray>(array), frame);
    case Type::Vectors:
        return runOver(std::get<VectorArray>(array), frame);
    default:
        failConversion(typeOf(array), Type::Strings);
    }
}

// switch: runs from the chosen case on until something breaks.
// The value is compared as == would, labels of other types included.
class Choice : public Statement
{
public:
    Choice(ExpressionPointer value, std::vector<Case> cases, int line)
        : Statement(line), m_value(std::move(value)), m_cases(std::move(cases))
    {
    }

protected:
    Flow run(Frame &frame) const override
    {
        const Value value = m_value->eval(frame);
        for (size_t i = chosen(value, frame); i < m_cases.size(); ++i) {
            // continue passes through to the loop around the switch.
            const Flow flow = runAll(m_cases[i].body, frame);
            if (flow != Flow::Normal)
                return flow == Flow::Break ? Flow::Normal : flow;
        }
        return Flow::Normal;
    }

private:
    // The first case with an equal label, else the default, else the number of cases.
    size_t chosen(const Value &value, Frame &frame) const;

    ExpressionPointer m_value;
    std::vector<Case> m_cases;
};

// Labels are evaluated in order and only up to the first equal one.
size_t Choice::chosen(const Value &value, Frame &frame) const
{
    size_t byDefault = m_cases.size();
    for (size_t i = 0; i < m_cases.size(); ++i) {
        if (!m_cases[i].label)
            byDefault = i;
        else if (isTrue(apply(Operator::Equal, value, m_cases[i].label->eval(frame), frame.runtime),
                        frame.runtime))
            return i;
    }
    return byDefault;
}

// Also a return without a value: the frame's result stays empty.
class Jump : public Statement
{
public:
    Jump(Flow flow, int line) : Statement(line), m_flow(flow) {}

protected:
    Flow run(Frame &) const override { return m_flow; }

private:
    Flow m_flow;
};

class Return : public Statement
{
public:
    Return(ExpressionPointer value, int line) : Statement(line), m_value(std::move(value)) {}

protected:
    Flow run(Frame &frame) const override
    {
        // Converted to the procedure's type already, by the Builder. Nothing runs in this frame any
        // more.
        m_value->evalLast(frame.result, frame);
        return Flow::Return;
    }

private:
    ExpressionPointer m_value;
};

} // namespace

StatementPointer expression(ExpressionPointer expression, int line)
{
    return std::make_unique<ExpressionStatement>(std::move(expression), line);
}

StatementPointer declaration(ExpressionList actions, int line)
{
    return std::make_unique<Declaration>(std::move(actions), line);
}

StatementPointer block(StatementList statements, int line)
{
    return std::make_unique<Block>(std::move(statements), line);
}

StatementPointer branches(std::vector<Branch> branches, int line)
{
    return std::make_unique<Branches>(std::move(branches), line);
}

StatementPointer loop(Loop loop, int line)
{
    return std::make_unique<LoopStatement>(std::move(loop), line);
}

StatementPointer doLoop(StatementPointer body, ExpressionPointer condition, int line)
{
    return std::make_unique<DoLoop>(std::move(body), std::move(condition), line);
}

StatementPointer forIn(Storage variable, Type type, ExpressionPointer array, StatementPointer body,
                       int line)
{
    return std::make_unique<ForIn>(variable, type, std::move(array), std::move(body), line);
}

StatementPointer choice(ExpressionPointer value, std::vector<Case> cases, int line)
{
    return std::make_unique<Choice>(std::move(value), std::move(cases), line);
}

StatementPointer jump(Flow flow, int line)
{
    return std::make_unique<Jump>(flow, line);
}

StatementPointer returned(ExpressionPointer value, int line)
{
    if (!value)
        return std::make_unique<Jump>(Flow::Return, line);
    return std::make_unique<Return>(std::move(value), line);
}

} // namespace statements

} // namespace mel
