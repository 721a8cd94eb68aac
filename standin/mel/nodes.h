// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/expression.h"
#include "standin/mel/operators.h"

// Makers of tree nodes. Operands are checked already; each maker picks the node that fits their
// static types best.
// Each maker owns what it is given and never fails: whatever could be wrong has been refused
// before.
namespace mel::nodes {

ExpressionPointer constant(Value value);
std::unique_ptr<Target> variable(Storage storage, Type type);
std::unique_ptr<Target> element(Storage array, Type arrayType, ExpressionPointer index);
std::unique_ptr<Target> matrixElement(Storage matrix, ExpressionPointer row,
                                      ExpressionPointer column);
// `axis` is 'x', 'y' or 'z'.
ExpressionPointer component(ExpressionPointer vector, char axis);

// Static type first, then the value at run time.
ExpressionPointer convert(ExpressionPointer operand, Type to);
// The same for the argument of a call, where a boolean word may stand for a number.
ExpressionPointer convertArgument(ExpressionPointer operand, Type to);
Value convertArgument(Value value, Type to, WarningSink &warnings);
// An int that is not 0 when the operand is true.
ExpressionPointer condition(ExpressionPointer operand);

ExpressionPointer vectorLiteral(ExpressionPointer x, ExpressionPointer y, ExpressionPointer z);
ExpressionPointer matrixLiteral(std::vector<ExpressionList> rows);
// Elements are converted one by one when the literal is evaluated.
ExpressionPointer arrayLiteral(ExpressionList elements, Type arrayType);
// Gives an array literal another element type; null when the expression is no literal.
ExpressionPointer retypedLiteral(ExpressionPointer &literal, Type arrayType);

ExpressionPointer negate(ExpressionPointer operand);
ExpressionPointer logicalNot(ExpressionPointer condition);
ExpressionPointer logicalAnd(ExpressionPointer left, ExpressionPointer right);
ExpressionPointer logicalOr(ExpressionPointer left, ExpressionPointer right);
ExpressionPointer conditional(ExpressionPointer condition, ExpressionPointer yes,
                              ExpressionPointer no, Type type);
ExpressionPointer binary(Operator op, ExpressionPointer left, ExpressionPointer right, Type type);

// `value` has the target's type.
ExpressionPointer assign(std::unique_ptr<Target> target, ExpressionPointer value);
ExpressionPointer compoundAssign(Operator op, std::unique_ptr<Target> target,
                                 ExpressionPointer value);
// ++ and --, before or after.
ExpressionPointer increment(std::unique_ptr<Target> target, int by, bool prefix);
// Sets a variable to its initial value when its declaration is reached.
ExpressionPointer reset(Storage storage, Value initial);

// 1 when evaluating the operand fails, else 0. Failures are reported unless quiet.
ExpressionPointer catching(ExpressionPointer operand, bool quiet);

} // namespace mel::nodes
