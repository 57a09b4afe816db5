#include "accounts/transfer/chart_import.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "books/making/chart_templates.h"
#include "sheets/delimited/delimited_text.h"
#include "tests/support/account_books.h"
#include "tests/support/engine_cases.h"

using namespace chengheng;

namespace {

class ChartImports : public testing::TestWithParam<EngineCase> {
  protected:
    std::optional<ImportPlan> plan(const std::string& csv) {
        Sheet sheet;
        EXPECT_FALSE(readCsv(csv, sheet));
        return m_import.plan(sheet, "科目.csv");
    }
    Outcome import(const std::string& csv, const ImportProgress& progress = {}) {
        const auto made = plan(csv);
        return made ? m_import.apply(*made, progress) : Outcome::failed;
    }

    AccountBooks m_books{freshLocation(GetParam())};
    ChartImport m_import{m_books.messages()};
};

std::string bigChart(int accounts) {
    std::string csv = "code,name,class\n";
    for (int number = 1000; number < 1000 + accounts; ++number)
        csv += std::to_string(number) + ",科目,资产\n";
    return csv;
}

}  // namespace

TEST_P(ChartImports, WriteExactlyWhatWasPlanned) {
    m_books.add("1001", "现金");
    EXPECT_EQ(import("code,name,class\n1001,库存现金,资产\n100101,人民币,\n1002,存款,资产\n"),
              Outcome::done);
    EXPECT_EQ(m_books.account("1001").sName, "库存现金");
    EXPECT_EQ(m_books.account("1001").bEnd, 0);
    EXPECT_EQ(m_books.account("100101").lId, 2);
    EXPECT_EQ(m_books.account("1002").lId, 3);
    EXPECT_EQ(m_books.database().Code_GetLastId(), 3);
    EXPECT_EQ(m_books.faults(), std::vector<std::string>{});
    EXPECT_FALSE(m_books.holdsLocks());
    EXPECT_TRUE(m_books.messages().texts().empty());
}

TEST_P(ChartImports, ChangeNothingWhileTheyArePlanned) {
    m_books.add("1001");
    const auto before = m_books.chart();
    EXPECT_TRUE(plan("code,name,class\n1001,新名,资产\n1002,存款,资产\n"));
    EXPECT_EQ(m_books.chart(), before);
    EXPECT_TRUE(m_books.locks().log().empty());
}

TEST_P(ChartImports, WithARefusedRowChangeNothing) {
    const auto before = m_books.chart();
    EXPECT_EQ(import("code,name,class\n1002,存款,资产\n10,坏,资产\n"), Outcome::refused);
    EXPECT_EQ(m_books.messages().onlyNotice().text, "有 1 行被拒绝,没有导入。\n请修改文件后重试。");
    EXPECT_EQ(m_books.chart(), before);
}

TEST_P(ChartImports, AskOnceForAllThatIsToBeAccepted) {
    const std::string csv = "code,name,class\n2001,借款,资产\n2002,存款,资产\n1001,现金,资产\n";
    m_books.messages().willAnswer("有 2 行需要确认,全部接受并导入吗?", Answer::cancel);
    EXPECT_EQ(import(csv), Outcome::refused);
    EXPECT_FALSE(m_books.hasAccount("1001"));
    m_books.messages().willAnswer("有 2 行需要确认,全部接受并导入吗?", Answer::ok);
    EXPECT_EQ(import(csv), Outcome::done);
    EXPECT_TRUE(m_books.hasAccount("2001"));
}

TEST_P(ChartImports, AreGivenUpWhenTheBooksChangedSinceThePlan) {
    m_books.add("1001");
    const auto made = plan("code,name\n100101,人民币\n");
    ASSERT_TRUE(made);
    m_books.use(UsePlace::posted, "1001");
    const auto before = m_books.chart();
    EXPECT_EQ(m_import.apply(*made), Outcome::stale);
    EXPECT_EQ(m_books.messages().onlyNotice().text,
              "预览之后帐套中的资料已有改动,没有导入。\n请重新预览。");
    EXPECT_EQ(m_books.chart(), before);
}

TEST_P(ChartImports, TellHowFarTheyAreAndCanBeGivenUp) {
    const std::string csv = bigChart(900);
    const auto before = m_books.chart();
    std::vector<std::size_t> told;
    EXPECT_EQ(import(csv,
                     [&](std::size_t done, std::size_t total) {
                         EXPECT_EQ(total, 900u);
                         told.push_back(done);
                         return done < 500;
                     }),
              Outcome::refused);
    EXPECT_EQ(told, (std::vector<std::size_t>{0, 500}));
    EXPECT_EQ(m_books.messages().onlyNotice().text, "导入已取消,科目没有改动。");
    EXPECT_EQ(m_books.chart(), before);
    EXPECT_EQ(import(csv), Outcome::done);
    EXPECT_EQ(m_books.database().Code_GetLastId(), 900);
    EXPECT_EQ(m_books.faults(), std::vector<std::string>{});
}

