// SPDX-License-Identifier: MIT
#pragma once

#include "standin/host/outputhistory.h"

#include <QPlainTextEdit>

#include <optional>

namespace standin {

class UserInterface;

// A read-only view of the session's history: all of it so far, and whatever comes.
class ReporterField : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit ReporterField(UserInterface &ui, QWidget *parent = nullptr);

    // Shows what one language has written; both when there is no language.
    void setFilter(std::optional<Language> language);

public slots:
    // What the history has just gained, with its headings; belongs to the language that runs.
    void append(const QString &shownText);

private:
    // Replaces the text by the history as it is.
    void showHistory();

    // Outlives the field.
    UserInterface &m_ui;
    std::optional<Language> m_filter;
};

} // namespace standin
