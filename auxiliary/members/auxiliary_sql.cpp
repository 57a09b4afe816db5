#include "auxiliary/members/auxiliary_sql.h"

namespace chengheng::auxiliary_sql {

namespace {

void appendDimension(std::string& text, Dimension dimension, const EntryDimensions& of) {
    switch (dimension) {
        case Dimension::department:
            return appendSql(text, " AND lDeptId = %d", of.department);
        case Dimension::person:
            return appendSql(text, " AND lPersonId = %d", of.person.value_or(0));
        case Dimension::unit:
            return appendSql(text, " AND lEnterId = %d", of.unit);
        case Dimension::item:
            return appendSql(text, " AND lItemId = %d AND sItemId = '%s'", of.item, of.itemClass);
    }
}

}  // namespace

std::string sums(std::span<const Dimension> order, std::int32_t accountId,
                 const EntryDimensions& of) {
    std::string text = formatSql("byPeroid > 0 AND lCodeId = %d", accountId);
    for (const Dimension dimension : order) appendDimension(text, dimension, of);
    return text;
}

void updateSums(std::string& batch, std::span<const Dimension> order, const EntryFigures& figures,
                std::int32_t accountId, const EntryDimensions& of) {
    appendSql(batch,
              "UPDATE AssAcc Set mBegin = %lf, mFBegin = %lf, dBegin = %lf Where lCodeId = %d",
              figures.money, figures.foreign, figures.quantity, accountId);
    for (const Dimension dimension : order) appendDimension(batch, dimension, of);
    appendSql(batch, " \r\n");
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

std::string itemNamed(std::string_view classCode, std::string_view name) {
    return formatSql("Select lId From ProjItems%s WHERE FIELD1='%s'", SqlFragment{classCode}, name);
}

std::string classesOfAccount(std::int32_t accountId) {
    return formatSql("lCodeId = %d ORDER BY sItemId, lId", accountId);
}

}  // namespace chengheng::auxiliary_sql
