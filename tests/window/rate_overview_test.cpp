#include <QClipboard>

#include "currency/window/rate_picture.h"
#include "tests/window/currency_fixture.h"
#include "tests/window/next_modal.h"

using namespace chengheng;

namespace {

/// What stands around the grid of rates, and many rates at once. The operator logged on in May.
class RateOverviewTest : public CurrencyWindowTest {
  protected:
    void SetUp() override {
        CurrencyWindowTest::SetUp();
        books.insert("USD", "美元");
        books.insert("JPY", "日元");
        books.run(
            "UPDATE ExchgFix SET dRate = 7 WHERE lId = 1\n"
            "UPDATE ExchgFix SET dRate = 7.1 WHERE lId = 4\n"
            "UPDATE ExchgFix SET dRate = 7.2 WHERE lId = 5");
        open();
        stand(0, 1);
    }
    std::string line() const { return control<QLabel>("rateLine").text().toStdString(); }
    std::string converted() const { return control<QLabel>("converted").text().toStdString(); }
    RatePicture& picture() const { return control<RatePicture>("picture"); }
    std::string pictureWords() const { return picture().accessibleDescription().toStdString(); }
    Texts fixed() { return books.filledRates("ExchgFix"); }
    static void copy(const char* text) {
        QApplication::clipboard()->setText(QString::fromUtf8(text));
    }
    /// Presses the button of the plan that comes up, and what is told afterwards.
    static NextModal accepting(const char* title, const char* button) {
        return NextModal([=](QWidget& plan) {
            EXPECT_EQ(plan.windowTitle().toStdString(), title);
            clickOn(plan, QString::fromUtf8(button));
        });
    }
};

}  // namespace

TEST_F(RateOverviewTest, TellsTheGapsOfWhatIsShown) {
    EXPECT_EQ(line(), "缺 2 个月:2026.02 至 2026.03");
    EXPECT_EQ(pictureWords(), "2026.01 至 2026.05,最低 7,最高 7.2");
    floatingRate().click();
    settle();
    EXPECT_EQ(line(), "");
    EXPECT_EQ(pictureWords(), "还没有汇率");
}

TEST_F(RateOverviewTest, GoesFromGapToGap) {
    stand(3, 1);
    keys("0");
    press(Qt::Key_Return);
    books.run("UPDATE ExchgFix SET dRate = 7 WHERE lId = 3");
    floatingRate().click();
    fixedRate().click();
    settle();
    EXPECT_EQ(line(), "缺 2 个月:2026.02、2026.04");
    press(Qt::Key_G, Qt::ControlModifier);
    EXPECT_EQ(place(), "1 1");
    press(Qt::Key_G, Qt::ControlModifier);
    EXPECT_EQ(place(), "3 1");
    press(Qt::Key_G, Qt::ControlModifier);
    EXPECT_EQ(place(), "1 1") << "from the first again";
}

TEST_F(RateOverviewTest, FillsTheGapsAfterShowingWhich) {
    {
        NextModal plan([](QWidget& shown) {
            EXPECT_EQ(shown.windowTitle(), "补齐缺口");
            const auto* rows = shown.findChild<CVCF1*>()->model();
            ASSERT_EQ(rows->rowCount(), 2);
            EXPECT_EQ(rows->index(0, 2).data().toString(), "2026.02");
            EXPECT_EQ(rows->index(1, 3).data().toString(), "7");
            clickOn(shown, "补齐");
        });
        choose("补齐缺口...");
    }
    EXPECT_EQ(cell(1, 1), "7.00000");
    EXPECT_EQ(cell(2, 1), "7.00000");
    EXPECT_EQ(line(), "");
    EXPECT_FALSE(command("补齐缺口...").isEnabled());
    choose("撤销");
    EXPECT_EQ(cell(1, 1), "");
    EXPECT_EQ(fixed().size(), 3u);
    EXPECT_EQ(place(), "1 1");
}

TEST_F(RateOverviewTest, MarksAndTellsARateThatDepartsByMoreThanHalfAndTakesItBack) {
    stand(5, 1);
    keys("72");
    press(Qt::Key_Return);
    EXPECT_EQ(cell(5, 1), "72.00000") << "written as it was typed";
    EXPECT_EQ(line(), "2026.06 的汇率 72 与之前的 7.2 相差过半,按 Ctrl+Z 撤销");
    EXPECT_NE(grid().model()->index(5, 1).data(Qt::ForegroundRole), QVariant());
    EXPECT_EQ(pictureWords(), "2026.01 至 2026.06,最低 7,最高 72,与之前相差较大的有 1 处");
    EXPECT_TRUE(books.messages.texts().empty());
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(cell(5, 1), "");
    EXPECT_EQ(line(), "缺 2 个月:2026.02 至 2026.03");
    EXPECT_FALSE(command("撤销").isEnabled());
    press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(cell(5, 1), "72.00000");
}

