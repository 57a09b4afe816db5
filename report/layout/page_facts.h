#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "report/layout/report.h"

namespace chengheng {

/// What the texts of a layout may name on one page.
struct PageFacts {
    std::string_view title;
    const ReportFacts& facts;
    std::size_t page = 1;
    std::size_t pageCount = 1;  ///< 0: not known yet, shown as dots
};

/// The text with each {name} replaced by what it names. A text that names something the report
/// does not have, such as a company, is left out as a whole.
std::string withFacts(std::string_view text, const PageFacts& facts);

/// Why a text cannot stand in a layout: it names an unknown fact, or a brace stays open. Empty
/// when it can.
std::string factsFault(std::string_view text);

/// "2026.05.31", the form of dates on paper; empty for no date.
std::string paperDate(const Date& date);

}  // namespace chengheng
