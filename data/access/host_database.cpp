#include "data/access/host_database.h"

CNbCwDB* g_pDB = nullptr;
const char* g_lpszNbZwDBName = "";