TEST_F(RateOverviewTest, ConvertsByTheCurrentRowOrTheLastRateBeforeAsTheFieldsAreNow) {
    EXPECT_EQ(converted(), "100.00 美元 × 7 = 700.00 本位币(2026.01)");
    stand(2, 1);
    EXPECT_EQ(converted(), "100.00 美元 × 7 = 700.00 本位币(2026.01)");
    stand(4, 1);
    EXPECT_EQ(converted(), "100.00 美元 × 7.2 = 720.00 本位币(2026.05)");
    divided().click();
    EXPECT_EQ(converted(), "100.00 美元 ÷ 7.2 = 13.89 本位币(2026.05)");
    control<QLineEdit>("amount").setText("1,000.5");
    EXPECT_EQ(converted(), "1,000.50 美元 ÷ 7.2 = 138.96 本位币(2026.05)");
    control<QLineEdit>("amount").setText("x");
    EXPECT_EQ(converted(), "");
}

TEST_F(RateOverviewTest, TellsThatRatesStayAsTheyAreWhenTheModeOrTheDecimalsChange) {
    divided().click();
    ok().click();
    settle();
    EXPECT_EQ(line(),
              "本年已录入 3 个汇率:折算方式已改变,它们没有换算,请核对。"
              "最大误差已改变,以后按新的误差检查。")
        << "the maximum error is written as it is shown";
    decimals().setText("2");
    ok().click();
    settle();
    EXPECT_EQ(line(), "本年已录入 3 个汇率:小数位已减少,它们没有舍入。");
    EXPECT_EQ(fixed().front(), "1 1 2026-01-01 1 7 0");
}

TEST_F(RateOverviewTest, PastesRatesFromTheCurrentCellOnAfterShowingThem) {
    stand(5, 1);
    copy("7.3\n7.4\n");
    {
        const NextModal plan = accepting("粘贴汇率", "导入");
        press(Qt::Key_V, Qt::ControlModifier);
    }
    EXPECT_EQ(cell(5, 1), "7.30000");
    EXPECT_EQ(cell(6, 1), "7.40000");
    EXPECT_EQ(books.messages.onlyNotice().text, "导入完成:修改 2 行汇率。");
    choose("撤销");
    EXPECT_EQ(fixed().size(), 3u) << "one step";
}

TEST_F(RateOverviewTest, ShowsTheFirstRateThatIsAskedAboutBeforeItIsPasted) {
    copy("7\n7\n7\n70\n7\n");
    {
        const NextModal plan([](QWidget& shown) {
            EXPECT_EQ(shown.findChild<CVCF1*>()->currentRow(), 3);
            QTest::keyClick(&shown, Qt::Key_Escape);
        });
        choose("粘贴汇率...");
    }
    EXPECT_EQ(fixed().size(), 3u);
}

TEST_F(RateOverviewTest, PastesNothingFromAnEmptyClipboard) {
    copy("");
    choose("粘贴汇率...");
    EXPECT_EQ(books.messages.onlyNotice().text, "剪贴板中没有可以粘贴的汇率。");
}

TEST_F(RateOverviewTest, TakesBackTheRateOfAnotherMonthWhereItWasTyped) {
    floatingRate().click();
    settle();
    ASSERT_EQ(month().currentIndex(), 4);
    stand(2, 1);
    keys("7");
    press(Qt::Key_Return);
    month().setCurrentIndex(0);
    settle();
    choose("撤销");
    EXPECT_EQ(month().currentIndex(), 4);
    EXPECT_EQ(place(), "2 1");
    EXPECT_EQ(books.filledRates("ExchgFlt"), Texts{});
}

TEST_F(RateOverviewTest, GoesToTheDayThatIsClickedInThePicture) {
    const QPointF place = picture().placeOf({{2026, 4, 1}, 7.1, RateMark::none});
    QTest::mouseClick(&picture(), Qt::LeftButton, Qt::NoModifier, place.toPoint());
    settle();
    EXPECT_EQ(this->place(), "3 1");
}

TEST_F(RateOverviewTest, OffersNothingOnRatesWhileACurrencyIsAdded) {
    keys("7.5");
    press(Qt::Key_Return);
    ASSERT_TRUE(command("撤销").isEnabled());
    choose("增加");
    for (const char* text :
         {"粘贴汇率...", "下一个缺口", "补齐缺口...", "导入...", "导出...", "撤销", "重做"})
        EXPECT_FALSE(command(text).isEnabled()) << text;
    EXPECT_EQ(line(), "");
    EXPECT_EQ(converted(), "");
}

