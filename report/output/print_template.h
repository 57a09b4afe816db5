#pragma once

#include <cstdint>
#include <optional>

#include "base/messages/refusal.h"
#include "report/layout/report.h"

namespace chengheng {

/// Whether a window fills a template's columns by their position or by the field each names.
enum class ColumnSource { position, field };

/// Begins a report from a print template of the selected books: its title, page and columns,
/// no rows. Books made before a list came have none for it: then that of the program counts. Why
/// not, when there is none or it cannot be read.
std::optional<Refusal> readPrintTemplate(std::int32_t number, ColumnSource source, Report& report);

}  // namespace chengheng
