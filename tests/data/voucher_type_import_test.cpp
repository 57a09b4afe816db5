#include "vouchertype/transfer/voucher_type_import.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "data/layout/layout.h"
#include "sheets/delimited/delimited_text.h"
#include "tests/support/engine_cases.h"
#include "tests/support/faulty_engine.h"
#include "tests/support/killed_process.h"
#include "tests/support/run_tool.h"
#include "tests/support/told_failures.h"
#include "tests/support/voucher_type_books.h"

namespace {

using namespace chengheng;
using Lines = std::vector<std::string>;

constexpr const char* twoRows =
    "类别,名称,限制,科目一,科目二\n收,收入,,,\n转,转帐凭证,借贷必无,1001,1002\n";
const Lines unimported{"1 收 收款凭证 1 1001 1002", "2 记 记帐凭证 0"};
const Lines imported{"1 收 收入 1 1001 1002", "2 记 记帐凭证 0", "3 转 转帐凭证 3 1001 1002"};

void fill(VoucherTypeBooks& books) {
    books.addAccounts();
    books.insert({"收 收款凭证 1 1001 1002", "记 记帐凭证 0"});
}

Outcome bring(VoucherTypeBooks& books, const std::string& csv,
              const ImportProgress& progress = {}) {
    Sheet sheet;
    EXPECT_FALSE(readCsv(csv, sheet));
    VoucherTypeImport import(books.messages);
    const auto plan = import.plan(std::move(sheet), "类别.csv");
    return plan ? import.apply(*plan, progress) : Outcome::failed;
}

class VoucherTypeImports : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override { fill(m_books); }
    std::string said() {
        EXPECT_FALSE(m_books.holdsLocks());
        return m_books.messages.texts().empty() ? "" : m_books.messages.texts().back();
    }

    VoucherTypeBooks m_books{freshLocation(GetParam())};
};

TEST_P(VoucherTypeImports, AddAndModifyWithTheNextIds) {
    EXPECT_EQ(bring(m_books, twoRows), Outcome::done);
    EXPECT_EQ(m_books.stored(), imported);
    EXPECT_EQ(said(), "");
    m_books.insert({"新 新凭证 0"});
    EXPECT_EQ(m_books.stored().back(), "4 新 新凭证 0") << "the counter goes on";
}

TEST_P(VoucherTypeImports, WithARefusedRowChangeNothing) {
    EXPECT_EQ(bring(m_books, std::string(twoRows) + "付,付款凭证,贷方必有,9,8\n"),
              Outcome::refused);
    EXPECT_EQ(said(), "有 1 行被拒绝,没有导入。\n请修改文件后重试。");
    EXPECT_EQ(bring(m_books, "名称\n甲\n"), Outcome::failed);
    EXPECT_EQ(said(), "没有读入文件“类别.csv”。\n第 1 行:没有标题行。标题行中应有“类别”。");
    EXPECT_EQ(m_books.stored(), unimported);
}

TEST_P(VoucherTypeImports, GivenUpHalfwayChangeNothing) {
    std::vector<std::pair<std::size_t, std::size_t>> told;
    for (const std::size_t last : {0, 1, 2}) {
        told.clear();
        EXPECT_EQ(bring(m_books, twoRows,
                        [&](std::size_t done, std::size_t total) {
                            told.emplace_back(done, total);
                            return done < last;
                        }),
                  Outcome::refused);
        EXPECT_EQ(said(), "导入已取消,凭证类别没有改动。");
        EXPECT_EQ(m_books.stored(), unimported);
    }
    EXPECT_EQ(told, (std::vector<std::pair<std::size_t, std::size_t>>{{0, 2}, {1, 2}, {2, 2}}));
}

TEST_P(VoucherTypeImports, ArePlannedAnewWhenTheBooksAreOthers) {
    Sheet sheet;
    ASSERT_FALSE(readCsv(twoRows, sheet));
    VoucherTypeImport import(m_books.messages);
    const auto plan = import.plan(sheet, "类别.csv");
    ASSERT_TRUE(plan);
    m_books.run("DELETE Code WHERE sCode = '1002'");
    EXPECT_EQ(import.apply(*plan), Outcome::stale);
    EXPECT_EQ(said(), "预览之后帐套中的资料已有改动,没有导入。\n请重新预览。");
    EXPECT_EQ(m_books.stored(), unimported);
}

TEST_P(VoucherTypeImports, GoOnWhenWhatChangedMeanwhileMakesNoDifference) {
    Sheet sheet;
    ASSERT_FALSE(readCsv(twoRows, sheet));
    VoucherTypeImport import(m_books.messages);
    const auto plan = import.plan(sheet, "类别.csv");
    m_books.run("UPDATE Sign SET sSignName = '凭证' WHERE lId = 2");
    EXPECT_EQ(import.apply(*plan), Outcome::done);
    EXPECT_EQ(m_books.stored().size(), 3u);
}

TEST_P(VoucherTypeImports, TellWhyNothingIsDoneWithoutTheDatabase) {
    ASSERT_NE(m_books.database.DBClose("books"), 0);
    EXPECT_EQ(bring(m_books, twoRows), Outcome::failed);
    EXPECT_EQ(exportVoucherTypes(m_books.messages, freshFolder() + "/a.csv", Overwrite::refuse),
              Outcome::failed);
    ASSERT_EQ(m_books.messages.notices().size(), 2u);
    for (const Notice& notice : m_books.messages.notices())
        EXPECT_EQ(notice.text, "帐套文件“books”没有打开。\n请先打开帐套。");
}

