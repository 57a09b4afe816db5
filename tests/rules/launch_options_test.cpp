#include "books/logon/launch_options.h"

#include <gtest/gtest.h>

namespace chengheng {
namespace {

LaunchOptions optionsOf(const std::vector<std::string>& arguments) {
    const LaunchReading reading = readLaunchOptions(arguments);
    EXPECT_FALSE(reading.exit.has_value()) << reading.text;
    return reading.options;
}

/// The text of a command line that is refused.
std::string refusalOf(const std::vector<std::string>& arguments) {
    const LaunchReading reading = readLaunchOptions(arguments);
    EXPECT_EQ(reading.exit, ProgramExit::wrongUsage);
    return reading.text;
}

TEST(LaunchOptions, NoArgumentsAskForNothing) {
    const LaunchOptions options = optionsOf({});
    EXPECT_EQ(options.books, "");
    EXPECT_EQ(options.launchArgument, "");
    EXPECT_FALSE(options.date);
    EXPECT_FALSE(options.isComplete());
}

TEST(LaunchOptions, EachOptionIsReadInBothWaysOfWriting) {
    for (const auto& arguments :
         {std::vector<std::string>{"--books", "/a b/Nbzw.db", "--operator", "王芳",
                                   "--password-file", "/pw", "--date", "2026-05-31"},
          std::vector<std::string>{"--date=2026/5/31", "--password-file=/pw", "--operator=王芳",
                                   "--books=/a b/Nbzw.db"}}) {
        const LaunchOptions options = optionsOf(arguments);
        EXPECT_EQ(options.books, "/a b/Nbzw.db");
        EXPECT_EQ(options.operatorName, "王芳");
        EXPECT_EQ(options.passwordFile, "/pw");
        EXPECT_EQ(options.date, (Date{2026, 5, 31}));
        EXPECT_TRUE(options.isComplete());
    }
}

TEST(LaunchOptions, LogonWithoutAWindowNeedsBooksOperatorAndPasswordFile) {
    EXPECT_FALSE(optionsOf({"--books", "/a", "--operator", "王芳"}).isComplete());
    EXPECT_FALSE(optionsOf({"--books", "/a", "--password-file", "/pw"}).isComplete());
    EXPECT_FALSE(optionsOf({"--operator", "王芳", "--password-file", "/pw"}).isComplete());
}

TEST(LaunchOptions, LaunchArgumentIsKnownInAnyCaseAndKeptAsWritten) {
    for (const char* argument : {"-ERPCONSOLE", "-erpconsole", "-ErpSingle", "-ERPSINGLE"}) {
        const LaunchOptions options = optionsOf({"--operator", "王芳", argument});
        EXPECT_EQ(options.launchArgument, argument);
        EXPECT_EQ(options.operatorName, "王芳");
    }
}

TEST(LaunchOptions, TwoLaunchArgumentsAreRefused) {
    EXPECT_TRUE(refusalOf({"-ERPCONSOLE", "-erpsingle"})
                    .starts_with("-ERPCONSOLE 和 -ERPSINGLE 只能给出一个\n"));
}

TEST(LaunchOptions, UnknownArgumentIsNamed) {
    EXPECT_EQ(refusalOf({"--book", "x"}),
              "无法识别的参数:--book x\n用 chengheng --help 查看说明\n");
    EXPECT_TRUE(refusalOf({"-ERPOTHER"}).starts_with("无法识别的参数:-ERPOTHER\n"));
    EXPECT_TRUE(refusalOf({"Nbzw.db"}).starts_with("无法识别的参数:Nbzw.db\n"));
}

TEST(LaunchOptions, OptionWithoutAValueOrGivenTwiceIsNamed) {
    EXPECT_TRUE(refusalOf({"--books"}).starts_with("选项缺少内容,或同一选项给出了多次:--books\n"));
    EXPECT_TRUE(refusalOf({"--books", "/a", "--books", "/b"})
                    .starts_with("选项缺少内容,或同一选项给出了多次:--books\n"));
}

TEST(LaunchOptions, WrongDateIsNamedWithTheFormWanted) {
    for (const char* date : {"2026-02-30", "31.5.2026", "2026-13-01", "today", "2026"})
        EXPECT_EQ(refusalOf({"--date", date}),
                  std::string("日期“") + date +
                      "”不正确,请按“年-月-日”的格式输入,例如 2026-01-31\n"
                      "用 chengheng --help 查看说明\n");
}

TEST(LaunchOptions, HelpDescribesEveryOptionAndEveryExitCode) {
    for (const char* asked : {"--help", "-h"}) {
        const LaunchReading reading = readLaunchOptions({asked});
        EXPECT_EQ(reading.exit, ProgramExit::done);
        for (const char* wanted :
             {"--books", "--operator", "--password-file", "--date", "-ERPCONSOLE", "-ERPSINGLE",
              "--help", "--version", "CHENGHENG_HOME", "\n  0  ", "\n  1  ", "\n  2  ", "\n  3  ",
              "\n  4  ", "\n  5  "})
            EXPECT_NE(reading.text.find(wanted), std::string::npos) << wanted;
    }
}

TEST(LaunchOptions, VersionIsPrinted) {
    const LaunchReading reading = readLaunchOptions({"--version"});
    EXPECT_EQ(reading.exit, ProgramExit::done);
    EXPECT_TRUE(reading.text.starts_with("chengheng "));
}

}  // namespace
}  // namespace chengheng
