#include "opening/sheet/roll_up.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "base/values/exact_sum.h"
#include "base/values/numbers.h"

namespace chengheng {
namespace {

/// The sums of one account that is open: whatever comes now may lie below it.
class OpenAccount {
  public:
    explicit OpenAccount(std::size_t place) : m_place(place) {}

    std::size_t place() const { return m_place; }

    void add(const OpeningAccount& account, std::span<const BalanceFigure> figures) {
        for (std::size_t at = 0; at < figures.size(); ++at) {
            m_money[at].add(account.balance(Measure::money).*figures[at]);
            if (account.currency != 0)
                m_foreign[at].add(account.balance(Measure::foreign).*figures[at]);
            if (account.hasQuantity)
                m_quantity[at].add(account.balance(Measure::quantity).*figures[at]);
        }
    }
    void add(const OpenAccount& below, std::size_t figureCount) {
        for (std::size_t at = 0; at < figureCount; ++at) {
            m_money[at] += below.m_money[at];
            m_foreign[at] += below.m_foreign[at];
            m_quantity[at] += below.m_quantity[at];
        }
    }
    void put(OpeningAccount& account, std::span<const BalanceFigure> figures) const {
        for (std::size_t at = 0; at < figures.size(); ++at) {
            put(m_money[at], account, Measure::money, figures[at]);
            put(m_foreign[at], account, Measure::foreign, figures[at]);
            put(m_quantity[at], account, Measure::quantity, figures[at]);
        }
    }

  private:
    template <class Sum>
    static void put(const Sum& sum, OpeningAccount& account, Measure measure,
                    BalanceFigure figure) {
        double value = sum.value();
        Round(value, decimalsOf(measure));
        account.balance(measure).*figure = value;
    }

    std::size_t m_place;
    std::array<MoneySum, balanceFigures.size()> m_money{};
    std::array<MoneySum, balanceFigures.size()> m_foreign{};
    std::array<QuantitySum, balanceFigures.size()> m_quantity{};
};

}  // namespace

void rollUp(std::span<OpeningAccount> accounts, OpeningLayout layout) {
    const auto figures = figuresOf(layout);
    std::vector<OpenAccount> open;
    const auto closeLast = [&] {
        const OpenAccount& closing = open.back();
        closing.put(accounts[closing.place()], figures);
        // Sums are exact, so that what is below may be added as a whole.
        if (open.size() > 1) open[open.size() - 2].add(closing, figures.size());
        open.pop_back();
    };
    for (std::size_t place = 0; place < accounts.size(); ++place) {
        const OpeningAccount& account = accounts[place];
        while (!open.empty() && !account.code.starts_with(accounts[open.back().place()].code))
            closeLast();
        if (!account.isEnd)
            open.emplace_back(place);
        else if (!open.empty())
            open.back().add(account, figures);
    }
    while (!open.empty()) closeLast();
}

std::vector<std::size_t> ancestorsOf(std::span<const OpeningAccount> accounts, std::size_t place) {
    std::vector<std::size_t> found;
    const std::string_view code = accounts[place].code;
    for (std::size_t length = code.size(); length-- > 1;) {
        const std::string_view prefix = code.substr(0, length);
        const auto above = std::ranges::lower_bound(
            accounts.first(place), prefix, {},
            [](const OpeningAccount& account) { return std::string_view(account.code); });
        const auto at = static_cast<std::size_t>(above - accounts.begin());
        if (at < place && above->code == prefix && !above->isEnd) found.push_back(at);
    }
    return found;
}

Subtree subtreeAround(std::span<const OpeningAccount> accounts, std::size_t place) {
    const auto above = ancestorsOf(accounts, place);
    const std::size_t first = above.empty() ? place : above.back();
    const std::string_view code = accounts[first].code;
    const auto end = std::partition_point(
        accounts.begin() + static_cast<std::ptrdiff_t>(first), accounts.end(),
        [code](const OpeningAccount& account) { return account.code.starts_with(code); });
    return {first, static_cast<std::size_t>(end - accounts.begin()) - first};
}

}  // namespace chengheng
