// SPDX-License-Identifier: MIT
#pragma once

#include "editor/completion.h"

#include <QAbstractListModel>

#include <vector>

// How well a completion goes with what was typed, best first.
enum class CompletionMatch {
    Prefix,    // begins with it, letter for letter
    OtherCase, // begins with it in another case
    InnerWord, // a word inside begins with it: "sphere" for polySphere, make_sphere, $sphere
    None
};

// A single letter is looked for at the beginning only, or the list would hold nearly everything.
CompletionMatch completionMatch(const QString &text, const QString &typed);

// The rows of the popup: of all that a source has offered those that go with what was typed, the
// better matches first, otherwise in the order of the source.
class CompletionModel : public QAbstractListModel
{
    Q_OBJECT

public:
    explicit CompletionModel(QObject *parent = nullptr);

    // Of which none is a row until narrow() is called.
    void setCompletions(std::vector<Completion> completions);
    // Takes time linear in their number, whatever was typed before.
    void narrow(const QString &typed);

    const Completion &completion(int row) const { return m_completions[m_rows[row]]; }
    int longestText() const { return m_longest; } // of all completions, in UTF-16 units
    // Of every row, in pixels.
    int rowHeight() const { return m_rowHeight; }
    void setRowHeight(int height) { m_rowHeight = height; }

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role) const override;

private:
    std::vector<Completion> m_completions;
    std::vector<int> m_rows; // indices of completions
    int m_longest = 0;
    int m_rowHeight = 16;
};