TEST_P(VoucherTypeImports, AreWholeOrUndoneWhicheverCallFails) {
    for (const Failure failure : {Failure::full, Failure::lost}) {
        auto real = openForTest(freshLocation(GetParam()));
        ASSERT_TRUE(createLayout(*real).isDone());
        auto faulty = std::make_unique<FaultyEngine>(std::move(real));
        FaultyEngine& engine = *faulty;
        VoucherTypeBooks books(std::move(faulty));
        fill(books);
        int number = 1;
        for (bool hasFailed = true; hasFailed && number < 100; ++number) {
            books.messages.forget();
            engine.failCall(number, failure);
            const Outcome outcome = bring(books, twoRows);
            hasFailed = engine.hasFailed();
            engine.failCall(0);
            EXPECT_EQ(outcome == Outcome::done, !hasFailed) << "call " << number;
            EXPECT_FALSE(books.holdsLocks());
            EXPECT_FALSE(engine.inTransaction());
            EXPECT_EQ(books.messages.notices().size(), hasFailed ? 1u : 0u);
            for (const Notice& notice : books.messages.notices())
                EXPECT_THAT(notice.text, tellsOf(failure)) << "call " << number;
            ASSERT_NE(books.database.DBSelect("books"), 0);
            EXPECT_EQ(books.stored(), hasFailed ? unimported : imported) << "call " << number;
        }
        EXPECT_GT(number, 8);
    }
}

CHENGHENG_ON_ALL_ENGINES(VoucherTypeImports);

/// The commands of the tool.
class VoucherTypeCommands : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        VoucherTypeBooks books(m_books);
        fill(books);
    }
    ToolRun bringFile(const std::string& content, const Lines& more = {}) const {
        const std::string path = m_folder + "in.csv";
        std::ofstream(path) << content;
        Lines arguments{"import-voucher-types", m_books, path};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return runInProcess(arguments);
    }
    Lines stored() const { return VoucherTypeBooks(m_books, false).stored(); }

    std::string m_books = freshLocation(GetParam());
    std::string m_folder = freshFolder() + "/";
};

TEST_P(VoucherTypeCommands, ImportShowsWhatBecomesOfEachRowAndDoesIt) {
    ToolRun run = bringFile(twoRows, {"--dry-run"});
    EXPECT_EQ(run.code, toolDone) << run.err;
    EXPECT_EQ(run.out,
              "第 2 行 修改 收 收入\n第 3 行 新增 转 转帐凭证\n"
              "新增 1 行,修改 1 行,不变 0 行,拒绝 0 行。\n");
    EXPECT_EQ(stored(), unimported);
    run = bringFile(twoRows);
    EXPECT_EQ(run.code, toolDone) << run.err;
    EXPECT_THAT(run.out, testing::EndsWith("已导入“" + m_folder + "in.csv”。\n"));
    EXPECT_EQ(stored(), imported);
}

TEST_P(VoucherTypeCommands, ImportTellsWhatItRefuses) {
    ToolRun run = bringFile("类别,名称\n收,\n", {"--dry-run"});
    EXPECT_EQ(run.code, toolWrongInput);
    EXPECT_THAT(run.out, testing::HasSubstr("    第 2 行 B 列:名称不能为空\n"));
    run = bringFile("类别,名称\n收,\n");
    EXPECT_EQ(run.code, toolWrongInput);
    EXPECT_THAT(run.err, testing::HasSubstr("有 1 行被拒绝,没有导入。"));
    run = bringFile("类别,名称\n收,收\n", {"--dry-run", "--json"});
    EXPECT_THAT(run.out, testing::HasSubstr("\"changed\": 1"));
    EXPECT_EQ(stored(), unimported);
}

TEST_P(VoucherTypeCommands, ExportReadsBackUnchangedAndIntoOtherBooks) {
    for (const char* end : {"a.csv", "a.xlsx"}) {
        const std::string path = m_folder + end;
        ToolRun run = runInProcess({"export-voucher-types", m_books, path});
        EXPECT_EQ(run.code, toolDone) << run.err;
        EXPECT_EQ(run.out, "凭证类别已导出到“" + path + "”。\n");
        run = runInProcess({"import-voucher-types", m_books, path});
        EXPECT_EQ(run.code, toolDone) << run.err;
        EXPECT_THAT(run.out, testing::HasSubstr("新增 0 行,修改 0 行,不变 2 行,拒绝 0 行"));
        const std::string others = freshLocation(GetParam());
        VoucherTypeBooks(others).addAccounts();
        EXPECT_EQ(runInProcess({"import-voucher-types", others, path}).code, toolDone);
        EXPECT_EQ(VoucherTypeBooks(others, false).stored(), unimported);
    }
}

TEST_P(VoucherTypeCommands, ExportKeepsToTheRulesOfWrittenFiles) {
    const std::string path = m_folder + "a.csv";
    EXPECT_EQ(runInProcess({"export-voucher-types", m_books, path}).code, toolDone);
    EXPECT_EQ(runInProcess({"export-voucher-types", m_books, path}).code, toolTargetExists);
    EXPECT_EQ(runInProcess({"export-voucher-types", m_books, path, "--force"}).code, toolDone);
    EXPECT_EQ(runInProcess({"export-voucher-types", m_books, m_folder + "a.txt"}).code,
              toolWrongInput);
    EXPECT_EQ(runInProcess({"import-voucher-types", m_books, m_folder + "none.csv"}).code,
              toolFailed);
}

CHENGHENG_ON_SHARED_ENGINES(VoucherTypeCommands);

}  // namespace
