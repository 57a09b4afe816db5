#include "accounts/changing/account_service.h"

#include <gtest/gtest.h>

#include "data/tables/accounts.h"
#include "tests/support/account_books.h"
#include "tests/support/engine_cases.h"
#include "tests/support/no_books.h"

using namespace chengheng;

namespace {

const std::vector<std::string> takenInOrder{"lock AssSum AccSum Cyrency UnRegMain UnRegSug 1",
                                            "lock Code 2"};

std::vector<std::string> withReleases(std::initializer_list<const char*> releases) {
    std::vector<std::string> log = takenInOrder;
    for (const char* release : releases) log.emplace_back(release);
    return log;
}

class Accounts : public testing::TestWithParam<EngineCase> {
  protected:
    Outcome add(const AccountEntry& entry) {
        m_change = m_books.service().add(entry);
        return m_change.outcome;
    }
    Outcome modify(const std::string& code, const std::function<void(AccountEntry&)>& change) {
        const _CodeInfo shown = m_books.account(code);
        AccountEntry entry = entryOf(shown);
        change(entry);
        m_change = m_books.service().modify(shown, entry);
        return m_change.outcome;
    }
    Outcome renumber(const std::string& code, const std::string& newCode) {
        return modify(code, [&](AccountEntry& entry) { entry.code = newCode; });
    }
    Outcome remove(const std::string& code) {
        m_books.messages().willAnswer(Answer::ok);
        m_change = m_books.service().remove(code, m_books.account(code).sName);
        return m_change.outcome;
    }
    int isEnd(const std::string& code) { return m_books.account(code).bEnd; }
    void expectSound() {
        EXPECT_EQ(m_books.faults(), std::vector<std::string>{});
        EXPECT_FALSE(m_books.holdsLocks());
    }

    AccountBooks m_books{freshLocation(GetParam())};
    AccountChange m_change;
};

}  // namespace

TEST_P(Accounts, AddedAtTheTopGetLevelEndFlagDirectionAndTheNextId) {
    m_books.add("1001");
    AccountEntry entry = assetEntry("1002 ", "银行存款 ");
    entry.page = "金额式";
    entry.mnemonic = "YHCK";
    entry.keepsForeign = true;
    entry.currencyId = 1;
    entry.keepsQuantity = true;
    entry.unit = "张";
    entry.books = {.byUnit = true, .byDepartment = true, .isJournal = true, .isBank = true};
    ASSERT_EQ(add(entry), Outcome::done);
    const _CodeInfo expected{.lId = 2,
                             .sCode = "1002",
                             .sName = "银行存款",
                             .sType = "资产",
                             .byGrade = 1,
                             .bEnd = 1,
                             .bDirect = 1,
                             .sAssBook = "BCRE",
                             .sHelp = "YHCK",
                             .byExchId = 1,
                             .sPage = "金额式",
                             .bAmount = 1,
                             .sUnit = "张"};
    EXPECT_EQ(m_books.account("1002"), expected);
    EXPECT_EQ(m_change.account, expected);
    EXPECT_EQ(m_books.database().Code_GetLastId(), 2);
    EXPECT_TRUE(m_books.messages().texts().empty());
    expectSound();
}

TEST_P(Accounts, TakeTheDirectionOfTheirParentAndAtTheTopOfTheirClass) {
    AccountEntry liability = assetEntry("2202");
    liability.className = "负债";
    ASSERT_EQ(add(liability), Outcome::done);
    EXPECT_EQ(m_change.account.bDirect, 0);
    m_books.add("1231");
    _CodeInfo allowance = m_books.account("1231");
    allowance.bDirect = 0;
    m_books.edit(allowance);
    ASSERT_EQ(add(assetEntry("123101")), Outcome::done);
    EXPECT_EQ(m_change.account.bDirect, 0);
}

TEST_P(Accounts, AddedBelowAnotherTakeItsEndFlag) {
    m_books.add("1001");
    ASSERT_EQ(add(assetEntry("100101")), Outcome::done);
    EXPECT_EQ(isEnd("1001"), 0);
    EXPECT_EQ(isEnd("100101"), 1);
    EXPECT_EQ(m_change.account.byGrade, 2);
    expectSound();
}

