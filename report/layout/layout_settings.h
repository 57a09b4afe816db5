#pragma once

#include <string>
#include <string_view>

#include "report/layout/report_layout.h"

namespace chengheng {

/// A line "name = value" that a section of a layout file may have.
struct LayoutSetting {
    std::string_view section;
    std::string_view name;
    /// Puts the value into the layout; the reason when it cannot be.
    std::string (*set)(ReportLayout& layout, std::string_view value);
};

bool isLayoutSection(std::string_view name);

/// Null when the section has no such setting.
const LayoutSetting* layoutSetting(std::string_view section, std::string_view name);

/// Whether a page has room for the headings of a table and a row, upright and turned.
bool hasRoomForTable(const ReportLayout& layout);

}  // namespace chengheng
