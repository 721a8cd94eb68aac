// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/value.h"

#include <QString>

#include <map>
#include <string>
#include <vector>

namespace standin {

// Named values that survive the session: int, float, string and arrays of these. Owned by the
// session, which saves them when it quits. Names are free text in UTF-8; main thread only.
class OptionVars
{
public:
    // Reads the file when it exists. The file is a script of optionVar commands, but it is read
    // here and never executed.
    explicit OptionVars(const QString &fileName);

    bool exists(const std::string &name) const;
    mel::Value value(const std::string &name) const; // void when absent
    std::vector<std::string> names() const;          // sorted

    // Replaces a value of any type.
    void set(const std::string &name, const mel::Value &value);
    // Adds one element; anything but an array of the element's type is replaced.
    void append(const std::string &name, const mel::Value &element);
    // False when there was none.
    bool remove(const std::string &name);

    // Writes the file if anything has changed since it was read; false when that fails.
    bool save();

private:
    void load();
    bool write() const;

    QString m_fileName;
    std::map<std::string, mel::Value> m_values;
    bool m_changed = false; // since the file was read or written
};

} // namespace standin
