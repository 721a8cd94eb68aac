// SPDX-License-Identifier: MIT
#include "standin/host/outputhistory.h"

#include <fstream>

namespace standin {

namespace {

const char *headingOf(mel::MessageKind kind)
{
    switch (kind) {
    case mel::MessageKind::Warning:
        return "Warning: ";
    case mel::MessageKind::Error:
        return "Error: ";
    case mel::MessageKind::Result:
        return "Result: ";
    default:
        return "";
    }
}

// Every line after the first starts with the sign.
std::string withHeadedLines(const std::string &text, const std::string &sign)
{
    std::string headed;
    for (const char character : text) {
        headed += character;
        if (character == '\n')
            headed += sign;
    }
    return headed;
}

} // namespace

std::string OutputHistory::shown(mel::MessageKind kind, const std::string &text) const
{
    if (isSuppressed(kind))
        return {};
    if (kind == mel::MessageKind::History || kind == mel::MessageKind::Display)
        return text;
    // up to 2022:  // Error: text //
    // from 2023:   // Error: text
    const std::string mark = m_language == Language::Python ? "#" : "//";
    const std::string sign = mark + " ";
    if (m_closingMarks)
        // The old form marks no further lines, and its closing mark ends in a blank as its opening
        // one does.
        return sign + headingOf(kind) + text + " " + sign + "\n";
    return sign + headingOf(kind) + withHeadedLines(text, sign) + "\n";
}

// What a script prints and what the user typed always show.
bool OutputHistory::isSuppressed(mel::MessageKind kind) const
{
    switch (kind) {
    case mel::MessageKind::Info:
        return m_suppressed.info;
    case mel::MessageKind::Warning:
        return m_suppressed.warnings;
    case mel::MessageKind::Error:
        return m_suppressed.errors;
    case mel::MessageKind::Result:
        return m_suppressed.results;
    case mel::MessageKind::StackTrace:
        return m_suppressed.stackTrace;
    default:
        return false;
    }
}

void OutputHistory::append(const std::string &shownText)
{
    m_text += shownText;
    // Opened for each message, so that the file is complete at any moment and may be removed.
    if (m_writesFile)
        std::ofstream(m_fileName, std::ios::app | std::ios::binary) << shownText;
}

} // namespace standin
