#include "vouchertype/usage/type_usage.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

using namespace chengheng;

namespace {

using Texts = std::vector<std::string>;

const std::vector<_SignInfo> usedTypes{{1, "收", "收款凭证"}, {2, "付", "付款凭证"}};

CarriedVoucher voucher(const char* type, int month, int number, int day = 1, bool isPosted = true) {
    return {type, month, number,
            Date{2026, static_cast<std::uint8_t>(month), static_cast<std::uint8_t>(day)}, isPosted};
}

/// "收 收款凭证 1 月 3 张 1 未记帐 1 2026-01-01 4 2026-01-20 缺 3".
std::string text(const UsageRow& row) {
    std::string text = fmt::format("{} {} {} 月 {} 张 {} 未记帐", row.type, row.name, row.month,
                                   row.vouchers, row.unposted);
    if (row.vouchers > 0)
        text += fmt::format(" {} {} {} {}", row.firstNumber, isoText(row.firstDate), row.lastNumber,
                            isoText(row.lastDate));
    return row.remarks.empty() ? text : text + ' ' + row.remarks;
}

Texts usage(const TypeCarriers& carriers) {
    Texts texts;
    for (const UsageRow& row : typeUsage(usedTypes, carriers)) texts.push_back(text(row));
    return texts;
}

/// What is said of the numbers of a month.
std::string remarksOn(const std::vector<int>& numbers) {
    TypeCarriers carriers;
    for (const int number : numbers) carriers.vouchers.push_back(voucher("收", 3, number));
    return typeUsage(usedTypes, carriers).at(1).remarks;
}

}  // namespace

TEST(TypeUsage, HasAYearForEachTypeAndARowForEachMonthWithVouchers) {
    EXPECT_EQ(usage({.vouchers = {voucher("收", 2, 1, 9), voucher("收", 1, 2, 20, false),
                                  voucher("收", 1, 1, 5)},
                     .openingEntries = {},
                     .transfers = {}}),
              (Texts{"收 收款凭证 0 月 3 张 1 未记帐 0 2026-01-05 0 2026-02-09",
                     "收 收款凭证 1 月 2 张 1 未记帐 1 2026-01-05 2 2026-01-20",
                     "收 收款凭证 2 月 1 张 0 未记帐 1 2026-02-09 1 2026-02-09",
                     "付 付款凭证 0 月 0 张 0 未记帐 没有使用"}));
}

TEST(TypeUsage, CountsNumbersAnewInEachMonth) {
    EXPECT_EQ(usage({.vouchers = {voucher("收", 1, 1), voucher("收", 1, 2), voucher("收", 2, 1),
                                  voucher("收", 2, 2)},
                     .openingEntries = {},
                     .transfers = {}})[0],
              "收 收款凭证 0 月 4 张 0 未记帐 0 2026-01-01 0 2026-02-01");
}

TEST(TypeUsage, NamesTheNumbersThatAreMissing) {
    EXPECT_EQ(remarksOn({1, 2, 3}), "");
    EXPECT_EQ(remarksOn({1, 2, 4}), "缺 3");
    EXPECT_EQ(remarksOn({4, 8, 1}), "缺 2-3、5-7");
    EXPECT_EQ(remarksOn({3}), "缺 1-2");
    EXPECT_EQ(remarksOn({2147483647}), "缺 1-2147483646");
}

TEST(TypeUsage, NamesTheNumbersThatStandTwiceAndVouchersWithoutOne) {
    EXPECT_EQ(remarksOn({1, 1, 2}), "重 1");
    EXPECT_EQ(remarksOn({1, 1, 1, 3, 3}), "缺 2;重 1、3");
    EXPECT_EQ(remarksOn({0, 0, 1}), "无号 2 张");
    EXPECT_EQ(remarksOn({0}), "无号 1 张");
    EXPECT_EQ(remarksOn({-1, 1}), "无号 1 张");
    EXPECT_EQ(remarksOn({2147483647, 2147483647}), "缺 1-2147483646;重 2147483647");
}

TEST(TypeUsage, TellsTheFirstTwelveGaps) {
    std::vector<int> odd;
    for (int number = 1; number <= 27; number += 2) odd.push_back(number);
    EXPECT_EQ(remarksOn(odd), "缺 2、4、6、8、10、12、14、16、18、20、22、24 等");
    odd.pop_back();
    EXPECT_EQ(remarksOn(odd), "缺 2、4、6、8、10、12、14、16、18、20、22、24");
}

TEST(TypeUsage, AddsUpTheYear) {
    EXPECT_EQ(usage({.vouchers = {voucher("收", 1, 3), voucher("收", 2, 1), voucher("收", 2, 1),
                                  voucher("收", 2, 4), voucher("收", 1, 0), voucher("收", 2, 0)},
                     .openingEntries = {{"收", 14}},
                     .transfers = {{"收", 2}}})[0],
              "收 收款凭证 0 月 6 张 0 未记帐 0 2026-01-01 0 2026-02-01 缺 4 号;重 1 号;无号 2 张;"
              "期初明细 14 张;自动转帐 2 个");
}

TEST(TypeUsage, TellsWhatElseCarriesATypeWithoutVouchers) {
    EXPECT_EQ(usage({.vouchers = {}, .openingEntries = {}, .transfers = {{"付", 1}}}),
              (Texts{"收 收款凭证 0 月 0 张 0 未记帐 没有使用",
                     "付 付款凭证 0 月 0 张 0 未记帐 自动转帐 1 个"}));
}

TEST(TypeUsage, PutsTypesThatAreNotThereBehindTheOthers) {
    EXPECT_EQ(
        usage({.vouchers = {voucher("转", 1, 1), voucher("", 1, 1)},
               .openingEntries = {{"银", 1}},
               .transfers = {}}),
        (Texts{"收 收款凭证 0 月 0 张 0 未记帐 没有使用", "付 付款凭证 0 月 0 张 0 未记帐 没有使用",
               " (没有类别) 0 月 1 张 0 未记帐 0 2026-01-01 0 2026-01-01",
               " (没有类别) 1 月 1 张 0 未记帐 1 2026-01-01 1 2026-01-01",
               "转 (没有这个类别) 0 月 1 张 0 未记帐 0 2026-01-01 0 2026-01-01",
               "转 (没有这个类别) 1 月 1 张 0 未记帐 1 2026-01-01 1 2026-01-01",
               "银 (没有这个类别) 0 月 0 张 0 未记帐 期初明细 1 张"}));
}
