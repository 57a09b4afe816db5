#include "currency/currency_change.h"

#include <fmt/format.h>

#include "base/messages/held_messages.h"
#include "currency/currency_texts.h"
#include "data/lookups/CGetData.h"
#include "session/CyrencyIsExist.h"
#include "session/host_messages.h"

namespace chengheng {
namespace {

constexpr LockLists lockLists{WriteRight::currencies, "Code", "Cyrency ExchgFix ExchgFlt"};  // sic

}  // namespace

Outcome changeCurrencies(IMessages& messages, const ChangeWords& words,
                         const std::function<UntoldOutcome()>& work) {
    HeldMessages held(messages);
    const HeldMessages::Hold untilUnlocked(held);
    const HostMessages installed(held);
    return changeRecords(held, lockLists, words, work);
}

UntoldOutcome currencyStillThere(int id) {
    const int existence = CyrencyIsExist(id);
    if (existence == 0) return UntoldOutcome::done();
    return {existence > 0 ? Outcome::stale : Outcome::failed};
}

const char* titleOf(RateKind kind) {
    return kind == RateKind::fixed ? currency_texts::fixedRate : currency_texts::floatingRate;
}

std::string loggedName(const _CyrencyInfo& currency) {
    return fmt::format(currency_texts::symbolAndName, currency.sExchCode, currency.sExchName);
}

std::string loggedName(int currency) {
    const _CyrencyInfo* const known = CGetData::GetCYRENCYINFOByExchId(currency);
    return known != nullptr ? loggedName(*known) : fmt::format(currency_texts::numbered, currency);
}

}  // namespace chengheng
