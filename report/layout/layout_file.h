#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/messages/refusal.h"
#include "report/layout/report_layout.h"

namespace chengheng {

/// What is wrong with a layout file, and in which line of it.
struct LayoutFault {
    int line = 0;
    std::string reason;
};

/// Reads the text of a layout file (docs/layout_files.md). What the file does not set keeps
/// its default value. After a fault the layout is as it was.
std::optional<LayoutFault> parseLayout(std::string_view text, ReportLayout& layout);

/// Reads a layout file, or says why it cannot be used.
std::optional<Refusal> readLayoutFile(const std::string& path, ReportLayout& layout);

}  // namespace chengheng
