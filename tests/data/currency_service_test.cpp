#include "currency/currency_service.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/connection/database.h"
#include "tests/support/currency_books.h"
#include "tests/support/engine_cases.h"

namespace {

using namespace chengheng;

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using Texts = std::vector<std::string>;

constexpr const char* currencyGone = "该外币已经被删除!";

const CurrencyInput pound{"GBP", "英镑", RateMode::multiplied, "4", "0.00001"};

/// Books with two currencies and their rates of 2026.
class Currencies : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        m_books.insert("USD", "美元");
        m_books.insert("JPY", "日元");
        m_currencies = m_service.readAll().value();
    }
    const _CyrencyInfo& currency(int id) const {
        return m_currencies.at(static_cast<std::size_t>(id - 1));
    }
    Outcome add(const CurrencyInput& input, int year = 2026) {
        _CyrencyInfo added;
        return m_service.add(input, year, added);
    }
    Outcome modify(int id, const CurrencyInput& input) {
        _CyrencyInfo modified;
        return m_service.modify(currency(id), input, modified);
    }
    Outcome removeAfterYes(int id) {
        m_books.messages.willAnswer(Answer::yes);
        return m_service.remove(id, false);
    }
    void use(int id) {
        m_books.run(
            fmt::format("INSERT Code (lId, sCode, byExchId) VALUES({0}, '10{0}', {0})", id));
    }
    /// The last thing said, "field|text".
    std::string said() {
        EXPECT_FALSE(m_books.holdsLocks());
        EXPECT_FALSE(m_books.database.selectedDatabase()->isInUnit());
        const auto& notices = m_books.messages.notices();
        return notices.empty() ? "" : notices.back().focusField + "|" + notices.back().text;
    }

    CurrencyBooks m_books{freshLocation(GetParam())};
    CurrencyService m_service{m_books.messages};
    RateEdit m_written;
    std::vector<_CyrencyInfo> m_currencies;
};

TEST_P(Currencies, AreReadInTheOrderInWhichTheyWereAdded) {
    m_books.run("UPDATE Cyrency SET sExchName = '美金' WHERE lId = 1");
    const auto all = m_service.readAll();
    ASSERT_TRUE(all.has_value());
    ASSERT_EQ(all->size(), 2u);
    EXPECT_EQ(all->at(0), (_CyrencyInfo{1, 1, "USD", "美金", 1, 5, 0.00001F}));
    EXPECT_EQ(all->at(1).sExchCode, "JPY");
}

TEST_P(Currencies, AreReadWithoutAWordWhereThereAreNone) {
    m_books.run("DELETE Cyrency");
    EXPECT_EQ(m_service.readAll(), std::vector<_CyrencyInfo>{});
    EXPECT_THAT(m_books.messages.texts(), IsEmpty());
}

TEST_P(Currencies, AreUsedByTheAccountsThatAreKeptInThem) {
    use(2);
    for (const int id : {1, 2}) {
        _CyrencyInfo read;
        bool isUsed = id == 1;
        EXPECT_EQ(m_service.read(id, read, isUsed), Outcome::done);
        EXPECT_EQ(read, currency(id));
        EXPECT_EQ(isUsed, id == 2);
    }
}

TEST_P(Currencies, AreAddedWithARateForEachMonthAndEachDay) {
    _CyrencyInfo added;
    EXPECT_EQ(m_service.add(pound, 2026, added), Outcome::done);
    EXPECT_EQ(added, (_CyrencyInfo{3, 3, "GBP", "英镑", 1, 4, 0.00001F}));
    EXPECT_EQ(m_books.stored().back(), "3 3 GBP 英镑 1 4 1e-05");
    const Texts fixed = m_books.rates("ExchgFix");
    ASSERT_EQ(fixed.size(), 36u);
    EXPECT_EQ(fixed[24], "25 3 2026-01-01 1 0 0");
    EXPECT_EQ(fixed[35], "36 3 2026-12-01 12 0 0");
    const Texts floating = m_books.rates("ExchgFlt");
    ASSERT_EQ(floating.size(), 3u * 365);
    EXPECT_EQ(floating[730], "731 3 2026-01-01 1 0 0");
    EXPECT_EQ(floating[730 + 58], "789 3 2026-02-28 2 0 0");
    EXPECT_EQ(floating.back(), "1095 3 2026-12-31 12 0 0");
    EXPECT_EQ(m_books.counter("Cyrency"), 3);
    EXPECT_EQ(m_books.counter("ExchgFix"), 36);
    EXPECT_EQ(m_books.counter("ExchgFlt"), 1095);
    EXPECT_FALSE(m_books.holdsLocks());
    EXPECT_THAT(m_books.messages.texts(), IsEmpty());
}

