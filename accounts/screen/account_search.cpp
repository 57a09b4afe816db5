#include "accounts/screen/account_search.h"

#include "base/values/text.h"

namespace chengheng {

AccountSearch::AccountSearch(std::string_view typed) : m_text(withoutBlanksAround(typed)) {}

bool AccountSearch::matches(std::string_view code, std::string_view name,
                            std::string_view mnemonic) const {
    const auto begins = [this](std::string_view text) {
        return isSameInAnyCase(text.substr(0, m_text.size()), m_text);
    };
    return begins(code) || containsInAnyCase(name, m_text) || begins(mnemonic);
}

}  // namespace chengheng
