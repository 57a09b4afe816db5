#pragma once

#include <sqlite3.h>

#include "base/values/status.h"

namespace chengheng {

/// The failure an extended result code stands for. The connection supplies the error number
/// of the operating system and the text; it may be null.
Status sqliteFailure(int code, sqlite3* connection);

/// The same, and done for SQLITE_OK.
Status sqliteStatus(int code, sqlite3* connection);

}  // namespace chengheng
