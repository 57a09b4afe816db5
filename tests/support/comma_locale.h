#pragma once

#include <string>

namespace chengheng {

/// While it lives, the C library of this process writes 1234.5 as "1234,5", as a program does
/// that took its locale from a German desktop.
class CommaLocale {
  public:
    CommaLocale();
    ~CommaLocale();
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;

  private:
    std::string m_before;
};

}  // namespace chengheng
