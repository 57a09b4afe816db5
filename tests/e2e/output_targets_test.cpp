#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

#include "tests/e2e/run_chbooks.h"
#include "tests/support/engine_cases.h"
#include "tests/support/run_program.h"

namespace {

using chengheng::chbooks;
using chengheng::ProgramRun;
using testing::EndsWith;
using testing::HasSubstr;

namespace targets = std::filesystem;
using namespace chengheng::chbooks_exit;

std::string bytesOf(const std::string& path) {
    std::ostringstream content;
    content << std::ifstream(path, std::ios::binary).rdbuf();
    return content.str();
}

using Command = std::vector<std::string>;

/// Every command that writes a file for other programs, with the books, to which the file is
/// added.
std::vector<Command> writers(const std::string& books) {
    std::vector<Command> commands{
        {"print", "settle", books, "--csv"}, {"print", "settle", books, "--xlsx"},
        {"log", "export", books, "--csv"},   {"export-chart", books},
        {"export-opening", books},           {"export-auxiliary", books, "1122"}};
#ifdef CHENGHENG_CHBOOKS_PDF
    commands.push_back({"print", "settle", books, "--pdf"});
#endif
    return commands;
}

ProgramRun runInto(Command command, const std::string& file, bool isForced = false) {
    command.push_back(file);
    if (isForced) command.emplace_back("--force");
    return chbooks(command);
}

class OutputTargetsOfCommands : public testing::Test {
  protected:
    void SetUp() override { ASSERT_EQ(chbooks({"demo", m_books}).exitCode, done); }

    std::string m_folder = chengheng::freshFolder() + "/";
    std::string m_books = m_folder + "n.db";
};

TEST_F(OutputTargetsOfCommands, AreNeverBooks) {
    const std::string other = m_folder + "other.csv";
    ASSERT_EQ(chbooks({"backup", m_books, other}).exitCode, done);
    const std::string before = bytesOf(other);
    for (const Command& command : writers(m_books)) {
        const ProgramRun run = runInto(command, other, true);
        EXPECT_EQ(run.exitCode, targetExists) << command.front() << run.err;
        EXPECT_EQ(run.err, "没有写入文件“" + other +
                               "”,原有的文件保持不变。\n"
                               "那里是帐套,不能用打印或导出的内容替换。请换一个文件名。\n");
        EXPECT_EQ(bytesOf(other), before);
    }
}

TEST_F(OutputTargetsOfCommands, AreReplacedOnlyWhenThatIsAskedFor) {
    const std::string file = m_folder + "list.csv";
    for (const Command& command : writers(m_books)) {
        std::ofstream(file) << "old";
        const ProgramRun refused = runInto(command, file);
        EXPECT_EQ(refused.exitCode, targetExists);
        EXPECT_THAT(refused.err, HasSubstr("文件已经存在。请换一个文件名,或加 --force 替换它。"));
        EXPECT_EQ(bytesOf(file), "old");
        EXPECT_EQ(runInto(command, file, true).exitCode, done);
        EXPECT_NE(bytesOf(file), "old");
    }
}

TEST_F(OutputTargetsOfCommands, LinksAreFollowed) {
    const std::string file = m_folder + "list.csv";
    targets::create_symlink("list.csv", m_folder + "link.csv");
    for (const Command& command : writers(m_books)) {
        targets::remove(file);
        EXPECT_EQ(runInto(command, m_folder + "link.csv").exitCode, done);
        EXPECT_TRUE(targets::is_symlink(m_folder + "link.csv"));
        EXPECT_GT(targets::file_size(file), 3u);
    }
}

TEST_F(OutputTargetsOfCommands, PipesAreWrittenThrough) {
    const std::string pipe = m_folder + "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    for (const Command& command : writers(m_books)) {
        std::string read;
        std::thread reader([&] { read = bytesOf(pipe); });
        EXPECT_EQ(runInto(command, pipe).exitCode, done) << command.front();
        reader.join();
        EXPECT_GT(read.size(), 3u);
        EXPECT_TRUE(targets::is_fifo(pipe));
    }
}

TEST_F(OutputTargetsOfCommands, StandardOutputHoldsTheFileAndNoWords) {
    for (const Command& command : writers(m_books)) {
        const std::string file = m_folder + "list.csv";
        targets::remove(file);
        ASSERT_EQ(runInto(command, file).exitCode, done);
        const ProgramRun run = runInto(command, "-");
        EXPECT_EQ(run.exitCode, done) << run.err;
        EXPECT_THAT(run.err, HasSubstr("“-”"));
        // The others hold the moment of their making.
        const std::string written = bytesOf(file);
        if (command.front() == "log") {
            // That it was exported is its newest entry by now.
            EXPECT_THAT(run.out, EndsWith(written.substr(written.find("\r\n"))));
        } else if (written.starts_with("\xEF\xBB\xBF")) {
            EXPECT_EQ(run.out, written);
        }
        EXPECT_EQ(run.out.substr(0, 2), bytesOf(file).substr(0, 2));
        EXPECT_FALSE(targets::exists(m_folder + "-"));
    }
}

TEST_F(OutputTargetsOfCommands, BackupGoesToStandardOutputToo) {
    const ProgramRun run = chbooks({"backup", m_books, "-"});
    EXPECT_EQ(run.exitCode, done) << run.err;
    EXPECT_TRUE(run.out.starts_with("SQLite format 3"));
    EXPECT_THAT(run.err, HasSubstr("已备份到“-”"));
    EXPECT_FALSE(targets::exists(m_folder + "-"));
    std::ofstream(m_folder + "b.db", std::ios::binary) << run.out;
    EXPECT_EQ(chbooks({"check", m_folder + "b.db"}).exitCode, done);
}

TEST_F(OutputTargetsOfCommands, BackupLeavesTheLogOfOtherBooks) {
    const std::string log = m_folder + "o.db-wal";
    ASSERT_EQ(chbooks({"backup", m_books, m_folder + "o.db"}).exitCode, done);
    const ProgramRun run = chbooks({"backup", m_books, log, "--force"});
    EXPECT_EQ(run.exitCode, targetExists);
    EXPECT_EQ(run.err,
              "“" + log + "”是另一个帐套的日志文件的位置,没有改动它。\n请换一个文件名。\n");
    EXPECT_FALSE(targets::exists(log));
}

TEST_F(OutputTargetsOfCommands, FullDevicesAreAFailure) {
    for (const Command& command : writers(m_books)) {
        const ProgramRun run = runInto(command, "/dev/full");
        EXPECT_EQ(run.exitCode, failed);
        EXPECT_THAT(run.err, HasSubstr("磁盘空间不足。请清理磁盘空间后重试。"));
    }
}

}  // namespace
