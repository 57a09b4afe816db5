#pragma once

#include "report/output/list_printing.h"

namespace chengheng {

/// The operators with their rights in words and room for a signature, on the page of the division
/// of work.
PrintedList divisionList();

/// Every function, with a column for each operator and a mark where it is granted.
PrintedList rightsMatrix();

}  // namespace chengheng
