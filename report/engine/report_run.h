#pragma once

#include <functional>
#include <optional>

#include "base/messages/messages.h"
#include "report/engine/CReport.h"

namespace chengheng {

/// Takes a report through the engine's steps in their order and hands the finished one to
/// `put`, which prints, previews or exports it. What is said instead when it cannot be made.
std::optional<Notice> runReport(const Report& report,
                                const std::function<void(CReport& report)>& put);

}  // namespace chengheng
