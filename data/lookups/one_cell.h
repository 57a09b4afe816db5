#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "data/access/CNbCwDB.h"

namespace chengheng {

/// The first cell that a select gives. Nothing in `text` when it gave no row or failed.
struct OneCell {
    std::optional<std::string> text;
    bool isRead = false;  ///< whether the select ran; the data-access object knows why not
};

/// Runs a select on the selected database. Leaves the row buffers of the tables alone, so that
/// a caller may go on using rows it read before.
OneCell readOneCell(CNbCwDB& database, std::string_view select);

}  // namespace chengheng
