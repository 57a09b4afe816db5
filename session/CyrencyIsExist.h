#pragma once

/// Whether a currency is still in the selected database: 0 while it exists, 1 when it is gone,
/// -1 when the database could not be read. Unless it is 0 the operator has been told why.
int CyrencyIsExist(int currencyId);
