#pragma once

#include <cstdint>
#include <optional>

#include "base/messages/refusal.h"
#include "report/layout/report.h"

namespace chengheng {

/// Whether a window fills a template's columns by their position or by the field each names.
enum class ColumnSource { position, field };

/// Begins a report from a print template of the selected books: its title, page and columns,
/// no rows. Why not, when the template is not there or cannot be read.
std::optional<Refusal> readPrintTemplate(std::int32_t number, ColumnSource source, Report& report);

}  // namespace chengheng
