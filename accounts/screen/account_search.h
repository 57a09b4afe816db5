#pragma once

#include <string>
#include <string_view>

namespace chengheng {

/// What is typed into the search beside the chart: the beginning of a code, a part of a name
/// or the beginning of a mnemonic, in any case, blanks around it left aside.
class AccountSearch {
  public:
    explicit AccountSearch(std::string_view typed);

    /// Nothing was typed: every account matches.
    bool isEmpty() const { return m_text.empty(); }
    bool matches(std::string_view code, std::string_view name, std::string_view mnemonic) const;

  private:
    std::string m_text;
};

}  // namespace chengheng
