#pragma once

#include <functional>

namespace chengheng {

/// The result (0 to 254) of an action done by a process without an administrator's powers,
/// which would write any file.
int asOrdinaryUser(const std::function<int()>& act);

}  // namespace chengheng
