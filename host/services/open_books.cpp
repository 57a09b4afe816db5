#include "host/services/open_books.h"

#include "data/CNbCwDB.h"
#include "data/host_database.h"

namespace chengheng {

bool selectOpenBooks() { return g_pDB != nullptr && g_pDB->DBSelect(g_lpszNbZwDBName) != 0; }

}  // namespace chengheng