TEST_P(Accounts, BelowOneWithAPostedVoucherAreRefusedInItsName) {
    m_books.add("1001");
    m_books.use(UsePlace::posted, "1001");
    const auto before = m_books.chart();
    EXPECT_EQ(add(assetEntry("100101")), Outcome::refused);
    EXPECT_EQ(m_books.messages().onlyNotice().text,
              "科目 1001 在[已记帐凭证]中已使用,不能增加下级科目!");
    EXPECT_EQ(m_change.usedCode, "1001");
    EXPECT_EQ(m_change.focusField, "sCode");
    EXPECT_EQ(m_books.chart(), before);
    expectSound();
}

TEST_P(Accounts, BelowOneAreRefusedForEachOfItsSixUses) {
    int number = 1001;
    for (const UsePlace place : placesOfParent) {
        const std::string code = std::to_string(number++);
        m_books.add(code);
        m_books.use(place, code);
        EXPECT_EQ(add(assetEntry(code + "01")), Outcome::refused) << placeTitle(place);
        EXPECT_EQ(m_books.messages().texts().back(),
                  "科目 " + code + " 在[" + placeTitle(place) + "]中已使用,不能增加下级科目!");
    }
}

TEST_P(Accounts, BelowOneWhoseSumsHaveNoOpeningBalanceAreAccepted) {
    m_books.add("1001");
    m_books.addEmptySums("1001");
    EXPECT_EQ(add(assetEntry("100101")), Outcome::done);
    expectSound();
}

TEST_P(Accounts, OfAnotherCategoryAreAddedWhenTheOperatorInsists) {
    m_books.messages().willAnswer("科目编码首位和分类编号不符,接受此编码吗?", Answer::cancel);
    EXPECT_EQ(add(assetEntry("2001")), Outcome::refused);
    EXPECT_EQ(m_change.focusField, "sCode");
    EXPECT_FALSE(m_books.hasAccount("2001"));
    m_books.messages().willAnswer("科目编码首位和分类编号不符,接受此编码吗?", Answer::ok);
    EXPECT_EQ(add(assetEntry("2001")), Outcome::done);
    expectSound();
}

TEST_P(Accounts, WithoutAMnemonicDoNotCollideAndWithTheSameDo) {
    EXPECT_EQ(add(assetEntry("1001")), Outcome::done);
    EXPECT_EQ(add(assetEntry("1002")), Outcome::done);
    AccountEntry entry = assetEntry("1003");
    entry.mnemonic = "XJ";
    EXPECT_EQ(add(entry), Outcome::done);
    entry.code = "1004";
    EXPECT_EQ(add(entry), Outcome::refused);
    EXPECT_EQ(m_books.messages().onlyNotice().text, "助记码必须唯一");
}

TEST_P(Accounts, InAForeignCurrencyNeedOne) {
    AccountEntry entry = assetEntry("1001");
    entry.keepsForeign = true;
    EXPECT_EQ(add(entry), Outcome::refused);
    EXPECT_EQ(m_books.messages().onlyNotice().text, "请选择币种.");
    EXPECT_EQ(m_change.focusField, "byExchId");
}

TEST_P(Accounts, HoldTheirLocksWhileTheyAskAndFreeThemInTheSameOrder) {
    m_books.messages().willAnswer(Answer::ok);
    m_books.messages().whileShown([&](const std::string&) {
        EXPECT_EQ(m_books.locks().log(), takenInOrder);
        EXPECT_TRUE(m_books.holdsLocks());
    });
    EXPECT_EQ(add(assetEntry("2001")), Outcome::done);
    EXPECT_EQ(m_books.locks().log(),
              withReleases({"unlock AssSum AccSum Cyrency UnRegMain UnRegSug 1", "unlock Code 2"}));
}

TEST_P(Accounts, FreeTheirLocksBeforeARefusalIsRead) {
    m_books.messages().whileShown([&](const std::string&) { EXPECT_FALSE(m_books.holdsLocks()); });
    EXPECT_EQ(add(assetEntry("")), Outcome::refused);
    EXPECT_EQ(m_books.locks().log().size(), 4u);
}

