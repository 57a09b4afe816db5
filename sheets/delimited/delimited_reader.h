#pragma once

#include <cstddef>
#include <string_view>

#include "sheets/sheet.h"
#include "sheets/sheet_failure.h"

namespace chengheng {

/// What to do about quotes that do not pair.
enum class LoneQuotes { refuse, keep };

/// Reads rows of cells off a UTF-8 text. Lines end with CR LF, LF or CR; within quotes a line
/// end belongs to the cell.
class DelimitedReader {
  public:
    DelimitedReader(std::string_view text, char separator, LoneQuotes loneQuotes);

    /// The next row; false when there is none left or it cannot be read.
    bool next(SheetRow& row);
    const std::optional<SheetFailure>& failure() const { return m_failure; }
    /// Rows read, and cells of the one that was read last.
    std::size_t rowCount() const { return m_rows; }
    std::size_t cellCount() const { return m_cells; }
    /// Whether everything was read.
    bool isAtEnd() const { return m_at == m_text.size(); }
    /// Whether a quote stood within a cell that is not quoted.
    bool hasBareQuote() const { return m_hasBareQuote; }

  private:
    bool readCell(std::string& cell);
    bool readQuoted(std::string& cell);
    std::size_t bareEnd(std::size_t from) const;
    bool isCellEnd(std::size_t at) const;
    bool refuse(const char* reason);
    void skipLineEnd();

    std::string_view m_text;
    char m_separator;
    LoneQuotes m_loneQuotes;
    std::size_t m_at = 0;
    std::size_t m_rows = 0;
    std::size_t m_cells = 0;
    bool m_hasBareQuote = false;
    std::optional<SheetFailure> m_failure;
};

/// The separator of a CSV text: of comma, tab and semicolon the one beside which quotes stand
/// as they should; of several such the one that cuts most of the first lines into the same
/// number of cells, more than one.
char separatorOf(std::string_view text);

}  // namespace chengheng
