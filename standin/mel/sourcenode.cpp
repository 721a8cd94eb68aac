// SPDX-License-Identifier: MIT
#include "standin/mel/sourcenode.h"

#include "standin/mel/runtime.h"

namespace mel::nodes {

namespace {

class SourceFile : public Expression
{
public:
    SourceFile(std::unique_ptr<Unit> compiled, std::string name, int line)
        : Expression(Type::Void), m_compiled(std::move(compiled)), m_name(std::move(name)),
          m_line(line)
    {
    }
    Value eval(Frame &frame) const override;

private:
    // Used up by the first run; later runs read the file anew.
    mutable std::unique_ptr<Unit> m_compiled;
    std::string m_name;
    int m_line;
};

Value SourceFile::eval(Frame &frame) const
{
    // The place that messages of the file name as the one it was sourced from.
    frame.line = m_line;
    // Taken out before it runs, so that a file that sources itself is compiled anew.
    std::unique_ptr<Unit> unit = std::move(m_compiled);
    if (!unit) {
        try {
            unit = frame.runtime.compileFile(m_name, frame.runtime.place());
            // The script runs already, so a missing file is now a run-time error that catch can
            // take.
        } catch (const CompileError &error) {
            throw RuntimeError(error.what());
        }
    }
    frame.runtime.runUnit(*unit);
    return {};
}

} // namespace

ExpressionPointer sourceFile(Runtime &runtime, const std::string &name, const Place &from)
{
    auto compiled = runtime.isBeingCompiled(name) ? nullptr : runtime.compileFile(name, from);
    return std::make_unique<SourceFile>(std::move(compiled), name, from.line);
}

} // namespace mel::nodes
