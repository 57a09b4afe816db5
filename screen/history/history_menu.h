#pragma once

#include <functional>
#include <optional>

#include "screen/history/history_window.h"

class QAbstractItemView;

namespace chengheng {

/// What is current in a view; nothing where that has no history.
using HistoryAsked = std::function<std::optional<AskedHistory>()>;

/// Gives a list or grid a context menu with the history of what is current in it.
void offerHistory(QAbstractItemView& view, HistoryAsked asked);

}  // namespace chengheng
