#include "auxiliary/members/auxiliary_sql.h"

#include "data/sql/sql_format.h"

namespace chengheng::auxiliary_sql {

std::string departmentEntries(std::int32_t accountId) {
    return formatSql("lCodeId=%d AND lDeptId <> 0 AND bBegin<>0", accountId);
}
std::string departmentAndProjectEntries(std::int32_t accountId) {
    return formatSql("bBegin<>0 AND lCodeId=%d AND lItemId<>0 AND lDeptId<>0", accountId);
}
std::string projectEntries(std::int32_t accountId) {
    return formatSql("bBegin<>0 AND lCodeId=%d AND lItemId<>0", accountId);
}
std::string personEntries(std::int32_t accountId) {
    return formatSql("lCodeId = %ld AND lPersonId is not NULL AND bBegin <> 0", accountId);
}
std::string departmentAndUnitEntries(std::int32_t accountId) {
    return formatSql("bBegin<>0 AND lCodeId=%d AND lEnterId>0 AND lDeptId>0", accountId);
}
std::string unitAndProjectEntries(std::int32_t accountId) {
    return formatSql("bBegin<>0 AND lCodeId=%d AND lEnterId <> 0 AND lItemId<>0", accountId);
}
std::string unitEntries(std::int32_t accountId) {
    return formatSql("bBegin<>0 AND lCodeId=%d AND lEnterId<>0", accountId);
}

std::string departmentSums(std::int32_t accountId, const EntryDimensions& of) {
    return formatSql("byPeroid > 0 AND lCodeId = %d AND lDeptId = %d", accountId, of.department);
}
std::string departmentAndProjectSums(std::int32_t accountId, const EntryDimensions& of) {
    return formatSql(
        "byPeroid > 0 AND lCodeId = %d AND lDeptId = %d AND lItemId = %d AND sItemId = '%s'",
        accountId, of.department, of.item, of.itemClass);
}
std::string projectSums(std::int32_t accountId, const EntryDimensions& of) {
    return formatSql("byPeroid > 0 AND lCodeId = %d AND lItemId = %d AND sItemId = '%s'", accountId,
                     of.item, of.itemClass);
}
std::string personSums(std::int32_t accountId, const EntryDimensions& of) {
    return formatSql("byPeroid > 0 AND lCodeId = %d AND lPersonId = %d AND lDeptId = %d", accountId,
                     of.person.value_or(0), of.department);
}
std::string departmentAndUnitSums(std::int32_t accountId, const EntryDimensions& of) {
    return formatSql("byPeroid > 0 AND lCodeId = %d AND lEnterId = %d AND lDeptId = %d", accountId,
                     of.unit, of.department);
}
std::string unitAndProjectSums(std::int32_t accountId, const EntryDimensions& of) {
    return formatSql(
        "byPeroid > 0 AND lCodeId = %d AND lEnterId = %d AND lItemId = %d AND sItemId = '%s'",
        accountId, of.unit, of.item, of.itemClass);
}
std::string unitSums(std::int32_t accountId, const EntryDimensions& of) {
    return formatSql("byPeroid > 0 AND lCodeId = %d AND lEnterId = %d", accountId, of.unit);
}

std::string allSums(std::int32_t accountId) {
    return formatSql("byPeroid > 0 AND lCodeId = %d", accountId);
}

void updateDepartment(std::string& batch, const EntryFigures& figures, std::int32_t accountId,
                      const EntryDimensions& of) {
    appendSql(batch,
              "UPDATE AssAcc Set mBegin = %lf, mFBegin = %lf, dBegin = %lf Where lCodeId = %d AND "
              "lDeptId = %d \r\n",
              figures.money, figures.foreign, figures.quantity, accountId, of.department);
}
void updateDepartmentAndProject(std::string& batch, const EntryFigures& figures,
                                std::int32_t accountId, const EntryDimensions& of) {
    appendSql(batch,
              "UPDATE AssAcc Set mBegin = %lf, mFBegin = %lf, dBegin = %lf Where lCodeId = %d AND "
              "lDeptId = %d AND lItemId = %d AND sItemId = '%s' \r\n",
              figures.money, figures.foreign, figures.quantity, accountId, of.department, of.item,
              of.itemClass);
}
void updateProject(std::string& batch, const EntryFigures& figures, std::int32_t accountId,
                   const EntryDimensions& of) {
    appendSql(batch,
              "UPDATE AssAcc Set mBegin = %lf, mFBegin = %lf, dBegin = %lf Where lCodeId = %d AND "
              "lItemId = %d AND sItemId = '%s' \r\n",
              figures.money, figures.foreign, figures.quantity, accountId, of.item, of.itemClass);
}
void updatePerson(std::string& batch, const EntryFigures& figures, std::int32_t accountId,
                  const EntryDimensions& of) {
    appendSql(batch,
              "UPDATE AssAcc Set mBegin = %lf, mFBegin = %lf, dBegin = %lf Where lCodeId = %d AND "
              "lPersonId = %d AND lDeptId = %d \r\n",
              figures.money, figures.foreign, figures.quantity, accountId, of.person.value_or(0),
              of.department);
}
void updateDepartmentAndUnit(std::string& batch, const EntryFigures& figures,
                             std::int32_t accountId, const EntryDimensions& of) {
    appendSql(batch,
              "UPDATE AssAcc Set mBegin = %lf, mFBegin = %lf, dBegin = %lf Where lCodeId = %d AND "
              "lEnterId = %d AND lDeptId = %d \r\n",
              figures.money, figures.foreign, figures.quantity, accountId, of.unit, of.department);
}
void updateUnitAndProject(std::string& batch, const EntryFigures& figures, std::int32_t accountId,
                          const EntryDimensions& of) {
    appendSql(batch,
              "UPDATE AssAcc Set mBegin = %lf, mFBegin = %lf, dBegin = %lf Where lCodeId = %d AND "
              "lEnterId = %d AND lItemId = %d AND sItemId = '%s' \r\n",
              figures.money, figures.foreign, figures.quantity, accountId, of.unit, of.item,
              of.itemClass);
}
void updateUnit(std::string& batch, const EntryFigures& figures, std::int32_t accountId,
                const EntryDimensions& of) {
    appendSql(batch,
              "UPDATE AssAcc Set mBegin = %lf, mFBegin = %lf, dBegin = %lf Where lCodeId = %d AND "
              "lEnterId = %d \r\n",
              figures.money, figures.foreign, figures.quantity, accountId, of.unit);
}

void updateOneRow(std::string& batch, const EntryFigures& figures, std::int32_t rowId) {
    appendSql(batch,
              "UPDATE AssAcc Set mBegin = %lf, mFBegin = %lf, dBegin = %lf Where lId = %d \r\n",
              figures.money, figures.foreign, figures.quantity, rowId);
}

void insertAuxiliary(std::string& batch, std::int32_t id, int period, std::int32_t accountId,
                     const EntryDimensions& of, const EntryFigures& figures) {
    constexpr double none = 0;
    appendSql(batch,
              "INSERT INTO AssAcc VALUES( "
              "%d,%d,%d,%d,%d,%d,%d,'%s',%lf,%lf,%lf,%lf,%lf,%lf,%lf,%lf,%lf )\r\n",
              id, period, accountId, of.item, of.department, of.person, of.unit, of.itemClass,
              figures.money, none, none, figures.quantity, none, none, figures.foreign, none, none);
}

void setLastAuxiliaryId(std::string& batch, std::int32_t lastId) {
    appendSql(batch, "UPDATE ABIdTable Set lLastId = %d Where sTable = 'AssAcc'\r\n", lastId);
}

std::string accountSums(std::int32_t accountId) {
    return formatSql("byPeroid <> 0 And lCodeId = %d", accountId);
}

void updateAccountSums(std::string& batch, const EntryFigures& figures, std::int32_t accountId,
                       int period) {
    appendSql(batch,
              "UPDATE AccSum Set mBegin = %lf, mFgnBegin = %lf, dAmtBegin = %lf Where lCodeId = %d "
              "AND byPeroid = %d\r\n",
              figures.money, figures.foreign, figures.quantity, accountId, period);
}

void insertAccountSums(std::string& batch, std::int32_t id, std::int32_t accountId, int period,
                       const EntryFigures& figures) {
    constexpr double none = 0;
    appendSql(batch,
              "INSERT INTO AccSum VALUES( %d,%d,%d,%lf,%lf,%lf,%lf,%lf,%lf,%lf,%lf,%lf )\r\n", id,
              accountId, period, figures.money, none, none, figures.quantity, none, none,
              figures.foreign, none, none);
}

void setLastAccountSumsId(std::string& batch, std::int32_t lastId) {
    appendSql(batch, "UPDATE ABIdTable Set lLastId = %d Where sTable = 'AccSum'\r\n", lastId);
}

std::string setVoucherCounters(std::int32_t lastHeader, std::int32_t lastLine) {
    return formatSql(
        "BEGIN TRANSACTION xiugai\r\n"
        "Update ABIdTable Set lLastId = %d Where sTable = 'RegMain'\r\n"
        "Update ABIdTable Set lLastId = %d Where sTable = 'RegSub'\r\n"
        "Update ABIdTable Set lLastId = %d Where sTable = 'UnRegMain'\r\n"
        "Update ABIdTable Set lLastId = %d Where sTable = 'UnRegSub'\r\n"
        "COMMIT TRANSACTION xiugai",
        lastHeader, lastLine, lastHeader, lastLine);
}

std::string headerOf(std::int32_t tieId) { return formatSql("lId = %d", tieId); }

std::string linesOfHeader(std::int32_t headerId) { return formatSql("lTieId = %d", headerId); }

std::string line(std::int32_t lineId) { return formatSql("lId=%d", lineId); }

std::string accountOfCode(std::string_view code) { return formatSql("sCode = '%s'", code); }

std::string departmentNamed(std::string_view name) { return formatSql("sDeptName = '%s'", name); }
std::string departmentCoded(std::string_view code) { return formatSql("sDeptCode = '%s'", code); }
std::string personNamed(std::string_view name) { return formatSql("sPersonName = '%s'", name); }
std::string personCoded(std::string_view code) { return formatSql("sPersonCode = '%s'", code); }
std::string unitNamed(std::string_view name) { return formatSql("sEnterName = '%s'", name); }
std::string unitCoded(std::string_view code) { return formatSql("sEnterCode = '%s'", code); }

std::string selectUnits(std::string_view condition) {
    const bool isOrder = condition.starts_with("ORDER");
    return formatSql("Select lId, sEnterCode, sEnterName From Enter%s%s",
                     SqlFragment{isOrder ? " " : " WHERE "}, SqlFragment{condition});
}

std::string itemNamed(std::string_view classCode, std::string_view name) {
    return formatSql("Select lId From ProjItems%s WHERE FIELD1='%s'", SqlFragment{classCode}, name);
}
std::string itemCoded(std::string_view classCode, std::string_view code) {
    return formatSql("Select lId From ProjItems%s WHERE FIELD0='%s'", SqlFragment{classCode}, code);
}
std::string itemOfId(std::string_view classCode, std::int32_t id) {
    return formatSql("Select FIELD1 From ProjItems%s WHERE lId=%d", SqlFragment{classCode}, id);
}
std::string itemsInOrder(std::string_view classCode) {
    return formatSql("Select lId, FIELD0, FIELD1 From ProjItems%s ORDER BY FIELD0, lId",
                     SqlFragment{classCode});
}
std::string classOfCode(std::string_view code) { return formatSql("sClsCode = '%s'", code); }

std::string classesOfAccount(std::int32_t accountId) {
    return formatSql("lCodeId = %d ORDER BY sItemId, lId", accountId);
}

}  // namespace chengheng::auxiliary_sql