TEST_P(Currencies, HaveARateMoreInALeapYear) {
    ASSERT_EQ(add(pound, 2028), Outcome::done);
    const Texts floating = m_books.rates("ExchgFlt");
    ASSERT_EQ(floating.size(), 2u * 365 + 366);
    EXPECT_EQ(floating[730 + 59], "790 3 2028-02-29 2 0 0");
    EXPECT_EQ(m_books.counter("ExchgFlt"), 1096);
    EXPECT_EQ(m_books.rates("ExchgFix").size(), 36u);
}

TEST_P(Currencies, GoOnFromTheCounterAndNotFromTheHighestRate) {
    m_books.run("UPDATE ABIdTable SET lLastId = 5000 WHERE sTable = 'ExchgFlt'");
    ASSERT_EQ(add(pound), Outcome::done);
    EXPECT_EQ(m_books.rates("ExchgFlt").back(), "5365 3 2026-12-31 12 0 0");
    EXPECT_EQ(m_books.counter("ExchgFlt"), 5365);
}

TEST_P(Currencies, AreNotAddedUnderASymbolOrNameThatIsThere) {
    const Texts before = m_books.everything();
    EXPECT_EQ(add({"USD", "日元"}), Outcome::refused);
    EXPECT_EQ(said(), "sExchCode|币符不唯一!");
    EXPECT_EQ(add({"GBP", "日元"}), Outcome::refused);
    EXPECT_EQ(said(), "sExchName|币名不唯一");
    for (const Notice& notice : m_books.messages.notices()) EXPECT_TRUE(notice.beep);
    EXPECT_EQ(m_books.everything(), before);
}

TEST_P(Currencies, AreRefusedForTheirFieldsBeforeAnythingIsLookedUp) {
    ASSERT_NE(m_books.database.DBClose("books"), 0);
    EXPECT_EQ(add({"", "英镑"}), Outcome::refused);
    EXPECT_EQ(modify(1, {"USD", "美元", RateMode::multiplied, "1"}), Outcome::refused);
    EXPECT_EQ(m_books.messages.texts(),
              (Texts{"外币符号不能为空!", "汇率小数位只能是2-9之间的整数!"}));
}

TEST_P(Currencies, EndAtTheTwoHundredAndFiftyFifth) {
    m_books.run("UPDATE ABIdTable SET lLastId = 254 WHERE sTable = 'Cyrency'");
    ASSERT_EQ(add(pound), Outcome::done);
    EXPECT_EQ(m_books.stored().back(), "255 255 GBP 英镑 1 4 1e-05");
    EXPECT_EQ(m_books.rates("ExchgFlt").back(), "1095 255 2026-12-31 12 0 0");
    const Texts before = m_books.everything();
    EXPECT_EQ(add({"CHF", "法郎"}), Outcome::refused);
    EXPECT_EQ(said(), "|一个帐套最多只能先后设置 255 种外币(包括已删除的),不能再增加。");
    EXPECT_EQ(m_books.everything(), before);
}

TEST_P(Currencies, AreNotAddedWhereAnyCounterIsExhausted) {
    for (const auto& [table, last] :
         {std::pair{"ExchgFix", 2147483636}, {"ExchgFlt", 2147483283}, {"Cyrency", 2147483647}}) {
        const int before = m_books.counter(table);
        m_books.run(
            fmt::format("UPDATE ABIdTable SET lLastId = {} WHERE sTable = '{}'", last, table));
        const Texts unchanged = m_books.everything();
        m_books.messages.forget();
        EXPECT_NE(add(pound), Outcome::done) << table;
        EXPECT_EQ(m_books.messages.notices().size(), 1u) << table;
        EXPECT_EQ(m_books.everything(), unchanged) << table;
        m_books.run(
            fmt::format("UPDATE ABIdTable SET lLastId = {} WHERE sTable = '{}'", before, table));
    }
    m_books.run("UPDATE ABIdTable SET lLastId = 2147483282 WHERE sTable = 'ExchgFlt'");
    EXPECT_EQ(add(pound), Outcome::done) << "the last ones there are";
    EXPECT_EQ(m_books.counter("ExchgFlt"), 2147483647);
}

TEST_P(Currencies, AreNotAddedWithoutACounterForTheirRates) {
    m_books.run("DELETE ABIdTable WHERE sTable = 'ExchgFlt'");
    const Texts before = m_books.everything();
    EXPECT_EQ(add(pound), Outcome::failed);
    EXPECT_EQ(m_books.messages.notices().size(), 1u);
    EXPECT_EQ(m_books.everything(), before);
}

