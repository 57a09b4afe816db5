#pragma once

#include "opening/storing/opening_reading.h"

namespace chengheng {

/// Writes the rolled-up figures of every account that has others below it, in one unit of work:
/// rows that carry nothing are swept away, the figures of the end accounts are read as they are
/// stored now, and the rows of the accounts above follow from them. An account whose sum became
/// zero keeps its rows until the next sweep. Where vouchers are there nothing is written. Gives
/// what was read, or on failure leaves it.
Status saveOpeningBooks(CNbCwDB& database, OpeningBooks& books);

/// The last part of it: the rows of all accounts above end accounts, by the sheet's figures.
Status postParents(CNbCwDB& database, const OpeningSheet& sheet);

}  // namespace chengheng
