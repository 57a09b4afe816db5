#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "tests/e2e/run_chbooks.h"
#include "tests/support/engine_cases.h"
#include "tests/support/made_books.h"
#include "tests/support/run_program.h"
#include "tests/support/small_books.h"

namespace {

using chengheng::EngineCase;
using chengheng::ProgramRun;
using testing::HasSubstr;

using namespace chengheng::chbooks_exit;

/// Without a screen, and in a locale without Chinese.
ProgramRun run(const std::vector<std::string>& command) {
    return chengheng::runProgram(command, {{"LC_ALL", "C"},
                                           {"DISPLAY", ""},
                                           {"WAYLAND_DISPLAY", ""},
                                           {"CHENGHENG_HOME", chengheng::freshFolder()}});
}

ProgramRun print(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {CHENGHENG_CHBOOKS, "print"});
    return run(arguments);
}

std::string contentOf(const std::string& path) {
    std::ostringstream content;
    content << std::ifstream(path).rdbuf();
    return content.str();
}

/// The command that prints lists into files, on books of each engine.
class PrintCommand : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        m_books = chengheng::makeBooks(chengheng::freshLocation(GetParam()));
        chengheng::runScript(*chengheng::openForTest(m_books, chengheng::OpenMode::existing),
                             "INSERT INTO Settle VALUES (901, '09', '转帐支票', 1);"
                             "INSERT INTO Sign VALUES (901, '转', '转帐凭证', 3, '1001', '1002');"
                             "INSERT INTO Cyrency VALUES (9, 9, 'USD', '美元', 1, 5, 0);"
                             "INSERT INTO ExchgFix VALUES (901, 9, '2026-01-01', 1, 7.25, 7.5);"
                             "INSERT INTO ExchgFlt VALUES (901, 9, '2026-02-01', 2, 7.125, 0);"
                             "INSERT INTO ExchgFlt VALUES (902, 9, '2026-03-01', 3, 7.375, 0)");
    }
    std::string csvOf(std::vector<std::string> arguments) {
        const std::string path = m_folder + arguments.front() + ".csv";
        arguments.insert(arguments.end(), {m_books, "--force", "--csv", path});
        const ProgramRun printed = print(arguments);
        EXPECT_EQ(printed.exitCode, done) << printed.err;
        EXPECT_THAT(printed.out, HasSubstr("一览表”已写入“" + path));
        return contentOf(path);
    }

    std::string m_books;
    std::string m_folder = chengheng::freshFolder() + "/";
};

TEST_P(PrintCommand, WritesEveryListAsItsWindowPrintsIt) {
    EXPECT_THAT(csvOf({"settle"}), HasSubstr("09,转帐支票,√"));
    EXPECT_THAT(csvOf({"sign"}), HasSubstr("转,转帐凭证,借贷必无,1001,1002"));
    EXPECT_THAT(csvOf({"currency"}), HasSubstr("USD,美元,原币*汇率 = 本位币,5,0"));
    EXPECT_THAT(csvOf({"fixed-rates", "--currency", "USD"}), HasSubstr("2026.01,7.25000,7.50000"));
    EXPECT_THAT(csvOf({"accounts"}), HasSubstr("1,1002,银行存款"));
    EXPECT_THAT(csvOf({"departments"}), HasSubstr("编码,名称"));
    EXPECT_THAT(csvOf({"units"}), HasSubstr("编码,名称,单位分类,性质"));
}

TEST_P(PrintCommand, WritesTheFloatingRatesOfTheYearOrOfOneMonth) {
    const std::string year = csvOf({"floating-rates", "--currency", "USD"});
    EXPECT_THAT(year, HasSubstr("2026.02.01,7.12500,"));
    EXPECT_THAT(year, HasSubstr("2026.03.01,7.37500,"));
    const std::string month = csvOf({"floating-rates", "--currency", "USD", "--month", "3"});
    EXPECT_THAT(month, testing::Not(HasSubstr("2026.02.01")));
    EXPECT_THAT(month, HasSubstr("2026.03.01,7.37500,"));
}

TEST_P(PrintCommand, WritesASpreadsheet) {
    const std::string path = m_folder + "settle.xlsx";
    EXPECT_EQ(print({"settle", m_books, "--xlsx", path}).exitCode, done);
    EXPECT_THAT(contentOf(path), testing::StartsWith("PK"));
}