TEST_P(ChartImports, CanBeGivenUpAtEachChangedAccountToo) {
    m_books.add("1001");
    m_books.add("1002");
    const auto before = m_books.chart();
    std::vector<std::size_t> told;
    EXPECT_EQ(import("code,name\n1001,甲\n1002,乙\n",
                     [&](std::size_t done, std::size_t total) {
                         EXPECT_EQ(total, 2u);
                         told.push_back(done);
                         return done < 2;
                     }),
              Outcome::refused);
    EXPECT_EQ(told, (std::vector<std::size_t>{0, 1, 2}));
    EXPECT_EQ(import("code,name\n1001,科目\n", [](std::size_t, std::size_t) { return false; }),
              Outcome::refused)
        << "though nothing is to be written";
    EXPECT_EQ(m_books.chart(), before);
    EXPECT_FALSE(m_books.holdsLocks());
}

TEST_P(ChartImports, OfAnAccountThatGoesMeanwhileAreGivenUpInItsName) {
    m_books.add("1001");
    const auto before = m_books.chart();
    EXPECT_EQ(import("code,name\n1001,甲\n",
                     [this](std::size_t, std::size_t) {
                         m_books.run("DELETE FROM Code WHERE sCode = '1001'");
                         return true;
                     }),
              Outcome::stale);
    EXPECT_EQ(m_books.messages().onlyNotice().text, "科目(1001)已经删除!");
    EXPECT_TRUE(m_books.messages().onlyNotice().beep);
    EXPECT_EQ(m_books.chart(), before);
}

TEST_P(ChartImports, TellThatNoIdsAreLeftForTheNewAccounts) {
    const std::string csv = "code,name,class\n1001,现金,资产\n1002,存款,资产\n";
    const auto leave = [this](int count) {
        m_books.run(formatSql("UPDATE ABIdTable SET lLastId = %d WHERE sTable = 'Code'",
                              2147483647 - count));
    };
    leave(1);
    const auto before = m_books.chart();
    EXPECT_EQ(import(csv), Outcome::failed);
    EXPECT_NE(m_books.messages().onlyNotice().text.find("的记录编号已经用完,数据没有改动。"),
              std::string::npos);
    EXPECT_EQ(m_books.chart(), before);
    leave(2);
    EXPECT_EQ(import(csv), Outcome::done);
    EXPECT_EQ(m_books.account("1002").lId, 2147483647);
}

TEST_P(ChartImports, ShowTheirBoxesAsWhatTheyAre) {
    const auto expectOnly = [this](MessageIcon icon, bool beep) {
        const Notice told = m_books.messages().onlyNotice();
        EXPECT_EQ(told.icon, icon) << told.text;
        EXPECT_EQ(told.beep, beep) << told.text;
        m_books.messages().forget();
    };
    const std::string folder = freshFolder();
    m_import.plan(folder + "/none.csv");
    expectOnly(MessageIcon::warning, true);
    m_import.plan(Sheet(), "none.csv");
    expectOnly(MessageIcon::warning, true);
    import("code,name,class\n10,坏,资产\n");
    expectOnly(MessageIcon::warning, true);
    exportChart(m_books.messages(), folder + "/a.txt", Overwrite::replace);
    expectOnly(MessageIcon::warning, true);
    exportChart(m_books.messages(), folder + "/none/a.csv", Overwrite::replace);
    expectOnly(MessageIcon::warning, true);
    import("code,name,class\n1001,甲,资产\n", [](std::size_t, std::size_t) { return false;
});
expectOnly(MessageIcon::information, false);
const auto made = plan("code,name,class\n1001,甲,资产\n");
m_books.add("1001");
m_import.apply(*made);
expectOnly(MessageIcon::warning, true);
m_books.messages().willAnswer(Answer::cancel);
import("code,name,class\n2001,借款,资产\n");
const Question& asked = m_books.messages().questions().back();
EXPECT_EQ(asked.buttons, AnswerButtons::okCancel);
EXPECT_EQ(asked.icon, MessageIcon::stop);
EXPECT_EQ(asked.preset, std::nullopt);
}

