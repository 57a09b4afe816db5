#pragma once

#include <string>
#include <vector>

#include "data/transfer/foreign_objects.h"

namespace chengheng {

/// "触发器“audit”", whatever stands in its name.
std::string nameOf(const ForeignObject& object);

/// What an operator is told of the triggers and views that somebody put into books; empty when
/// there are none.
std::string foreignObjectsText(const std::vector<ForeignObject>& objects,
                               const std::string& location);

}  // namespace chengheng
