#pragma once

#include <functional>
#include <optional>

#include "base/messages/refusal.h"
#include "report/engine/CReport.h"

namespace chengheng {

/// Takes a report through the engine's steps in their order and hands the finished one to
/// `put`, which prints, previews or exports it. Why not, when it cannot be made.
[[nodiscard]] std::optional<Refusal> runReport(const Report& report,
                                               const std::function<void(CReport& report)>& put);

}  // namespace chengheng
