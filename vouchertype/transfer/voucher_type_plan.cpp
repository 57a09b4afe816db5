#include "vouchertype/transfer/voucher_type_plan.h"

#include <fmt/format.h>

#include <optional>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "base/values/text.h"
#include "vouchertype/transfer/voucher_type_sheet.h"
#include "vouchertype/transfer/voucher_type_transfer_texts.h"
#include "vouchertype/voucher_type_rules.h"

namespace chengheng {
namespace {

namespace texts = voucher_type_transfer_texts;
namespace columns = voucher_type_columns;

std::size_t columnOfField(std::string_view field) {
    if (field == voucherTypeNumberField) return columns::number;
    if (field == voucherTypeNameField) return columns::name;
    if (field == accountOneField) return columns::accountOne;
    return field == accountTwoField ? columns::accountTwo : columns::restriction;
}

/// A kind by its name in a sheet; nothing for what is none.
std::optional<std::uint8_t> kindNamed(const std::string& text) {
    for (const auto kind : {RestrictionKind::none, RestrictionKind::debitRequired,
                            RestrictionKind::creditRequired, RestrictionKind::bothForbidden})
        if (text == sheetRestriction(stored(kind))) return stored(kind);
    return std::nullopt;
}

/// Why a row is refused, and at which column.
struct Reason {
    std::string text;
    std::size_t column = 0;
};

/// The fields of the window take no more than so many characters, of one line.
std::optional<Reason> unfitText(const std::string& text, std::size_t column, int limit) {
    const char* heading = columns::wanted[column].heading;
    if (text.empty()) return Reason{fmt::format(texts::empty, heading), column};
    if (printableLine(text) != text) return Reason{fmt::format(texts::unshowable, heading), column};
    if (characterCount(text) > static_cast<std::size_t>(limit))
        return Reason{fmt::format(texts::tooLong, heading, limit), column};
    return std::nullopt;
}

/// Decides on the rows one by one.
class VoucherTypePlanner {
  public:
    VoucherTypePlanner(const HeadedSheet& sheet, const VoucherTypeState& state)
        : m_sheet(sheet),
          m_accounts(state.firstLevelAccounts.begin(), state.firstLevelAccounts.end()) {
        for (const _SignInfo& type : state.types) m_types[type.sSign].push_back(&type);
    }

    VoucherTypePlan plan() {
        m_plan.ignored = m_sheet.ignoredHeadings();
        m_plan.rows.reserve(m_sheet.rows().size());
        for (const std::size_t row : m_sheet.rows()) m_plan.rows.push_back(planRow(row));
        return std::move(m_plan);
    }

  private:
    PlannedRow planRow(std::size_t row) {
        const std::string number = textOf(row, columns::number);
        const auto found = m_types.find(number);
        const bool isThere = found != m_types.end();
        const _SignInfo loaded = isThere ? *found->second.front() : _SignInfo{};
        _SignInfo wanted = loaded;
        if (!isThere) wanted.sSign = number;
        const auto reason = takeOver(row, wanted);
        PlannedRow planned{.row = row, .code = number, .name = wanted.sSignName};
        if (const auto twice = sharedNumber(row, number)) return refuse(planned, *twice);
        if (isThere && !reason && wanted == loaded) {
            planned.fate = RowFate::unchanged;
            return planned;
        }
        if (const auto wrong = check(tidied(wanted), loaded, reason))
            return refuse(planned, *wrong);
        planned.fate = isThere ? RowFate::changed : RowFate::added;
        (isThere ? m_plan.changed : m_plan.added).push_back(tidied(std::move(wanted)));
        return planned;
    }

    std::string textOf(std::size_t row, std::size_t column) const {
        return m_sheet.text(row, column).value_or("");
    }

