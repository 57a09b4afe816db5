#pragma once

#include <span>
#include <vector>

namespace chengheng {

/// What a column needs of a grid's width, in pixels.
struct ColumnNeed {
    int content = 0;  ///< shows its header and what it holds in full
    int usual = 0;    ///< as it is declared
    int least = 0;    ///< below it nothing could be read; of figures, which are never cut, content
    bool grows = true;  ///< takes a part of what is left over
    int kept = 0;       ///< as the operator made it; 0: left to the grid
};

/// Shares a grid's width among its columns by what they hold. Each gets its usual width where
/// there is room for all, and what is left over is shared. Where there is less, the columns give
/// first what they do not need, then the widest texts are cut until they are as wide as the next
/// ones. No column falls below its least width, so the sum may be wider than the room.
std::vector<int> shareWidth(std::span<const ColumnNeed> needs, int room);

}  // namespace chengheng
