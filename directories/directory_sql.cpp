#include "directories/directory_sql.h"

#include "data/sql/sql_format.h"

namespace chengheng::directory_sql {

std::string coded(DirectoryKind kind, std::string_view code) {
    switch (kind) {
        case DirectoryKind::department:
            return formatSql("sDeptCode = '%s'", code);
        case DirectoryKind::person:
            return formatSql("sPersonCode = '%s'", code);
        case DirectoryKind::unit:
            return formatSql("sEnterCode = '%s'", code);
        default:
            return formatSql("sClsCode = '%s'", code);
    }
}

std::string named(DirectoryKind kind, std::string_view name) {
    switch (kind) {
        case DirectoryKind::department:
            return formatSql("sDeptName = '%s'", name);
        case DirectoryKind::person:
            return formatSql("sPersonName = '%s'", name);
        case DirectoryKind::unit:
            return formatSql("sEnterName = '%s'", name);
        default:
            return formatSql("sClsName = '%s'", name);
    }
}

void editRecord(std::string& batch, DirectoryKind kind, const DirectoryRecord& record) {
    const auto& [id, group, code, name, unitKind] = record;
    switch (kind) {
        case DirectoryKind::department:
            return appendSql(
                batch, "UPDATE Dept SET sDeptCode = '%s', sDeptName = '%s' WHERE lId = %d\r\n",
                code, name, id);
        case DirectoryKind::person:
            return appendSql(batch,
                             "UPDATE Person SET lDeptId = %d, sPersonCode = '%s', "
                             "sPersonName = '%s' WHERE lId = %d\r\n",
                             group, code, name, id);
        case DirectoryKind::unitClass:
            return appendSql(
                batch, "UPDATE EnterClass SET sClsCode = '%s', sClsName = '%s' WHERE lId = %d\r\n",
                code, name, id);
        case DirectoryKind::unit:
            return appendSql(batch,
                             "UPDATE Enter SET lClassId = %d, sEnterCode = '%s', "
                             "sEnterName = '%s', byKind = %d WHERE lId = %d\r\n",
                             group, code, name, static_cast<int>(unitKind), id);
        default:
            return appendSql(
                batch, "UPDATE ProjClass SET sClsCode = '%s', sClsName = '%s' WHERE lId = %d\r\n",
                code, name, id);
    }
}

const char* inOrder(DirectoryKind kind) {
    switch (kind) {
        case DirectoryKind::department:
            return "ORDER BY sDeptCode, lId";
        case DirectoryKind::person:
            return "ORDER BY sPersonCode, lId";
        case DirectoryKind::unit:
            return "ORDER BY sEnterCode, lId";
        default:
            return "ORDER BY sClsCode, lId";
    }
}

std::string itemsInOrder(std::string_view classCode) {
    return formatSql("Select lId, FIELD0, FIELD1 From ProjItems%s ORDER BY FIELD0, lId",
                     SqlFragment{classCode});
}
std::string itemOfId(std::string_view classCode, std::int32_t id) {
    return formatSql("Select lId, FIELD0, FIELD1 From ProjItems%s WHERE lId = %d",
                     SqlFragment{classCode}, id);
}
std::string itemsCoded(std::string_view classCode, std::string_view code) {
    return formatSql("Select lId, FIELD0, FIELD1 From ProjItems%s WHERE FIELD0 = '%s'",
                     SqlFragment{classCode}, code);
}
std::string itemsNamed(std::string_view classCode, std::string_view name) {
    return formatSql("Select lId, FIELD0, FIELD1 From ProjItems%s WHERE FIELD1 = '%s'",
                     SqlFragment{classCode}, name);
}
std::string lastItemId(std::string_view classCode) {
    return formatSql("Select lId From ProjItems%s ORDER BY lId DESC LIMIT 1",
                     SqlFragment{classCode});
}
std::string anyItem(std::string_view classCode) {
    return formatSql("Select lId From ProjItems%s LIMIT 1", SqlFragment{classCode});
}
std::string dropItemTable(std::string_view classCode) {
    return formatSql("DROP TABLE ProjItems%s", SqlFragment{classCode});
}
void addItem(std::string& batch, std::string_view classCode, std::int32_t id,
             const DirectoryRecord& item) {
    appendSql(batch, "INSERT ProjItems%s Values( %d, '%s', '%s' )\r\n", SqlFragment{classCode}, id,
              item.code, item.name);
}
void editItem(std::string& batch, std::string_view classCode, const DirectoryRecord& item) {
    appendSql(batch, "UPDATE ProjItems%s SET FIELD0 = '%s', FIELD1 = '%s' WHERE lId = %d\r\n",
              SqlFragment{classCode}, item.code, item.name, item.id);
}
std::string deleteItem(std::string_view classCode, std::int32_t id) {
    return formatSql("DELETE FROM ProjItems%s WHERE lId = %d", SqlFragment{classCode}, id);
}

std::string naming(DirectoryKind kind, std::int32_t id, std::string_view classCode) {
    switch (kind) {
        case DirectoryKind::department:
            return formatSql("lDeptId = %d", id);
        case DirectoryKind::person:
            return formatSql("lPersonId = %d", id);
        case DirectoryKind::unit:
            return formatSql("lEnterId = %d", id);
        case DirectoryKind::projectItem:
            return formatSql("lItemId = %d AND sItemId = '%s'", id, classCode);
        default:
            return formatSql("sItemId = '%s'", classCode);
    }
}

std::string openingLines(std::string naming) { return std::move(naming += " AND bBegin <> 0"); }

std::string voucherLines(std::string naming) { return std::move(naming += " AND bBegin = 0"); }

std::string movedBalances(std::string naming) {
    naming +=
        " AND ( mBegin <> 0 OR mDebt <> 0 OR mCredit <> 0 OR dBegin <> 0 OR dDebt <> 0 OR "
        "dCredit <> 0 OR mFBegin <> 0 OR mFDebt <> 0 OR mFCredit <> 0 )";
    return naming;
}

std::string personsOf(std::int32_t department) { return formatSql("lDeptId = %d", department); }
std::string unitsOf(std::int32_t unitClass) { return formatSql("lClassId = %d", unitClass); }
std::string accountsOf(std::string_view classCode) {
    return formatSql("sItemId = '%s'", classCode);
}
std::string reconciliationsOf(std::int32_t unit) { return formatSql("lEnterId = %d", unit); }

std::string deleteBalances(std::string naming) {
    return std::move(naming.insert(0, "DELETE FROM AssAcc WHERE "));
}

}  // namespace chengheng::directory_sql
