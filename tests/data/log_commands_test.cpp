#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "operationlog/log_reading.h"
#include "session/rights_list.h"
#include "sheets/files/sheet_files.h"
#include "tests/support/engine_cases.h"
#include "tests/support/engine_tools.h"
#include "tests/support/logged_books.h"
#include "tests/support/ordinary_user.h"
#include "tests/support/run_tool.h"

namespace chengheng::log_commands_test {
namespace {

using nlohmann::json;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

class LogCommands : public LoggedBooksTest {
  protected:
    void SetUp() override {
        m_books.change("INSERT Settle VALUES( 1, '1', '支票', 0 )", "增加结算方式 1 支票", 35);
        m_books.actAs("李明", 8);
        m_books.change("Update Settle Set sSettle = '现金', bNote = 1 Where lId = 1",
                       "修改结算方式 1", 35);
        m_books.change(
            "INSERT Code VALUES( 1, '1001', '库存现金', '资产', 1, 1, 1, 0, 0, '', '', 0, 0, '', "
            "0, '' )",
            "增加科目 1001", 1);
        m_books.change("DELETE Settle Where lId = 1");
    }
    ToolRun run(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), "log");
        arguments.insert(arguments.begin() + 2, m_books.location());
        return runInProcess(std::move(arguments));
    }
    /// The numbers of the entries that a list of these options names.
    std::vector<int> listed(std::vector<std::string> options) {
        options.insert(options.begin(), "list");
        options.emplace_back("--json");
        const ToolRun ran = run(std::move(options));
        EXPECT_EQ(ran.code, toolDone) << ran.err;
        std::vector<int> numbers;
        const json list = json::parse(ran.out);
        for (const json& entry : list["entries"]) numbers.push_back(entry["number"]);
        return numbers;
    }
    void setTime(int number, const std::string& time) {
        m_books.tamper(fmt::format("UPDATE OperationLog SET sTime = '{}.000+08:00' WHERE lId = {}",
                                   time, number));
    }
    std::string hashOf(int number) {
        return readCell(m_books.engine(),
                        fmt::format("SELECT sHash FROM OperationLog WHERE lId = {}", number));
    }
};

TEST_P(LogCommands, ListTheNewestFirst) {
    setTime(3, "2026-11-23T18:04:05");
    const ToolRun ran = run({"list"});
    EXPECT_EQ(ran.code, toolDone);
    EXPECT_EQ(ran.err, "");
    std::vector<std::string> lines;
    std::istringstream text(ran.out);
    for (std::string line; std::getline(text, line);) lines.push_back(line);
    ASSERT_THAT(lines, SizeIs(4));
    EXPECT_THAT(lines[0], EndsWith("李明  财务1  Settle 1(1 行)"));
    EXPECT_EQ(lines[1], "3  2026-11-23 18:04:05  李明  财务1  增加科目 1001(1 行)");
    EXPECT_THAT(lines[3], StartsWith("1  "));
}

TEST_P(LogCommands, ListAsJson) {
    const ToolRun ran = run({"list", "--json", "--limit", "3"});
    const json list = json::parse(ran.out);
    EXPECT_EQ(list["more"], true);
    ASSERT_THAT(list["entries"], SizeIs(3));
    const json& entry = list["entries"][2];
    EXPECT_EQ(entry["number"], 2);
    EXPECT_EQ(entry["operator"], "李明");
    EXPECT_EQ(entry["operatorId"], 8);
    EXPECT_EQ(entry["workstation"], "财务1");
    EXPECT_EQ(entry["process"], 4711);
    EXPECT_EQ(entry["program"], "chengheng 1.0");
    EXPECT_EQ(entry["function"], 35);
    EXPECT_EQ(entry["words"], "修改结算方式 1");
    EXPECT_EQ(entry["rows"], 1);
    EXPECT_EQ(entry["hash"], hashOf(2));
    EXPECT_EQ(json::parse(run({"list", "--json", "--limit", "4"}).out)["more"], false);
}

TEST_P(LogCommands, ListWhatTheOptionsLetThrough) {
    setTime(1, "2026-11-22T08:00:00");
    setTime(2, "2026-11-23T18:04:05");
    setTime(3, "2026-11-23T18:05:00");
    setTime(4, "2026-11-24T00:00:00");
    EXPECT_THAT(listed({"--operator", "王芳"}), ElementsAre(1));
    EXPECT_THAT(listed({"--from", "2026-11-23"}), ElementsAre(4, 3, 2));
    EXPECT_THAT(listed({"--to", "2026-11-23 18:04"}), ElementsAre(2, 1));
    EXPECT_THAT(listed({"--from", "2026/11/23", "--to", "2026/11/23"}), ElementsAre(3, 2));
    EXPECT_THAT(listed({"--function", "35"}), ElementsAre(2, 1));
    EXPECT_THAT(listed({"--function", functionName(35)}), ElementsAre(2, 1));
    EXPECT_THAT(listed({"--function", "0"}), ElementsAre(4));
    EXPECT_THAT(listed({"--function", "登录"}), IsEmpty());
    EXPECT_THAT(listed({"--text", "科目"}), ElementsAre(3));
    EXPECT_THAT(listed({"--account", "1001"}), ElementsAre(3));
    EXPECT_THAT(listed({"--account", "1002"}), IsEmpty());
}