TEST_P(Accounts, AreModifiedWithoutTouchingWhatTheDialogDoesNotShow) {
    m_books.add("1001");
    _CodeInfo account = m_books.account("1001");
    account.bCash = 1;
    account.sAssBook = "RE";
    account.lNum = 7;
    m_books.edit(account);
    EXPECT_EQ(modify("1001", [](AccountEntry& entry) { entry.name = "现金 "; }), Outcome::done);
    account.sName = "现金";
    EXPECT_EQ(m_books.account("1001"), account);
    expectSound();
}

TEST_P(Accounts, AreModifiedInEveryFieldOfTheDialog) {
    m_books.add("1002");
    EXPECT_EQ(modify("1002",
                     [](AccountEntry& entry) {
                         entry = {.code = "1002",
                                  .name = "存款",
                                  .className = "负债",
                                  .page = "外币金额式",
                                  .mnemonic = "CK",
                                  .keepsForeign = true,
                                  .currencyId = 1,
                                  .keepsQuantity = true,
                                  .unit = "张",
                                  .books = {.byPerson = true, .isBank = true}};
                     }),
              Outcome::done);
    const _CodeInfo stored = m_books.account("1002");
    EXPECT_EQ(stored.sName, "存款");
    EXPECT_EQ(stored.sType, "负债");
    EXPECT_EQ(stored.sPage, "外币金额式");
    EXPECT_EQ(stored.sHelp, "CK");
    EXPECT_EQ(stored.byExchId, 1);
    EXPECT_EQ(stored.bAmount, 1);
    EXPECT_EQ(stored.sUnit, "张");
    EXPECT_EQ(stored.sAssBook, "AE");
    EXPECT_EQ(stored.bDirect, 1) << "the direction is adjusted elsewhere";
    EXPECT_TRUE(m_books.messages().texts().empty()) << "an unused account asks nothing";
}

TEST_P(Accounts, RenumberedLeaveTheFlagsOfBothParentsRight) {
    m_books.add("1001");
    m_books.add("100101");
    m_books.add("1002");
    ASSERT_EQ(renumber("100101", "100203"), Outcome::done);
    EXPECT_EQ(isEnd("1001"), 1) << "it lost its last child";
    EXPECT_EQ(isEnd("1002"), 0) << "it got one";
    EXPECT_EQ(m_books.account("100203").byGrade, 2);
    ASSERT_EQ(renumber("100203", "1009"), Outcome::done);
    EXPECT_EQ(isEnd("1002"), 1);
    EXPECT_EQ(m_books.account("1009").byGrade, 1);
    expectSound();
}

TEST_P(Accounts, RenumberedUnderTheSameParentLeaveItsFlag) {
    m_books.add("1001");
    m_books.add("100101");
    ASSERT_EQ(renumber("100101", "100102"), Outcome::done);
    EXPECT_EQ(isEnd("1001"), 0);
    expectSound();
}

TEST_P(Accounts, WithChildrenKeepTheirCode) {
    m_books.add("1001");
    m_books.add("100101");
    EXPECT_EQ(renumber("1001", "1002"), Outcome::refused);
    EXPECT_EQ(m_books.messages().onlyNotice().text, "科目 1001 有下级科目,不能修改科目编码!");
    EXPECT_EQ(modify("1001", [](AccountEntry& entry) { entry.name = "现金"; }), Outcome::done);
}

TEST_P(Accounts, InUseKeepTheirCodeInEachOfTheSevenPlaces) {
    int number = 1001;
    for (const UsePlace place : usePlaces) {
        const std::string code = std::to_string(number++);
        m_books.add(code);
        m_books.use(place, code);
        EXPECT_EQ(renumber(code, "1999"), Outcome::refused);
        EXPECT_EQ(m_books.messages().texts().back(),
                  "科目 " + code + " 在[" + placeTitle(place) + "]中已使用!");
        EXPECT_EQ(m_change.usedCode, code);
    }
}

