// SPDX-License-Identifier: MIT
#pragma once

#include "standin/mel/host.h"

#include <string>

namespace standin {

enum class Language { Mel, Python };

// What the script editor of the host shows: every message of the session with its heading and
// closing mark, in the comment form of the language that ran last. It only keeps text: views get
// what is new from the session. In UTF-8, without limit, for the length of the session.
class OutputHistory
{
public:
    // Kinds that are left out; set by scriptEditorInfo.
    struct Suppressed
    {
        bool info = false;
        bool warnings = false;
        bool errors = false;
        bool results = false;
        bool stackTrace = false;
        bool stackWindow = false; // concerns no text, only remembered
    };

    // With closing marks an annotated message ends in " // ", as in releases up to 2022; without,
    // its further lines are headed by the comment sign.
    explicit OutputHistory(bool closingMarks) : m_closingMarks(closingMarks) {}

    // Set by the session around every text it runs.
    Language language() const { return m_language; }
    void setLanguage(Language language) { m_language = language; }
    Suppressed &suppressed() { return m_suppressed; }

    // The message as it is shown now, line break included; empty when its kind is suppressed.
    std::string shown(mel::MessageKind kind, const std::string &text) const;
    // Takes what shown() has given.
    void append(const std::string &shownText);

    const std::string &text() const { return m_text; }
    // The file keeps what it has.
    void clear() { m_text.clear(); }

    // While writing is on, everything appended goes to the end of the file too.
    const std::string &fileName() const { return m_fileName; }
    void setFileName(const std::string &fileName) { m_fileName = fileName; }
    bool writesFile() const { return m_writesFile; }
    void setWritesFile(bool writes) { m_writesFile = writes; }

private:
    bool isSuppressed(mel::MessageKind kind) const;

    const bool m_closingMarks;
    Language m_language = Language::Mel;
    Suppressed m_suppressed;
    std::string m_text;
    std::string m_fileName;
    bool m_writesFile = false;
};

} // namespace standin