    /// What a row says of a type; gives what of it is not understood. Blanks around what is stored
    /// already are no other text.
    std::optional<Reason> takeOver(std::size_t row, _SignInfo& type) const {
        if (const auto name = m_sheet.text(row, columns::name);
            name && *name != withoutBlanksAround(type.sSignName))
            type.sSignName = *name;
        const std::string kind = textOf(row, columns::restriction);
        if (!kind.empty() && kind != sheetRestriction(type.byLimit)) {
            const auto named = kindNamed(kind);
            if (!named)
                return Reason{fmt::format(texts::restrictionUnknown, kind), columns::restriction};
            if (*named == stored(RestrictionKind::none)) setRestricted(type, false);
            type.byLimit = *named;
        }
        auto wrong = takeAccount(row, columns::accountOne, kind, type, type.sCode1);
        if (!wrong) wrong = takeAccount(row, columns::accountTwo, kind, type, type.sCode2);
        return wrong;
    }

    /// Where the row names a kind, an empty cell says that there is no such account.
    std::optional<Reason> takeAccount(std::size_t row, std::size_t column, const std::string& kind,
                                      const _SignInfo& type, std::string& account) const {
        const auto text = m_sheet.text(row, column);
        if (!text || (text->empty() && (kind.empty() || !isRestricted(type)))) return std::nullopt;
        if (!isRestricted(type)) return Reason{texts::accountsUnrestricted, column};
        if (*text != withoutBlanksAround(account)) account = *text;
        return std::nullopt;
    }

    /// Of a row before, or of several types in the books.
    std::optional<Reason> sharedNumber(std::size_t row, const std::string& number) {
        if (number.empty()) return std::nullopt;
        const auto [first, isNew] = m_rowsOfNumbers.try_emplace(number, row);
        if (!isNew) return Reason{fmt::format(texts::numberTwice, first->second), columns::number};
        const auto found = m_types.find(number);
        const std::size_t count = found == m_types.end() ? 0 : found->second.size();
        if (count < 2) return std::nullopt;
        return Reason{fmt::format(texts::numberShared, count, number), columns::number};
    }

    /// The texts first, then what of the row is not understood, then as the window does.
    std::optional<Reason> check(const _SignInfo& wanted, const _SignInfo& loaded,
                                const std::optional<Reason>& notUnderstood) const {
        if (auto unfit = unfitText(wanted.sSign, columns::number, voucherTypeNumberWidth))
            return unfit;
        if (auto unfit = unfitText(wanted.sSignName, columns::name, voucherTypeNameWidth))
            return unfit;
        if (notUnderstood) return notUnderstood;
        const auto isFirstLevel = [&](std::string_view code) {
            const bool isLeftOut = code.empty() && !wanted.sCode1.empty();
            return isLeftOut || m_accounts.contains(std::string(code));
        };
        const auto refusal =
            firstRefusal(voucherTypeChecks(), {.wanted = wanted,
                                               .loaded = loaded,
                                               .isLoadedUsed = [] { return false; },
                                               .isNumberTaken = [] { return false; },
                                               .isFirstLevelAccount = isFirstLevel});
        if (!refusal) return std::nullopt;
        return Reason{refusal->notice.text, columnOfField(refusal->notice.focusField)};
    }

    PlannedRow refuse(PlannedRow& planned, const Reason& reason) const {
        planned.fate = RowFate::refused;
        planned.reason = reason.text;
        planned.column = m_sheet.columnOf(reason.column);
        if (planned.column != 0) planned.heading = columns::wanted[reason.column].heading;
        return std::move(planned);
    }

    const HeadedSheet& m_sheet;
    const std::unordered_set<std::string> m_accounts;
    std::unordered_map<std::string, std::vector<const _SignInfo*>> m_types;  ///< by number
    std::unordered_map<std::string, std::size_t> m_rowsOfNumbers;
    VoucherTypePlan m_plan;
};

}  // namespace

VoucherTypePlan planVoucherTypes(const HeadedSheet& sheet, const VoucherTypeState& state) {
    return VoucherTypePlanner(sheet, state).plan();
}

}  // namespace chengheng
