#include "forms/input_limit.h"

#include <gtest/gtest.h>

using namespace chengheng;

namespace {

/// "before|after" when so many characters are allowed.
std::string cut(FieldText text, std::size_t allowed) {
    cutToLimit(text, allowed);
    return text.before + "|" + text.after;
}

}  // namespace

TEST(InputLimit, LeavesATextAloneThatFits) {
    EXPECT_EQ(cut({"转帐支票", ""}, 4), "转帐支票|");
    EXPECT_EQ(cut({"", "12"}, 2), "|12");
}

TEST(InputLimit, CutsTheEndOfWhatWasPutInBeforeTheCursor) {
    EXPECT_EQ(cut({"转帐支票", ""}, 3), "转帐支|");
    EXPECT_EQ(cut({"1转帐", "2"}, 3), "1转|2");
}

TEST(InputLimit, CountsACharacterOfFourBytesAsOne) {
    EXPECT_EQ(cut({"𠮷𠮷𠮷", ""}, 2), "𠮷𠮷|");
    EXPECT_EQ(cut({"𠮷野", "家"}, 3), "𠮷野|家");
}

TEST(InputLimit, TellsHowManyCharactersWereTooMany) {
    FieldText text{"𠮷支票号", "1"};
    EXPECT_EQ(cutToLimit(text, 2), 3u);
    EXPECT_EQ(cutToLimit(text, 2), 0u);
}

TEST(InputLimit, TakesOutLineEndsAndTabs) {
    EXPECT_EQ(withoutControlCharacters("支\t票\r\n"), "支票");
    EXPECT_EQ(withoutControlCharacters("支 票　"), "支 票　");
}
