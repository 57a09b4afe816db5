#include "accounts/codes/mnemonic.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "books/making/chart_templates.h"

using namespace chengheng;

TEST(Mnemonics, AreTheInitialsOfTheReading) {
    const std::pair<const char*, const char*> cases[] = {{"库存现金", "KCXJ"},
                                                         {"应收账款", "YSZK"},
                                                         {"固定资产清理", "GDZCQL"},
                                                         {"银行存款", "YHCK"},
                                                         {"长期股权投资", "CQGQTZ"},
                                                         {"以前年度损益调整", "YQNDSYTZ"},
                                                         {"会计费", "KJF"},
                                                         {"增长奖", "ZZJ"},
                                                         {"招行人民币户", "ZHRMBH"},
                                                         {"汇率差价", "HLCJ"},
                                                         {"A4纸(箱)", "A4ZX"},
                                                         {"ＡＢ公司", "ABGS"},
                                                         {"工行 3号户", "GH3HH"},
                                                         {"O'Brien", "OBRIEN"},
                                                         {"", ""},
                                                         {"——", ""},
                                                         {"@[`{/:Z0a9zA", "Z0A9ZA"},
                                                         {"长者长工", "ZZCG"},
                                                         {"家长会计", "JZKJ"},
                                                         {"存放中央银行款项", "CFZYYHKX"}};
    for (const auto& [name, initials] : cases) EXPECT_EQ(initialsOf(name), initials) << name;
}

TEST(Mnemonics, OfTheStatutoryChartsAreCapitalsAsLongAsTheName) {
    for (const ChartAccount& account : chartAccounts(ChartTemplate::enterprise)) {
        const std::string initials = initialsOf(account.name);
        EXPECT_EQ(initials.size() * 3, account.name.size()) << account.name << " " << initials;
        for (const char letter : initials) EXPECT_TRUE(letter >= 'A' && letter <= 'Z') << initials;
    }
}

TEST(Mnemonics, GetTheLowestNumberThatMakesThemUnique) {
    const std::set<std::string, std::less<>> taken{"KCXJ", "KCXJ2", "KCXJ4"};
    const auto isTaken = [&](std::string_view text) { return taken.contains(text); };
    EXPECT_EQ(proposedMnemonic("库存现金", isTaken), "KCXJ3");
    EXPECT_EQ(proposedMnemonic("银行存款", isTaken), "YHCK");
}

TEST(Mnemonics, AreNotProposedForANameWithoutInitials) {
    EXPECT_EQ(proposedMnemonic("——", [](std::string_view) { return true; }), "");
}

TEST(Mnemonics, OfAListTakeNoLongerForEqualNamesThanForOthers) {
    constexpr int count = 20'000;
    std::set<std::string, std::less<>> taken{"YF2"};
    int questions = 0;
    MnemonicSeries series;
    for (int number = 1; number <= count; ++number) {
        const std::string given = series.next("运费", [&](std::string_view text) {
            ++questions;
            return taken.contains(text);
        });
        EXPECT_TRUE(taken.insert(given).second) << given;
    }
    EXPECT_EQ(questions, count + 1);
    EXPECT_TRUE(taken.contains("YF") && taken.contains("YF3"));
    EXPECT_TRUE(taken.contains("YF" + std::to_string(count + 1)));
}

TEST(Mnemonics, AreKnownAsThoseOfTheirName) {
    EXPECT_TRUE(isMnemonicOf("运费", "YF"));
    EXPECT_TRUE(isMnemonicOf("运费", "YF12"));
    EXPECT_TRUE(isMnemonicOf("运费", "YF09"));
    for (const char* other : {"YFX", "YF/", "YF:", "yf", ""})
        EXPECT_FALSE(isMnemonicOf("运费", other)) << other;
    EXPECT_EQ(inPlainCapitals("az{`AZ中"), "AZ{`AZ中");
    EXPECT_FALSE(isMnemonicOf("运费", "Y"));
    EXPECT_FALSE(isMnemonicOf("——", ""));
}
