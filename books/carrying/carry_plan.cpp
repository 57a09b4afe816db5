#include "books/carrying/carry_plan.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <span>

#include "books/carrying/carry_texts.h"
#include "opening/editing/typed_amount.h"

namespace chengheng {
namespace {

bool isTooLarge(const EntryFigures& figures) {
    return !(std::fabs(figures.money) < leastTooLarge &&
             std::fabs(figures.foreign) < leastTooLarge &&
             std::fabs(figures.quantity) < leastTooLarge);
}

/// Compares the accounts of two years, both in the order of their ids.
class Planner {
  public:
    Planner(const YearEnd& end, const OpeningSheet& sheet, const MembersOfYears& members)
        : m_end(end), m_accounts(sheet.accounts()), m_members(members) {
        for (std::size_t place = 0; place < m_accounts.size(); ++place)
            if (carriesBalance(m_accounts[place].type)) m_places.push_back(place);
        std::ranges::sort(m_places, {}, [this](std::size_t place) { return m_accounts[place].id; });
    }

    CarryPlan plan() {
        m_plan.isEmpty = m_end.accounts.empty() && m_places.empty();
        compareCharts();
        m_plan.hasDifferingCharts = !m_plan.obstacles.empty();
        for (const std::size_t place : m_places) {
            const ClosedAccount* const closed = findAccount(m_end, m_accounts[place].id);
            if (closed != nullptr) carry(place, *closed);
        }
        std::ranges::sort(m_plan.accounts, {}, &CarriedAccount::place);
        std::ranges::stable_sort(m_plan.obstacles, {}, &CarryObstacle::code);
        return std::move(m_plan);
    }

  private:
    void compareCharts() {
        std::map<std::string_view, const ClosedAccount*> byCode;
        for (const ClosedAccount& account : m_end.accounts) byCode[account.code] = &account;
        for (const std::size_t place : m_places) {
            const OpeningAccount& account = m_accounts[place];
            const ClosedAccount* const closed = findAccount(m_end, account.id);
            if (closed != nullptr && closed->code != account.code)
                add(ObstacleKind::recoded, *closed,
                    fmt::format(carry_texts::recoded, closed->code, closed->name, account.code));
            if (closed != nullptr) continue;
            const bool isKnown = byCode.contains(account.code);
            if (isKnown) m_otherIdentities.insert(account.code);
            m_plan.obstacles.push_back(
                {isKnown ? ObstacleKind::otherIdentity : ObstacleKind::added, account.code,
                 isKnown ? fmt::format(carry_texts::otherIdentity, account.code, account.name)
                         : fmt::format(carry_texts::added, account.code, account.name),
                 account.name});
        }
        for (const ClosedAccount& closed : m_end.accounts) {
            if (isThisYears(closed.id) || m_otherIdentities.contains(closed.code)) continue;
            add(ObstacleKind::removed, closed,
                fmt::format(carry_texts::removed, closed.code, closed.name));
        }
    }

    bool isThisYears(std::int32_t id) const {
        const auto idAt = [this](std::size_t place) { return m_accounts[place].id; };
        return std::ranges::binary_search(m_places, id, {}, idAt);
    }
    void carry(std::size_t place, const ClosedAccount& closed) {
        const OpeningAccount& account = m_accounts[place];
        if (account.isDebit != closed.isDebit)
            add(ObstacleKind::turned, closed,
                fmt::format(carry_texts::turned, closed.code, closed.name,
                            directionText(closed.isDebit), directionText(account.isDebit)));
        if (!closed.isEnd) return;
        if (closed.isDoubled)
            add(ObstacleKind::doubled, closed,
                fmt::format(carry_texts::doubled, closed.code, closed.name));
        if (closed.isCutShort)
            add(ObstacleKind::cutShort, closed,
                fmt::format(carry_texts::cutShort, closed.code, closed.name));
        if (!(closed.closing == EntryFigures())) {
            compareAccounts(account, closed, closed.closing);
            m_plan.accounts.push_back({place, closed.closing});
        }
        if (auxiliaryKindOf(closed.letters) != AuxiliaryKind::none) carryDetails(account, closed);
    }

    /// Whether figures mean in this year's account what they meant in last year's.
    void compareAccounts(const OpeningAccount& account, const ClosedAccount& closed,
                         const EntryFigures& figures) {
        if (isTooLarge(figures))
            add(ObstacleKind::tooLarge, closed,
                fmt::format(carry_texts::tooLarge, closed.code, closed.name));
        if (!account.isEnd)
            add(ObstacleKind::noEnd, closed,
                fmt::format(carry_texts::noEnd, closed.code, closed.name));
        if (figures.foreign != 0 && account.currency != closed.currency)
            add(ObstacleKind::otherCurrency, closed,
                fmt::format(carry_texts::otherCurrency, closed.code, closed.name));
        if (account.auxiliary != auxiliaryKindOf(closed.letters))
            add(ObstacleKind::otherDimensions, closed,
                fmt::format(carry_texts::otherDimensions, closed.code, closed.name));
    }

    /// Details may make up for each other, so that the account itself has no figures.
    void carryDetails(const OpeningAccount& account, const ClosedAccount& closed) {
        const auto details =
            std::ranges::equal_range(m_end.details, closed.id, {}, &ClosedDetail::account);
        for (const ClosedDetail& detail : details) {
            compareAccounts(account, closed, detail.closing);
            const char* const missing =
                Members::firstMissing(detail.of, m_members.before, m_members.now);
            if (missing != nullptr)
                add(ObstacleKind::memberMissing, closed,
                    fmt::format(carry_texts::memberMissing, closed.code, closed.name, missing));
            m_plan.details.push_back(detail);
        }
    }

    /// Once for each account and reason.
    void add(ObstacleKind kind, const ClosedAccount& account, std::string text) {
        if (m_told.insert(text).second)
            m_plan.obstacles.push_back({kind, account.code, std::move(text), account.name});
    }

    const YearEnd& m_end;
    std::span<const OpeningAccount> m_accounts;
    const MembersOfYears& m_members;
    std::vector<std::size_t> m_places;             ///< of the accounts that carry a balance, by id
    std::set<std::string_view> m_otherIdentities;  ///< codes of accounts with another id
    std::set<std::string> m_told;
    CarryPlan m_plan;
};

}  // namespace

std::string CarryObstacle::reason() const {
    const std::string_view separator = ":";
    const std::string account = code + ' ' + name + std::string(separator);
    return text.starts_with(account) ? text.substr(account.size()) : text;
}

const char* directionText(bool isDebit) {
    return isDebit ? carry_texts::debit : carry_texts::credit;
}

CarryPlan planCarry(const YearEnd& end, const OpeningSheet& sheet, const MembersOfYears& members) {
    return Planner(end, sheet, members).plan();
}

void putCarried(const CarryPlan& plan, OpeningSheet& sheet) {
    for (const CarriedAccount& carried : plan.accounts) {
        const auto put = [&](Measure measure, double closing) {
            // Nothing was moved in the new year: it starts with what it opens with.
            Balance& balance = sheet.accounts()[carried.place].balance(measure);
            balance = {.yearStart = closing, .opening = closing};
        };
        put(Measure::money, carried.closing.money);
        put(Measure::foreign, carried.closing.foreign);
        put(Measure::quantity, carried.closing.quantity);
    }
    sheet.rollUp();
}

}  // namespace chengheng
