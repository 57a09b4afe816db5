#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "sheets/sheet.h"
#include "sheets/xlsx/xlsx_package.h"

namespace chengheng {

/// What a number format makes of a number, as far as it tells something else from a number.
struct NumberLook {
    bool hasDate = false;
    bool hasTime = false;
    std::size_t leastDigits = 0;  ///< zeros are put in front of fewer

    bool operator==(const NumberLook&) const = default;
};

/// What a format such as "yyyy-mm-dd", "0000" or "#,##0.00" makes of a number.
NumberLook lookOfFormat(std::string_view format);

/// The looks of a workbook, by the number that its cells name.
class XlsxNumberFormats {
  public:
    std::optional<SheetFailure> read(XlsxPackage& package, const std::string& part);
    NumberLook look(std::size_t style) const;

  private:
    std::vector<NumberLook> m_looks;
};

/// A number as its look shows it: a date as a text, a number with the zeros of its format.
Cell shownNumber(double number, const NumberLook& look, bool countsFrom1904);

}  // namespace chengheng
