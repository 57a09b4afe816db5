#pragma once

#include <string_view>

// Whether a record is still there, asked of the selected database under the locks of a change:
// 0 while it exists, 1 when it is gone, -1 when the database could not be read. They tell the
// operator nothing, and rows read before stay readable.

int CodeIsExist(std::string_view code);
int SettleIsExist(std::string_view number);
int SignIsExist(std::string_view number);

namespace chengheng {

/// The same for a currency; CyrencyIsExist is its telling form.
int currencyExistence(int currencyId);

}  // namespace chengheng
