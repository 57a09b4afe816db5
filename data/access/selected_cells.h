#pragma once

#include <charconv>
#include <string_view>

#include "data/access/CNbCwDB.h"

namespace chengheng {

/// What a select on the selected database gives, as text cells; they are given back at the end.
/// The row buffers of the tables stay as they are, so that a caller may go on using rows it read
/// before.
class SelectedCells {
  public:
    SelectedCells(CNbCwDB& database, std::string_view select) : m_database(database) {
        m_isRead = database.QRYGetData(select, m_cells, m_columns, m_rows) == 0;
    }
    ~SelectedCells() {
        if (m_isRead) m_database.QRYReleaseBuffer(m_cells, m_columns, m_rows);
    }
    SelectedCells(const SelectedCells&) = delete;
    SelectedCells& operator=(const SelectedCells&) = delete;

    /// Whether the select ran; the data-access object knows why not.
    bool isRead() const { return m_isRead; }
    int rows() const { return m_rows; }
    /// Null where nothing is stored.
    const char* cell(int row, int column) const { return m_cells[row * m_columns + column]; }
    /// Empty where nothing is stored.
    std::string_view text(int row, int column) const {
        const char* const found = cell(row, column);
        return found == nullptr ? std::string_view() : std::string_view(found);
    }
    /// The number that the text begins with; 0 where it begins with none.
    template <class Number>
    Number number(int row, int column) const {
        const std::string_view found = text(row, column);
        Number value{};
        std::from_chars(found.data(), found.data() + found.size(), value);
        return value;
    }

  private:
    CNbCwDB& m_database;
    char** m_cells = nullptr;
    int m_columns = 0;
    int m_rows = 0;
    bool m_isRead = false;
};

}  // namespace chengheng