TEST_P(Accounts, InUseAreChangedInTheirAccountingOnlyAfterEachQuestion) {
    m_books.add("1002");
    m_books.use(UsePlace::posted, "1002");
    m_books.use(UsePlace::sums, "1002");
    const auto keepUnits = [](AccountEntry& entry) { entry.books.byUnit = true; };
    const char* posted = "科目 1002 在[已记帐凭证]中已使用,修改辅助核算可能导致数据错误,是否继续?";
    const char* sums = "科目 1002 在[总帐]中已使用,修改辅助核算可能导致数据错误,是否继续?";
    m_books.messages().willAnswer(posted, Answer::ok);
    m_books.messages().willAnswer(sums, Answer::cancel);
    const auto before = m_books.chart();
    EXPECT_EQ(modify("1002", keepUnits), Outcome::refused);
    EXPECT_EQ(m_books.chart(), before);
    m_books.messages().willAnswer(posted, Answer::ok);
    m_books.messages().willAnswer(sums, Answer::ok);
    EXPECT_EQ(modify("1002", keepUnits), Outcome::done);
    EXPECT_EQ(m_books.account("1002").sAssBook, "B");
}

TEST_P(Accounts, AreDeletedAfterAQuestionWithCodeAndName) {
    m_books.add("1001", "现金");
    m_books.messages().willAnswer("真的要删除科目:1001(现金)吗?", Answer::cancel);
    EXPECT_EQ(m_books.service().remove("1001", "现金").outcome, Outcome::refused);
    EXPECT_TRUE(m_books.locks().log().empty()) << "nothing was locked to ask";
    EXPECT_EQ(m_books.messages().questions().back().icon, MessageIcon::question);
    EXPECT_EQ(m_books.messages().questions().back().buttons, AnswerButtons::okCancel);
    EXPECT_EQ(remove("1001"), Outcome::done);
    EXPECT_FALSE(m_books.hasAccount("1001"));
    EXPECT_EQ(m_books.locks().log(),
              withReleases({"unlock Code 2", "unlock AssSum AccSum Cyrency UnRegMain UnRegSug 1"}));
    expectSound();
}

TEST_P(Accounts, DeletedAsTheOnlyChildGiveTheirParentItsEndFlagBack) {
    m_books.add("1002");
    m_books.add("100201");
    m_books.add("100202");
    EXPECT_EQ(remove("100201"), Outcome::done);
    EXPECT_EQ(isEnd("1002"), 0) << "one of two children";
    EXPECT_EQ(remove("100202"), Outcome::done);
    EXPECT_EQ(isEnd("1002"), 1) << "the only child";
    expectSound();
}

TEST_P(Accounts, DeletedAtTheTopUpdateNoParent) {
    m_books.add("1001");
    m_books.add("1002");
    EXPECT_EQ(remove("1001"), Outcome::done);
    EXPECT_EQ(m_books.chart().size(), 2u);
    expectSound();
}

TEST_P(Accounts, WithChildrenAreNotDeletedWhateverTheirUse) {
    m_books.add("1001");
    m_books.add("100101");
    m_books.use(UsePlace::posted, "1001");
    EXPECT_EQ(remove("1001"), Outcome::refused);
    EXPECT_EQ(m_books.messages().notices().back().text, "不能删除非末级科目!");
}

TEST_P(Accounts, DesignatedAsBankAndCashReportTheBank) {
    m_books.add("1001");
    _CodeInfo account = m_books.account("1001");
    account.bBank = account.bCash = 1;
    m_books.edit(account);
    EXPECT_EQ(remove("1001"), Outcome::refused);
    EXPECT_EQ(m_books.messages().notices().back().text, "该科目已指定为银行科目,不能删除");
}

TEST_P(Accounts, WithSumsOfNoAmountAreNotDeleted) {
    m_books.add("1001");
    m_books.addEmptySums("1001");
    EXPECT_EQ(remove("1001"), Outcome::refused);
    EXPECT_EQ(m_books.messages().notices().back().text, "在[总帐]中已使用本科目或其下级科目");
    EXPECT_EQ(m_change.usedCode, "1001");
}

TEST_P(Accounts, InUseAreNotDeletedInAnyOfTheSevenPlaces) {
    int number = 1001;
    for (const UsePlace place : usePlaces) {
        const std::string code = std::to_string(number++);
        m_books.add(code);
        m_books.use(place, code);
        EXPECT_EQ(remove(code), Outcome::refused);
        EXPECT_EQ(m_books.messages().notices().back().text,
                  std::string("在[") + placeTitle(place) + "]中已使用本科目或其下级科目");
    }
}

