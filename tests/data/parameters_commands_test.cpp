#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

#include "base/system/workstation.h"
#include "books/logon/known_books.h"
#include "books/making/books_creation.h"
#include "tests/support/made_books.h"
#include "tests/support/parameters_books.h"
#include "tests/support/run_tool.h"
#include "tests/support/small_books.h"

namespace {

using namespace chengheng;
using testing::HasSubstr;

/// New books at a place, in a list of their own.
class SetCommand : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        NewBooks books = sampleBooks();
        books.chart = ChartTemplate::empty;
        m_books = makeBooks(freshLocation(GetParam()), books);
    }
    ToolRun set(std::vector<std::string> options) const {
        options.insert(options.begin(), {"set", m_books});
        return runInProcess(options);
    }
    _zAccountMInfo stored() const {
        _zAccountMInfo parameters;
        EXPECT_FALSE(readBooks(m_books, parameters).has_value());
        return parameters;
    }
    void plantSql(const std::string& sql) const {
        runScript(*openForTest(m_books, OpenMode::existing), sql);
    }

    std::string m_books;
};

TEST_P(SetCommand, ChangesWhatIsGivenAndTellsWhatItTouches) {
    const ToolRun run = set({"--name", "新帐套", "--company", "新公司", "--foreign", "off",
                             "--levels", "42223", "--start", "2026-04"});
    EXPECT_EQ(run.code, toolDone) << run.err;
    EXPECT_THAT(run.out, HasSubstr("帐套名称:“示例帐套”改为“新帐套”\n"));
    EXPECT_THAT(run.out, HasSubstr("外币核算:“是”改为“否”\n    汇率管理不能再使用。\n"));
    EXPECT_THAT(run.out, testing::EndsWith("帐套参数已修改。\n"));
    EXPECT_EQ(stored(), (_zAccountMInfo{.lId = 1,
                                        .sName = "新帐套",
                                        .sCompany = "新公司",
                                        .dtStart = {2026, 4, 1},
                                        .sCodeLen = "42223",
                                        .bFgn = 0,
                                        .lYear = 2026}));
}

TEST_P(SetCommand, ChangesNothingOnADryRun) {
    const _zAccountMInfo before = stored();
    const ToolRun run = set({"--company", "新公司", "--dry-run"});
    EXPECT_EQ(run.code, toolDone);
    EXPECT_EQ(run.out,
              "单位名称:“示例贸易有限公司”改为“新公司”\n    以后打印的页面用新的单位名称。\n"
              "没有改动帐套。\n");
    EXPECT_EQ(stored(), before);
}

TEST_P(SetCommand, SaysThatThereIsNothingToChange) {
    const ToolRun run = set({"--foreign", "on"});
    EXPECT_EQ(run.code, toolDone);
    EXPECT_EQ(run.out, "帐套参数与给出的相同,没有改动。\n");
}

TEST_P(SetCommand, TellsAProgramInJson) {
    const ToolRun run = set({"--levels", "42222", "--json"});
    EXPECT_EQ(run.code, toolDone);
    EXPECT_EQ(run.out,
              "{\n  \"written\": true,\n  \"changes\": [\n    {\n"
              "      \"field\": \"levelPattern\",\n      \"title\": \"科目级长\",\n"
              "      \"before\": \"4222\",\n      \"after\": \"42222\",\n"
              "      \"effect\": \"科目最多 5 级,末级编码最长 12 位;已有的科目不变。"
              "以后不能再减少级次。\"\n    }\n  ]\n}\n");
    EXPECT_THAT(set({"--levels", "422222", "--json", "--dry-run"}).out,
                HasSubstr("\"written\": false"));
}

TEST_P(SetCommand, RefusesByTheSameRulesAsTheWindow) {
    const _zAccountMInfo before = stored();
    const ToolRun pattern = set({"--levels", "4322"});
    EXPECT_EQ(pattern.code, toolWrongInput);
    EXPECT_EQ(pattern.err, "科目级长“4222”不能改变,只能在末尾增加级次,例如“42222”。\n");
    EXPECT_EQ(set({"--name", ""}).code, toolWrongInput);
    EXPECT_EQ(set({"--start", "2026-13"}).code, toolWrongInput);
    const ToolRun year = set({"--start", "2027-01"});
    EXPECT_EQ(year.code, toolWrongInput);
    EXPECT_EQ(year.err, "启用月份应在本帐套的会计年度2026内\n");
    EXPECT_EQ(stored(), before);
}

