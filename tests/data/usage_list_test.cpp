#include "vouchertype/usage/usage_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>

#include "sheets/files/sheet_files.h"
#include "tests/support/engine_cases.h"
#include "tests/support/faulty_engine.h"
#include "tests/support/made_layout.h"
#include "tests/support/recording_printer.h"
#include "tests/support/report_rows.h"
#include "tests/support/run_tool.h"
#include "tests/support/told_failures.h"
#include "tests/support/voucher_type_books.h"

namespace {

using namespace chengheng;

using testing::ElementsAre;
using testing::HasSubstr;

constexpr const char* carriedVouchers =
    "INSERT UnregMain (lId, byPeroid, dtDate, sSign, lNumber) VALUES(11, 1, '2026/1/20', '收', "
    "3)\r\n"
    "INSERT RegMain (lId, byPeroid, dtDate, sSign, lNumber) VALUES(12, 1, '2026/1/5', '收', 1)\r\n"
    "INSERT RegMain (lId, byPeroid, dtDate, sSign, lNumber) VALUES(13, 2, '2026/2/9', '收', 1)\r\n"
    "INSERT RegMain (lId, byPeroid, dtDate, sSign, lNumber) VALUES(14, 0, '2025/12/31', '转', "
    "1)\r\n"
    "INSERT AutoMain (lId, sSign) VALUES(1, '转')";

/// Books with three types, two of which something carries.
class UsageList : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        auto faulty = std::make_unique<FaultyEngine>(openForTest(freshLocation(GetParam())));
        makeLayout(*faulty);
        m_engine = faulty.get();
        m_books.emplace(std::move(faulty));
        m_books->insert({"收 收款凭证 0", "转 转帐凭证 0", "记 记帐凭证 0"});
        m_books->run(carriedVouchers);
    }
    void print() {
        printList(voucherTypeUsageList(), ReportOutput::preview, m_books->messages, m_printer);
    }

    FaultyEngine* m_engine = nullptr;
    std::optional<VoucherTypeBooks> m_books;
    RecordingPrinter m_printer;
};

TEST_P(UsageList, HoldsYearAndMonthsOfEachType) {
    print();
    ASSERT_EQ(m_printer.outputs.size(), 1u);
    const Report& report = m_printer.outputs.front().report;
    EXPECT_EQ(report.title, "凭证类别使用情况");
    EXPECT_FALSE(report.page.isPortrait);
    EXPECT_THAT(columnTexts(report),
                ElementsAre("类别 6", "名称 20", "月份 8", "张数 7", "未记帐 8", "首号 7",
                            "首日期 12", "末号 7", "末日期 12", "缺号和其他使用 46"));
    EXPECT_THAT(rowTexts(report),
                ElementsAre("收|收款凭证|全年|3|1|-|2026-01-05|-|2026-02-09|缺 1 号",
                            "收|收款凭证|1 月|2|1|1|2026-01-05|3|2026-01-20|缺 2",
                            "收|收款凭证|2 月|1|-|1|2026-02-09|1|2026-02-09|-",
                            "转|转帐凭证|全年|0|-|-|-|-|-|期初明细 1 张;自动转帐 1 个",
                            "记|记帐凭证|全年|0|-|-|-|-|-|没有使用"));
}

TEST_P(UsageList, IsTheSameWithTheTemplateOfTheBooks) {
    m_books->run(
        "INSERT ZWPrintMain VALUES(45, '类别使用', 9, 1)\r\n"
        "INSERT ZWPrintSub VALUES(1, 45, '张', 'lCount', 5)\r\n"
        "INSERT ZWPrintSub VALUES(2, 45, '类', 'sSign', 5)");
    print();
    const Report& report = m_printer.outputs.front().report;
    EXPECT_EQ(report.title, "类别使用");
    EXPECT_THAT(rowTexts(report), ElementsAre("3|收", "2|收", "1|收", "0|转", "0|记"));
}

TEST_P(UsageList, SaysOnceWhyAndShowsNothingWhicheverReadingFails) {
    int number = 1;
    int unread = 0;
    for (bool hasFailed = true; hasFailed && number < 100; ++number) {
        m_books->messages.forget();
        m_printer.outputs.clear();
        m_engine->failCall(number, Failure::lost);
        print();
        hasFailed = m_engine->hasFailed();
        m_engine->failCall(0);
        // What is read comes first; that the log cannot be told of the list is told to nobody.
        const bool isUnread = m_printer.outputs.empty();
        unread += isUnread ? 1 : 0;
        EXPECT_EQ(isUnread, number == unread) << "call " << number;
        EXPECT_EQ(m_books->messages.notices().size(), isUnread ? 1u : 0u) << "call " << number;
        ASSERT_NE(m_books->database.DBSelect("books"), 0);
    }
    EXPECT_GT(unread, 7);
    EXPECT_LE(number - unread, 8) << "the calls of the note";
}

CHENGHENG_ON_ALL_ENGINES(UsageList);

TEST(UsageCommand, WritesTheUsageOfTheDemoBooksAsAFile) {
    const std::string folder = freshFolder();
    ASSERT_EQ(runInProcess({"demo", folder + "/demo.db"}).code, toolDone);
    const std::string file = folder + "/usage.csv";
    const ToolRun run = runInProcess({"print", "sign-usage", folder + "/demo.db", "--csv", file});
    EXPECT_EQ(run.code, toolDone);
    EXPECT_THAT(run.out, HasSubstr("凭证类别使用情况"));
    Sheet sheet;
    ASSERT_FALSE(readSheet(file, sheet));
    std::vector<std::string> rows;
    for (const SheetRow& row : sheet.rows)
        if (row.size() > 3) rows.push_back(cellText(row[0]) + cellText(row[2]) + cellText(row[3]));
    EXPECT_THAT(rows, ElementsAre("类别月份张数", "收全年3", "收1 月3", "付全年4", "付1 月4",
                                  "转全年3", "转1 月3"));
    EXPECT_THAT(runInProcess({"print", "signs", folder + "/demo.db", "--csv", file}).err,
                HasSubstr("sign-usage"));
}

}  // namespace
