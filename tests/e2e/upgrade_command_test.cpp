#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "data/layout/layout.h"
#include "tests/e2e/run_chbooks.h"
#include "tests/support/older_books.h"

namespace {

using namespace chengheng;
using chbooks_exit::done;
using chbooks_exit::failed;
using testing::HasSubstr;
namespace files = std::filesystem;

std::string olderBooks() {
    const std::string path = freshFolder() + "/Nbzw.db";
    fillOlderBooks(*openForTest(path), 1);
    return path;
}

TEST(UpgradeCommand, SaysWhatItWouldDoAndDoesItOnDemand) {
    const std::string path = olderBooks();
    const std::string backup = files::path(path).parent_path() / "Nbzw_format1.db";
    ProgramRun run = chbooks({"upgrade", path, "--dry-run"});
    EXPECT_EQ(run.exitCode, done);
    EXPECT_THAT(run.out, HasSubstr("数据格式为 1,要升级到 7 才能使用"));
    EXPECT_THAT(run.out, HasSubstr("先备份到“" + backup + "”"));
    EXPECT_EQ(layoutAt(path), 1);
    EXPECT_FALSE(files::exists(backup));
    run = chbooks({"upgrade", path});
    EXPECT_EQ(run.exitCode, done) << run.err;
    EXPECT_EQ(run.out, "帐套“" + path + "”已从数据格式 1 升级到 7。\n升级前的备份在“" + backup +
                           "”,已核对无误。\n");
    EXPECT_EQ(layoutAt(path), booksFormatVersion);
    EXPECT_EQ(layoutAt(backup), 1);
    run = chbooks({"upgrade", path});
    EXPECT_EQ(run.exitCode, done);
    EXPECT_EQ(run.out, "帐套“" + path + "”的数据格式为 7,不需要升级。\n");
}

TEST(UpgradeCommand, NamesWhoIsAtWorkAndGivesUpAfterAWhile) {
    const std::string path = olderBooks();
    const auto colleague = openForTest(path, OpenMode::existing);
    ASSERT_TRUE(colleague->script(
        "INSERT INTO LoginInfoTbl VALUES (1, 1, '李明', 'PC1', 1, '2026-01-01')"));
    const ProgramRun run = chbooks({"upgrade", path});
    EXPECT_EQ(run.exitCode, failed);
    EXPECT_THAT(run.err, HasSubstr("正在使用:李明(PC1)"));
    EXPECT_EQ(run.out, "");
}

TEST(UpgradeCommand, NamesWhatIsNoBooks) {
    const std::string path = freshFolder() + "/letter.txt";
    std::ofstream(path) << "Dear Sir";
    const ProgramRun run = chbooks({"upgrade", path});
    EXPECT_EQ(run.exitCode, failed);
    EXPECT_THAT(run.err, HasSubstr("不是帐套文件"));
}

TEST(OlderBooks, AreReadAsTheyAre) {
    const std::string path = olderBooks();
    const std::string folder = freshFolder();
    EXPECT_EQ(chbooks({"check", path}).exitCode, done);
    EXPECT_THAT(chbooks({"info", path}).out, HasSubstr("格式版本  1\n"));
    EXPECT_EQ(chbooks({"trial-balance", path}).exitCode, done);
    EXPECT_EQ(chbooks({"export-chart", path, folder + "/c.csv"}).exitCode, done);
    EXPECT_EQ(chbooks({"export-opening", path, folder + "/o.csv"}).exitCode, done);
    EXPECT_EQ(chbooks({"import-chart", path, folder + "/c.csv", "--dry-run"}).exitCode, done);
    EXPECT_EQ(chbooks({"import-opening", path, folder + "/o.csv", "--dry-run"}).exitCode, done);
    EXPECT_EQ(chbooks({"export-auxiliary", path, "1122", folder + "/a.csv"}).exitCode, done);
    EXPECT_THAT(chbooks({"import-auxiliary", path, "1122", folder + "/a.csv", "--dry-run"}).out,
                HasSubstr("拒绝 大华商场 100.10\n    第 2 行 D 列:摘要不能为空\n"));
    EXPECT_EQ(chbooks({"export-directory", path, "units", folder + "/u.csv"}).exitCode, done);
    EXPECT_THAT(chbooks({"import-directory", path, "units", folder + "/u.csv", "--dry-run"}).out,
                HasSubstr("新增 0 行,修改 0 行"));
    EXPECT_EQ(chbooks({"print", "currency", path, "--csv", folder + "/p.csv"}).exitCode, done);
    EXPECT_EQ(layoutAt(path), 1);
}

TEST(OlderBooks, AreChangedByNothingButTheUpgrade) {
    const std::string path = olderBooks();
    const std::string folder = freshFolder();
    ASSERT_EQ(chbooks({"export-chart", path, folder + "/c.csv"}).exitCode, done);
    ASSERT_EQ(chbooks({"export-opening", path, folder + "/o.csv"}).exitCode, done);
    for (const auto& command :
         {std::vector<std::string>{"import-chart", path, folder + "/c.csv"},
          std::vector<std::string>{"import-opening", path, folder + "/o.csv"},
          std::vector<std::string>{"import-directory", path, "units", folder + "/o.csv"},
          std::vector<std::string>{"import-auxiliary", path, "1122", folder + "/o.csv"}}) {
        const ProgramRun run = chbooks(command);
        EXPECT_EQ(run.exitCode, failed) << command.front();
        EXPECT_THAT(run.err, HasSubstr("要先升级才能使用"));
    }
}

}  // namespace
