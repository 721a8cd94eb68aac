// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/conversion.h"
#include "standin/mel/expression.h"

#include <string>
#include <string_view>
#include <vector>

namespace mel {

class Runtime;

// The arguments of one run of a built-in function, converted as its signature says.
// Neither owns nor copies the values; it lives for that run only.
class Arguments
{
public:
    Arguments(Runtime &owner, Value *const *values, size_t count)
        : runtime(owner), m_values(values), m_count(count)
    {
    }

    size_t count() const { return m_count; }
    // The caller's own value where the argument is a variable.
    // No range check: the signature has decided how many there are. The typed readers throw a
    // RuntimeError when a dynamic variable turns out to hold another type.
    Value &value(size_t index) const { return *m_values[index]; }
    int integer(size_t index) const { return as<int>(value(index)); }
    double number(size_t index) const { return as<double>(value(index)); }
    const std::string &text(size_t index) const { return as<std::string>(value(index)); }
    const Vector &vector(size_t index) const { return as<Vector>(value(index)); }
    StringArray &strings(size_t index) const { return as<StringArray>(value(index)); }

    Runtime &runtime;

private:
    Value *const *m_values;
    size_t m_count;
};

// A built-in with positional arguments. The signature is the result's letter, a colon and one
// letter for each argument:
//   i int, f float, s string, v vector, m matrix; I F S V their arrays, by reference;
//   a anything, by reference; A any array, by reference; * more of anything.
// Results also: n nothing, = the type of the first argument, ? known only at run time.
struct Function
{
    const char *name;
    const char *signature;
    // Writes to array arguments only: a scalar may be the caller's own variable.
    Value (*run)(const Arguments &);

    std::string_view parameters() const { return std::string_view(signature).substr(2); }
    // A trailing * accepts any number from none on.
    bool takes(size_t count) const;
    Type parameterType(size_t index) const; // Dynamic for those that take anything
    Type returnType(Type firstArgument) const;
};

// Runs the row that fits, as scripts would. Throws RuntimeError when none does.
Value callFunctionByName(Runtime &runtime, const std::string &name, std::vector<Value> arguments);

// Whether the name is that of a positional function, which takes arrays whole where commands get a
// word for each element.
bool isFunction(const std::string &name);

// All rows of that name; there is one row for each way to call it.
std::vector<const Function *> functionsNamed(const std::string &name);
const std::vector<const Function *> &allFunctions();

// The row that fits the argument types best, null when no row takes that many.
// Exact matches count one each; the earlier row wins a tie, so the general row stands first.
const Function *chooseFunction(const std::vector<const Function *> &rows,
                               const std::vector<Type> &arguments);

} // namespace mel
