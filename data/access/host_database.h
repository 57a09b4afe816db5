#pragma once

class CNbCwDB;

// The open set of books, published by the host for the lookups and for every module. Both
// are never owned by who reads them; with no set of books open the name is empty, not null.

extern CNbCwDB* g_pDB;                ///< the shared data-access object
extern const char* g_lpszNbZwDBName;  ///< what every DBSelect is given