TEST_P(LogCommands, SayThatNothingFitsAndThatThereIsMore) {
    EXPECT_EQ(run({"list", "--operator", "无此人"}).out, "没有符合条件的操作日志。\n");
    EXPECT_THAT(run({"list", "--limit", "1"}).out,
                EndsWith("还有更早的,用 --limit 或 --to 查看。\n"));
}

TEST_P(LogCommands, RefuseWhatTheyCannotRead) {
    ToolRun ran = run({"list", "--from", "昨天"});
    EXPECT_EQ(ran.code, toolWrongUsage);
    EXPECT_THAT(ran.err, HasSubstr("--from 应为日期,如 2026-11-23"));
    EXPECT_EQ(run({"export", "--to", "2026-02-30", "--csv", "-"}).code, toolWrongUsage);
    ran = run({"list", "--function", "不存在"});
    EXPECT_EQ(ran.code, toolWrongInput);
    EXPECT_EQ(ran.err, "权限表中没有功能“不存在”。\n");
    EXPECT_EQ(run({"list", "--limit", "0"}).code, toolWrongUsage);
    EXPECT_EQ(runInProcess({"log"}).code, toolWrongUsage);
}

TEST_P(LogCommands, ShowAnEntryWithItsRows) {
    setTime(2, "2026-11-23T18:04:05");
    const ToolRun ran = run({"show", "2"});
    EXPECT_EQ(ran.code, toolDone);
    EXPECT_EQ(ran.out, fmt::format("编号    2\n"
                                   "时间    2026-11-23T18:04:05.000+08:00\n"
                                   "操作员  李明(编号 8)\n"
                                   "工作站  财务1(进程 4711)\n"
                                   "程序    chengheng 1.0\n"
                                   "功能    {}\n"
                                   "操作    修改结算方式 1\n"
                                   "校验    {}\n"
                                   "行数    1\n"
                                   "修改 结算方式(编号 1)\n"
                                   "  方式名:支票 → 现金\n"
                                   "  支票登记簿:否 → 是\n",
                                   functionName(35), hashOf(2)));
    EXPECT_THAT(run({"show", "1"}).out,
                EndsWith("增加 结算方式 1 支票(编号 1)\n  编号:1\n  方式号:1\n  方式名:支票\n  "
                         "支票登记簿:否\n"));
    EXPECT_THAT(run({"show", "4"}).out, HasSubstr("删除 结算方式 1 现金(编号 1)\n  编号:1\n"));
    const ToolRun none = run({"show", "9"});
    EXPECT_EQ(none.code, toolWrongInput);
    EXPECT_EQ(none.err, "没有第 9 条操作日志。\n");
}

TEST_P(LogCommands, ShowAnEntryAsJson) {
    const json entry = json::parse(run({"show", "2", "--json"}).out);
    EXPECT_EQ(entry["number"], 2);
    ASSERT_THAT(entry["changes"], SizeIs(1));
    const json& row = entry["changes"][0];
    EXPECT_EQ(row["table"], "Settle");
    EXPECT_EQ(row["name"], "结算方式");
    EXPECT_EQ(row["id"], 1);
    EXPECT_EQ(row["rowName"], "") << "it is gone";
    EXPECT_EQ(row["change"], "changed");
    EXPECT_EQ(row["columns"][0]["column"], "sSettle");
    EXPECT_EQ(row["columns"][0]["name"], "方式名");
    EXPECT_EQ(row["columns"][0]["before"], "支票");
    EXPECT_EQ(row["columns"][0]["after"], "现金");
    const json added = json::parse(run({"show", "1", "--json"}).out)["changes"][0];
    EXPECT_EQ(added["change"], "inserted");
    EXPECT_FALSE(added["columns"][0].contains("before"));
    const json gone = json::parse(run({"show", "4", "--json"}).out)["changes"][0];
    EXPECT_EQ(gone["change"], "deleted");
    EXPECT_FALSE(gone["columns"][0].contains("after"));
}

