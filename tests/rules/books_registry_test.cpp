#include "books/list/books_registry.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <thread>

#include "books/logon/password_file.h"
#include "tests/support/engine_cases.h"

namespace chengheng {
namespace {

namespace files = std::filesystem;

void writeText(const std::string& path, std::string_view text) {
    std::ofstream(path, std::ios::binary) << text;
}

std::string readText(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

int permissionsOf(const std::string& path) {
    struct stat found {};
    EXPECT_EQ(stat(path.c_str(), &found), 0) << path;
    return found.st_mode & 0777;
}

Status enter(const BooksRegistry& registry, const std::string& name, int year,
             std::int32_t id = 1) {
    RegistryChange change(registry);
    if (!change.status()) return change.status();
    change.enter({id, name, "公司", {}}, {year, "/books/" + name + std::to_string(year)});
    return change.save();
}

std::vector<BooksSet> setsOf(const BooksRegistry& registry) {
    std::vector<BooksSet> sets;
    const Status status = registry.read(sets);
    EXPECT_TRUE(status) << status.detail;
    return sets;
}

TEST(BooksRegistry, ListThatIsNotThereHoldsNoSets) {
    EXPECT_TRUE(setsOf(BooksRegistry(freshFolder() + "/none")).empty());
}

TEST(BooksRegistry, SetsAreReadBackAsEntered) {
    const BooksRegistry registry(freshFolder());
    ASSERT_TRUE(enter(registry, "甲 \"O'Brien\" \\ %", 2026));
    ASSERT_TRUE(enter(registry, "乙", 2026, 2));
    const auto sets = setsOf(registry);
    ASSERT_EQ(sets.size(), 2U);
    EXPECT_EQ(
        sets[0],
        (BooksSet{1, "甲 \"O'Brien\" \\ %", "公司", {{2026, "/books/甲 \"O'Brien\" \\ %2026"}}}));
    EXPECT_EQ(sets[1].id, 2);
}

TEST(BooksRegistry, YearsOfASetStandInOrder) {
    const BooksRegistry registry(freshFolder());
    ASSERT_TRUE(enter(registry, "甲", 2027));
    ASSERT_TRUE(enter(registry, "甲", 2026));
    const auto sets = setsOf(registry);
    ASSERT_EQ(sets.size(), 1U);
    EXPECT_EQ(sets[0].years,
              (std::vector<BooksYear>{{2026, "/books/甲2026"}, {2027, "/books/甲2027"}}));
}

TEST(BooksRegistry, ForgottenYearTakesAnEmptySetWithIt) {
    BooksRegistry registry(freshFolder());
    ASSERT_TRUE(enter(registry, "甲", 2026));
    ASSERT_TRUE(enter(registry, "甲", 2027));
    ASSERT_TRUE(registry.forget("/books/甲2026"));
    EXPECT_EQ(setsOf(registry).at(0).years.size(), 1U);
    ASSERT_TRUE(registry.forget("/books/甲2027"));
    EXPECT_TRUE(setsOf(registry).empty());
}

TEST(BooksRegistry, ListAndFolderAreTheirOwnersOnly) {
    const BooksRegistry registry(freshFolder() + "/deep/home");
    ASSERT_TRUE(enter(registry, "甲", 2026));
    EXPECT_EQ(permissionsOf(registry.path()), 0600);
    EXPECT_EQ(permissionsOf(registry.folder()), 0700);
}

TEST(BooksRegistry, DamagedListIsToldAndNeverOverwritten) {
    for (const char* text : {"", "{", "[]", "{\"format\":1}", "{\"format\":1,\"sets\":[{}]}",
                             "{\"format\":\"1\",\"sets\":[]}", "\xff\xfe"}) {
        BooksRegistry registry(freshFolder());
        writeText(registry.path(), text);
        std::vector<BooksSet> sets;
        EXPECT_EQ(registry.read(sets).failure, Failure::damaged) << text;
        EXPECT_TRUE(sets.empty());
        EXPECT_EQ(enter(registry, "甲", 2026).failure, Failure::damaged) << text;
        EXPECT_EQ(registry.forget("/x").failure, Failure::damaged) << text;
        EXPECT_EQ(readText(registry.path()), text);
    }
}

TEST(BooksRegistry, NumbersThatAreNoneOfAListMakeItDamaged) {
    for (const char* number :
         {"1.5", "true", "null", "4294967297", "-2147483649", "1e40", "18446744073709551615",
          "18446744073709551617", "333333333333333333333333"}) {
        const BooksRegistry registry(freshFolder());
        writeText(registry.path(), R"({"format":1,"sets":[{"id":)" + std::string(number) +
                                       R"(,"name":"","company":"","years":[]}]})");
        std::vector<BooksSet> sets;
        EXPECT_EQ(registry.read(sets).failure, Failure::damaged) << number;
        EXPECT_TRUE(sets.empty());
    }
}

TEST(BooksRegistry, ListOfANewerProgramIsNotOverwritten) {
    const BooksRegistry registry(freshFolder());
    writeText(registry.path(), "{\"format\":2,\"sets\":{}}");
    EXPECT_EQ(enter(registry, "甲", 2026).failure, Failure::newerVersion);
    EXPECT_EQ(readText(registry.path()), "{\"format\":2,\"sets\":{}}");
}

TEST(BooksRegistry, FailedSaveLeavesTheOldListAndNoDraft) {
    const BooksRegistry registry(freshFolder());
    ASSERT_TRUE(enter(registry, "甲", 2026));
    const std::string before = readText(registry.path());
    files::create_directory(registry.path() + ".new");
    writeText(registry.path() + ".new/in the way", "");
    EXPECT_FALSE(enter(registry, "乙", 2026, 2));
    EXPECT_EQ(readText(registry.path()), before);
}

TEST(BooksRegistry, ChangesMadeAtOnceAreAllKept) {
    const BooksRegistry registry(freshFolder());
    std::vector<std::thread> writers;
    for (int id = 1; id <= 8; ++id)
        writers.emplace_back([&registry, id] {
            EXPECT_TRUE(enter(registry, "帐套" + std::to_string(id), 2026, id));
        });
    for (std::thread& writer : writers) writer.join();
    EXPECT_EQ(setsOf(registry).size(), 8U);
}

TEST(PasswordFile, FirstLineIsThePassword) {
    const std::string path = freshFolder() + "/password";
    std::string password;
    for (const char* text : {"密 码'", "密 码'\n", "密 码'\r\n", "密 码'\nsecond\n"}) {
        writeText(path, text);
        ASSERT_TRUE(readPasswordFile(path, password));
        EXPECT_EQ(password, "密 码'");
    }
}

TEST(PasswordFile, OneThatOthersMayReadIsToldOf) {
    const std::string path = freshFolder() + "/password";
    writeText(path, "geheim");
    std::filesystem::permissions(path, std::filesystem::perms(0600));
    EXPECT_EQ(passwordFileWarning(path), std::nullopt);
    for (const int others : {0640, 0604}) {
        std::filesystem::permissions(path, std::filesystem::perms(others));
        EXPECT_EQ(passwordFileWarning(path), "口令文件“" + path +
                                                 "”其他用户也能读。\n"
                                                 "请改为只有自己可读,例如 chmod 600。");
    }
    EXPECT_EQ(passwordFileWarning("/dev/null"), std::nullopt) << "no file";
    EXPECT_EQ(passwordFileWarning(path + " of nobody"), std::nullopt);
}

TEST(PasswordFile, MissingOrOverlongFileGivesNoPassword) {
    const std::string path = freshFolder() + "/password";
    std::string password = "before";
    EXPECT_EQ(readPasswordFile(path, password).failure, Failure::missing);
    EXPECT_EQ(password, "");
    writeText(path, std::string(1025, 'a'));
    EXPECT_FALSE(readPasswordFile(path, password));
    writeText(path, std::string_view("a\0b", 3));
    EXPECT_FALSE(readPasswordFile(path, password));
    EXPECT_EQ(password, "");
}

/// A list with two years of 甲 and one of 乙, at /a5, /a6 and /b6.
std::vector<BooksSet> twoSets() {
    return {{1, "甲", "甲公司", {{2025, "/a5"}, {2026, "/a6"}}},
            {2, "乙", "乙公司", {{2026, "/b6"}}}};
}

TEST(ListedBooks, OnlyYearOfASetGivesItsNameToTheSet) {
    auto sets = twoSets();
    EXPECT_TRUE(listUnderOwnName(sets, {2, "丙", "丙公司", {}}, {2026, "/b6"}));
    EXPECT_EQ(sets[1], (BooksSet{2, "丙", "丙公司", {{2026, "/b6"}}}));
    EXPECT_EQ(sets[0], twoSets()[0]);
    EXPECT_FALSE(listUnderOwnName(sets, {2, "丙", "丙公司", {}}, {2026, "/b6"}));
}

TEST(ListedBooks, OneOfSeveralYearsBecomesASetOfItsOwn) {
    auto sets = twoSets();
    EXPECT_TRUE(listUnderOwnName(sets, {1, "丙", "丙公司", {}}, {2026, "/a6"}));
    ASSERT_EQ(sets.size(), 3U);
    EXPECT_EQ(sets[0], (BooksSet{1, "甲", "甲公司", {{2025, "/a5"}}}));
    EXPECT_EQ(sets[2], (BooksSet{1, "丙", "丙公司", {{2026, "/a6"}}}));
}

TEST(ListedBooks, YearJoinsTheSetThatHasItsNameByNow) {
    auto sets = twoSets();
    EXPECT_TRUE(listUnderOwnName(sets, {1, "乙", "新公司", {}}, {2025, "/a5"}));
    EXPECT_EQ(sets[0].years, (std::vector<BooksYear>{{2026, "/a6"}}));
    EXPECT_EQ(sets[1], (BooksSet{2, "乙", "乙公司", {{2025, "/a5"}, {2026, "/b6"}}}))
        << "the latest year says the company";
}

TEST(ListedBooks, LastYearThatLeavesASetTakesItAlong) {
    auto sets = twoSets();
    sets[0].years.pop_back();
    EXPECT_TRUE(listUnderOwnName(sets, {1, "乙", "乙公司", {}}, {2025, "/a5"}));
    ASSERT_EQ(sets.size(), 1U);
    EXPECT_EQ(sets[0].name, "乙");
}

TEST(ListedBooks, CompanyIsThatOfTheLatestYear) {
    auto sets = twoSets();
    EXPECT_FALSE(listUnderOwnName(sets, {1, "甲", "新公司", {}}, {2025, "/a5"}));
    EXPECT_EQ(sets[0].company, "甲公司");
    EXPECT_TRUE(listUnderOwnName(sets, {1, "甲", "新公司", {}}, {2026, "/a6"}));
    EXPECT_EQ(sets[0].company, "新公司");
}

TEST(ListedBooks, PasswordOfAnAddressMakesNoOtherPlace) {
    std::vector<BooksSet> sets{
        {1, "甲", "甲公司", {{2026, "postgresql://li:geheim@db/books?schema=a"}}}};
    EXPECT_TRUE(listUnderOwnName(sets, {1, "乙", "甲公司", {}},
                                 {2026, "postgresql://li@db/books?schema=a"}));
    EXPECT_EQ(sets[0].name, "乙");
}

TEST(ListedBooks, NameWithTheSameYearElsewhereIsNotTakenAndItsPlaceIsTold) {
    auto sets = twoSets();
    EXPECT_EQ(otherPlaceOf(sets, "乙", {2026, "/a6"}), "/b6");
    EXPECT_EQ(otherPlaceOf(sets, "乙", {2025, "/a5"}), "");
    EXPECT_EQ(otherPlaceOf(sets, "乙", {2026, "/b6"}), "");
    EXPECT_EQ(otherPlaceOf(sets, "丙", {2026, "/a6"}), "");
    EXPECT_FALSE(listUnderOwnName(sets, {1, "乙", "乙公司", {}}, {2026, "/a6"}));
    EXPECT_EQ(sets, twoSets());
}

TEST(BooksRegistry, IsCorrectedWhereItHasTheBooksAndLeftAloneWhereItHasNot) {
    const BooksRegistry registry(freshFolder());
    EXPECT_TRUE(registry.correct({1, "丙", "公司", {}}, {2026, "/books/甲2026"}));
    EXPECT_FALSE(files::exists(registry.path())) << "a list that is not needed is not made";
    ASSERT_TRUE(enter(registry, "甲", 2026));
    ASSERT_TRUE(enter(registry, "乙", 2026, 2));
    EXPECT_TRUE(registry.correct({1, "丙", "新公司", {}}, {2026, "/books/甲2026"}));
    EXPECT_EQ(setsOf(registry)[0], (BooksSet{1, "丙", "新公司", {{2026, "/books/甲2026"}}}));
    const Status taken = registry.correct({1, "乙", "新公司", {}}, {2026, "/books/甲2026"});
    EXPECT_EQ(taken.failure, Failure::refused);
    EXPECT_EQ(taken.detail, "/books/乙2026");
    EXPECT_EQ(setsOf(registry)[0].name, "丙");
    EXPECT_TRUE(registry.correct({1, "乙", "公司", {}}, {2026, "/elsewhere"}));
}

TEST(BooksRegistry, ThatCannotBeReadIsNotCorrected) {
    const BooksRegistry registry(freshFolder());
    writeText(registry.path(), "{");
    EXPECT_EQ(registry.correct({1, "丙", "公司", {}}, {2026, "/a"}).failure, Failure::damaged);
    EXPECT_EQ(readText(registry.path()), "{");
}

}  // namespace
}  // namespace chengheng
