#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "sheets/sheet_failure.h"

namespace chengheng {

/// What to do about quotes that do not pair.
enum class LoneQuotes { refuse, keep };

/// Reads cells off a UTF-8 text, one by one: a line of many costs no more than one of few.
/// Lines end with CR LF, LF or CR; within quotes a line end belongs to the cell.
class DelimitedReader {
  public:
    DelimitedReader(std::string_view text, char separator, LoneQuotes loneQuotes);

    /// The next cell that is not empty or the last of its row; false when there is none left or
    /// it cannot be read.
    bool next(std::string& cell);
    const std::optional<SheetFailure>& failure() const { return m_failure; }
    /// Where the cell stands that was read last, counted from 1; 0 before the first.
    std::size_t row() const { return m_row; }
    std::size_t column() const { return m_column; }
    /// Whether no other cell follows it in its row.
    bool isLastOfRow() const { return m_isLastOfRow; }
    /// Whether everything was read.
    bool isAtEnd() const { return m_at == m_text.size(); }
    /// Whether a quote stood within a cell that is not quoted.
    bool hasBareQuote() const { return m_hasBareQuote; }

  private:
    std::size_t passRun(char sign);
    bool readCell(std::string& cell);
    bool readQuoted(std::string& cell);
    std::size_t bareEnd(std::size_t from) const;
    bool isCellEnd(std::size_t at) const;
    bool refuse(const char* reason);
    void skipCellEnd();

    std::string_view m_text;
    char m_separator;
    LoneQuotes m_loneQuotes;
    std::size_t m_at = 0;
    std::size_t m_row = 0;
    std::size_t m_column = 0;
    bool m_isLastOfRow = true;
    bool m_hasBareQuote = false;
    std::optional<SheetFailure> m_failure;
};

/// The separator of a CSV text: of comma, tab and semicolon the one beside which quotes stand
/// as they should; of several such the one that cuts most of the first lines into the same
/// number of cells, more than one.
char separatorOf(std::string_view text);

}  // namespace chengheng