#ifdef CHENGHENG_CHBOOKS_PDF

TEST_P(PrintCommand, WritesPagesThatCanBeSearchedWithoutAScreen) {
    const std::string path = m_folder + "settle.pdf";
    const ProgramRun printed = print({"settle", m_books, "--pdf", path});
    EXPECT_EQ(printed.exitCode, done) << printed.err;
    EXPECT_EQ(printed.out, "“结算方式一览表”已写入“" + path + "”。\n");
    EXPECT_EQ(printed.err, "");
    const std::string text =
        run({"/usr/bin/env", "pdftotext", "-layout", "-enc", "UTF-8", path, "-"}).out;
    for (const char* part : {"结算方式一览表", "09", "转帐支票", "√", "示例帐套"})
        EXPECT_THAT(text, HasSubstr(part));
}

TEST_P(PrintCommand, PassesOnWhyNoPagesWereWritten) {
    const ProgramRun printed = print({"settle", m_books, "--pdf", m_folder + "none/settle.pdf"});
    EXPECT_EQ(printed.exitCode, failed);
    EXPECT_THAT(printed.err, HasSubstr("none/settle.pdf"));
    EXPECT_EQ(printed.out, "");
    EXPECT_EQ(
        print({"fixed-rates", m_books, "--pdf", m_folder + "a.pdf", "--currency", "GBP"}).exitCode,
        wrongInput);
}

#endif

TEST_P(PrintCommand, SaysSoWhereTheProgramForPagesIsMissing) {
    const std::string alone = m_folder + "chbooks";
    std::filesystem::copy_file(CHENGHENG_CHBOOKS, alone);
    const std::string path = m_folder + "settle.pdf";
    const ProgramRun printed = run({alone, "print", "settle", m_books, "--pdf", path});
    EXPECT_EQ(printed.exitCode, failed);
    EXPECT_THAT(printed.err, HasSubstr("没有写 PDF 文件的程序“" + m_folder + "chbooks-pdf”"));
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_P(PrintCommand, SaysWhatIsWrongWithTheCommandLine) {
    const std::string path = m_folder + "list.csv";
    EXPECT_THAT(print({"settle", m_books}).err, HasSubstr("--pdf、--xlsx、--csv"));
    EXPECT_EQ(print({"settle", m_books, "--csv", path, "--xlsx", path}).exitCode, wrongUsage);
    EXPECT_EQ(print({"fixed-rates", m_books, "--csv", path}).exitCode, wrongUsage);
    const ProgramRun dollars = print({"settle", m_books, "--csv", path, "--currency", "USD"});
    EXPECT_EQ(dollars.exitCode, wrongUsage);
    EXPECT_EQ(dollars.err, "--currency 只用于汇率列表,打印列表“settle”时请去掉。\n");
    const ProgramRun march =
        print({"fixed-rates", m_books, "--csv", path, "--currency", "USD", "--month", "3"});
    EXPECT_EQ(march.exitCode, wrongUsage);
    EXPECT_EQ(march.err, "--month 只用于 floating-rates,打印列表“fixed-rates”时请去掉。\n");
    const ProgramRun unknown = print({"ledger", m_books, "--csv", path});
    EXPECT_EQ(unknown.exitCode, wrongInput);
    EXPECT_THAT(unknown.err, HasSubstr("不认识列表“ledger”"));
    const ProgramRun euro = print({"fixed-rates", m_books, "--csv", path, "--currency", "EUR"});
    EXPECT_EQ(euro.exitCode, wrongInput);
    EXPECT_EQ(euro.err, "帐套中没有币符为“EUR”的外币。\n");
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_P(PrintCommand, SaysWhyTheBooksOrTheFileFailed) {
    EXPECT_EQ(print({"settle", m_folder + "none.ccb", "--csv", m_folder + "a.csv"}).exitCode,
              failed);
    const ProgramRun nowhere = print({"settle", m_books, "--csv", m_folder + "none/a.csv"});
    EXPECT_EQ(nowhere.exitCode, failed);
    EXPECT_THAT(nowhere.err, HasSubstr("none/a.csv"));
}

CHENGHENG_ON_SHARED_ENGINES(PrintCommand);

}  // namespace
