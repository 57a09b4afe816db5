#pragma once

#include <optional>
#include <string>
#include <vector>

#include "operationlog/row_history.h"

namespace chengheng {

/// One column of a row, as it was changed once.
struct HistoryLine {
    std::string time;
    std::string who;
    std::string where;
    std::string words;
    std::string kind;
    std::string item;
    std::string before;
    std::string after;

    bool operator==(const HistoryLine&) const = default;
};

/// A change in lines, one a column. Of a row that came or went only what was filled in.
std::vector<HistoryLine> historyLines(const RowEvent& event, const HistorySubject& subject);

/// The history of a row of the open set of books, newest first, read as it is looked at.
class HistoryList {
  public:
    explicit HistoryList(HistorySubject subject) : m_subject(std::move(subject)) {}

    /// Adds the lines of further changes.
    Status readMore();
    bool isAtEnd() const { return m_history && m_history->isAtEnd(); }
    /// Known once it was read.
    bool hasLog() const { return m_hasLog; }
    const std::vector<HistoryLine>& lines() const { return m_lines; }

  private:
    Status begin(Engine& engine);

    HistorySubject m_subject;
    std::optional<RowHistory> m_history;
    bool m_hasLog = false;
    std::vector<HistoryLine> m_lines;
};

}  // namespace chengheng
