#include <array>
#include <map>
#include <set>

#include "books/checking/integrity_parts.h"
#include "books/checking/integrity_sql.h"
#include "books/checking/integrity_texts.h"
#include "data/transfer/stored_tables.h"
#include "session/rights/passwords.h"

namespace chengheng {
namespace {

using integrity_sql::Reference;

constexpr const char* noId = "0";
constexpr const char* noText = "''";
constexpr const char* always = nullptr;

constexpr std::array references{
    Reference{"Code", "sType", "zCodeClass", "sClsName", always},
    Reference{"Code", "byExchId", "Cyrency", "lId", noId},
    Reference{"AccSum", "lCodeId", "Code", "lId", always},
    Reference{"AssAcc", "lCodeId", "Code", "lId", always},
    Reference{"AssAcc", "lDeptId", "Dept", "lId", noId},
    Reference{"AssAcc", "lPersonId", "Person", "lId", noId},
    Reference{"AssAcc", "lEnterId", "Enter", "lId", noId},
    Reference{"AssAcc", "sItemId", "ProjClass", "sClsCode", noText},
    Reference{"Sign", "sCode1", "Code", "sCode", noText, "r.byGrade = 1"},
    Reference{"Sign", "sCode2", "Code", "sCode", noText, "r.byGrade = 1"},
    Reference{"ExchgFix", "byExchId", "Cyrency", "lId", always},
    Reference{"ExchgFlt", "byExchId", "Cyrency", "lId", always},
    Reference{"Person", "lDeptId", "Dept", "lId", always},
    Reference{"Enter", "lClassId", "EnterClass", "lId", always},
    Reference{"ProjCodes", "lCodeId", "Code", "lId", always},
    Reference{"ProjCodes", "sItemId", "ProjClass", "sClsCode", always},
    Reference{"RegMain", "sSign", "Sign", "sSign", noText},
    Reference{"RegSub", "lTieId", "RegMain", "lId", always},
    Reference{"RegSub", "lCodeId", "Code", "lId", always},
    Reference{"RegSub", "lDeptId", "Dept", "lId", noId},
    Reference{"RegSub", "lPersonId", "Person", "lId", noId},
    Reference{"RegSub", "lEnterId", "Enter", "lId", noId},
    Reference{"RegSub", "sItemId", "ProjClass", "sClsCode", noText},
    Reference{"RegSub", "sStlId", "Settle", "sStlId", noText},
    Reference{"UnregMain", "sSign", "Sign", "sSign", noText},
    Reference{"UnregSub", "lTieId", "UnregMain", "lId", always},
    Reference{"UnregSub", "lCodeId", "Code", "lId", always},
    Reference{"UnregSub", "lDeptId", "Dept", "lId", noId},
    Reference{"UnregSub", "lPersonId", "Person", "lId", noId},
    Reference{"UnregSub", "lEnterId", "Enter", "lId", noId},
    Reference{"UnregSub", "sItemId", "ProjClass", "sClsCode", noText},
    Reference{"UnregSub", "sStlId", "Settle", "sStlId", noText},
    Reference{"AutoMain", "sSign", "Sign", "sSign", noText},
    Reference{"AutoSub", "lTieId", "AutoMain", "lId", always},
    Reference{"AutoSub", "lCodeId", "Code", "lId", always},
    Reference{"FreqSub", "lCodeId", "Code", "lId", always},
    Reference{"_Digest", "lCodeId", "Code", "lId", noId},
    Reference{"RecpBank", "lCodeId", "Code", "lId", always},
    Reference{"RecpBank", "sNoteMethod", "Settle", "sStlId", noText},
    Reference{"RecpEnter", "lCodeId", "Code", "lId", always},
    Reference{"RecpEnter", "lEnterId", "Enter", "lId", always},
    Reference{"ZWPrintSub", "lTieId", "ZWPrintMain", "lId", always},
};

/// The item tables that are there, by the code of their class.
Status readItemTables(CheckedBooks& books, FaultList& faults,
                      std::map<std::string, TableInfo>& tables) {
    std::vector<std::array<std::string, 2>> classes;
    Status status =
        forEachRow(books.engine(), integrity_sql::projectClasses, {}, [&](const Cursor& row) {
            classes.push_back({std::string(row.text(0)), std::string(row.text(1))});
            return Status::done();
        });
    for (const auto& [code, name] : classes) {
        const TableInfo table = projectItemTable(code);
        bool isThere = false;
        if (status && !table.name.empty()) status = books.engine().hasTable(table.name, isThere);
        if (isThere) tables.emplace(code, table);
        if (status && !isThere) faults.add(integrity_texts::itemTableMissing(code, name));
    }
    return status;
}

Status hasItem(Engine& engine, const TableInfo& table, std::int64_t item, bool& isThere) {
    isThere = false;
    const Value id = Value::of(item);
    return forEachRow(engine, integrity_sql::hasItem(table.name), {&id, 1}, [&](const Cursor&) {
        isThere = true;
        return Status::done();
    });
}

Status checkItemsOf(CheckedBooks& books, FaultList& faults, const char* table,
                    const std::map<std::string, TableInfo>& itemTables) {
    std::set<std::pair<std::string, std::int64_t>> named;
    Status status = forEachRow(books.engine(), integrity_sql::namedProjectItems(table), {},
                               [&named](const Cursor& row) {
                                   named.emplace(row.text(0), row.integer(1));
                                   return Status::done();
                               });
    for (const auto& [classCode, item] : named) {
        const auto items = itemTables.find(classCode);
        bool isThere = false;
        if (status && items != itemTables.end())
            status = hasItem(books.engine(), items->second, item, isThere);
        if (status && !isThere) faults.add(integrity_texts::itemMissing(table, classCode, item));
    }
    return status;
}

}  // namespace

Status checkReferences(CheckedBooks& books, FaultList& faults) {
    Status status = Status::done();
    for (const Reference& reference : references) {
        if (!status) break;
        status = forEachRow(
            books.engine(), integrity_sql::danglingValues(reference), {}, [&](const Cursor& row) {
                faults.add(integrity_texts::dangling(reference, row.text(0), row.integer(1)));
                return Status::done();
            });
    }
    return status;
}

Status checkProjectItems(CheckedBooks& books, FaultList& faults) {
    std::map<std::string, TableInfo> itemTables;
    Status status = readItemTables(books, faults, itemTables);
    for (const char* table : {"AssAcc", "RegSub", "UnregSub"})
        if (status) status = checkItemsOf(books, faults, table, itemTables);
    return status;
}

Status checkOperators(CheckedBooks& books, FaultList& faults) {
    bool hasManager = false;
    Status status =
        forEachRow(books.engine(), integrity_sql::operators, {}, [&](const Cursor& row) {
            const std::int64_t id = row.integer(0);
            const std::int64_t userId = row.integer(1);
            const std::int64_t rights = row.integer(3);
            if (id != userId) faults.add(integrity_texts::operatorIds(row.text(2), id, userId));
            if (rights != 1) faults.add(integrity_texts::operatorRights(row.text(2), rights));
            hasManager = hasManager || row.integer(4) != 0;
            if (!isPasswordHash(row.text(5)))
                faults.add(integrity_texts::passwordUnsafe(row.text(2)));
            return Status::done();
        });
    if (status && !hasManager) faults.add(integrity_texts::noManager);
    if (status)
        status = forEachRow(
            books.engine(), integrity_sql::operatorNames, {}, [&faults](const Cursor& row) {
                faults.add(integrity_texts::operatorTwice(row.text(0), row.integer(1)));
                return Status::done();
            });
    if (!status) return status;
    return forEachRow(books.engine(), integrity_sql::strayRights, {}, [&faults](const Cursor& row) {
        faults.add(integrity_texts::strayRights(row.integer(0), row.integer(1)));
        return Status::done();
    });
}

}  // namespace chengheng
