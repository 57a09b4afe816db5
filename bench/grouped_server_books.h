#pragma once

#include "bench/raw_server.h"

namespace bench {

/// Fills new books on a server with what GroupedBooks holds.
void fillGroupedBooks(RawServer& server, int accounts);

}  // namespace bench
