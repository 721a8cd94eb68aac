// SPDX-License-Identifier: MIT
#include "standin/host/optionvars.h"

#include <QByteArray>
#include <QFile>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <variant>

namespace standin {

namespace {

// The same escapes for writing and reading; everything else is written as it is.
struct Escape
{
    char character;
    char letter; // after a backslash
};
const Escape escapes[] = {{'\n', 'n'}, {'\t', 't'}, {'\r', 'r'}, {'"', '"'}, {'\\', '\\'}};

std::string quoted(const std::string &text)
{
    std::string result = "\"";
    for (const char character : text) {
        const auto hasCharacter = [=](const Escape &row) { return row.character == character; };
        const Escape *row = std::find_if(std::begin(escapes), std::end(escapes), hasCharacter);
        if (row == std::end(escapes))
            result += character;
        else
            result += {'\\', row->letter};
    }
    return result + '"';
}

// How one element is written: its flag and its text.
struct Written
{
    std::string flag;
    std::string text;
};

Written written(int value)
{
    return {"-iv", std::to_string(value)};
}

// Seventeen digits give back the very same number.
Written written(double value)
{
    return {"-fv", QByteArray::number(value, 'g', 17).constData()};
}

Written written(const std::string &value)
{
    return {"-sv", quoted(value)};
}

// The command that sets the variable, the form in which the host keeps its preferences:
//   optionVar -iv "name" 1;
//   optionVar -sva "names" "a" -sva "names" "b";
// Nothing for an empty array, which no command of this kind can express.
std::string statement(const std::string &name, const mel::Value &value)
{
    std::string text;
    const auto add = [&](const Written &element, const char *suffix) {
        text += " " + element.flag + suffix + " " + quoted(name) + " " + element.text;
    };
    const auto addAll = [&](const auto *items) {
        for (size_t i = 0; items && i < items->size(); ++i)
            add(written((*items)[i]), "a");
    };
    if (const int *number = std::get_if<int>(&value))
        add(written(*number), "");
    else if (const double *fraction = std::get_if<double>(&value))
        add(written(*fraction), "");
    else if (const std::string *words = std::get_if<std::string>(&value))
        add(written(*words), "");
    addAll(std::get_if<mel::IntArray>(&value));
    addAll(std::get_if<mel::FloatArray>(&value));
    addAll(std::get_if<mel::StringArray>(&value));
    return text.empty() ? text : "optionVar" + text + ";\n";
}

// Splits the file into words; quoted ones lose their quotes, a semicolon is a word of its own.
class WordReader
{
public:
    explicit WordReader(const QByteArray &text) : m_text(text) {}

    // False at the end of the text.
    bool next(std::string &word)
    {
        skipBlanks();
        word.clear();
        if (m_position >= m_text.size())
            return false;
        if (at() == '"')
            readQuoted(word);
        else if (at() == ';')
            word = m_text.at(m_position++);
        else
            readPlain(word);
        return true;
    }

private:
    char at() const { return m_position < m_text.size() ? m_text.at(m_position) : '\0'; }

    static bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

    void skipBlanks()
    {
        while (isBlank(at()))
            ++m_position;
    }

    void readPlain(std::string &word)
    {
        while (m_position < m_text.size() && !isBlank(at()) && at() != ';')
            word += m_text.at(m_position++);
    }

    // The text may end before the quote does, in a damaged file: then the word ends there too.
    void readQuoted(std::string &word)
    {
        for (++m_position; m_position < m_text.size() && at() != '"'; ++m_position) {
            if (at() != '\\') {
                word += at();
                continue;
            }
            ++m_position;
            const auto hasLetter = [this](const Escape &row) { return row.letter == at(); };
            const Escape *row = std::find_if(std::begin(escapes), std::end(escapes), hasLetter);
            word += row == std::end(escapes) ? at() : row->character;
        }
        ++m_position;
    }

    // Owned, since the file is read in one go and closed.
    const QByteArray m_text;
    int m_position = 0;
};

// The value that follows a flag such as "-iv" or "-sva"; none when the flag is another one.
std::optional<mel::Value> readValue(char type, const std::string &word)
{
    const QByteArray bytes(word.data(), static_cast<int>(word.size()));
    switch (type) {
    case 'i':
        return mel::Value(bytes.toInt());
    case 'f':
        return mel::Value(bytes.toDouble());
    case 's':
        return mel::Value(word);
    default:
        return std::nullopt;
    }
}

template <class Item>
void appendItem(mel::Value &value, const Item &item)
{
    // A first element, or another type than before: scripts that change their mind start anew.
    if (!std::holds_alternative<mel::Array<Item>>(value))
        value = mel::Array<Item>();
    std::get<mel::Array<Item>>(value).edit().push_back(item);
}

} // namespace

OptionVars::OptionVars(const QString &fileName) : m_fileName(fileName)
{
    load();
}

bool OptionVars::exists(const std::string &name) const
{
    return m_values.count(name) > 0;
}

mel::Value OptionVars::value(const std::string &name) const
{
    const auto found = m_values.find(name);
    return found == m_values.end() ? mel::Value() : found->second;
}

std::vector<std::string> OptionVars::names() const
{
    std::vector<std::string> all;
    for (const auto &[name, value] : m_values)
        all.push_back(name);
    return all;
}

void OptionVars::set(const std::string &name, const mel::Value &value)
{
    m_values[name] = value;
    m_changed = true;
}

void OptionVars::append(const std::string &name, const mel::Value &element)
{
    mel::Value &value = m_values[name];
    if (const int *number = std::get_if<int>(&element))
        appendItem(value, *number);
    else if (const double *fraction = std::get_if<double>(&element))
        appendItem(value, *fraction);
    else if (const std::string *words = std::get_if<std::string>(&element))
        appendItem(value, *words);
    m_changed = true;
}

bool OptionVars::remove(const std::string &name)
{
    const bool existed = m_values.erase(name) > 0;
    m_changed = m_changed || existed;
    return existed;
}

// Deliberate: only the words of the commands are looked at, flag by flag. The file lies where every
// program can write, and what is in it must not run.
void OptionVars::load()
{
    QFile file(m_fileName);
    if (!file.open(QIODevice::ReadOnly))
        return;
    WordReader reader(file.readAll());
    std::string flag;
    std::string name;
    std::string word;
    while (reader.next(flag)) {
        if (flag.size() < 3 || flag[0] != '-') // "optionVar" and ";"
            continue;
        if (!reader.next(name) || !reader.next(word))
            break;
        const std::optional<mel::Value> value = readValue(flag[1], word);
        if (value && flag.size() == 4) // with the "a" of appending
            append(name, *value);
        else if (value)
            set(name, *value);
    }
    // Reading is no change.
    m_changed = false;
}

bool OptionVars::save()
{
    if (m_changed && write())
        m_changed = false;
    return !m_changed;
}

// Through a file of its own, so that a failure in the middle leaves the old values.
bool OptionVars::write() const
{
    QFile file(m_fileName + ".new");
    if (!file.open(QIODevice::WriteOnly))
        return false;
    for (const auto &[name, value] : m_values)
        file.write(statement(name, value).c_str());
    file.close();
    std::error_code problem;
    std::filesystem::rename(std::filesystem::u8path(file.fileName().toUtf8().constData()),
                            std::filesystem::u8path(m_fileName.toUtf8().constData()), problem);
    return file.error() == QFile::NoError && !problem;
}

} // namespace standin