TEST_F(RateOverviewTest, LeavesNothingToTakeBackThatAnotherWorkstationChanged) {
    keys("7.5");
    press(Qt::Key_Return);
    books.run("UPDATE ExchgFix SET dRate = 8 WHERE lId = 1");
    choose("撤销");
    EXPECT_EQ(books.messages.onlyNotice().text, "汇率在此期间已有改动,没有写入。\n请核对后重试。");
    EXPECT_EQ(fixed().front(), "1 1 2026-01-01 1 8 0");
    EXPECT_EQ(cell(0, 1), "8.00000") << "as it is now";
    EXPECT_FALSE(command("撤销").isEnabled());
}

TEST_F(RateOverviewTest, TakesBackToWhatWasStoredNotToWhatWasShown) {
    books.run("UPDATE ExchgFix SET dRate = 7.2, dAdjustRate = 9 WHERE lId = 1");
    ASSERT_EQ(cell(0, 1), "7.00000");
    keys("7.3");
    press(Qt::Key_Return);
    EXPECT_EQ(cell(0, 2), "9.00000") << "the other rate as it is stored";
    choose("撤销");
    EXPECT_EQ(fixed().front(), "1 1 2026-01-01 1 7.2 9");
    EXPECT_EQ(cell(0, 1), "7.20000");
}

TEST_F(RateOverviewTest, FillsWhatIsMissingNowNotWhatWasShown) {
    books.run("UPDATE ExchgFix SET dRate = 7.05 WHERE lId = 2");
    CurrencyBooks* other = &books;
    {
        NextModal plan([other](QWidget& shown) {
            const auto* rows = shown.findChild<CVCF1*>()->model();
            ASSERT_EQ(rows->rowCount(), 1);
            EXPECT_EQ(rows->index(0, 3).data().toString(), "7.05");
            other->run("UPDATE ExchgFix SET dRate = 7.08 WHERE lId = 3");
            clickOn(shown, "补齐");
        });
        choose("补齐缺口...");
    }
    EXPECT_EQ(books.messages.onlyNotice().text, "汇率在此期间已有改动,没有写入。\n请核对后重试。");
    EXPECT_EQ(cell(2, 1), "7.08000") << "read anew";
    EXPECT_EQ(line(), "");
}

TEST_F(RateOverviewTest, SaysThatGapsBeforeTheFirstRateStay) {
    books.run(
        "UPDATE ExchgFix SET dRate = 0 WHERE lId = 1\n"
        "UPDATE ExchgFix SET dRate = 7 WHERE lId = 2");
    {
        NextModal plan([](QWidget& shown) {
            bool isSaid = false;
            for (const QLabel* label : shown.findChildren<QLabel*>())
                isSaid = isSaid || label->text() ==
                                       QString::fromUtf8(
                                           "沿用之前最后一个汇率;另有 1 个之前没有汇率,不能补齐:");
            EXPECT_TRUE(isSaid);
            QTest::keyClick(&shown, Qt::Key_Escape);
        });
        choose("补齐缺口...");
    }
    EXPECT_EQ(fixed().size(), 3u);
}

TEST_F(RateOverviewTest, AsksBeforeItTakesBackWhatConcernsAnotherCurrency) {
    keys("7.5");
    press(Qt::Key_Return);
    tree().setCurrentIndex(tree().model()->index(1, 0));
    settle();
    ASSERT_EQ(selectedLeaf(), "日元");
    name().setText("日圆");
    books.messages.willAnswer(Answer::no);
    choose("撤销");
    EXPECT_EQ(fixed().front(), "1 1 2026-01-01 1 7.5 0") << "nothing is written unseen";
    EXPECT_EQ(name().text(), "日圆");
    books.messages.willAnswer(Answer::yes);
    choose("撤销");
    EXPECT_EQ(fixed().front(), "1 1 2026-01-01 1 7 0");
    EXPECT_EQ(selectedLeaf(), "美元");
}

TEST_F(RateOverviewTest, SavesNothingByEnterInTheConverterAndClosesItWhileARateIsTyped) {
    name().setText("美金");
    ASSERT_TRUE(ok().isEnabled());
    auto& amount = control<QLineEdit>("amount");
    amount.setFocus();
    press(Qt::Key_Return);
    EXPECT_TRUE(ok().isEnabled());
    EXPECT_TRUE(amount.hasFocus());
    stand(0, 1);
    keys("7");
    EXPECT_FALSE(amount.isEnabled());
    press(Qt::Key_Escape);
    EXPECT_TRUE(amount.isEnabled());
}

TEST_F(RateOverviewTest, GoesToTheFirstRateThatWasPasted) {
    copy("月份\t汇率\n2026.08\t7.3\n2026.09\t7.4\n");
    {
        const NextModal plan = accepting("粘贴汇率", "导入");
        choose("粘贴汇率...");
    }
    EXPECT_EQ(place(), "7 1");
}
