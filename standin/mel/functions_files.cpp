// SPDX-License-Identifier: MIT
#include "standin/mel/functions.h"

#include "standin/mel/runtime.h"

#include <cstring>

namespace mel {

namespace {

// Bytes. A binary file that is read as text need not have a NUL anywhere.
constexpr size_t longestReadString = 1024;

// 0 when the file cannot be opened, which scripts test; without a mode it is written anew.
Value fopen(const Arguments &call)
{
    return call.runtime.files.open(call.text(0), call.count() > 1 ? call.text(1) : "w");
}

Value popen(const Arguments &call)
{
    return call.runtime.files.openPipe(call.text(0), call.text(1));
}

// For pclose as well: the table knows which of them are pipes.
Value fclose(const Arguments &call)
{
    return call.runtime.files.close(call.integer(0));
}

Value fflush(const Arguments &call)
{
    return std::fflush(call.runtime.files.file(call.integer(0)));
}

Value frewind(const Arguments &call)
{
    std::rewind(call.runtime.files.file(call.integer(0)));
    return 0;
}

// Only a read that met the end makes this true.
Value feof(const Arguments &call)
{
    return std::feof(call.runtime.files.file(call.integer(0))) ? 1 : 0;
}

Value fprint(const Arguments &call)
{
    // Bytes that find no room on the disk go unnoticed, as fprint has no result.
    const std::string text = printText(call.value(1));
    std::fwrite(text.data(), 1, text.size(), call.runtime.files.forWriting(call.integer(0)));
    return {};
}

// Reads bytes while `goesOn` accepts the text so far and the next byte.
// Byte by byte; the library buffers. Stops at the end of the file with what there is.
template <typename GoesOn>
std::string readText(const Arguments &call, std::FILE *file, GoesOn goesOn)
{
    std::string text;
    for (int c = std::fgetc(file); c != EOF; c = std::fgetc(file)) {
        if (!goesOn(text, static_cast<char>(c)))
            break;
        call.runtime.checkTextLength(text.size());
    }
    return text;
}

// The line keeps its line break, so that an empty answer means the end.
Value fgetline(const Arguments &call)
{
    std::FILE *file = call.runtime.files.forReading(call.integer(0));
    return readText(call, file, [](std::string &text, char c) {
        text += c;
        return c != '\n';
    });
}

// Leading blanks are skipped, and the one that ends the word is consumed.
Value fgetword(const Arguments &call)
{
    std::FILE *file = call.runtime.files.forReading(call.integer(0));
    return readText(call, file, [](std::string &text, char c) {
        const bool blank = std::strchr(" \t\r\n\f\v", c) && c != '\0';
        if (!blank)
            text += c;
        return !blank || text.empty();
    });
}

// In the machine's own byte order, as written by fwrite. A short read gives the default.
template <typename T>
T readBinary(std::FILE *file)
{
    T value{};
    return std::fread(&value, sizeof value, 1, file) == 1 ? value : T{};
}

// The second argument only says which type to read.
Value fread(const Arguments &call)
{
    std::FILE *file = call.runtime.files.forReading(call.integer(0));
    switch (typeOf(call.value(1))) {
    case Type::Int:
        return readBinary<int>(file);
    case Type::Float:
        return readBinary<double>(file);
    case Type::Vector:
        return readBinary<Vector>(file);
    case Type::String:
        return readText(call, file, [](std::string &text, char c) {
            if (c != '\0')
                text += c;
            return c != '\0' && text.size() < longestReadString;
        });
    default:
        failConversion(typeOf(call.value(1)), Type::String);
    }
}

// Answers the number of bytes written. Arrays are written without their length.
struct BinaryWriter
{
    std::FILE *file;

    int write(const void *data, size_t bytes) const
    {
        return static_cast<int>(std::fwrite(data, 1, bytes, file));
    }
    int operator()(int number) const { return write(&number, sizeof number); }
    int operator()(double number) const { return write(&number, sizeof number); }
    int operator()(const Vector &vector) const { return write(&vector, sizeof vector); }
    // With its NUL, at which fread stops.
    int operator()(const std::string &text) const { return write(text.c_str(), text.size() + 1); }
    int operator()(std::monostate) const { return 0; }
    int operator()(const Matrix &matrix) const
    {
        return write(matrix.elements.data(), matrix.elements.size() * sizeof(double));
    }
    template <typename Element>
    int operator()(const Array<Element> &array) const
    {
        int bytes = 0;
        for (const Element &element : array)
            bytes += (*this)(element);
        return bytes;
    }
};

Value fwrite(const Arguments &call)
{
    return std::visit(BinaryWriter{call.runtime.files.forWriting(call.integer(0))}, call.value(1));
}

const Function rows[] = {
    {"fopen", "i:s", fopen},       {"fopen", "i:ss", fopen},      {"popen", "i:ss", popen},
    {"fclose", "i:i", fclose},     {"pclose", "i:i", fclose},     {"fflush", "i:i", fflush},
    {"frewind", "i:i", frewind},   {"feof", "i:i", feof},         {"fprint", "n:ia", fprint},
    {"fgetline", "s:i", fgetline}, {"fgetword", "s:i", fgetword}, {"fwrite", "i:ia", fwrite},
    {"fread", "?:ia", fread},
};

} // namespace

FunctionTable fileFunctions()
{
    return {rows, std::size(rows)};
}

} // namespace mel
