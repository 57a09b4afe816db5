#include "operationlog/verifying/log_seal.h"

#include <gtest/gtest.h>

#include <string>

#include "operationlog/verifying/seen_cells.h"

namespace chengheng::log_seal_test {
namespace {

const LogSeal& example() {
    static const LogSeal seal{
        .books = "兴隆商贸",
        .end = {
            .number = 123, .time = "2026-11-23T18:04:05.123+08:00", .hash = std::string(64, 'a')}};
    return seal;
}

constexpr const char* exampleText =
    "澄恒操作日志封存\n"
    "帐套:兴隆商贸\n"
    "条数:123\n"
    "时间:2026-11-23T18:04:05.123+08:00\n"
    "校验:aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa\n";

TEST(LogSeals, AreAFewLinesOfText) { EXPECT_EQ(sealText(example()), exampleText); }

TEST(LogSeals, AreReadBack) { EXPECT_EQ(parseSeal(exampleText), example()); }

TEST(LogSeals, AreReadAsEditorsLeaveThem) {
    std::string text = "\xEF\xBB\xBF";
    for (const char letter : std::string(exampleText)) {
        if (letter == '\n') text += '\r';
        text += letter;
    }
    EXPECT_EQ(parseSeal(text + "\r\n \n"), example());
}

TEST(LogSeals, AreRefusedWhereALineIsMissingOrNotWhole) {
    const std::string text = exampleText;
    EXPECT_FALSE(parseSeal(""));
    EXPECT_FALSE(parseSeal("x"));
    for (std::size_t size = 0; size < text.size(); ++size)
        EXPECT_FALSE(parseSeal(text.substr(0, size))) << size;
    EXPECT_FALSE(parseSeal(text + "x"));
    EXPECT_FALSE(parseSeal("x" + text));
    const auto with = [&text](const std::string& part, const std::string& other) {
        std::string changed = text;
        return changed.replace(changed.find(part), part.size(), other);
    };
    EXPECT_FALSE(parseSeal(with("123", "12x")));
    EXPECT_FALSE(parseSeal(with("123", "0")));
    EXPECT_FALSE(parseSeal(with("123", "-1")));
    EXPECT_FALSE(parseSeal(with("123", "")));
    EXPECT_FALSE(parseSeal(with("aaa", "aa")));
    EXPECT_FALSE(parseSeal(with("封存", "封存!")));
    EXPECT_FALSE(parseSeal(with("兴隆", std::string(64 * 1024, 'x'))));
}

TEST(SeenCells, AreToldApartByRowAndColumn) {
    SeenCells seen;
    seen.see(5, 3);
    EXPECT_TRUE(seen.isSeen(5, 3));
    EXPECT_FALSE(seen.isSeen(5, 2));
    EXPECT_FALSE(seen.isSeen(6, 3));
    EXPECT_FALSE(seen.isSeen(5 + 512, 3));
    EXPECT_FALSE(seen.isRowSeen(5));
    EXPECT_TRUE(seen.isAnythingSeen(5));
    EXPECT_FALSE(seen.isAnythingSeen(4));
    seen.seeRow(-1);
    EXPECT_TRUE(seen.isSeen(-1, 0));
    EXPECT_TRUE(seen.isSeen(-1, 30));
    EXPECT_TRUE(seen.isRowSeen(-1));
    EXPECT_FALSE(seen.isAnythingSeen(-2));
    EXPECT_FALSE(seen.isAnythingSeen(511));
}

}  // namespace
}  // namespace chengheng::log_seal_test
