#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "tests/e2e/run_chbooks.h"
#include "tests/support/engine_tools.h"
#include "tests/support/made_books.h"

namespace {

using namespace chengheng;
using chbooks_exit::done;
using chbooks_exit::failed;
using chbooks_exit::targetExists;
using chbooks_exit::wrongInput;
using testing::HasSubstr;
namespace files = std::filesystem;

/// Books of 2026 of a name of their own, in a folder named by the year.
struct Ending {
    explicit Ending(const std::string& name) {
        NewBooks facts = sampleBooks();
        facts.name = name;
        makeBooks(books, facts);
    }
    std::string folder = freshFolder();
    std::string books = folder + "/2026/Nbzw.db";
    std::string next = folder + "/2027/Nbzw.db";
};

TEST(NewYearCommand, MakesTheNextYearBesideTheLastAndListsIt) {
    const Ending ending("新年度一");
    ProgramRun run = chbooks({"new-year", ending.books, "--dry-run"});
    EXPECT_EQ(run.exitCode, done) << run.err;
    EXPECT_THAT(run.out, HasSubstr("建立2027年度,存放在:\n" + ending.next));
    EXPECT_THAT(run.out, testing::EndsWith("没有建立。\n"));
    EXPECT_FALSE(files::exists(ending.next));
    run = chbooks({"new-year", ending.books});
    EXPECT_EQ(run.exitCode, done) << run.err;
    EXPECT_THAT(run.out, testing::EndsWith("帐套“新年度一”的2027年度已建立:" + ending.next + "\n"));
    EXPECT_EQ(chbooks({"check", ending.next}).exitCode, done);
    EXPECT_EQ(
        readCell(*openForTest(ending.next, OpenMode::readable), "SELECT lYear FROM zAccountM"),
        "2027");
    run = chbooks({"new-year", ending.books});
    EXPECT_EQ(run.exitCode, targetExists);
    EXPECT_EQ(run.err, "帐套“新年度一”的2027年度已经存在:\n" + ending.next + "\n没有改动它。\n");
}

TEST(NewYearCommand, TellsProgramsWhatItMade) {
    const Ending ending("新年度二");
    const ProgramRun run = chbooks(
        {"new-year", ending.books, "--target", ending.folder + "/", "--last-rates", "--json"});
    EXPECT_EQ(run.exitCode, done) << run.err;
    const auto json = nlohmann::json::parse(run.out);
    EXPECT_EQ(json.at("made"), true);
    EXPECT_EQ(json.at("name"), "新年度二");
    EXPECT_EQ(json.at("year"), 2027);
    EXPECT_EQ(json.at("location"), ending.folder + "/Nbzw.db");
    EXPECT_EQ(json.at("from"), ending.books);
    EXPECT_EQ(json.at("lastRates"), true);
    EXPECT_EQ(json.at("taken").at("Users"), 1);
    const ProgramRun refused = chbooks({"new-year", ending.books, "--json"});
    EXPECT_EQ(refused.exitCode, targetExists);
    EXPECT_EQ(nlohmann::json::parse(refused.err).at("exitCode"), targetExists);
}

TEST(NewYearCommand, UnlistedMakesThemWhereItIsTold) {
    const Ending ending("新年度三");
    ProgramRun run = chbooks({"new-year", ending.books, "--unlisted"});
    EXPECT_EQ(run.exitCode, wrongInput);
    EXPECT_EQ(run.err, "请指定新年度帐套存放的路径或服务器地址\n");
    run = chbooks({"new-year", ending.books, "--unlisted", "--target", ending.next});
    EXPECT_EQ(run.exitCode, done) << run.err;
    // The list knows nothing of it, so it may get another one.
    EXPECT_EQ(chbooks({"new-year", ending.books, "--target", ending.folder + "/b.db"}).exitCode,
              done);
}

TEST(NewYearCommand, SaysWhichBooksAreMissing) {
    const std::string missing = freshFolder() + "/2026/Nbzw.db";
    const ProgramRun run = chbooks({"new-year", missing});
    EXPECT_EQ(run.exitCode, failed);
    EXPECT_THAT(run.err, HasSubstr("找不到帐套文件“" + missing + "”"));
    EXPECT_FALSE(files::exists(files::path(missing).parent_path()));
}

}  // namespace
