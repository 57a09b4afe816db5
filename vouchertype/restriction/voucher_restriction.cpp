#include "vouchertype/restriction/voucher_restriction.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/values/text.h"
#include "vouchertype/restriction/restriction_texts.h"
#include "vouchertype/restriction_kind.h"

namespace chengheng {

namespace texts = restriction_texts;

namespace {

constexpr std::size_t toldLines = 3;

const char* sideName(bool isDebit) { return isDebit ? texts::debit : texts::credit; }

/// One or two; a type that names the same account twice names one.
std::vector<std::string_view> accountsOf(const _SignInfo& type) {
    std::vector<std::string_view> accounts;
    for (const std::string* code : {&type.sCode1, &type.sCode2})
        if (!code->empty() && std::ranges::find(accounts, *code) == accounts.end())
            accounts.emplace_back(*code);
    return accounts;
}

std::string accountText(std::string_view code, const AccountNaming& nameOf) {
    if (code.empty()) return texts::unknownAccount;
    const std::string name = nameOf ? nameOf(code) : std::string();
    return name.empty() ? std::string(code) : fmt::format(texts::account, code, name);
}

using Lines = std::vector<const VoucherLine*>;

/// The first few of the lines, each as it is said, and how many there are.
template <class Saying>
std::string toldAs(const Lines& lines, const Saying& saying) {
    std::string text;
    for (std::size_t at = 0; at < std::min(lines.size(), toldLines); ++at)
        text += (at == 0 ? "" : texts::lineSeparator) + saying(*lines[at]);
    return lines.size() > toldLines ? text + fmt::format(texts::moreLines, lines.size()) : text;
}

/// A restriction of one of the three kinds, held against the lines of a voucher.
class Restriction {
  public:
    Restriction(const _SignInfo& type, const CodeLevels& levels, const AccountNaming& nameOf)
        : m_text(restrictionInWords(type, nameOf)),
          m_accounts(accountsOf(type)),
          m_levels(levels),
          m_nameOf(nameOf) {}

    std::optional<RestrictionBreach> whereRequired(std::span<const VoucherLine> lines,
                                                   bool isDebit) const {
        Lines others;
        Lines withoutAmount;
        for (const VoucherLine& line : lines) {
            if (line.isDebit != isDebit) continue;
            if (isNamed(line) && line.amount != 0) return std::nullopt;
            if (isNamed(line)) withoutAmount.push_back(&line);
            if (line.amount != 0) others.push_back(&line);
        }
        return RestrictionBreach{m_text + whyMissing(others, withoutAmount, sideName(isDebit)), {}};
    }

    std::optional<RestrictionBreach> whereForbidden(std::span<const VoucherLine> lines) const {
        Lines forbidden;
        RestrictionBreach breach;
        for (const VoucherLine& line : lines) {
            if (!isNamed(line) || line.amount == 0) continue;
            forbidden.push_back(&line);
            breach.lines.push_back(line.number);
        }
        if (forbidden.empty()) return std::nullopt;
        const auto saying = [this](const VoucherLine& line) {
            return fmt::format(texts::lineOnSide, line.number, sideName(line.isDebit),
                               accountText(line.account, m_nameOf));
        };
        breach.text = m_text + fmt::format(texts::forbiddenLines, toldAs(forbidden, saying));
        return breach;
    }

  private:
    bool isNamed(const VoucherLine& line) const {
        return std::ranges::find(m_accounts, firstLevelOf(m_levels, line.account)) !=
               m_accounts.end();
    }

    std::string whyMissing(const Lines& others, const Lines& withoutAmount,
                           const char* side) const {
        const auto saying = [this](const VoucherLine& line) {
            return fmt::format(texts::line, line.number, accountText(line.account, m_nameOf));
        };
        if (!withoutAmount.empty())
            return fmt::format(texts::withoutAmount, toldAs(withoutAmount, saying));
        return others.empty() ? fmt::format(texts::sideEmpty, side)
                              : fmt::format(texts::sideHolds, side, toldAs(others, saying));
    }

    std::string m_text;
    std::vector<std::string_view> m_accounts;
    const CodeLevels& m_levels;
    const AccountNaming& m_nameOf;
};

}  // namespace

std::string firstLevelOf(const CodeLevels& levels, std::string_view code) {
    if (!levels.isWellFormed(code)) return std::string(code);
    return std::string(firstCharacters(code, static_cast<std::size_t>(levels.lengthOf(1))));
}

std::string restrictionInWords(const _SignInfo& type, const AccountNaming& nameOf) {
    const char* const kind = restrictionKindText(type.byLimit);
    if (kind == nullptr) return {};
    const auto accounts = accountsOf(type);
    if (accounts.empty()) return kind;
    std::string named = accountText(accounts.front(), nameOf);
    if (accounts.size() > 1)
        named = fmt::format(texts::either, named, accountText(accounts.back(), nameOf));
    return fmt::format(texts::restriction, kind, named);
}

std::string restrictionFault(const _SignInfo& type) {
    if (!isRestrictionKind(type.byLimit)) return fmt::format(texts::kindUnknown, type.byLimit);
    const RestrictionKind kind{type.byLimit};
    const bool isRequired =
        kind == RestrictionKind::debitRequired || kind == RestrictionKind::creditRequired;
    if (!isRequired || !accountsOf(type).empty()) return {};
    return fmt::format(texts::accountsMissing, restrictionKindText(type.byLimit));
}

std::optional<RestrictionBreach> restrictionBreach(const _SignInfo& type,
                                                   std::span<const VoucherLine> lines,
                                                   const CodeLevels& levels,
                                                   const AccountNaming& nameOf) {
    if (std::string fault = restrictionFault(type); !fault.empty())
        return RestrictionBreach{std::move(fault), {}};
    const Restriction restriction(type, levels, nameOf);
    switch (RestrictionKind{type.byLimit}) {
        case RestrictionKind::debitRequired:
            return restriction.whereRequired(lines, true);
        case RestrictionKind::creditRequired:
            return restriction.whereRequired(lines, false);
        case RestrictionKind::bothForbidden:
            return restriction.whereForbidden(lines);
        case RestrictionKind::none:
            break;
    }
    return std::nullopt;
}

}  // namespace chengheng