TEST_P(LogCommands, VerifyBooksThatNobodyTouched) {
    const ToolRun ran = run({"verify"});
    EXPECT_EQ(ran.code, toolDone);
    EXPECT_EQ(ran.out, "核对了 4 条日志、帐套中的 2 行,都是原样。\n末条校验值 " + hashOf(4) + "\n");
    const json result = json::parse(run({"verify", "--json"}).out);
    EXPECT_EQ(result["sound"], true);
    EXPECT_EQ(result["entries"], 4);
    EXPECT_EQ(result["end"]["hash"], hashOf(4));
    EXPECT_EQ(result["firstFault"], nullptr);
    EXPECT_EQ(result["comparedRows"], 2);
    EXPECT_FALSE(result.contains("sealWhole"));
}

TEST_P(LogCommands, EndWithOneWhereVerificationFindsSomething) {
    m_books.tamper("UPDATE OperationLog SET sUser = '王芳' WHERE lId = 3");
    m_books.tamper("UPDATE Code SET sName = '现金'");
    const ToolRun ran = run({"verify"});
    EXPECT_EQ(ran.code, toolFaultsFound);
    EXPECT_EQ(ran.out,
              "第 3 条的内容被改动过。\n"
              "会计科目(编号 1)的“科目名称”现在是“现金”,第 3 条所记的是“库存现金”。\n"
              "核对了帐套中的 2 行,共发现 2 处问题。\n");
    const ToolRun asJson = run({"verify", "--json"});
    EXPECT_EQ(asJson.code, toolFaultsFound);
    const json result = json::parse(asJson.out);
    EXPECT_EQ(result["sound"], false);
    EXPECT_EQ(result["firstFault"]["entry"], 3);
    EXPECT_EQ(result["rowFaults"][0]["table"], "Code");
    EXPECT_EQ(result["rowFaults"][0]["column"], "sName");
    EXPECT_EQ(result["rowFaultCount"], 1);
}

TEST_P(LogCommands, CountWhatTheyDoNotList) {
    std::string rows;
    for (int id = 1; id <= 1005; ++id)
        rows += fmt::format("INSERT Dept VALUES( {0}, '{0}', '部' );", id);
    rows.pop_back();
    m_books.change(rows);
    m_books.tamper("DELETE FROM Dept");
    EXPECT_THAT(run({"verify"}).out, EndsWith("另有 5 处与日志不符,没有一一列出。\n"
                                              "核对了帐套中的 1007 行,共发现 1005 处问题。\n"));
}

TEST_P(LogCommands, SealTheLogAndHoldItAgainstTheSeal) {
    const std::string file = freshFolder() + "/seal.txt";
    const ToolRun sealed = run({"seal", file});
    EXPECT_EQ(sealed.code, toolDone) << sealed.err;
    EXPECT_EQ(sealed.out, "前 4 条操作日志已封存到“" + file + "”。\n");
    EXPECT_THAT(contentOf(file), HasSubstr("条数:4\n"));
    EXPECT_THAT(contentOf(file), EndsWith("校验:" + hashOf(4) + "\n"));
    m_books.change("INSERT Dept VALUES( 1, '01', '部' )");
    const ToolRun whole = run({"verify", "--seal", file});
    EXPECT_EQ(whole.code, toolDone);
    EXPECT_THAT(whole.out, StartsWith("封存的 4 条(至 "));
    EXPECT_THAT(whole.out, HasSubstr(")都在,没有改动。\n核对了 5 条日志"));
    EXPECT_EQ(json::parse(run({"verify", "--json", "--seal", file}).out)["sealWhole"], true);
    m_books.tamper(fmt::format(
        "DELETE FROM OperationLog WHERE lId = 5; DELETE FROM OperationLogPart WHERE sTable = "
        "'Dept'; DELETE FROM Dept; UPDATE OperationLogHead SET lLastId = 4, sHash = '{}'",
        hashOf(4)));
    EXPECT_EQ(run({"verify", "--seal", file}).code, toolDone) << "as it was when sealed";
    setTime(4, "2020-01-01T00:00:00");
    const ToolRun broken = run({"verify", "--seal", file});
    EXPECT_EQ(broken.code, toolFaultsFound);
    EXPECT_THAT(broken.out, HasSubstr("第 4 条的内容被改动过。\n"));
    EXPECT_THAT(broken.out, HasSubstr(")已不是原样。\n"));
    EXPECT_THAT(broken.out, EndsWith("共发现 2 处问题。\n"));
}

TEST_P(LogCommands, ReplaceASealOnlyWhenTold) {
    const std::string file = freshFolder() + "/seal.txt";
    ASSERT_EQ(run({"seal", file}).code, toolDone);
    const std::string before = contentOf(file);
    m_books.change("INSERT Dept VALUES( 1, '01', '部' )");
    EXPECT_EQ(run({"seal", file}).code, toolTargetExists);
    EXPECT_EQ(contentOf(file), before);
    const ToolRun forced = run({"seal", file, "--force", "--json"});
    EXPECT_EQ(forced.code, toolDone);
    EXPECT_EQ(json::parse(forced.out)["end"]["number"], 5);
    EXPECT_NE(contentOf(file), before);
}

