#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "sheets/sheet.h"
#include "sheets/sheet_budget.h"
#include "sheets/xlsx/xlsx_number_formats.h"
#include "sheets/xlsx/xlsx_strings.h"

namespace chengheng {

/// What the cells of a sheet refer to.
struct XlsxShared {
    XlsxStrings strings;
    XlsxNumberFormats formats;
    bool countsFrom1904 = false;
};

/// Reads the cells of a sheet.
class XlsxCellsHandler : public XmlHandler {
  public:
    XlsxCellsHandler(const XlsxShared& shared, Sheet& sheet) : m_shared(shared), m_sheet(sheet) {}

    void start(std::string_view name, const XmlAttributes& attributes) override;
    void end(std::string_view name) override;
    void text(std::string_view piece) override;

    /// Whether it was a sheet of cells at all.
    bool hasCells() const { return m_hasCells; }

  private:
    void startRow(const XmlAttributes& attributes);
    void startCell(const XmlAttributes& attributes);
    void endCell();
    Cell readCell();
    Cell readNumber(std::string_view value);
    Cell refuse(std::string reason);

    const XlsxShared& m_shared;
    Sheet& m_sheet;
    SheetBudget m_budget;
    bool m_hasCells = false;
    bool m_isInRows = false;
    bool m_isInCell = false;
    bool m_isInValue = false;
    std::size_t m_row = 0;     ///< counted from 1; 0 before the first
    std::size_t m_column = 0;  ///< counted from 1; 0 before the first of a row
    std::string m_kind;
    std::size_t m_style = 0;
    bool m_hasFormula = false;
    std::optional<std::string> m_value;
    XlsxTextGatherer m_inline;
};

}  // namespace chengheng
