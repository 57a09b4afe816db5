#include "books/carrying/repeat_plan.h"

#include <fmt/format.h>

#include <cmath>
#include <string_view>

#include "base/values/numbers.h"
#include "books/carrying/carry_texts.h"
#include "opening/editing/typed_amount.h"

namespace chengheng {
namespace {

std::set<std::string_view> codesOf(const YearEnd& year) {
    std::set<std::string_view> codes;
    for (const ClosedAccount& account : year.accounts) codes.insert(account.code);
    return codes;
}

/// What stands in the way of one difference.
class Obstacles {
  public:
    Obstacles(const YearEnd& before, const YearEnd& now, const MembersOfYears& members,
              const std::set<std::int32_t>& withEntries)
        : m_before(before),
          m_now(now),
          m_codesBefore(codesOf(before)),
          m_codesNow(codesOf(now)),
          m_members(members),
          m_withEntries(withEntries) {}

    std::vector<CarryObstacle> of(const CarryDifference& difference) {
        m_found.clear();
        m_difference = &difference;
        const ClosedAccount* const was = findAccount(m_before, difference.accountBefore);
        const ClosedAccount* const is = findAccount(m_now, difference.accountNow);
        if (is == nullptr && m_codesNow.contains(difference.code)) {
            add(ObstacleKind::noEnd, carry_texts::noEnd);
        } else if (is == nullptr) {
            add(ObstacleKind::removed, carry_texts::removed);
        } else if (was == nullptr && m_codesBefore.contains(difference.code)) {
            add(ObstacleKind::wasNoEnd, carry_texts::wasNoEnd);
        } else if (was == nullptr) {
            add(ObstacleKind::added, carry_texts::added);
        } else {
            compare(*was, *is);
        }
        return std::move(m_found);
    }

  private:
    void compare(const ClosedAccount& was, const ClosedAccount& is) {
        if (was.isDebit != is.isDebit)
            m_found.push_back({ObstacleKind::turned, is.code,
                               fmt::format(carry_texts::turned, is.code, is.name,
                                           directionText(was.isDebit), directionText(is.isDebit)),
                               is.name});
        if (was.isDoubled) add(ObstacleKind::doubled, carry_texts::doubled);
        if (was.isCutShort) add(ObstacleKind::cutShort, carry_texts::cutShort);
        if (!(std::fabs(m_difference->closing) < leastTooLarge))
            add(ObstacleKind::tooLarge, carry_texts::tooLarge);
        const bool isForeign = m_difference->counted == Measure::foreign;
        if (isForeign && m_difference->closing != 0 && was.currency != is.currency)
            add(ObstacleKind::otherCurrency, carry_texts::otherCurrency);
        const AuxiliaryKind kind = auxiliaryKindOf(is.letters);
        if (auxiliaryKindOf(was.letters) != kind)
            add(ObstacleKind::otherDimensions, carry_texts::otherDimensions);
        if (m_withEntries.contains(is.id)) add(ObstacleKind::hasEntries, carry_texts::hasEntries);
        if (m_difference->of) compareDetail(kind);
    }

    void compareDetail(AuxiliaryKind kind) {
        if (kind == AuxiliaryKind::none) add(ObstacleKind::notAuxiliary, carry_texts::notAuxiliary);
        const char* const missing =
            m_difference->closing == 0
                ? nullptr
                : Members::firstMissing(*m_difference->of, m_members.before, m_members.now);
        if (missing != nullptr)
            m_found.push_back({ObstacleKind::memberMissing, m_difference->code,
                               fmt::format(carry_texts::memberMissing, m_difference->code,
                                           m_difference->name, missing),
                               m_difference->name});
    }

    using AccountText = fmt::format_string<const std::string&, const std::string&>;

    void add(ObstacleKind kind, AccountText text) {
        m_found.push_back({kind, m_difference->code,
                           fmt::format(text, m_difference->code, m_difference->name),
                           m_difference->name});
    }