TEST_P(SetCommand, PassesOverThoseWhoAreListedOnlyWhenItIsTold) {
    plantSql(
        "INSERT INTO LoginInfoTbl (lId, lAccId, sUser, sStation, lProcess) "
        "VALUES (9, 1, '李明', 'PC2', 7)");
    const ToolRun run = set({"--start", "2026-04"});
    EXPECT_EQ(run.code, toolWrongInput);
    EXPECT_THAT(run.err, HasSubstr("李明(PC2)"));
    EXPECT_EQ(set({"--start", "2026-04", "--force"}).code, toolDone);
    EXPECT_EQ(stored().dtStart, (Date{2026, 4, 1}));
}

TEST_P(SetCommand, TellsWhatIsWrongWithTheCommandLine) {
    const std::pair<std::vector<std::string>, const char*> lines[] = {
        {{}, "请至少给出一项要修改的参数"},
        {{"--foreign", "yes"}, "--foreign 应为 on 或 off,不能是“yes”"},
        {{"--start", "2026"}, "--start 应为年-月,例如 2026-04,不能是“2026”"},
        {{"--start", "2026-4"}, "--start 应为年-月,例如 2026-04,不能是“2026-4”"},
        {{"--start", "2026/04"}, "--start 应为年-月,例如 2026-04,不能是“2026/04”"},
        {{"--start", "202a-04"}, "--start 应为年-月,例如 2026-04,不能是“202a-04”"}};
    for (const auto& [options, text] : lines) {
        const ToolRun run = set(options);
        EXPECT_EQ(run.code, toolWrongUsage);
        EXPECT_THAT(run.err, HasSubstr(text));
        EXPECT_THAT(run.err, HasSubstr("用 --help 查看用法。"));
    }
}

CHENGHENG_ON_SHARED_ENGINES(SetCommand);

/// A home of books of its own for the environment of the tool.
class HomeOfBooks {
  public:
    HomeOfBooks() {
        const char* const before = std::getenv("CHENGHENG_HOME");
        if (before != nullptr) m_before = before;
        setenv("CHENGHENG_HOME", m_folder.c_str(), 1);
    }
    ~HomeOfBooks() {
        if (m_before)
            setenv("CHENGHENG_HOME", m_before->c_str(), 1);
        else
            unsetenv("CHENGHENG_HOME");
    }
    HomeOfBooks(const HomeOfBooks&) = delete;
    HomeOfBooks& operator=(const HomeOfBooks&) = delete;

    std::vector<BooksSet> listed() const {
        std::vector<BooksSet> sets;
        EXPECT_TRUE(BooksRegistry(m_folder).read(sets));
        return sets;
    }

  private:
    std::string m_folder = freshFolder();
    std::optional<std::string> m_before;
};

TEST(SetCommandOfListedBooks, KeepsTheListTrue) {
    const HomeOfBooks home;
    CreatedBooks created;
    const BooksRegistry registry(booksHome());
    ASSERT_FALSE(BooksCreation(&registry).create(sampleBooks(), created).has_value());
    const ToolRun run =
        runInProcess({"set", created.year.location, "--name", "新帐套", "--company", "新公司"});
    ASSERT_EQ(run.code, toolDone) << run.err;
    ASSERT_EQ(home.listed().size(), 1U);
    EXPECT_EQ(home.listed()[0].name, "新帐套");
    EXPECT_EQ(home.listed()[0].company, "新公司");
}

TEST(NewCommand, KeepsForeignCurrencyUnlessItIsToldNotTo) {
    const std::string folder = freshFolder();
    { std::ofstream(folder + "/password") << "secret\n"; }
    const auto makes = [&folder](const std::string& name, std::vector<std::string> more) {
        const std::string place = folder + "/" + name + ".db";
        std::vector<std::string> arguments{"new",
                                           place,
                                           "--name",
                                           name,
                                           "--company",
                                           "公司",
                                           "--year",
                                           "2026",
                                           "--supervisor",
                                           "王芳",
                                           "--unlisted",
                                           "--password-file",
                                           folder + "/password"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        EXPECT_EQ(runInProcess(arguments).code, toolDone);
        _zAccountMInfo parameters;
        EXPECT_FALSE(readBooks(place, parameters).has_value());
        return parameters.bFgn;
    };
    EXPECT_EQ(makes("on", {}), 1);
    EXPECT_EQ(makes("off", {"--foreign", "off"}), 0);
    EXPECT_EQ(makes("told", {"--foreign", "on"}), 1);
}

}  // namespace
