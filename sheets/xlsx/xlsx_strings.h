#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "sheets/xlsx/xlsx_package.h"

namespace chengheng {

/// Gathers the text of a cell from its pieces: plain, or in runs that look different. How it
/// is pronounced does not belong to it.
class XlsxTextGatherer {
  public:
    void clear() { m_text.clear(); }
    void start(std::string_view name);
    void end(std::string_view name);
    void text(std::string_view piece);
    std::string take() const;

  private:
    std::string m_text;
    bool m_isInText = false;
    bool m_isInPronunciation = false;
};

/// The texts that the cells of a workbook refer to by number.
class XlsxStrings {
  public:
    std::optional<SheetFailure> read(XlsxPackage& package, const std::string& part);
    /// Null when there is none of that number.
    const std::string* find(std::size_t number) const;

  private:
    std::vector<std::string> m_strings;
};

}  // namespace chengheng
