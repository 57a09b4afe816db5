#pragma once

#include <optional>
#include <string>

#include "base/messages/refusal.h"
#include "session/rights/passwords.h"

namespace chengheng {

enum class DemoYear {
    present,   ///< just opened, with vouchers of January that are not posted
    finished,  ///< the one before, which closes with what the present one opened with
};

/// Which demo books are made.
struct DemoWish {
    DemoYear year = DemoYear::present;
    PasswordCost cost = PasswordCost::usual;
};

/// Makes the demo books, whole or not at all: the small trading firm of demo_data.h. Two runs
/// give equal books but for the salts of the passwords. The location is the path of a file or
/// the address of a schema; nothing may be there yet.
std::optional<Refusal> makeDemoBooks(const std::string& location, const DemoWish& wish = {});

}  // namespace chengheng
