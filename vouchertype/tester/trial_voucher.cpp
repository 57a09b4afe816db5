#include "vouchertype/tester/trial_voucher.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/values/amount_text.h"
#include "base/values/exact_sum.h"
#include "base/values/numbers.h"
#include "base/values/text.h"
#include "vouchertype/restriction_kind.h"
#include "vouchertype/tester/tester_texts.h"

namespace chengheng {

namespace texts = tester_texts;

namespace {

constexpr int moneyDecimals = 2;
constexpr std::int64_t centsToOne = 100;

/// Reads the lines of a voucher one by one.
class LineReader {
  public:
    LineReader(const TrialBooks& books, TrialResult& result) : m_books(books), m_result(result) {}

    void read(const TrialLine& line) {
        const std::size_t faultsBefore = m_result.faults.size();
        const std::string account = readAccount(line);
        const double debit = readMoney(line, line.debit);
        const double credit = readMoney(line, line.credit);
        if (debit != 0 && credit != 0) fault(fmt::format(texts::bothSides, line.number));
        if (m_result.faults.size() > faultsBefore) return;
        m_debit.add(debit);
        m_credit.add(credit);
        if (line.debit.empty() && line.credit.empty())
            m_result.notes.push_back(fmt::format(texts::noAmount, line.number));
        else
            m_lines.push_back(lineOf(line, account, debit, credit));
    }

    std::span<const VoucherLine> finish() {
        if (const double debit = m_debit.value(), credit = m_credit.value(); debit != credit)
            m_result.notes.push_back(fmt::format(texts::unbalanced,
                                                 ftoaWithSap(debit, moneyDecimals),
                                                 ftoaWithSap(credit, moneyDecimals)));
        return m_lines;
    }

  private:
    void fault(std::string text) { m_result.faults.push_back(std::move(text)); }

    std::string readAccount(const TrialLine& line) {
        const std::string_view typed = withoutBlanksAround(line.account);
        const std::string account = accountIn(m_books, typed);
        if (typed.empty())
            fault(fmt::format(texts::noAccount, line.number));
        else if (account.empty())
            fault(fmt::format(texts::unknownAccount, line.number, typed));
        return account;
    }

    /// An empty field is 0, and so is what is no amount, which is a fault.
    double readMoney(const TrialLine& line, const std::string& text) {
        if (text.empty()) return 0;
        const auto amount = readAmount(text);
        if (!amount) fault(fmt::format(texts::notNumber, line.number, text));
        return amount.value_or(0);
    }

    /// A line with 0 on one side and nothing on the other is on that side, with 0 on both on that
    /// of its debit.
    static VoucherLine lineOf(const TrialLine& line, const std::string& account, double debit,
                              double credit) {
        const bool isDebit = debit != 0 || (credit == 0 && !line.debit.empty());
        return {line.number, account, isDebit, isDebit ? debit : credit};
    }

    const TrialBooks& m_books;
    TrialResult& m_result;
    std::vector<VoucherLine> m_lines;
    ExactSum<centsToOne> m_debit;
    ExactSum<centsToOne> m_credit;
};

TypeVerdict verdictOn(const _SignInfo& type, std::span<const VoucherLine> lines,
                      const TrialBooks& books) {
    const auto nameOf = [&books](std::string_view code) { return books.nameOf(code); };
    if (auto breach = restrictionBreach(type, lines, books.levels, nameOf))
        return {type, false, std::move(breach->text), std::move(breach->lines)};
    const std::string restriction = restrictionInWords(type, nameOf);
    return {type, true, restriction.empty() ? texts::unrestricted : restriction, {}};
}

/// Vouchers count with their first-level accounts, so that a type may name no other.
void noteWrongAccounts(const _SignInfo& type, const TrialBooks& books, TrialResult& result) {
    if (type.byLimit == stored(RestrictionKind::none)) return;
    for (const std::string* code : {&type.sCode1, &type.sCode2}) {
        const bool isFirstLevel =
            books.accounts.contains(*code) && firstLevelOf(books.levels, *code) == *code;
        if (!code->empty() && !isFirstLevel)
            result.notes.push_back(fmt::format(texts::notFirstLevel, type.sSign, *code));
    }
}

}  // namespace

std::string TrialBooks::nameOf(std::string_view code) const {
    const auto found = accounts.find(code);
    return found == accounts.end() ? std::string() : found->second;
}

std::string accountIn(const TrialBooks& books, std::string_view text) {
    const std::string_view whole = withoutBlanksAround(text);
    const std::string_view first =
        whole.substr(0, std::min(whole.find(' '), whole.find(texts::wideBlank)));
    for (const std::string_view code : {whole, first})
        if (!code.empty() && books.accounts.contains(code)) return std::string(code);
    return {};
}

TrialResult tryVoucher(std::span<const TrialLine> lines, const TrialBooks& books) {
    TrialResult result;
    LineReader reader(books, result);
    bool isEmpty = true;
    for (const TrialLine& line : lines) {
        if (line.isBlank()) continue;
        reader.read(line);
        isEmpty = false;
    }
    if (isEmpty) result.notes.emplace_back(texts::noLines);
    if (books.types.empty()) result.notes.emplace_back(texts::noTypes);
    if (isEmpty || !result.faults.empty()) return result;
    const auto read = reader.finish();
    for (const _SignInfo& type : books.types) {
        noteWrongAccounts(type, books, result);
        result.verdicts.push_back(verdictOn(type, read, books));
    }
    return result;
}

}  // namespace chengheng