TEST_P(Accounts, WithWildcardsInTheirCodesTouchNoOther) {
    m_books.add("1001");
    m_books.use(UsePlace::posted, "1001");
    m_books.add("10%_");
    m_books.add("1002");
    EXPECT_EQ(add(assetEntry("10%_01")), Outcome::done);
    EXPECT_EQ(renumber("10%_01", "10%___"), Outcome::done);
    EXPECT_EQ(remove("10%___"), Outcome::done);
    EXPECT_EQ(isEnd("10%_"), 1);
    EXPECT_EQ(remove("10%_"), Outcome::done) << "1001 is no account below it";
    EXPECT_EQ(isEnd("1001"), 1);
    expectSound();
}

TEST_P(Accounts, ChangedOrDeletedElsewhereAreToldWithABeep) {
    m_books.add("1001");
    const _CodeInfo shown = m_books.account("1001");
    _CodeInfo changed = shown;
    changed.sName = "别名";
    m_books.edit(changed);
    EXPECT_EQ(m_books.service().modify(shown, entryOf(shown)).outcome, Outcome::stale);
    EXPECT_EQ(m_books.messages().onlyNotice().text,
              "科目(1001)已被其他操作员修改,没有保存。\n\n科目名称:现在是“别名”\n\n"
              "输入已保留,核对后可以再次确定。");
    EXPECT_TRUE(m_books.messages().onlyNotice().beep);
    m_books.messages().forget();
    m_books.run("DELETE FROM Code WHERE sCode = '1001'");
    EXPECT_EQ(m_books.service().modify(shown, entryOf(shown)).outcome, Outcome::stale);
    EXPECT_EQ(m_books.messages().onlyNotice().text, "科目(1001)已经删除!");
    EXPECT_TRUE(m_books.messages().onlyNotice().beep);
    m_books.messages().forget();
    m_books.messages().willAnswer(Answer::ok);
    EXPECT_EQ(m_books.service().remove("1001", "别名").outcome, Outcome::stale);
    EXPECT_TRUE(m_books.messages().notices().empty());
    EXPECT_EQ(m_books.messages().questions().back().preset, std::nullopt);
    EXPECT_FALSE(m_books.holdsLocks());
}

TEST_P(Accounts, AreKnownToBeUsedWhileBooksAreOpen) {
    m_books.add("1001");
    bool isUsed = true;
    ASSERT_TRUE(AccountService::readUse(m_books.account("1001"), isUsed));
    EXPECT_FALSE(isUsed);
    const _CodeInfo account = m_books.account("1001");
    m_books.use(UsePlace::projects, "1001");
    ASSERT_TRUE(AccountService::readUse(account, isUsed));
    EXPECT_TRUE(isUsed);
    m_books.engine().failCall(1, Failure::full);
    _CodeInfo found;
    EXPECT_EQ(AccountService::find("1001", found).failure, Failure::full);
    m_books.engine().failCall(1, Failure::full);
    std::vector<_zCodeClassInfo> classes;
    EXPECT_EQ(AccountService::readClasses(classes).failure, Failure::full);
    m_books.engine().failCall(0);
    const NoBooks none;
    EXPECT_EQ(AccountService::readUse(account, isUsed).failure, Failure::notOpen);
}

TEST_P(Accounts, AreFoundByTheirCodeWithTheirClassesWhileBooksAreOpen) {
    m_books.add("1001");
    _CodeInfo found;
    ASSERT_TRUE(AccountService::find("1001", found));
    EXPECT_EQ(found, m_books.account("1001"));
    EXPECT_EQ(AccountService::find("1002", found).failure, Failure::missing);
    std::vector<_zCodeClassInfo> classes;
    ASSERT_TRUE(AccountService::readClasses(classes));
    ASSERT_EQ(classes.size(), 2u);
    EXPECT_EQ(classes[1].sClsName, "负债");
    const NoBooks none;
    EXPECT_EQ(AccountService::find("1001", found).failure, Failure::notOpen);
    EXPECT_EQ(AccountService::readClasses(classes).failure, Failure::notOpen);
}

CHENGHENG_ON_ALL_ENGINES(Accounts);
