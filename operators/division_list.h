#pragma once

#include <string>

#include "operators/operator_rules.h"
#include "report/output/list_printing.h"

namespace chengheng {

/// What an operator may do, in words: "会计科目(全部);出纳(现金日记帐、资金日报)".
std::string rightsInWords(const OperatorRecord& record);

/// The operators with their rights in words and room for a signature, on the page of the division
/// of work.
PrintedList divisionList();

/// Every function, with a column for each operator and a mark where it is granted.
PrintedList rightsMatrix();

}  // namespace chengheng
