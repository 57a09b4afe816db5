#pragma once

#include <string_view>

#include "data/access/CNbCwDB.h"

namespace chengheng {

/// Runs statements on the selected database, all or nothing.
inline Status runBatch(CNbCwDB& database, std::string_view statements) {
    return database.QRYExecuteSQL(statements) != 0 ? Status::done() : database.lastStatus();
}

}  // namespace chengheng
