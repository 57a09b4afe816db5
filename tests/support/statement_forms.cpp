#include "tests/support/statement_forms.h"

#include <initializer_list>

#include "accounts/chart/account_sql.h"
#include "accounts/chart/where_used_sql.h"
#include "accounts/screen/chart_sql.h"
#include "auxiliary/members/auxiliary_member.h"
#include "books/demo/demo_sql.h"
#include "books/logon/logon_sql.h"
#include "books/making/books_sql.h"
#include "currency/currency_sql.h"
#include "data/sql/sql_format.h"
#include "data/tables/accounts.h"
#include "directories/directory_sql.h"
#include "opening/storing/opening_sql.h"
#include "operators/operator_sql.h"
#include "report/output/print_sql.h"
#include "session/services_sql.h"
#include "settle/settle_sql.h"

namespace chengheng {
namespace {

// What the product writes is asked of the functions that write it; forms written out here are
// those of functions still to come.

const std::string awkward = "O'Brien_50%\\ \"引号\" “单”\xF0\x9F\x98\x80\r\nDELETE Code\r\n--";

using Forms = std::vector<StatementForm>;

void addBatch(Forms& forms, std::string text) {
    forms.push_back({FormKind::batch, "", std::move(text)});
}

void addSelect(Forms& forms, std::string text) {
    forms.push_back({FormKind::select, "", std::move(text)});
}

void addCondition(Forms& forms, const std::string& text,
                  std::initializer_list<const char*> tables) {
    for (const char* table : tables) forms.push_back({FormKind::condition, table, text});
}

void addCounterBatches(Forms& forms) {
    std::string counter;
    opening_sql::setLastId(counter, 24);
    addBatch(forms, counter);
    addBatch(forms, formatSql("UPDATE ABIdTable SET lLastId = %d WHERE sTable = 'UserAuth' or "
                              "sTable = 'Users'",
                              9));
    addBatch(forms, formatSql("UPDATE ABIdTable SET lLastId = %d  WHERE sTable = 'ExchgFlt'", 365));
    addBatch(forms, auxiliary_sql::setVoucherCounters(7, 8));
}

void addCodeBatches(Forms& forms) {
    _CodeInfo account;
    account.sCode = account.sName = account.sUnit = awkward;
    addBatch(forms, account_sql::addAccounts(std::array{account, account}, 101));
    addBatch(forms, account_sql::makeEndAccount(awkward));
    addBatch(forms, account_sql::designation("1001", "1002"));
    addBatch(forms, demo_sql::projectItem("01", 9, "009", awkward));
}

const Balances balances{{{.yearStart = 1234.56, .debit = 2, .credit = 3, .opening = 1233.56},
                         {.yearStart = 2.5, .debit = 5, .credit = 6, .opening = 1.5},
                         {.yearStart = -0.01, .debit = 8, .credit = 9, .opening = -1.01}}};

void addAccSumInserts(Forms& forms) {
    std::string batch;
    opening_sql::insertOpening(batch, 101, 5, 1, balances);
    opening_sql::insertFirstPeriod(batch, 102, 5, balances[0]);
    opening_sql::insertOpeningMoney(batch, 103, 5, 2, -1.0);
    addBatch(forms, batch);
    addBatch(forms, formatSql("INSERT AccSum Values( %d, %d, %d, %lf, %lf, %lf, %lf, %lf, %lf, "
                              "%lf, 0.00, 0.00 )\n",
                              104, 5, 3, 1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 7.0));
    addBatch(forms,
             formatSql("INSERT INTO AccSum VALUES( %d,%d,%d,%lf,%lf,%lf,%lf,%lf,%lf,%lf,%lf,%lf )"
                       "\r\n",
                       105, 5, 4, 1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 7.0, 8.0, 9.0));
}

void addAccSumChanges(Forms& forms) {
    std::string batch;
    opening_sql::updateOpening(batch, 5, balances);
    opening_sql::updateOpeningMoney(batch, 5, 2, 0.0);
    opening_sql::updateFirstPeriod(batch, 5, balances[0]);
    opening_sql::updateForeignAndQuantity(batch, 5, 1, balances);
    opening_sql::updateForeignAndQuantity(batch, 5, 2, balances);
    addBatch(forms, batch);
    addBatch(forms, formatSql("UPDATE AccSum Set mBegin = %lf, mFgnBegin = %lf, dAmtBegin = %lf "
                              "Where lCodeId = %d AND byPeroid = %d",
                              99.99, -1.0, 0.5, 5, 12));
    addBatch(forms, opening_sql::deleteSums(5));
    addBatch(forms,
             opening_sql::deleteSumsOfAccounts(std::array<std::string_view, 3>{"5", "17", "4"}));
    addBatch(forms, formatSql("DELETE AccSum\nUPDATE ABIdTable Set lLastId = 0 Where sTable = "
                              "'AccSum'"));
    addBatch(forms, "DELETE AccSum");
}

const EntryDimensions sampleDimensions{
    .department = 3, .person = 1, .unit = 1, .item = 1, .itemClass = awkward};

void addAssAccBatches(Forms& forms) {
    std::string written;
    const EntryDimensions nobody{.department = 3, .itemClass = awkward};
    auxiliary_sql::insertAuxiliary(written, 201, 1, 5, nobody, {1, 3, 2});
    auxiliary_sql::insertAuxiliary(written, 202, 1, 5, sampleDimensions, {1, 3, 2});
    auxiliary_sql::setLastAuxiliaryId(written, 202);
    auxiliary_sql::updateOneRow(written, {-5, 0, 1.5}, 201);
    for (const AuxiliaryMember& member : auxiliaryMembers())
        member.updateSums(written, {-5, 0, 1.5}, 5, sampleDimensions);
    auxiliary_sql::insertAccountSums(written, 301, 5, 1, {1, 3, 2});
    auxiliary_sql::setLastAccountSumsId(written, 301);
    auxiliary_sql::updateAccountSums(written, {-5, 0, 1.5}, 5, 1);
    addBatch(forms, written);
    std::string batch;
    opening_sql::deleteAuxiliary(batch, {"5", "0", "3", "0", "0", awkward});
    opening_sql::deleteAuxiliary(batch, {"5", "0", "3", nullptr, "0", ""});
    addBatch(forms, batch);
}

void addOperatorBatches(Forms& forms) {
    addBatch(forms, operator_sql::addOperator({301, 301, awkward, 0, awkward}));
    addBatch(forms, operator_sql::saveRights(301, std::string(255, 'Y')));
    addBatch(forms, operator_sql::deleteOperator(301));
}

void addRateBatches(Forms& forms) {
    std::string batch;
    for (const std::uint8_t day : {27, 28, 29})
        currency_sql::addFloatingRate(batch, 400 + day, 2, {2028, 2, day});
    addBatch(forms, batch);
    addBatch(forms, formatSql("DELETE ExchgFlt WHERE byExchId = %d", 2));
    addBatch(forms, formatSql("DELETE ExchgFix WHERE byExchId = %d", 2));
}

void addSelects(Forms& forms) {
    addSelect(forms, opening_sql::sumSizes);
    addSelect(forms, opening_sql::auxiliarySizes);
    addSelect(forms,
              formatSql("Select FIELD1 From ProjItems%s WHERE lId=%d", SqlFragment{"01"}, 1));
    addSelect(forms, formatSql("SELECT * FROM ExchgFix WHERE byExchId = %d ORDER BY byPeroid", 2));
    addSelect(forms, formatSql("SELECT * FROM ExchgFlt WHERE byExchId = %d AND byPeroid = %d "
                               "ORDER BY dtDate",
                               2, 2));
    addSelect(forms,
              "Select lId, sCode From Code Where sType <> '收入' AND sType <> '支出' ORDER BY lId");
    addSelect(forms, formatSql("Select mBegin, dAmtBegin, mFgnBegin From AccSum Where byPeroid = "
                               "%d AND lCodeId = %d",
                               12, 5));
    addSelect(forms,
              formatSql("Select mBegin, mDebet, mCredit, dAmtBegin, dAmtDebet, dAmtCredit, "
                        "mFgnBegin, mFgnDebet, mFgnCredit From AccSum Where byPeroid = %d AND "
                        "lCodeId = %d",
                        12, 5));
    addSelect(forms, print_sql::columnsOf(35));
    addSelect(forms, print_sql::fieldColumnsOf(2));
    addSelect(forms, services_sql::rightsOf(1));
    addSelect(forms, where_used_sql::accountsWithOpening);
    for (const UsePlace place : usePlaces) {
        addSelect(forms, where_used_sql::count(place, std::array{5, 6}));
        addSelect(forms, where_used_sql::rows(place, std::array{5, 6}, 3));
        addSelect(forms, where_used_sql::accountsIn(place));
    }
}

void addCodeConditions(Forms& forms) {
    addCondition(forms, account_sql::all, {"Code"});
    addCondition(forms, account_sql::allClasses, {"zCodeClass"});
    addCondition(forms, opening_sql::classesInOrder, {"zCodeClass"});
    addCondition(forms, account_sql::topLevel, {"Code"});
    addCondition(forms, "bEnd <> 0 ORDER BY sCode", {"Code"});
    addCondition(forms, chart_sql::ofOtherClasses("全部"), {"Code"});
    addCondition(forms, chart_sql::ofClass(awkward), {"Code"});
    addCondition(forms, account_sql::ofCode(awkward), {"Code"});
    addCondition(forms, account_sql::ofCodeWithChildren(awkward), {"Code"});
    addCondition(forms, account_sql::ofMnemonic(awkward), {"Code"});
    addCondition(forms, account_sql::below(awkward), {"Code"});
    addCondition(forms, account_sql::ofCodeAndBelow(awkward), {"Code"});
    for (const char* flag : {"bBank != 0", "bCash != 0", "byGrade = 1"})
        addCondition(forms, formatSql("sCode = '%s' AND %s", awkward, SqlFragment{flag}), {"Code"});
    addCondition(forms, currency_sql::ofCurrency(2), {"Code", "ExchgFix", "ExchgFlt"});
    addCondition(forms, currency_sql::fixedRatesOf(2), {"ExchgFix"});
    for (const int month : {0, 2})
        addCondition(forms, currency_sql::floatingRatesOf(2, month), {"ExchgFlt"});
}

void addUseConditions(Forms& forms) {
    const std::array ids{5, 6};
    addCondition(forms, formatSql("lCodeId = %d OR lCodeId = %d", 5, 6), {"UnregSub", "RegSub"});
    addCondition(forms, account_sql::ofAccounts(ids),
                 {"UnregSub", "RegSub", "AccSum", "FreqSub", "_Digest", "AutoSub", "ProjCodes"});
    addCondition(forms, account_sql::openingOfAccounts(ids), {"AccSum"});
    addCondition(forms, opening_sql::sumsOf(5), {"AccSum"});
    addCondition(forms, opening_sql::sumsOfInOrder(5), {"AccSum"});
    addCondition(forms, opening_sql::vouchers, {"RegMain"});
    addCondition(forms, "byPeroid=12", {"AccSum"});
    addCondition(forms, opening_sql::firstPeriod, {"AccSum"});
    addCondition(forms, opening_sql::secondPeriod, {"AccSum"});
    addCondition(forms, account_sql::ofId(5),
                 {"Code", "Cyrency", "RegMain", "RegSub", "Settle", "Sign", "zAccountM"});
}

const char* tableOf(DirectoryKind kind) {
    switch (kind) {
        case DirectoryKind::department:
            return "Dept";
        case DirectoryKind::person:
            return "Person";
        case DirectoryKind::unitClass:
            return "EnterClass";
        case DirectoryKind::unit:
            return "Enter";
        default:
            return "ProjClass";
    }
}

void addAuxiliaryConditions(Forms& forms) {
    for (const AuxiliaryMember& member : auxiliaryMembers()) {
        addCondition(forms, member.entriesOf(5) + auxiliary_sql::asAdded, {"RegSub"});
        addCondition(forms, member.sumsOf(5, sampleDimensions), {"AssAcc"});
    }
    addCondition(forms, auxiliary_sql::sums({}, 5, {}), {"AssAcc"});
    addCondition(forms, auxiliary_sql::classesOfAccount(5), {"ProjCodes"});
    addCondition(forms, auxiliary_sql::headerOf(5), {"RegMain"});
    addCondition(forms, auxiliary_sql::linesOfHeader(5), {"RegSub", "UnregSub"});
    addCondition(forms, auxiliary_sql::line(5), {"RegSub"});
    addCondition(forms, auxiliary_sql::endAccounts, {"Code"});
    addCondition(forms, auxiliary_sql::accountSums(5), {"AccSum"});
}

void addDirectoryForms(Forms& forms) {
    const DirectoryRecord record{.id = 2, .group = 1, .code = awkward, .name = awkward};
    for (const Directory& each : directories()) {
        if (each.kind == DirectoryKind::projectItem) continue;
        const char* const table = tableOf(each.kind);
        addCondition(forms, directory_sql::coded(each.kind, awkward), {table});
        addCondition(forms, directory_sql::named(each.kind, awkward), {table});
        addCondition(forms, directory_sql::inOrder(each.kind), {table});
        std::string batch;
        directory_sql::editRecord(batch, each.kind, record);
        addBatch(forms, batch);
    }
    for (const DirectoryKind kind :
         {DirectoryKind::department, DirectoryKind::person, DirectoryKind::unit,
          DirectoryKind::projectClass, DirectoryKind::projectItem}) {
        const std::string naming = directory_sql::naming(kind, 2, "01");
        addCondition(forms, naming, {"UnregSub"});
        addCondition(forms, directory_sql::openingLines(naming), {"RegSub"});
        addCondition(forms, directory_sql::voucherLines(naming), {"RegSub"});
        addCondition(forms, directory_sql::movedBalances(naming), {"AssAcc"});
        addBatch(forms, directory_sql::deleteBalances(naming));
    }
    addCondition(forms, directory_sql::personsOf(2), {"Person"});
    addCondition(forms, directory_sql::unitsOf(2), {"Enter"});
    addCondition(forms, directory_sql::accountsOf(awkward), {"ProjCodes"});
    addCondition(forms, directory_sql::reconciliationsOf(2), {"RecpEnter"});
    for (const std::string& select :
         {directory_sql::itemsInOrder("01"), directory_sql::itemOfId("01", 2),
          directory_sql::itemsCoded("01", awkward), directory_sql::itemsNamed("01", awkward),
          directory_sql::lastItemId("01"), directory_sql::anyItem("01"),
          auxiliary_sql::itemNamed("01", awkward)})
        addSelect(forms, select);
    std::string items;
    directory_sql::addItem(items, "01", 900, record);
    directory_sql::editItem(items, "01", record);
    addBatch(forms, items);
    addBatch(forms, directory_sql::deleteItem("01", 900));
}

void addListConditions(Forms& forms) {
    addCondition(forms, account_sql::allCurrencies, {"Cyrency"});
    addCondition(forms, print_sql::inOrderOfIds, {"Sign", "Settle"});
    addCondition(forms, currency_sql::inOrder, {"Cyrency"});
    addCondition(forms, currency_sql::ofId(2), {"Cyrency"});
    for (const int other : {0, 2}) {
        addCondition(forms, currency_sql::ofSymbol(awkward, other), {"Cyrency"});
        addCondition(forms, currency_sql::ofName(awkward, other), {"Cyrency"});
    }
    addCondition(forms, formatSql("sSign = '%s'", awkward),
                 {"Sign", "UnregMain", "RegMain", "AutoMain"});
    addCondition(forms, formatSql("sSign = '%s' AND sSign <> '%s'", awkward, "2"), {"Sign"});
    addCondition(forms, settle_sql::ofNumber(awkward), {"Settle", "UnregSub", "RegSub"});
    addCondition(forms, settle_sql::ofName(awkward), {"Settle"});
    addCondition(forms, settle_sql::ofNoteMethod(awkward), {"RecpBank"});
    addCondition(forms, operator_sql::inOrder, {"Users", "UserAuth"});
    addCondition(forms, operator_sql::ofUser(301), {"Users", "UserAuth"});
    addCondition(forms, operator_sql::ofName(awkward), {"Users"});
    addCondition(forms, operator_sql::ofSupervisorsBeside(301), {"Users"});
    addCondition(forms, operator_sql::ofLogons(1, awkward, 2), {"LoginInfoTbl"});
    addCondition(forms, operator_sql::ofSessions(1, awkward, 2), {"LoginInfoTbl"});
    addCondition(forms, settle_sql::inOrder, {"Settle"});
    addCondition(forms, logon_sql::ofOperator(awkward), {"Users"});
    addCondition(forms, logon_sql::ofRightsOwner(1), {"UserAuth"});
    addCondition(forms, logon_sql::ofStation(awkward), {"LoginInfoTbl"});
    addCondition(forms, logon_sql::ofLogons("1, 2, 3"), {"LoginInfoTbl"});
    addCondition(forms, operator_sql::ofNameBeside(awkward, 301), {"Users"});
    addCondition(forms, operator_sql::ofVouchers(1), {"UnregMain", "RegMain"});
}

}  // namespace

std::vector<StatementForm> statementForms() {
    Forms forms;
    addCounterBatches(forms);
    addCodeBatches(forms);
    addAccSumInserts(forms);
    addAccSumChanges(forms);
    addAssAccBatches(forms);
    addOperatorBatches(forms);
    addRateBatches(forms);
    addSelects(forms);
    addCodeConditions(forms);
    addUseConditions(forms);
    addDirectoryForms(forms);
    addAuxiliaryConditions(forms);
    addListConditions(forms);
    return forms;
}

}  // namespace chengheng