TEST_P(ChartImports, ChangeNothingWhicheverCallFails) {
    m_books.add("1001");
    const auto before = m_books.chart();
    const std::string csv = "code,name,class\n1001,新名,资产\n100101,人民币,资产\n1002,存款,资产\n";
    Outcome outcome = Outcome::failed;
    int call = 1;
    for (; outcome != Outcome::done && call < 200; ++call) {
        m_books.messages().forget();
        m_books.engine().failCall(call, Failure::full);
        outcome = import(csv);
        const bool hasFailed = m_books.engine().hasFailed();
        m_books.engine().failCall(0);
        EXPECT_EQ(outcome, hasFailed ? Outcome::failed : Outcome::done) << call;
        EXPECT_FALSE(m_books.holdsLocks()) << call;
        if (hasFailed) {
            EXPECT_EQ(m_books.messages().notices().size(), 1u) << call;
            EXPECT_EQ(m_books.chart(), before) << call;
        }
    }
    EXPECT_GT(call, 15);
    EXPECT_EQ(m_books.faults(), std::vector<std::string>{});
    m_books.engine().failCall(2, Failure::full);
    EXPECT_EQ(exportChart(m_books.messages(), freshFolder() + "/a.csv", Overwrite::replace),
              Outcome::failed);
    m_books.engine().failCall(0);
}

TEST_P(ChartImports, ReadBackWhatAnExportWroteAsCsvAndAsXlsx) {
    m_books.add("1001", "库存现金");
    m_books.add("100101", "O'Brien,\"引号\"");
    m_books.add("10010101", "=1+1");
    m_books.add("10%_");
    const std::string folder = freshFolder();
    for (const char* name : {"/科目.csv", "/科目.XLSX"}) {
        ASSERT_EQ(exportChart(m_books.messages(), folder + name, Overwrite::replace),
                  Outcome::done);
        const auto made = m_import.plan(folder + name);
        ASSERT_TRUE(made) << name;
        EXPECT_EQ(made->count(RowFate::unchanged), 4u) << name;
        EXPECT_TRUE(made->ignored.empty());
    }
}

TEST_P(ChartImports, TakeTheStatutoryChartsAsTheyStand) {
    m_books.run(
        "DELETE FROM zCodeClass\r\n"
        "INSERT INTO zCodeClass VALUES( 1, 1, '资产', 1 )\r\n"
        "INSERT INTO zCodeClass VALUES( 2, 2, '负债', 0 )\r\n"
        "INSERT INTO zCodeClass VALUES( 3, 3, '所有者权益', 0 )\r\n"
        "INSERT INTO zCodeClass VALUES( 4, 4, '成本', 1 )\r\n"
        "INSERT INTO zCodeClass VALUES( 5, 5, '损益', 0 )");
    EXPECT_EQ(import(std::string(chartFile(ChartTemplate::smallEnterprise))), Outcome::done);
    EXPECT_EQ(m_books.chart().size(), 66u + 1);
    EXPECT_EQ(m_books.account("1602").bDirect, 0);
    EXPECT_EQ(m_books.faults(), std::vector<std::string>{});
}

TEST_P(ChartImports, SayWhyAFileCannotBeRead) {
    const std::string folder = freshFolder();
    EXPECT_FALSE(m_import.plan(folder + "/没有.csv"));
    EXPECT_EQ(m_books.messages().onlyNotice().text,
              "没有读入文件“" + folder + "/没有.csv”。\n找不到该文件。请检查路径是否正确。");
    m_books.messages().forget();
    std::ofstream(folder + "/空.csv") << "a,b\n";
    EXPECT_FALSE(m_import.plan(folder + "/空.csv"));
    EXPECT_EQ(m_books.messages().onlyNotice().text,
              "没有读入文件“" + folder +
                  "/空.csv”。\n第 1 行:没有标题行。标题行中应有“科目编码”和“科目名称”。");
    m_books.messages().forget();
    EXPECT_EQ(exportChart(m_books.messages(), folder + "/科目.txt", Overwrite::replace),
              Outcome::refused);
    EXPECT_EQ(m_books.messages().onlyNotice().text,
              "文件名“" + folder + "/科目.txt”应以 .csv 或 .xlsx 结尾。");
    m_books.messages().forget();
    EXPECT_EQ(exportChart(m_books.messages(), folder + "/没有/科目.csv", Overwrite::replace),
              Outcome::failed);
    EXPECT_EQ(m_books.messages().onlyNotice().text,
              "没有写入文件“" + folder +
                  "/没有/科目.csv”,原有的文件保持不变。\n"
                  "所在的文件夹不存在。请先建立文件夹,或换一个路径。");
}

CHENGHENG_ON_ALL_ENGINES(ChartImports);
