#include "tests/support/statement_forms.h"

#include <initializer_list>

#include "data/sql/sql_format.h"

namespace chengheng {
namespace {

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
    addBatch(forms, formatSql("UPDATE ABIdTable Set lLastId = %d Where sTable = 'AccSum'", 24));
    addBatch(forms, formatSql("Update ABIdTable Set lLastId = %d Where sTable = 'AccSum'", 36));
    addBatch(forms, formatSql("UPDATE ABIdTable Set lLastId = %d Where sTable = 'AssAcc'", 12));
    addBatch(forms, formatSql("UPDATE ABIdTable SET lLastId = %d WHERE sTable = 'UserAuth' or "
                              "sTable = 'Users'",
                              9));
    addBatch(forms, formatSql("UPDATE ABIdTable SET lLastId = %d  WHERE sTable = 'ExchgFlt'", 365));
    addBatch(forms, formatSql("BEGIN TRANSACTION xiugai\r\n"
                              "Update ABIdTable Set lLastId = %d Where sTable = 'RegMain'\r\n"
                              "Update ABIdTable Set lLastId = %d Where sTable = 'RegSub'\r\n"
                              "Update ABIdTable Set lLastId = %d Where sTable = 'UnRegMain'\r\n"
                              "Update ABIdTable Set lLastId = %d Where sTable = 'UnRegSub'\r\n"
                              "COMMIT TRANSACTION xiugai",
                              7, 8, 7, 8));
}

void addCodeBatches(Forms& forms) {
    addBatch(forms, formatSql("Update Code Set bEnd = 1 Where sCode = '%s'", awkward));
    addBatch(forms,
             formatSql("Update Code Set bCash = 0, bBank = 0\r\n"
                       "Update Code Set bCash = 1, sAssBook = 'R' Where sCode Like '%s%%'\r\n"
                       "Update Code Set bBank = 1, sAssBook = 'RE' Where sCode Like '%s%%'\r\n",
                       "1001", "1002"));
}

void addAccSumInserts(Forms& forms) {
    addBatch(forms, formatSql("INSERT AccSum Values( %d, %d, %d, %lf, 0.00, 0.00, %lf, 0.00, 0.00, "
                              "%lf, 0.00, 0.00 )\n",
                              101, 5, 1, 1234.56, 2.5, -0.01));
    addBatch(forms, formatSql("INSERT AccSum Values( %d, %d, %d, %lf, %lf, %lf, 0.00, 0.00, 0.00, "
                              "0.00, 0.00, 0.00 )\n",
                              102, 5, 1, 1.0, 2.0, 3.0));
    addBatch(forms,
             formatSql("INSERT AccSum Values( %d, %d, %d, %lf, 0.00, 0.00, 0.00, 0.00, 0.00, "
                       "0.00, 0.00, 0.00 )\n",
                       103, 5, 2, -1.0));
    addBatch(forms, formatSql("INSERT AccSum Values( %d, %d, %d, %lf, %lf, %lf, %lf, %lf, %lf, "
                              "%lf, 0.00, 0.00 )\n",
                              104, 5, 3, 1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 7.0));
    addBatch(forms,
             formatSql("INSERT INTO AccSum VALUES( %d,%d,%d,%lf,%lf,%lf,%lf,%lf,%lf,%lf,%lf,%lf )"
                       "\r\n",
                       105, 5, 4, 1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 7.0, 8.0, 9.0));
}

void addAccSumChanges(Forms& forms) {
    addBatch(forms, formatSql("Update AccSum Set mBegin = %lf, mFgnBegin = %lf, dAmtBegin = %lf "
                              "Where lCodeId = %d\n",
                              99.99, -1.0, 0.5, 5));
    addBatch(forms, formatSql("UPDATE AccSum Set mBegin = %lf, mFgnBegin = %lf, dAmtBegin = %lf "
                              "Where lCodeId = %d AND byPeroid = %d",
                              99.99, -1.0, 0.5, 5, 12));
    addBatch(forms, formatSql("Update AccSum Set mBegin = %lf Where lCodeId = %d AND byPeroid = %d"
                              "\n",
                              0.0, 5, 2));
    addBatch(forms, formatSql("Update AccSum Set mBegin = %lf, mDebet = %lf, mCredit = %lf Where "
                              "lCodeId = %d AND byPeroid = 1\n",
                              1.0, 2.0, 3.0, 5));
    addBatch(forms, formatSql("Delete AccSum Where lCodeId = %ld", 5L));
    addBatch(forms, formatSql("DELETE FROM AccSum WHERE lCodeId in ( %s )", SqlFragment{"5,17,4"}));
    addBatch(forms, formatSql("DELETE AccSum\nUPDATE ABIdTable Set lLastId = 0 Where sTable = "
                              "'AccSum'"));
    addBatch(forms, "DELETE AccSum");
}

void addAssAccBatches(Forms& forms) {
    addBatch(
        forms,
        formatSql("INSERT INTO AssAcc VALUES( %d,%d,%d,%d,%d,%d,%d,'%s',%lf,%lf,%lf,%lf,%lf,"
                  "%lf,%lf,%lf,%lf )\r\n",
                  201, 1, 5, 0, 3, 0, 0, awkward, 1.0, 0.0, 0.0, 2.0, 0.0, 0.0, 3.0, 0.0, 0.0));
    addBatch(forms,
             formatSql("INSERT INTO AssAcc VALUES( %d,%d,%d,%d,%d,%d,%d,'%s',%lf,%lf,%lf,%lf,%lf,"
                       "%lf,%lf,%lf,%lf )\r\n",
                       202, 1, 5, 0, 3, std::optional<int>(), 0, "", 1.0, 0.0, 0.0, 2.0, 0.0, 0.0,
                       3.0, 0.0, 0.0));
    addBatch(forms, formatSql("UPDATE AssAcc Set mBegin = %lf, mFBegin = %lf, dBegin = %lf Where "
                              "lCodeId = %d AND lDeptId = %d ",
                              -5.0, 0.0, 1.5, 5, 3));
    const auto id = [](std::string_view text) { return SqlFragment{text}; };
    addBatch(forms,
             formatSql("DELETE AssAcc WHERE lCodeId = %s AND lItemId = %s AND lDeptId = %s AND "
                       "lPersonId = %s AND lEnterId = %s AND sItemId = '%s' \r\n ",
                       id("5"), id("0"), id("3"), id("0"), id("0"), awkward) +
                 formatSql("DELETE AssAcc WHERE lCodeId = %s AND lItemId = %s AND lDeptId = %s AND "
                           "lPersonId = %s AND lEnterId = %s AND sItemId = '' \r\n ",
                           id("5"), id("0"), id("3"), id("0"), id("0")));
}

void addOperatorBatches(Forms& forms) {
    addBatch(forms,
             formatSql("BEGIN TRANSACTION xiugai\r\n"
                       "INSERT INTO Users VALUES( %d, %d, '%s', 0, '%s' )\r\n"
                       "INSERT INTO UserAuth VALUES( %d, %d, '%s' )\r\n"
                       "UPDATE ABIdTable SET lLastId = %d WHERE sTable = 'UserAuth' or sTable = "
                       "'Users'\r\n"
                       "COMMIT TRANSACTION xiugai",
                       301, 301, awkward, awkward, 301, 301, std::string(255, 'N'), 301));
    addBatch(forms, formatSql("UPDATE UserAuth SET sAuthId = '%s' WHERE lUserId = %d",
                              std::string(255, 'Y'), 301));
    addBatch(forms, formatSql("BEGIN TRANSACTION xiugai\r\nDELETE Users WHERE lUserId = %d\r\n"
                              "DELETE UserAuth WHERE lUserId = %d\r\nCOMMIT TRANSACTION xiugai",
                              301, 301));
}

void addRateBatches(Forms& forms) {
    std::string batch;
    for (int day = 1; day <= 3; ++day)
        appendSql(batch, "Insert ExchgFlt Values(%d, %d, '%d/%d/%d', %d, 0.0, 0.0)\n", 400 + day, 2,
                  2028, 2, 26 + day, 2);
    addBatch(forms, batch);
    addBatch(forms, formatSql("DELETE ExchgFlt WHERE byExchId = %d", 2));
    addBatch(forms, formatSql("DELETE ExchgFix WHERE byExchId = %d", 2));
}

void addSelects(Forms& forms) {
    addSelect(forms,
              "SELECT Sum( abs(mBegin)+abs(mDebet)+abs(mCredit)+abs(dAmtBegin)+abs(dAmtDebet)+"
              "abs(dAmtCredit) + abs(mFgnBegin)+abs(mFgnDebet)+abs(mFgnCredit)), lCodeId FROM "
              "AccSum GROUP BY lCodeId");
    addSelect(forms,
              "SELECT Sum( abs(mBegin)+abs(mDebt)+abs(mCredit)+abs(dBegin)+abs(dDebt)+"
              "abs(dCredit) + abs(mFBegin)+abs(mFDebt)+abs(mFCredit)), lCodeId, lItemId, lDeptId, "
              "lPersonId, lEnterId, sItemId FROM AssAcc GROUP BY lCodeId, lItemId, lDeptId, "
              "lPersonId, lEnterId, sItemId");
    addSelect(forms, formatSql("Select lId From ProjItems%s WHERE FIELD1='%s'", SqlFragment{"01"},
                               awkward));
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
    addSelect(forms, formatSql("select sColName, byWidth from ZWPrintSub where lTieId = %d", 35));
    addSelect(forms,
              formatSql("select sColName, sFiled, byWidth from ZWPrintSub where lTieId = %d", 2));
    addSelect(forms, formatSql("Select * From LoginInfoTbl Where lAccId = %d AND sUser = '%s'", 1,
                               awkward));
}

void addCodeConditions(Forms& forms) {
    addCondition(forms, "lId > 0 ORDER BY sCode", {"Code"});
    addCondition(forms, "lId > 0 ORDER BY lNum", {"zCodeClass"});
    addCondition(forms, "byGrade = 1 AND lId>0 ORDER BY sCode", {"Code"});
    addCondition(forms, "byGrade = 1 ORDER BY sCode", {"Code"});
    addCondition(forms, "bEnd <> 0 ORDER BY sCode", {"Code"});
    addCondition(forms, "bCash <> 0 AND byGrade = 1", {"Code"});
    addCondition(forms, "bBank <> 0 AND byGrade = 1", {"Code"});
    addCondition(forms, formatSql("sType <> '%s' ORDER BY sCode", "全部"), {"Code"});
    addCondition(forms, formatSql("sType = '%s' ORDER BY sCode", awkward), {"Code"});
    addCondition(forms, formatSql("sCode = '%s'", awkward), {"Code"});
    addCondition(forms, formatSql("sHelp = '%s'", awkward), {"Code"});
    addCondition(forms, formatSql("sCode Like '%s%%' AND sCode <> '%s'", awkward, awkward),
                 {"Code"});
    addCondition(forms, formatSql("sCode LIKE '%s%%'", awkward), {"Code"});
    for (const char* flag : {"bEnd = 0", "bBank != 0", "bCash != 0", "byGrade = 1"})
        addCondition(forms, formatSql("sCode = '%s' AND %s", awkward, SqlFragment{flag}), {"Code"});
    addCondition(forms, formatSql("byExchId = %d", 2), {"Code", "ExchgFix", "ExchgFlt"});
}

void addUseConditions(Forms& forms) {
    const std::string ids = formatSql("lCodeId = %d", 5) + formatSql(" OR lCodeId = %d", 6);
    addCondition(forms, ids,
                 {"UnregSub", "RegSub", "AccSum", "FreqSub", "_Digest", "AutoSub", "ProjCodes"});
    addCondition(forms, "( " + ids + " )", {"UnregSub", "RegSub", "FreqSub", "_Digest", "AutoSub"});
    addCondition(forms, formatSql("%s AND mBegin <> 0", SqlFragment{"( " + ids + " )"}),
                 {"AccSum"});
    addCondition(forms, formatSql("lCodeId = %ld", 5), {"AccSum"});
    addCondition(forms, formatSql("lCodeId = %ld ORDER BY byPeroid", 5), {"AccSum"});
    addCondition(forms, formatSql("byPeroid <> 0 And lCodeId = %d", 5), {"AccSum"});
    addCondition(forms, "byPeroid>0", {"RegMain"});
    addCondition(forms, "byPeroid=12", {"AccSum"});
    addCondition(forms, "byPeroid = 1 AND mBegin is not NULL ORDER BY lCodeId", {"AccSum"});
    addCondition(forms, formatSql("lId = %d", 5),
                 {"Code", "Cyrency", "RegMain", "RegSub", "Settle", "Sign", "zAccountM"});
    addCondition(forms, formatSql("lId=%d", 5), {"RegSub"});
    addCondition(forms, formatSql("lTieId = %d", 5), {"RegSub", "UnregSub"});
}

void addAuxiliaryConditions(Forms& forms) {
    addCondition(forms, formatSql("sDeptName = '%s'", awkward), {"Dept"});
    addCondition(forms, formatSql("lCodeId=%d AND lDeptId <> 0 AND bBegin<>0", 5), {"RegSub"});
    addCondition(forms, formatSql("bBegin<>0 AND lCodeId=%d AND lItemId<>0 AND lDeptId<>0", 5),
                 {"RegSub"});
    addCondition(forms, formatSql("bBegin<>0 AND lCodeId=%d AND lItemId<>0", 5), {"RegSub"});
    addCondition(forms, formatSql("lCodeId = %ld AND lPersonId is not NULL AND bBegin <> 0", 5),
                 {"RegSub"});
    addCondition(forms, formatSql("bBegin<>0 AND lCodeId=%d AND lEnterId>0 AND lDeptId>0", 5),
                 {"RegSub"});
    addCondition(forms, formatSql("bBegin<>0 AND lCodeId=%d AND lEnterId <> 0 AND lItemId<>0", 5),
                 {"RegSub"});
    addCondition(forms, formatSql("bBegin<>0 AND lCodeId=%d AND lEnterId<>0", 5), {"RegSub"});
    addCondition(forms, formatSql("byPeroid > 0 AND lCodeId = %d AND lDeptId = %d", 5, 3),
                 {"AssAcc"});
    addCondition(forms,
                 formatSql("byPeroid > 0 AND lCodeId = %d AND lDeptId = %d AND lItemId = %d AND "
                           "sItemId = '%s'",
                           5, 3, 1, awkward),
                 {"AssAcc"});
    addCondition(forms,
                 formatSql("byPeroid > 0 AND lCodeId = %d AND lItemId = %d AND sItemId = '%s'", 5,
                           1, awkward),
                 {"AssAcc"});
    addCondition(
        forms,
        formatSql("byPeroid > 0 AND lCodeId = %d AND lPersonId = %d AND lDeptId = %d", 5, 1, 3),
        {"AssAcc"});
    addCondition(
        forms,
        formatSql("byPeroid > 0 AND lCodeId = %d AND lEnterId = %d AND lDeptId = %d", 5, 1, 3),
        {"AssAcc"});
    addCondition(forms,
                 formatSql("byPeroid > 0 AND lCodeId = %d AND lEnterId = %d AND lItemId = %d AND "
                           "sItemId = '%s'",
                           5, 1, 1, awkward),
                 {"AssAcc"});
    addCondition(forms, formatSql("byPeroid > 0 AND lCodeId = %d AND lEnterId = %d", 5, 1),
                 {"AssAcc"});
}

void addListConditions(Forms& forms) {
    addCondition(forms, "lId > 0 ORDER BY lId", {"Cyrency"});
    addCondition(forms, formatSql("sExchCode = '%s'", awkward), {"Cyrency"});
    addCondition(forms, formatSql("sExchName = '%s'", awkward), {"Cyrency"});
    addCondition(forms, formatSql("lId <> %d AND sExchCode = '%s'", 2, awkward), {"Cyrency"});
    addCondition(forms, formatSql("lId <> %d AND sExchName = '%s'", 2, awkward), {"Cyrency"});
    addCondition(forms, formatSql("sSign = '%s'", awkward),
                 {"Sign", "UnregMain", "RegMain", "AutoMain"});
    addCondition(forms, formatSql("sSign = '%s' AND sSign <> '%s'", awkward, "2"), {"Sign"});
    addCondition(forms, formatSql("sStlId = '%s'", awkward), {"Settle", "UnregSub", "RegSub"});
    addCondition(forms, formatSql("sSettle = '%s'", awkward), {"Settle"});
    addCondition(forms, formatSql("sNoteMethod = '%s'", awkward), {"RecpBank"});
    addCondition(forms, "lId > 0 ORDER BY lUserId", {"Users", "UserAuth"});
    addCondition(forms, formatSql("sUserName = '%s'", awkward), {"Users"});
    addCondition(forms, formatSql("sUserName = '%s' and lUserId <> %d ", awkward, 301), {"Users"});
    addCondition(forms, formatSql("lUBill = %d OR lUCheck = %d OR lUBook = %d", 1, 1, 1),
                 {"UnregMain", "RegMain"});
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
    addAuxiliaryConditions(forms);
    addListConditions(forms);
    return forms;
}

}  // namespace chengheng
