#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "sheets/text_measures.h"
#include "tests/e2e/run_chbooks.h"

namespace {

using chengheng::chbooks;
using chengheng::ProgramRun;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

using namespace chengheng::chbooks_exit;

constexpr const char* commands[] = {"new",
                                    "demo",
                                    "info",
                                    "check",
                                    "backup",
                                    "restore",
                                    "copy",
                                    "set",
                                    "upgrade",
                                    "new-year",
                                    "carry-forward",
                                    "import-chart",
                                    "export-chart",
                                    "import-directory",
                                    "export-directory",
                                    "import-voucher-types",
                                    "export-voucher-types",
                                    "import-rates",
                                    "export-rates",
                                    "trial-balance",
                                    "import-opening",
                                    "export-opening",
                                    "import-auxiliary",
                                    "export-auxiliary",
                                    "test-voucher",
                                    "server-roles",
                                    "print",
                                    "log"};

TEST(ToolUsage, HelpNamesEveryCommandAndExitCode) {
    const ProgramRun run = chbooks({"--help"});
    EXPECT_EQ(run.exitCode, done);
    for (const char* command : commands)
        EXPECT_THAT(run.out, HasSubstr("\n  " + std::string(command) + " "));
    for (const char* word : {"  0  完成", "  5  给出的内容不合规定"})
        EXPECT_THAT(run.out, HasSubstr(word));
    EXPECT_EQ(run.err, "");
}

TEST(ToolUsage, EveryCommandHasItsHelp) {
    for (const char* command : commands) {
        const ProgramRun run = chbooks({command, "--help"});
        EXPECT_EQ(run.exitCode, done) << command;
        EXPECT_THAT(run.out, HasSubstr("用法")) << command;
        EXPECT_THAT(run.out, testing::Not(HasSubstr("Options"))) << command;
    }
}

TEST(ToolUsage, EveryCommandOnTheLogHasItsHelp) {
    const std::string help = chbooks({"log", "--help"}).out;
    for (const char* command : {"list", "show", "verify", "seal", "export"}) {
        EXPECT_THAT(help, HasSubstr("\n  " + std::string(command) + " "));
        const ProgramRun run = chbooks({"log", command, "--help"});
        EXPECT_EQ(run.exitCode, done) << command;
        EXPECT_THAT(run.out, HasSubstr("用法")) << command;
        EXPECT_THAT(run.out, testing::Not(HasSubstr("Options"))) << command;
    }
}

/// How far the words stand from the left that are said of an option or command.
std::size_t columnOf(const std::string& help, const std::string& words) {
    const std::size_t at = help.find(words);
    if (at == std::string::npos) return 0;
    const std::size_t begin = help.rfind('\n', at) + 1;
    return static_cast<std::size_t>(chengheng::displayWidth(help.substr(begin, at - begin)));
}

TEST(ToolUsage, ColumnsOfTheHelpAreAlignedWhateverIsWide) {
    const std::string help = chbooks({"new", "--help"}).out;
    for (const char* words :
         {"显示本说明", "帐套名称", "单位名称", "会计年度", "启用月份", "是否核算外币", "主管姓名",
          "口令文件,", "输出 JSON", "帐套文件的路径、文件夹"})
        EXPECT_EQ(columnOf(help, words), 30U) << words << '\n' << help;
    EXPECT_THAT(help, HasSubstr("--name 值 (必需)"));
    EXPECT_THAT(help, HasSubstr("--start-month 整数 "));
    EXPECT_THAT(help, HasSubstr("--json  "));
    const std::string list = chbooks({"print", "--help"}).out;
    for (const char* words : {"列表:", "floating-rates", "浮动汇率的月份"})
        EXPECT_EQ(columnOf(list, words), 30U) << words << '\n' << list;
    EXPECT_EQ(columnOf(chbooks({"--help"}).out, "试算平衡"), 30U);
}

TEST(ToolUsage, WrongCommandLinesAreExplainedInChinese) {
    const std::pair<std::vector<std::string>, const char*> lines[] = {
        {{}, "命令行缺少命令"},
        {{"info"}, "命令行缺少 BOOKS"},
        {{"info", "a", "b"}, "命令行里多出了“b”"},
        {{"info", "a", "b", "c"}, "命令行里多出了“b c”"},
        {{"fly"}, "没有“fly”这个命令"},
        {{"print", "a", "b", "--csv"}, "选项 --csv 后面缺少它的值"},
        {{"print", "a", "b", "--csv", "c", "--csv", "d"}, "选项 --csv 只能给出一次"},
        {{"print", "a", "b", "--month", "x"}, "--month 应为整数,不能是“x”"},
        {{"print", "a", "b", "--month", "0x1"}, "--month 应为整数,不能是“0x1”"},
        {{"print", "a", "b", "--month", "13"}, "--month 应在 1 到 12 之间,不能是“13”"},
        {{"print", "a", "b", "--month", "00"}, "--month 应在 1 到 12 之间,不能是“00”"},
        {{"new", "--year", "99999999999"}, "--year 应在 0 到 9999 之间,不能是“99999999999”"},
        {{"new", "--start-month", "1.0"}, "--start-month 应为整数,不能是“1.0”"},
        {{"check", "a", "--jsn"}, "命令行里多出了“--jsn”"},
        {{"check", "a", "--json=maybe"}, "选项的值不对"},
        {{"copy", "a"}, "命令行缺少 TO"},
    };
    for (const auto& [arguments, text] : lines) {
        const ProgramRun run = chbooks(arguments);
        EXPECT_EQ(run.exitCode, wrongUsage) << text;
        EXPECT_THAT(run.err, StartsWith(text));
        EXPECT_THAT(run.err, EndsWith("。\n用 --help 查看用法。\n"));
        EXPECT_EQ(run.out, "");
    }
}

}  // namespace
