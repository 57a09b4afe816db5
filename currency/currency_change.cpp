#include "currency/currency_change.h"

#include "base/messages/held_messages.h"
#include "session/CyrencyIsExist.h"
#include "session/host_messages.h"

namespace chengheng {
namespace {

constexpr LockLists lockLists{WriteRight::currencies, "Code", "Cyrency ExchgFix ExchgFlt"};  // sic

}  // namespace

Outcome changeCurrencies(IMessages& messages, const std::function<UntoldOutcome()>& work) {
    HeldMessages held(messages);
    const HeldMessages::Hold untilUnlocked(held);
    const HostMessages installed(held);
    return changeRecords(held, lockLists, work);
}

UntoldOutcome currencyStillThere(int id) {
    const int existence = CyrencyIsExist(id);
    if (existence == 0) return UntoldOutcome::done();
    return {existence > 0 ? Outcome::stale : Outcome::failed};
}

}  // namespace chengheng