TEST_P(Currencies, AreAddedWithTheMaximumErrorAddedUpAndModifiedWithTheNearestOne) {
    CurrencyInput input = pound;
    input.maxError = "";
    _CyrencyInfo added;
    ASSERT_EQ(m_service.add(input, 2026, added), Outcome::done);
    EXPECT_EQ(added.fMaxError, 0);
    input.maxError = "12345.678";
    _CyrencyInfo modified;
    ASSERT_EQ(m_service.modify(added, input, modified), Outcome::done);
    EXPECT_EQ(modified.fMaxError, 12345.678F);
    EXPECT_EQ(m_books.stored().back(), "3 3 GBP 英镑 1 4 12345.678");
}

TEST_P(Currencies, AreModifiedInAllTheirFields) {
    _CyrencyInfo modified;
    EXPECT_EQ(
        m_service.modify(currency(2), {"YEN", "日圆", RateMode::divided, "9", "0.5"}, modified),
        Outcome::done);
    EXPECT_EQ(modified, (_CyrencyInfo{2, 2, "YEN", "日圆", 0, 9, 0.5F}));
    EXPECT_EQ(m_books.stored(), (Texts{"1 1 USD 美元 1 5 1e-05", "2 2 YEN 日圆 0 9 0.5"}));
    EXPECT_FALSE(m_books.holdsLocks());
}

TEST_P(Currencies, KeepTheirRatesWhenTheyGetFewerDecimals) {
    m_books.run("UPDATE ExchgFix SET dRate = 7.12345 WHERE lId = 1");
    ASSERT_EQ(modify(1, {"USD", "美元", RateMode::multiplied, "2", "0"}), Outcome::done);
    EXPECT_EQ(m_books.filledRates("ExchgFix"), (Texts{"1 1 2026-01-01 1 7.12345 0"}));
}

TEST_P(Currencies, CanBeModifiedWhileTheyAreUsed) {
    use(1);
    EXPECT_EQ(modify(1, {"USD", "美金"}), Outcome::done);
    EXPECT_EQ(m_books.stored()[0], "1 1 USD 美金 1 5 1e-05");
}

TEST_P(Currencies, AreNotModifiedToASymbolOrNameThatIsThere) {
    EXPECT_EQ(modify(1, {"JPY", "日元"}), Outcome::refused);
    EXPECT_EQ(said(), "sExchCode|币符不唯一");
    EXPECT_EQ(modify(1, {"USD", "日元"}), Outcome::refused);
    EXPECT_EQ(said(), "sExchName|币名不唯一");
    for (const Notice& notice : m_books.messages.notices()) EXPECT_TRUE(notice.beep);
    EXPECT_EQ(m_books.stored()[0], "1 1 USD 美元 1 5 1e-05");
}

TEST_P(Currencies, ThatAreGoneAreToldOnceWhateverIsDone) {
    m_books.run("DELETE Cyrency WHERE lId = 1");
    const auto tellsOnce = [this](auto work) {
        m_books.messages.forget();
        EXPECT_EQ(work(), Outcome::stale);
        EXPECT_EQ(m_books.messages.texts(), Texts{currencyGone});
        EXPECT_FALSE(m_books.holdsLocks());
    };
    tellsOnce([&] { return modify(1, {"JPY", "日元"}); });
    tellsOnce([&] { return m_service.remove(1, false); });
    tellsOnce(
        [&] { return m_service.writeRate(RateKind::fixed, 1, 1, RateColumn::rate, 7, m_written); });
    tellsOnce([&] {
        _CyrencyInfo read;
        bool isUsed = false;
        return m_service.read(1, read, isUsed);
    });
    EXPECT_THAT(m_books.filledRates("ExchgFix"), IsEmpty());
}

TEST_P(Currencies, ThatSomebodyElseChangedAreNotWrittenOver) {
    m_books.run("UPDATE Cyrency SET byDecimal = 3 WHERE lId = 1");
    EXPECT_EQ(modify(1, {"USD", "美金"}), Outcome::stale);
    EXPECT_EQ(said(),
              "|该外币已被其他工作站修改,本次操作没有进行。\n\n"
              "现在的内容:USD 美元,原币*汇率 = 本位币,小数位 3,最大误差 0.00001\n"
              "输入的内容:USD 美金,原币*汇率 = 本位币,小数位 5,最大误差 0.00001\n\n"
              "输入已保留,核对后可以再次确定。");
    EXPECT_EQ(m_books.stored()[0], "1 1 USD 美元 1 3 1e-05");
}

