#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

#include "tests/e2e/run_chbooks.h"
#include "tests/support/engine_tools.h"

namespace {

namespace files = std::filesystem;
using chengheng::chbooks;
using chengheng::EngineCase;
using chengheng::freshFolder;
using chengheng::freshLocation;
using chengheng::ProgramRun;
using testing::HasSubstr;
using Json = nlohmann::json;

using namespace chengheng::chbooks_exit;

/// The same in a terminal, each answer typed at a prompt for a password.
ProgramRun chbooksTyping(std::vector<std::string> arguments,
                         const std::vector<std::string>& answers) {
    arguments.insert(arguments.begin(), CHENGHENG_CHBOOKS);
    return chengheng::runInTerminal(arguments, "口令:", answers, chengheng::chbooksSettings());
}

std::vector<std::string> newBooks(const std::string& location,
                                  const std::vector<std::string>& more = {}) {
    std::vector<std::string> arguments{"new",    location, "--name", "新帐",         "--company",
                                       "新公司", "--year", "2026",   "--supervisor", "赵一"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return arguments;
}

std::string passwordFile(const std::string& password) {
    const std::string path = freshFolder() + "/password";
    std::ofstream(path) << password << '\n';
    files::permissions(path, files::perms::owner_read | files::perms::owner_write);
    return path;
}

/// Books made by the tool on each engine.
class ToolMaking : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override { m_place = freshLocation(GetParam()); }

    std::string m_place;
};

TEST_P(ToolMaking, NewBooksAreSoundAndAsAskedFor) {
    const ProgramRun run =
        chbooks(newBooks(m_place, {"--password-file", passwordFile("geheim"), "--chart",
                                   "enterprise", "--start-month", "4", "--level-pattern", "432",
                                   "--foreign", "off", "--unlisted"}));
    ASSERT_EQ(run.exitCode, done) << run.err;
    EXPECT_EQ(chbooks({"check", m_place}).exitCode, done);
    const Json info = Json::parse(chbooks({"info", m_place, "--json"}).out);
    EXPECT_EQ(info["name"], "新帐");
    EXPECT_EQ(info["start"], "2026-04-01");
    EXPECT_EQ(info["levelPattern"], "432");
    EXPECT_EQ(info["foreignCurrency"], false);
}

TEST_P(ToolMaking, NumbersAreDecimalWhateverZerosStandInFront) {
    std::vector<std::string> line =
        newBooks(m_place, {"--password-file", passwordFile("geheim"), "--start-month", "010"});
    line.push_back("--unlisted");
    ASSERT_EQ(chbooks(line).exitCode, done);
    const Json info = Json::parse(chbooks({"info", m_place, "--json"}).out);
    EXPECT_EQ(info["start"], "2026-10-01");
    EXPECT_EQ(info["foreignCurrency"], true) << "unless they are not wanted";
}

TEST_P(ToolMaking, APasswordFileThatOthersMayReadIsTold) {
    const std::string file = passwordFile("geheim");
    const auto line = newBooks(m_place, {"--password-file", file, "--unlisted"});
    files::permissions(file, files::perms::group_read, files::perm_options::add);
    const ProgramRun run = chbooks(line);
    EXPECT_EQ(run.exitCode, done) << run.err;
    EXPECT_EQ(run.err,
              "口令文件“" + file + "”其他用户也能读。\n请改为只有自己可读,例如 chmod 600。\n");
}

TEST_P(ToolMaking, BooksAreNotMadeWhereSomeAreAlready) {
    const std::string file = passwordFile("geheim");
    const auto line = newBooks(m_place, {"--password-file", file, "--unlisted"});
    ASSERT_EQ(chbooks(line).exitCode, done);
    EXPECT_EQ(chbooks(line).exitCode, targetExists);
}

TEST_P(ToolMaking, WrongValuesAreRefusedBeforeAnythingIsMade) {
    const std::string file = passwordFile("geheim");
    const std::pair<std::vector<std::string>, const char*> wrong[] = {
        {{"--level-pattern", "4222222"}, "科目级长"},
        {{"--level-pattern", "4a"}, "科目级长"},
        {{"--level-pattern", "222"}, "科目级长"},
        {{"--start-month", "13"}, "启用月份"},
        {{"--chart", "mine"}, "科目体系"},
    };
    for (const auto& [more, text] : wrong) {
        std::vector<std::string> line = newBooks(m_place, {"--password-file", file, "--unlisted"});
        line.insert(line.end(), more.begin(), more.end());
        const ProgramRun run = chbooks(line);
        EXPECT_EQ(run.exitCode, wrongInput) << text;
        EXPECT_THAT(run.err, HasSubstr(text));
        EXPECT_EQ(chbooks({"info", m_place}).exitCode, failed);
    }
}

TEST_P(ToolMaking, DemoBooksAreSound) {
    const ProgramRun run = chbooks({"demo", m_place});
    ASSERT_EQ(run.exitCode, done) << run.err;
    EXPECT_THAT(run.out, HasSubstr("陈静"));
    EXPECT_EQ(chbooks({"check", m_place}).exitCode, done);
    EXPECT_EQ(chbooks({"demo", m_place}).exitCode, targetExists);
}

TEST_P(ToolMaking, DemoBooksSurviveBackupAndCopyToAnotherEngineAndBack) {
    ASSERT_EQ(chbooks({"demo", m_place}).exitCode, done);
    const std::string there = freshLocation(EngineCase{"sqliteFile"});
    const std::string back = freshLocation(GetParam());
    ASSERT_EQ(chbooks({"copy", m_place, there}).exitCode, done);
    ASSERT_EQ(chbooks({"copy", there, back}).exitCode, done);
    EXPECT_EQ(chbooks({"check", back}).exitCode, done);
    const auto tablesOf = [](const std::string& place) {
        Json tables = Json::parse(chbooks({"info", place, "--json"}).out)["tables"];
        tables.erase("OperationLog");  // tells of the copies
        return tables;
    };
    EXPECT_EQ(tablesOf(back), tablesOf(m_place));
}

CHENGHENG_ON_SHARED_ENGINES(ToolMaking);

TEST(ToolNew, PasswordTypedTwiceInTheTerminalIsNotShown) {
    const std::string place = freshFolder() + "/a.db";
    const ProgramRun run = chbooksTyping(newBooks(place, {"--unlisted"}), {"geheim", "geheim"});
    EXPECT_EQ(run.exitCode, done) << run.out;
    EXPECT_THAT(run.out, testing::Not(HasSubstr("geheim")));
    EXPECT_EQ(chbooks({"check", place}).exitCode, done);
}

TEST(ToolNew, PasswordsThatDifferAreRefused) {
    const std::string place = freshFolder() + "/a.db";
    const ProgramRun run = chbooksTyping(newBooks(place, {"--unlisted"}), {"geheim", "geheim2"});
    EXPECT_EQ(run.exitCode, wrongInput);
    EXPECT_THAT(run.out, HasSubstr("不一致"));
    EXPECT_FALSE(std::filesystem::exists(place));
}

TEST(ToolNew, TypingErrorsInAPasswordCanBeTakenBack) {
    const std::string place = freshFolder() + "/a.db";
    const std::string backspace = "\x7f";
    const ProgramRun run =
        chbooksTyping(newBooks(place, {"--unlisted"}), {"geh错" + backspace + "eim", "geheim"});
    EXPECT_EQ(run.exitCode, done) << run.out;
}

TEST(ToolNew, ControlCAtThePromptMakesNothing) {
    const std::string place = freshFolder() + "/a.db";
    const ProgramRun run = chbooksTyping(newBooks(place, {"--unlisted"}), {"gehe\x03"});
    EXPECT_EQ(run.exitCode, wrongInput);
    EXPECT_FALSE(std::filesystem::exists(place));
}

TEST(ToolNew, WithoutATerminalThePasswordMustComeFromAFile) {
    const std::string place = freshFolder() + "/a.db";
    const ProgramRun run = chbooks(newBooks(place, {"--unlisted"}));
    EXPECT_EQ(run.exitCode, wrongInput);
    EXPECT_THAT(run.err, HasSubstr("--password-file"));
    EXPECT_FALSE(std::filesystem::exists(place));
}

TEST(ToolNew, MissingPasswordFileIsNamed) {
    const std::string place = freshFolder() + "/a.db";
    const ProgramRun run =
        chbooks(newBooks(place, {"--unlisted", "--password-file", place + ".none"}));
    EXPECT_EQ(run.exitCode, failed);
    EXPECT_THAT(run.err, HasSubstr(place + ".none"));
}

TEST(ToolNew, BooksWithoutAPlaceGoToTheListOfThisWorkstation) {
    const ProgramRun run =
        chbooks({"new", "--name", "列出", "--company", "公司", "--year", "2026", "--supervisor",
                 "赵一", "--password-file", passwordFile("geheim"), "--json"});
    ASSERT_EQ(run.exitCode, done) << run.err;
    const std::string location = Json::parse(run.out)["location"];
    EXPECT_THAT(location, HasSubstr("/2026/Nbzw.db"));
    EXPECT_EQ(chbooks({"check", location}).exitCode, done);
}

TEST(ToolDemo, PasswordStandsBesideTheBooksForTheirOwnerOnly) {
    const std::string folder = freshFolder();
    ASSERT_EQ(chbooks({"demo", folder + "/books/Nbzw.db"}).exitCode, done);
    const std::string note = folder + "/books/demo-password.txt";
    std::string line;
    std::getline(std::ifstream(note) >> std::ws, line);
    EXPECT_EQ(line, "demo-2026");
    EXPECT_EQ(std::filesystem::status(note).permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

TEST(ToolPlaces, DemoBooksHaveAFinishedYearBesideThemWhoseBalancesTheyOpenedWith) {
    const std::string folder = freshFolder();
    const std::string now = folder + "/2026/Nbzw.db";
    ASSERT_EQ(chbooks({"demo", now, "--last-year", folder + "/2025/Nbzw.db"}).exitCode, done);
    EXPECT_EQ(chbooks({"check", folder + "/2025"}).exitCode, done);
    const ProgramRun proof = chbooks({"carry-forward", now, "--verify"});
    EXPECT_EQ(proof.exitCode, done) << proof.out << proof.err;
    // What is there already stays, and nothing new stands beside it.
    EXPECT_EQ(
        chbooks({"demo", folder + "/new.db", "--last-year", folder + "/2025/Nbzw.db"}).exitCode,
        targetExists);
    EXPECT_FALSE(std::filesystem::exists(folder + "/new.db"));
}

TEST(ToolPlaces, FolderStandsForTheBooksInIt) {
    const std::string folder = freshFolder();
    ASSERT_EQ(chbooks({"demo", folder}).exitCode, done);
    EXPECT_EQ(chbooks({"check", folder}).exitCode, done);
    EXPECT_EQ(chbooks({"info", folder}).exitCode, done);
    const std::string other = freshFolder();
    EXPECT_EQ(chbooks({"copy", folder, other}).exitCode, done);
    EXPECT_TRUE(std::filesystem::exists(other + "/Nbzw.db"));
}

}  // namespace
