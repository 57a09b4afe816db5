#pragma once

#include <string>

namespace chengheng {

/// While it lives, other workstations that wait for a lock held here read this name as the
/// function that the operator is working with; of several, the one begun last.
class FunctionAtWork {
  public:
    explicit FunctionAtWork(std::string name);
    ~FunctionAtWork();
    FunctionAtWork(const FunctionAtWork&) = delete;
    FunctionAtWork& operator=(const FunctionAtWork&) = delete;

  private:
    std::string m_name;
};

}  // namespace chengheng