TEST_P(LogCommands, NeverSealOverBooks) {
    const std::string file = freshFolder() + "/n.db";
    ASSERT_EQ(runInProcess({"demo", file}).code, toolDone);
    const std::string before = contentOf(file);
    EXPECT_EQ(run({"seal", file, "--force"}).code, toolTargetExists);
    EXPECT_EQ(contentOf(file), before);
}

TEST_P(LogCommands, RefuseAFileThatIsNoSeal) {
    const std::string file = freshFolder() + "/seal.txt";
    EXPECT_EQ(run({"verify", "--seal", file}).code, toolFailed) << "it is not there";
    std::ofstream(file) << "x";
    const ToolRun ran = run({"verify", "--seal", file});
    EXPECT_EQ(ran.code, toolFailed);
    EXPECT_EQ(ran.err, "“" + file + "”不是操作日志的封存文件,或者已经不完整。\n");
    std::ofstream(file) << std::string(100'000, 'x');
    EXPECT_EQ(run({"verify", "--seal", file}).code, toolFailed);
}

TEST_P(LogCommands, ExportWhatTheOptionsLetThrough) {
    const std::string folder = freshFolder();
    const ToolRun ran = run({"export", "--operator", "李明", "--csv", folder + "/log.csv"});
    EXPECT_EQ(ran.code, toolDone) << ran.err;
    Sheet sheet;
    ASSERT_FALSE(readSheet(folder + "/log.csv", sheet));
    std::vector<std::string> words;
    for (const SheetRow& row : sheet.rows)
        if (row.size() > 5) words.push_back(cellText(row[0]) + " " + cellText(row[5]));
    EXPECT_THAT(words,
                ElementsAre("编号 操作", "4 Settle 1", "3 增加科目 1001", "2 修改结算方式 1"));
    EXPECT_EQ(run({"export", "--xlsx", folder + "/log.xlsx"}).code, toolDone);
    ASSERT_FALSE(readSheet(folder + "/log.xlsx", sheet));
    EXPECT_EQ(run({"export", "--csv", folder + "/log.csv"}).code, toolTargetExists);
    const ToolRun asJson = run({"export", "--csv", folder + "/log.csv", "--force", "--json"});
    EXPECT_EQ(json::parse(asJson.out),
              json({{"report", "操作日志"}, {"file", folder + "/log.csv"}}));
    EXPECT_EQ(run({"export"}).code, toolWrongUsage);
    EXPECT_EQ(run({"export", "--csv", "-", "--function", "x"}).code, toolWrongInput);
}

TEST_P(LogCommands, NeedNoRightToWrite) {
    namespace fs = std::filesystem;
    if (GetParam().name == "postgres") GTEST_SKIP() << "a file";
    ASSERT_TRUE(m_books.engine().script("PRAGMA wal_checkpoint(TRUNCATE)"));
    const fs::path folder = freshFolder();
    const std::string file = folder / "n.db";
    fs::copy_file(m_books.location(), file);
    fs::permissions(folder.parent_path(), fs::perms(0755));
    fs::permissions(file, fs::perms(0444));
    fs::permissions(folder, fs::perms(0555));
    for (const std::vector<std::string>& command : std::initializer_list<std::vector<std::string>>{
             {"log", "list", file}, {"log", "verify", file}, {"log", "show", file, "1"}})
        EXPECT_EQ(asOrdinaryUser([&] { return runInProcess(command).code; }), toolDone)
            << command[1];
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 1) << "nothing lies beside it";
    fs::permissions(folder, fs::perms(0755));
}

TEST_P(LogCommands, SayThatOlderBooksHaveNoLog) {
    ASSERT_TRUE(m_books.engine().script(
        "DROP TABLE OperationLog; DROP TABLE OperationLogPart; DROP TABLE OperationLogHead; UPDATE "
        "BooksFormat SET lVersion = 5"));
    for (const char* command : {"list", "verify"}) {
        const ToolRun ran = run({command});
        EXPECT_EQ(ran.code, toolFailed) << command;
        EXPECT_EQ(ran.err, "这是较早版本的程序建立的帐套,还没有操作日志;升级后开始记录。\n");
    }
}

TEST_P(LogCommands, DoNotSealAnEmptyLog) {
    m_books.tamper(
        "DELETE FROM OperationLog; DELETE FROM OperationLogPart; DELETE FROM OperationLogHead");
    const std::string file = freshFolder() + "/seal.txt";
    const ToolRun ran = run({"seal", file});
    EXPECT_EQ(ran.code, toolWrongInput);
    EXPECT_EQ(ran.err, "操作日志还没有内容,不必封存。\n");
    EXPECT_FALSE(std::filesystem::exists(file));
}

CHENGHENG_ON_SHARED_ENGINES(LogCommands);

}  // namespace
}  // namespace chengheng::log_commands_test
