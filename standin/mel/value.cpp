// SPDX-License-Identifier: MIT
#include "standin/mel/value.h"

#include "standin/mel/number.h"

namespace mel {

namespace {

// Significant digits. The two differ: print shows what a script computes with, Result is for
// reading.
constexpr int printDigits = 10;
constexpr int resultDigits = 6;

std::string join(const Vector &vector, const char *separator, int digits)
{
    return floatText(vector.x, digits) + separator + floatText(vector.y, digits) + separator +
           floatText(vector.z, digits);
}

std::string rows(const Matrix &matrix, const char *betweenRows, int digits)
{
    std::string text;
    for (int row = 0; row < matrix.rows; ++row) {
        text += row > 0 ? betweenRows : "";
        for (int column = 0; column < matrix.columns; ++column) {
            text += column > 0 ? ", " : "";
            text += floatText(matrix.elements[size_t(row) * matrix.columns + column], digits);
        }
    }
    return text;
}

// The form that string conversion uses as well; Result has another.
struct PrintWriter
{
    std::string operator()(std::monostate) const { return {}; }
    std::string operator()(int number) const { return std::to_string(number); }
    std::string operator()(double number) const { return floatText(number, printDigits); }
    std::string operator()(const std::string &text) const { return text; }
    std::string operator()(const Vector &vector) const { return join(vector, " ", printDigits); }
    std::string operator()(const Matrix &matrix) const
    {
        // The rows stand below each other, in the column after "<< ".
        return "<< " + rows(matrix, ";\n   ", printDigits) + " >>\n";
    }
    template <typename Element>
    std::string operator()(const Array<Element> &array) const
    {
        std::string text;
        for (const Element &element : array)
            text += (*this)(element) + "\n";
        return text;
    }
};

// An empty array gives "", for which no Result is shown.
struct ResultWriter
{
    std::string operator()(std::monostate) const { return {}; }
    std::string operator()(int number) const { return std::to_string(number); }
    std::string operator()(double number) const { return floatText(number, resultDigits); }
    std::string operator()(const std::string &text) const { return text; }
    std::string operator()(const Vector &vector) const
    {
        // Deliberate: the blank at the end is part of the form.
        return "<<" + join(vector, ", ", resultDigits) + ">> ";
    }
    std::string operator()(const Matrix &matrix) const
    {
        return "<<" + rows(matrix, "; ", resultDigits) + ">>";
    }
    std::string operator()(const VectorArray &array) const
    {
        std::string text;
        for (const Vector &vector : array)
            text += (*this)(vector);
        return text;
    }
    template <typename Element>
    std::string operator()(const Array<Element> &array) const
    {
        std::string text;
        for (size_t i = 0; i < array.size(); ++i)
            text += (i > 0 ? " " : "") + (*this)(array[i]);
        return text;
    }
};

} // namespace

std::string printText(const Value &value)
{
    return std::visit(PrintWriter(), value);
}

std::string resultText(const Value &value)
{
    return std::visit(ResultWriter(), value);
}

} // namespace mel
