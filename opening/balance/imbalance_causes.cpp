#include "opening/balance/imbalance_causes.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

#include "base/values/numbers.h"
#include "opening/sheet/opening_texts.h"

namespace chengheng {
namespace {

namespace texts = opening_texts;

constexpr std::size_t mostOfAKind = 20;
constexpr double largestInCents = 9e15;

using Cents = std::int64_t;

Cents centsOf(double amount) { return std::llround(amount * 100); }

double amountOf(Cents cents) { return static_cast<double>(cents) / 100; }

std::string shown(double amount) { return ftoaWithSap(amount, 2); }

/// Two neighbouring digits exchanged, or the point shifted by one place, so that the amount
/// becomes the wanted one.
bool isMisplaced(Cents cents, Cents wanted) {
    if ((cents < 0) != (wanted < 0)) return false;
    const Cents given = std::abs(cents);
    const Cents right = std::abs(wanted);
    if (right == 0 || given == right) return false;
    if (given == right * 10 || right == given * 10) return true;
    for (Cents power = 1; power <= std::max(given, right) / 10; power *= 10) {
        const Cents low = given / power % 10;
        const Cents high = given / power / 10 % 10;
        if (given + (low - high) * power * 10 + (high - low) * power == right) return true;
    }
    return false;
}

/// One account that counts in the trial balance.
struct Candidate {
    const OpeningSheet& sheet;
    const OpeningAccount& account;
    const TrialBalance::ClassSum& accountClass;
    Cents part;     ///< what it adds to debits less credits
    Cents surplus;  ///< of the books

    Cents wantedOpening() const {
        const Cents wanted = part - surplus;
        return account.isDebit ? wanted : -wanted;
    }
    bool disagrees() const {
        for (const Measure measure : measures)
            if (const auto line = sheet.lineOf(*sheet.placeOfId(account.id), measure))
                if (sheet.disagrees(*line)) return true;
        return false;
    }
};

using AmountText = fmt::format_string<const std::string&, const std::string&, std::string>;

std::string withAmount(AmountText format, const Candidate& of) {
    return fmt::format(format, of.account.code, of.account.name, shown(of.account.opening()));
}

/// A cause that an account may be, and what is said of it.
struct CauseTest {
    ImbalanceKind kind;
    bool (*holds)(const Candidate& of);
    std::string (*text)(const Candidate& of);
};

constexpr std::array causeTests{
    CauseTest{ImbalanceKind::wrongSide,
              [](const Candidate& of) { return of.part * 2 == of.surplus; },
              [](const Candidate& of) { return withAmount(texts::wrongSide, of); }},
    CauseTest{ImbalanceKind::equalsDifference,
              [](const Candidate& of) { return of.part == of.surplus; },
              [](const Candidate& of) { return withAmount(texts::equalsDifference, of); }},
    CauseTest{ImbalanceKind::misplacedDigits,
              [](const Candidate& of) {
                  return isMisplaced(centsOf(of.account.opening()), of.wantedOpening());
              },
              [](const Candidate& of) {
                  return fmt::format(texts::misplacedDigits, of.account.code, of.account.name,
                                     shown(of.account.opening()),
                                     shown(amountOf(of.wantedOpening())));
              }},
    CauseTest{ImbalanceKind::missingOnSide,
              [](const Candidate& of) { return of.part == -of.surplus; },
              [](const Candidate& of) { return withAmount(texts::missingOnSide, of); }},
    CauseTest{ImbalanceKind::figuresDisagree, [](const Candidate& of) { return of.disagrees(); },
              [](const Candidate& of) {
                  return fmt::format(texts::figuresDisagree, of.account.code, of.account.name);
              }},
};

/// Of an auxiliary account; any other counts for itself.
double sumOfDetails(const OpeningAccount& account, const AuxiliaryOpenings* details) {
    if (details == nullptr || !account.isAuxiliary()) return account.opening();
    const auto found = details->find(account.id);
    return found == details->end() ? 0 : found->second;
}

bool isOther(double sum, double opening) {
    return std::fabs(sum) * 100 > largestInCents || centsOf(sum) != centsOf(opening);
}

std::string detailsText(const OpeningAccount& account, double sum) {
    return fmt::format(texts::detailsDiffer, account.code, account.name, shown(account.opening()),
                       shown(sum));
}

std::string notCountedText(const OpeningAccount& account) {
    return fmt::format(texts::notCounted, account.code, account.name, account.type,
                       shown(account.opening()));
}

std::size_t countOf(const std::vector<ImbalanceCause>& causes, ImbalanceKind kind) {
    return static_cast<std::size_t>(std::ranges::count(causes, kind, &ImbalanceCause::kind));
}

}  // namespace

std::vector<ImbalanceCause> imbalanceCauses(const OpeningSheet& sheet, const TrialBalance& balance,
                                            const AuxiliaryOpenings* details) {
    if (balance.isBalanced() || balance.difference() * 100 > largestInCents) return {};
    std::vector<ImbalanceCause> causes;
    const Cents surplus = centsOf(balance.surplus());
    const auto add = [&causes](ImbalanceKind kind, std::size_t place, std::string text) {
        if (countOf(causes, kind) < mostOfAKind) causes.push_back({kind, place, std::move(text)});
    };
    for (std::size_t place = 0; place < sheet.accounts().size(); ++place) {
        const OpeningAccount& account = sheet.accounts()[place];
        if (!account.isEnd || std::fabs(account.opening()) * 100 > largestInCents) continue;
        if (const double sum = sumOfDetails(account, details); isOther(sum, account.opening()))
            add(ImbalanceKind::detailsDiffer, place, detailsText(account, sum));
        if (account.opening() == 0) continue;
        const auto accountClass =
            std::ranges::find(balance.classes(), account.type, &TrialBalance::ClassSum::name);
        if (accountClass == balance.classes().end()) {
            add(ImbalanceKind::notCounted, place, notCountedText(account));
            continue;
        }
        const Cents cents = centsOf(account.opening());
        const Candidate candidate{sheet, account, *accountClass, account.isDebit ? cents : -cents,
                                  surplus};
        for (const CauseTest& test : causeTests)
            if (test.holds(candidate)) add(test.kind, place, test.text(candidate));
    }
    if (surplus != 0 && surplus % 9 == 0 && countOf(causes, ImbalanceKind::misplacedDigits) == 0)
        causes.push_back({ImbalanceKind::divisibleByNine, std::nullopt,
                          fmt::format(texts::divisibleByNine, shown(balance.difference()))});
    std::ranges::stable_sort(causes, {}, &ImbalanceCause::kind);
    return causes;
}

}  // namespace chengheng
