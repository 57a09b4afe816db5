#include "session/open_books.h"

#include "data/access/CNbCwDB.h"
#include "data/access/host_database.h"

namespace chengheng {

bool selectOpenBooks() { return g_pDB != nullptr && g_pDB->DBSelect(g_lpszNbZwDBName) != 0; }

}  // namespace chengheng
