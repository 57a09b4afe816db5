#pragma once

#include <locale.h>

namespace chengheng {

/// While it lives, what this thread prints has a point in its numbers, whatever the locale of
/// the program: for libraries that print by themselves.
class PlainLocale {
  public:
    PlainLocale();
    ~PlainLocale();
    PlainLocale(const PlainLocale&) = delete;
    PlainLocale& operator=(const PlainLocale&) = delete;

  private:
    locale_t m_plain;
    locale_t m_before = nullptr;
};

}  // namespace chengheng