TEST_P(Currencies, TakeTheSameChangeMadeElsewhereForTheirOwn) {
    m_books.run("UPDATE Cyrency SET sExchName = '美金' WHERE lId = 1");
    EXPECT_EQ(modify(1, {"USD", "美金"}), Outcome::done);
    EXPECT_THAT(m_books.messages.texts(), IsEmpty());
}

TEST_P(Currencies, AreAskedAboutAsTheyAreStoredBeforeTheyAreDeleted) {
    m_books.run("UPDATE Cyrency SET sExchName = '美金 %s' WHERE lId = 1");
    m_books.messages.willAnswer("是否删除当前外币?\n\n币符:USD\n币名:美金 %s", Answer::no);
    EXPECT_EQ(m_service.remove(1, false), Outcome::refused);
    const Question& question = m_books.messages.questions().back();
    EXPECT_EQ(question.caption, "删除信息");
    EXPECT_EQ(question.buttons, AnswerButtons::yesNo);
    EXPECT_EQ(question.icon, MessageIcon::question);
    EXPECT_EQ(m_books.stored().size(), 2u);
}

TEST_P(Currencies, AreDeletedWithAllTheirRatesAndThoseAlone) {
    EXPECT_EQ(removeAfterYes(1), Outcome::done);
    EXPECT_EQ(m_books.stored(), Texts{"2 2 JPY 日元 1 5 1e-05"});
    EXPECT_EQ(m_books.rates("ExchgFix").size(), 12u);
    EXPECT_EQ(m_books.rates("ExchgFix").front(), "13 2 2026-01-01 1 0 0");
    EXPECT_EQ(m_books.rates("ExchgFlt").size(), 365u);
    EXPECT_EQ(m_books.rates("ExchgFlt").front(), "366 2 2026-01-01 1 0 0");
    EXPECT_FALSE(m_books.holdsLocks());
    EXPECT_THAT(m_books.messages.notices(), IsEmpty());
}

TEST_P(Currencies, AreDeletedWhereTheyHaveNoRates) {
    m_books.run("DELETE ExchgFix WHERE byExchId = 1\nDELETE ExchgFlt WHERE byExchId = 1");
    EXPECT_EQ(removeAfterYes(1), Outcome::done);
    EXPECT_THAT(m_books.messages.notices(), IsEmpty());
}

TEST_P(Currencies, ThatAreUsedAreNotAskedAbout) {
    EXPECT_EQ(m_service.remove(1, true), Outcome::refused);
    EXPECT_EQ(m_books.messages.onlyNotice().text, "外币已经使用,不能删除");
}

TEST_P(Currencies, ThatCameIntoUseMeanwhileAreNotDeletedEither) {
    const Texts before = m_books.everything();
    use(1);
    EXPECT_EQ(removeAfterYes(1), Outcome::stale);
    EXPECT_EQ(said(), "|该外币已经使用,不能删除!");
    EXPECT_EQ(m_books.everything(), before);
}

TEST_P(Currencies, ThatChangedWhileTheQuestionWasUpAreNotDeleted) {
    m_books.messages.whileShown([&](const std::string& text) {
        if (text.starts_with("是否"))
            m_books.run("UPDATE Cyrency SET sExchCode = 'X' WHERE lId = 1");
    });
    EXPECT_EQ(removeAfterYes(1), Outcome::stale);
    EXPECT_EQ(said(), "|该外币已被其他工作站修改,本次操作没有进行,列表已重新读入。");
    EXPECT_EQ(m_books.stored().size(), 2u);
}

TEST_P(Currencies, ThatAreGoneAfterTheQuestionAreToldOnce) {
    m_books.messages.whileShown([&](const std::string& text) {
        if (text.starts_with("是否")) m_books.run("DELETE Cyrency WHERE lId = 1");
    });
    EXPECT_EQ(removeAfterYes(1), Outcome::stale);
    ASSERT_EQ(m_books.messages.notices().size(), 1u);
    EXPECT_EQ(m_books.messages.notices()[0].text, currencyGone);
}

TEST_P(Currencies, WantOneToBeSelectedForDeletion) {
    EXPECT_EQ(m_service.remove(0, false), Outcome::refused);
    EXPECT_EQ(m_books.messages.onlyNotice().text, "请选择要删除的外币");
}

