#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <vector>

#include "data/engine/engine.h"
#include "data/tables/text_row.h"

namespace chengheng {

/// Rows read as text cells, row-major, NULL as null. Numbers have the same text on every
/// engine: the shortest one that reads back as the same number.
class TextResult {
  public:
    TextResult() = default;
    ~TextResult() { std::free(m_cells); }
    TextResult(const TextResult&) = delete;
    TextResult& operator=(const TextResult&) = delete;

    /// Reads all rows of a cursor.
    Status read(Cursor& cursor);

    char** cells() { return m_cells; }
    int columns() const { return m_columns; }
    int rows() const { return m_rows; }
    /// One TextRow a row, over the same cells.
    TextRow* textRows();

  private:
    void addCell(const Cursor& cursor, int column);
    void addPointer(char* cell);
    char* room(std::size_t size);

    char** m_cells = nullptr;
    std::size_t m_cellCount = 0;
    std::size_t m_cellRoom = 0;
    std::vector<std::unique_ptr<char[]>> m_blocks;
    char* m_free = nullptr;
    std::size_t m_freeSize = 0;
    std::vector<TextRow> m_textRows;
    int m_columns = 0;
    int m_rows = 0;
};

}  // namespace chengheng