    const YearEnd& m_before;
    const YearEnd& m_now;
    const std::set<std::string_view> m_codesBefore;
    const std::set<std::string_view> m_codesNow;
    const MembersOfYears& m_members;
    const std::set<std::int32_t>& m_withEntries;
    const CarryDifference* m_difference = nullptr;
    std::vector<CarryObstacle> m_found;
};

/// Whether an amount means in the sheet what it meant in the plan.
bool isSame(const OpeningAccount& account, const ClosedAccount& planned) {
    return account.code == planned.code && account.isDebit == planned.isDebit &&
           account.currency == planned.currency &&
           account.auxiliary == auxiliaryKindOf(planned.letters);
}

/// The account of the sheet that a difference belongs to; null where it is another by now.
const OpeningAccount* accountOf(const CarryDifference& difference, const RepeatPlan& plan,
                                const OpeningSheet& sheet) {
    const auto place = sheet.placeOfId(difference.accountNow);
    const ClosedAccount* const planned = findAccount(plan.now, difference.accountNow);
    if (!place || planned == nullptr || !isSame(sheet.accounts()[*place], *planned)) return nullptr;
    return &sheet.accounts()[*place];
}

/// What a figure of the sheet counts as: what the plan saw, unless it has changed since.
double seen(const CarryDifference& difference, double figure) {
    double rounded = figure;
    Round(rounded, decimalsOf(difference.counted));
    return rounded == difference.opening ? figure : difference.opening;
}

EntryFigures onlyOf(Measure measure, double value) {
    EntryFigures figures;
    figures.*figureOf(measure) = value;
    return figures;
}

/// What the opening balance of books that begin mid-year becomes with their year-start balance.
double movedOpening(const Balance& balance, const CarryDifference& difference) {
    FigureSums sums;
    for (const double each : {balance.opening, difference.closing, -balance.yearStart})
        sums.add(onlyOf(difference.counted, each));
    return sums.total().*figureOf(difference.counted);
}

}  // namespace

std::size_t RepeatPlan::accounts() const {
    std::set<std::string_view> codes;
    for (const CarryDifference& each : carried) codes.insert(each.code);
    return codes.size();
}

std::string RepeatPlan::text(bool isDone) const {
    std::string words = carry_texts::nothingToRepeat;
    if (!carried.empty())
        words = isDone ? fmt::format(carry_texts::repeated, carried.size(), accounts())
                       : fmt::format(carry_texts::repeatable, carried.size(), accounts());
    return left.empty() ? words : words + fmt::format(carry_texts::leftOut, left.size());
}

RepeatPlan planRepeat(const YearEnd& before, YearEnd now, const MembersOfYears& members,
                      const std::set<std::int32_t>& withEntries) {
    RepeatPlan plan;
    Obstacles obstacles(before, now, members, withEntries);
    std::vector<CarryDifference> differences = compareYears(before, now, members.now);
    std::set<std::string> inTheWay;
    std::set<std::string> told;
    for (const CarryDifference& difference : differences) {
        for (CarryObstacle& obstacle : obstacles.of(difference)) {
            inTheWay.insert(obstacle.code);
            if (told.insert(obstacle.text).second) plan.obstacles.push_back(std::move(obstacle));
        }
    }
    for (CarryDifference& difference : differences) {
        auto& list = inTheWay.contains(difference.code) ? plan.left : plan.carried;
        list.push_back(std::move(difference));
    }
    plan.now = std::move(now);
    return plan;
}

EditStep repeatStep(const RepeatPlan& plan, const OpeningSheet& sheet) {
    EditStep step;
    const BalanceFigure carriedTo = sheet.figures().front();
    std::set<std::int32_t> changed;
    for (const CarryDifference& difference : plan.carried) {
        const OpeningAccount* const account = accountOf(difference, plan, sheet);
        if (account == nullptr) {
            step.push_back({.after = difference.closing, .isCarried = true});
            continue;
        }
        const auto add = [&](Measure measure, BalanceFigure figure, double before, double after) {
            step.push_back({.accountId = account->id,
                            .measure = measure,
                            .figure = figure,
                            .before = before,
                            .after = after,
                            .isWorkedOut = figure != carriedTo,
                            .isCarried = true});
        };
        // The details of an account come behind its own figures.
        const bool isFirst = changed.insert(account->id).second;
        const Balance& balance = account->balance(difference.counted);
        const double money = account->balance(Measure::money).*carriedTo;
        if (difference.of && isFirst) add(Measure::money, carriedTo, money, money);
        if (difference.of) continue;
        add(difference.counted, carriedTo, seen(difference, balance.*carriedTo),
            difference.closing);
        if (carriedTo != &Balance::opening)
            add(difference.counted, &Balance::opening, balance.opening,
                movedOpening(balance, difference));
    }
    return step;
}

}  // namespace chengheng
