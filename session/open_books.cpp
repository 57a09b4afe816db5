#include "session/open_books.h"

#include "data/access/CNbCwDB.h"
#include "data/access/host_database.h"

namespace chengheng {

Status selectOpenBooks() {
    if (g_pDB == nullptr) return Status::of(Failure::notOpen);
    return g_pDB->DBSelect(g_lpszNbZwDBName) != 0 ? Status::done() : g_pDB->lastStatus();
}

}  // namespace chengheng
