#ifdef CHENGHENG_PROGRAM

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ctime>
#include <fstream>

#include "tests/support/engine_cases.h"
#include "tests/support/made_books.h"
#include "tests/support/older_books.h"
#include "tests/support/run_program.h"
#include "tests/support/small_books.h"

namespace {

using chengheng::freshFolder;
using chengheng::ProgramRun;
using testing::HasSubstr;
using testing::StartsWith;

/// Runs the program with a screen that nobody sees, in a locale without Chinese.
ProgramRun chengheng(std::vector<std::string> arguments,
                     const chengheng::ProgramSettings& screen = {
                         {"QT_QPA_PLATFORM", "offscreen"}}) {
    arguments.insert(arguments.begin(), CHENGHENG_PROGRAM);
    chengheng::ProgramSettings settings = screen;
    settings.emplace_back("LC_ALL", "C");
    settings.emplace_back("CHENGHENG_HOME", freshFolder());
    return chengheng::runProgram(arguments, settings);
}

std::string fileHolding(const std::string& text) {
    const std::string path = freshFolder() + "/password";
    std::ofstream(path) << text;
    return path;
}

const chengheng::ProgramSettings noScreen{
    {"QT_QPA_PLATFORM", ""}, {"DISPLAY", ""}, {"WAYLAND_DISPLAY", ""}};

TEST(Program, ExplainsItselfEvenWithoutAScreen) {
    const ProgramRun run = chengheng({"--help"}, noScreen);
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_THAT(run.out, StartsWith("澄恒财务软件:基础设置\n"));
    EXPECT_THAT(run.out, HasSubstr("退出码"));
    EXPECT_EQ(run.err, "");
}

TEST(Program, RefusesACommandLineItCannotRead) {
    const ProgramRun run = chengheng({"--book", "x"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "无法识别的参数:--book x\n用 chengheng --help 查看说明\n");
}

TEST(Program, RefusesADateThatDoesNotExist) {
    const ProgramRun run = chengheng({"--date", "2026-02-30"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_THAT(run.err, StartsWith("日期“2026-02-30”不正确"));
}

TEST(Program, SaysInASentenceThatThereIsNoScreen) {
    const ProgramRun run = chengheng({}, noScreen);
    EXPECT_EQ(run.exitCode, 5);
    EXPECT_EQ(run.err,
              "没有图形显示,无法打开窗口。请在桌面环境中运行;服务器上可使用命令行工具 chbooks。\n");
}

TEST(Program, SaysSoWhenTheScreenNamedIsNotThere) {
    const ProgramRun run =
        chengheng({}, {{"QT_QPA_PLATFORM", "xcb"}, {"DISPLAY", ":9999"}, {"WAYLAND_DISPLAY", ""}});
    EXPECT_EQ(run.exitCode, 5);
    EXPECT_THAT(run.err, HasSubstr("没有图形显示"));
}

TEST(Program, NamesBooksThatItCannotOpen) {
    const std::string path = freshFolder() + "/Nbzw.db";
    const ProgramRun run = chengheng(
        {"--books", path, "--operator", "王芳", "--password-file", fileHolding("secret\n")});
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_THAT(run.err, StartsWith("找不到帐套文件“" + path + "”。\n"));
}

TEST(Program, RefusesAWrongDateAndAWrongPassword) {
    const std::string path = chengheng::makeBooks(freshFolder() + "/Nbzw.db");
    const std::vector<std::string> who{"--books", path, "--operator", "王芳", "--password-file"};
    const auto with = [&who](std::vector<std::string> more) {
        more.insert(more.begin(), who.begin(), who.end());
        return chengheng(more);
    };
    ProgramRun run = with({fileHolding("secret\n"), "--date", "2030-01-01"});
    EXPECT_EQ(run.exitCode, 4);
    EXPECT_THAT(run.err, StartsWith("登录日期2030-01-01不在本帐套的会计年度内"));
    run = with({fileHolding("guess\n")});
    EXPECT_EQ(run.exitCode, 4);
    EXPECT_EQ(run.err, "操作员姓名或口令不正确\n");
}

TEST(Program, MayNotGuessFasterByBeingStartedAgain) {
    const std::string path = chengheng::makeBooks(freshFolder() + "/Nbzw.db");
    {
        const auto engine = chengheng::openForTest(path, chengheng::OpenMode::existing);
        chengheng::runScript(*engine, "INSERT INTO LogonTries VALUES (1, 9, " +
                                          std::to_string(std::time(nullptr)) + ", 0, 0)");
    }
    const ProgramRun run = chengheng(
        {"--books", path, "--operator", "王芳", "--password-file", fileHolding("secret\n")});
    EXPECT_EQ(run.exitCode, 4);
    EXPECT_THAT(run.err, StartsWith("口令连续输错,请在"));
}

TEST(Program, UpgradesNoBooksWithoutAWindowToAskIn) {
    const std::string path = freshFolder() + "/Nbzw.db";
    chengheng::fillOlderBooks(*chengheng::openForTest(path), 1);
    const ProgramRun run = chengheng(
        {"--books", path, "--operator", "王芳", "--password-file", fileHolding("secret\n")});
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_THAT(run.err, HasSubstr("或运行 chbooks upgrade"));
}

TEST(Program, NamesAPasswordFileThatIsMissing) {
    const ProgramRun run = chengheng(
        {"--books", "/nowhere", "--operator", "王芳", "--password-file", "/no such file"});
    EXPECT_EQ(run.exitCode, 4);
    EXPECT_THAT(run.err, StartsWith("找不到口令文件“/no such file”。\n"));
}

}  // namespace

#endif
