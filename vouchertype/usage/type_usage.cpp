#include "vouchertype/usage/type_usage.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>

#include "vouchertype/usage/usage_texts.h"

namespace chengheng {

namespace texts = usage_texts;

namespace {

constexpr std::size_t toldRanges = 12;

struct NumberRange {
    std::int32_t first;
    std::int32_t last;
};

/// The numbers of a month that are missing up to the last, and those that stand twice.
struct NumberFaults {
    std::vector<NumberRange> missing;
    std::vector<NumberRange> doubled;
    int unnumbered = 0;
};

NumberFaults faultsOf(std::vector<std::int32_t> numbers) {
    std::ranges::sort(numbers);
    NumberFaults faults;
    std::int32_t last = 0;
    for (const std::int32_t number : numbers) {
        if (number <= 0) {
            ++faults.unnumbered;
            continue;
        }
        if (number - last > 1) faults.missing.push_back({last + 1, number - 1});
        const bool isKnown = !faults.doubled.empty() && faults.doubled.back().last == number;
        if (number == last && !isKnown) faults.doubled.push_back({number, number});
        last = number;
    }
    return faults;
}

std::int64_t countOf(std::span<const NumberRange> ranges) {
    std::int64_t count = 0;
    for (const auto& [first, last] : ranges) count += std::int64_t{last} - first + 1;
    return count;
}

std::string listed(std::span<const NumberRange> ranges) {
    std::string text;
    for (const auto& [first, last] : ranges.first(std::min(ranges.size(), toldRanges))) {
        if (!text.empty()) text += texts::numberSeparator;
        text +=
            first == last ? fmt::to_string(first) : fmt::format(texts::numberRange, first, last);
    }
    return ranges.size() > toldRanges ? text + texts::andSoOn : text;
}

class Remarks {
  public:
    void add(const std::string& remark) {
        if (!m_text.empty()) m_text += texts::remarkSeparator;
        m_text += remark;
    }
    const std::string& text() const { return m_text; }

  private:
    std::string m_text;
};

using Vouchers = std::vector<const CarriedVoucher*>;

UsageRow rowOf(const _SignInfo& type, int month, const Vouchers& vouchers) {
    UsageRow row{.type = type.sSign, .name = type.sSignName, .month = month};
    for (const CarriedVoucher* voucher : vouchers) {
        ++row.vouchers;
        if (!voucher->isPosted) ++row.unposted;
        if (row.vouchers == 1 || voucher->date < row.firstDate) row.firstDate = voucher->date;
        if (row.vouchers == 1 || row.lastDate < voucher->date) row.lastDate = voucher->date;
    }
    return row;
}

UsageRow rowOfMonth(const _SignInfo& type, int month, const Vouchers& vouchers,
                    const NumberFaults& faults) {
    UsageRow row = rowOf(type, month, vouchers);
    for (const CarriedVoucher* voucher : vouchers) {
        const std::int32_t number = voucher->number;
        if (number <= 0) continue;
        row.firstNumber = row.firstNumber == 0 ? number : std::min(row.firstNumber, number);
        row.lastNumber = std::max(row.lastNumber, number);
    }
    Remarks remarks;
    if (!faults.missing.empty())
        remarks.add(fmt::format(texts::missingNumbers, listed(faults.missing)));
    if (!faults.doubled.empty())
        remarks.add(fmt::format(texts::doubledNumbers, listed(faults.doubled)));
    if (faults.unnumbered > 0) remarks.add(fmt::format(texts::unnumbered, faults.unnumbered));
    row.remarks = remarks.text();
    return row;
}

int countIn(const std::map<std::string, int>& counts, const std::string& type) {
    const auto found = counts.find(type);
    return found == counts.end() ? 0 : found->second;
}

void addType(std::vector<UsageRow>& rows, const _SignInfo& type, const Vouchers& vouchers,
             const TypeCarriers& carriers) {
    std::map<int, Vouchers> months;
    for (const CarriedVoucher* voucher : vouchers) months[voucher->month].push_back(voucher);
    const std::size_t year = rows.size();
    rows.push_back(rowOf(type, 0, vouchers));
    std::int64_t missing = 0;
    std::int64_t doubled = 0;
    int unnumbered = 0;
    for (const auto& [month, ofMonth] : months) {
        std::vector<std::int32_t> numbers;
        for (const CarriedVoucher* voucher : ofMonth) numbers.push_back(voucher->number);
        const NumberFaults faults = faultsOf(std::move(numbers));
        missing += countOf(faults.missing);
        doubled += countOf(faults.doubled);
        unnumbered += faults.unnumbered;
        rows.push_back(rowOfMonth(type, month, ofMonth, faults));
    }
    Remarks remarks;
    if (missing > 0) remarks.add(fmt::format(texts::missingCount, missing));
    if (doubled > 0) remarks.add(fmt::format(texts::doubledCount, doubled));
    if (unnumbered > 0) remarks.add(fmt::format(texts::unnumbered, unnumbered));
    if (const int entries = countIn(carriers.openingEntries, type.sSign); entries > 0)
        remarks.add(fmt::format(texts::openingEntries, entries));
    if (const int transfers = countIn(carriers.transfers, type.sSign); transfers > 0)
        remarks.add(fmt::format(texts::transfers, transfers));
    if (vouchers.empty() && remarks.text().empty()) remarks.add(texts::unused);
    rows[year].remarks = remarks.text();
}

/// Those that something carries and that are not among the types.
std::set<std::string> strangeTypes(std::span<const _SignInfo> types, const TypeCarriers& carriers) {
    std::set<std::string> strange;
    for (const CarriedVoucher& voucher : carriers.vouchers) strange.insert(voucher.type);
    for (const auto* counts : {&carriers.openingEntries, &carriers.transfers})
        for (const auto& [type, count] : *counts) strange.insert(type);
    for (const _SignInfo& type : types) strange.erase(type.sSign);
    return strange;
}

}  // namespace

std::vector<UsageRow> typeUsage(std::span<const _SignInfo> types, const TypeCarriers& carriers) {
    std::map<std::string, Vouchers> vouchers;
    for (const CarriedVoucher& voucher : carriers.vouchers)
        vouchers[voucher.type].push_back(&voucher);
    std::vector<UsageRow> rows;
    for (const _SignInfo& type : types) addType(rows, type, vouchers[type.sSign], carriers);
    for (const std::string& number : strangeTypes(types, carriers)) {
        const _SignInfo type{.sSign = number,
                             .sSignName = number.empty() ? texts::noType : texts::noSuchType};
        addType(rows, type, vouchers[number], carriers);
    }
    return rows;
}

}  // namespace chengheng
