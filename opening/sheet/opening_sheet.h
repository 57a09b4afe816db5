#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "data/tables/balances.h"
#include "opening/sheet/opening_account.h"
#include "opening/sheet/opening_columns.h"

namespace chengheng {

/// A line of the sheet: an account's main line, or one of its extra lines, which follow it.
struct OpeningLine {
    std::uint32_t account = 0;  ///< place of the account in the sheet
    Measure measure = Measure::money;

    bool isMain() const { return measure == Measure::money; }
};

/// What the colour of a line says. The legend shows all three.
enum class LineRole : std::uint8_t { parent, endAccount, auxiliary };

/// A currency as the lines of its accounts name it.
struct OpeningCurrency {
    std::int32_t id = 0;
    std::string name;
};

/// The opening balances as the window shows them, without a screen: the whole chart in code
/// order, with extra lines where an account keeps foreign currency or quantity. It holds the
/// figures; who writes them into the books is the posting's business.
class OpeningSheet {
  public:
    OpeningSheet() = default;
    /// The accounts come in code order; their first lines are set here.
    OpeningSheet(OpeningLayout layout, std::vector<OpeningAccount> accounts,
                 std::vector<OpeningCurrency> currencies);

    OpeningLayout layout() const { return m_layout; }
    std::span<const OpeningColumn> columns() const { return openingColumns(m_layout); }
    std::span<const BalanceFigure> figures() const { return figuresOf(m_layout); }
    /// Vouchers are there: the figures are only looked at.
    bool isBrowsing() const { return m_isBrowsing; }
    void setBrowsing(bool isBrowsing) { m_isBrowsing = isBrowsing; }

    std::span<OpeningAccount> accounts() { return m_accounts; }
    std::span<const OpeningAccount> accounts() const { return m_accounts; }
    /// The place of the account of an id or a code; nothing when the sheet has none.
    std::optional<std::size_t> placeOfId(std::int32_t id) const;
    std::optional<std::size_t> placeOfCode(std::string_view code) const;

    std::size_t lineCount() const { return m_lines.size(); }
    const OpeningLine& line(std::size_t line) const { return m_lines[line]; }
    const OpeningAccount& accountOfLine(std::size_t line) const {
        return m_accounts[m_lines[line].account];
    }
    /// The account's line of a measure; nothing when it does not keep it.
    std::optional<std::size_t> lineOf(std::size_t place, Measure measure) const;

    /// What is read in a cell; columns count from 0.
    std::string text(std::size_t line, std::size_t column) const;
    /// The number in a cell; 0 where a text stands.
    double number(std::size_t line, std::size_t column) const;
    LineRole role(std::size_t line) const;
    /// 4 on a main line that two extra lines follow, 3 and 2 where one does; 2 on the quantity
    /// line itself.
    int marker(std::size_t line) const;

    /// Whether a figure may be typed there.
    bool isEditable(std::size_t line, std::size_t column) const;
    /// Whether a double-click there opens an auxiliary window.
    bool opensAuxiliary(std::size_t line, std::size_t column) const;
    /// Whether the four figures of an end account's line do not agree. Never in the simple layout.
    bool disagrees(std::size_t line) const;

    /// The next editable line in that direction (1 down, -1 up), for a key that moves on.
    std::optional<std::size_t> nextEditable(std::size_t line, int direction) const;
    /// The next main line after one, then from the top, whose code begins with the text or whose
    /// name holds it.
    std::optional<std::size_t> find(std::string_view text, std::optional<std::size_t> after) const;
    /// The same backwards from before a line, then from the bottom.
    std::optional<std::size_t> findBefore(std::string_view text, std::size_t before) const;

    /// Sets the figures of the accounts that have others below them to the sums of those.
    void rollUp();
    /// The same for what an account counts for, when only its figures have changed.
    void rollUpAround(std::size_t place);

  private:
    bool isMatch(std::size_t line, std::string_view text) const;
    std::string unitText(const OpeningLine& line) const;
    std::string figureText(const OpeningLine& line, BalanceFigure figure) const;
    double hiddenFigure(const OpeningLine& line, Measure measure) const;
    void indexAccounts();
    void addLines();

    OpeningLayout m_layout = OpeningLayout::simple;
    bool m_isBrowsing = false;
    bool m_isRolledUp = false;
    std::vector<OpeningAccount> m_accounts;
    std::vector<OpeningLine> m_lines;
    std::vector<OpeningCurrency> m_currencies;
    std::vector<std::pair<std::int32_t, std::uint32_t>> m_placesById;  ///< in the order of ids
};

}  // namespace chengheng