TEST_P(Currencies, HaveOneRateWrittenOverWhatIsStoredNow) {
    using enum RateColumn;
    ASSERT_EQ(m_service.writeRate(RateKind::fixed, 1, 3, rate, 7.25, m_written), Outcome::done);
    m_books.run("UPDATE ExchgFix SET dRate = 7.5 WHERE lId = 3");
    ASSERT_EQ(m_service.writeRate(RateKind::fixed, 1, 3, adjustRate, 7.125, m_written),
              Outcome::done);
    EXPECT_EQ(m_written, (RateEdit{{3, {2026, 3, 1}, 3, 7.5, 0}, {3, {2026, 3, 1}, 3, 7.5, 7.125}}))
        << "as it was stored, not as it was shown";
    ASSERT_EQ(m_service.writeRate(RateKind::floating, 2, 370, rate, 0.05, m_written),
              Outcome::done);
    EXPECT_EQ(m_books.filledRates("ExchgFix"), (Texts{"3 1 2026-03-01 3 7.5 7.125"}));
    EXPECT_EQ(m_books.filledRates("ExchgFlt"), (Texts{"370 2 2026-01-05 1 0.05 0"}));
    EXPECT_FALSE(m_books.holdsLocks());
    EXPECT_THAT(m_books.messages.texts(), IsEmpty());
}

TEST_P(Currencies, TellOfARateThatIsGone) {
    m_books.run("DELETE ExchgFix WHERE lId = 3");
    EXPECT_EQ(m_service.writeRate(RateKind::fixed, 1, 3, RateColumn::rate, 7.25, m_written),
              Outcome::stale);
    EXPECT_EQ(said(), "|该汇率记录已被删除,汇率表已重新读入。");
}

TEST_P(Currencies, StoreTextsAsTheyWereTyped) {
    for (const char* text : {"O'BRIEN", "100%_", "\\N", "支“票”", "𠮷野家", "STRAßE"}) {
        const CurrencyInput input{text, text};
        _CyrencyInfo added;
        ASSERT_EQ(m_service.add(input, 2026, added), Outcome::done) << text;
        EXPECT_EQ(m_service.readAll()->back(), added);
        EXPECT_EQ(added.sExchCode, text);
        EXPECT_EQ(add({text, "新"}), Outcome::refused) << "found again by the same text";
        EXPECT_EQ(add({"新", text}), Outcome::refused);
    }
}

TEST_P(Currencies, ShowNoBoxWhileLocksAreHeld) {
    use(2);
    m_books.messages.whileShown([&](const std::string& text) {
        EXPECT_FALSE(m_books.holdsLocks()) << text;
        EXPECT_FALSE(m_books.database.selectedDatabase()->isInUnit()) << text;
    });
    add({"USD", "新"});
    modify(1, {"JPY", "新"});
    removeAfterYes(2);
    m_books.run("DELETE Cyrency WHERE lId = 1\nDELETE ExchgFlt WHERE lId = 400");
    modify(1, {"X", "新"});
    m_service.writeRate(RateKind::fixed, 1, 1, RateColumn::rate, 7, m_written);
    m_service.writeRate(RateKind::floating, 2, 400, RateColumn::rate, 7, m_written);
    EXPECT_THAT(
        m_books.messages.texts(),
        ElementsAre("币符不唯一!", "币符不唯一", HasSubstr("是否删除"), "该外币已经使用,不能删除!",
                    currencyGone, currencyGone, "该汇率记录已被删除,汇率表已重新读入。"));
}

TEST_P(Currencies, TellWhyNothingIsDoneWithoutTheDatabase) {
    ASSERT_NE(m_books.database.DBClose("books"), 0);
    _CyrencyInfo read;
    bool isUsed = false;
    EXPECT_EQ(m_service.readAll(), std::nullopt);
    EXPECT_EQ(m_service.read(1, read, isUsed), Outcome::failed);
    EXPECT_EQ(m_service.rates(RateKind::fixed, 1, 2026), std::nullopt);
    EXPECT_EQ(add(pound), Outcome::failed);
    EXPECT_EQ(modify(1, pound), Outcome::failed);
    EXPECT_EQ(m_service.remove(1, false), Outcome::failed);
    EXPECT_EQ(m_service.writeRate(RateKind::fixed, 1, 1, RateColumn::rate, 7, m_written),
              Outcome::failed);
    ASSERT_EQ(m_books.messages.notices().size(), 7u) << "one for each";
    for (const Notice& notice : m_books.messages.notices())
        EXPECT_EQ(notice.text, "帐套文件“books”没有打开。\n请先打开帐套。");
}

CHENGHENG_ON_ALL_ENGINES(Currencies);

}  // namespace
