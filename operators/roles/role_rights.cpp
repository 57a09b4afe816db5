#include "operators/roles/role_rights.h"

#include <algorithm>
#include <map>

#include "base/values/text.h"
#include "data/tables/schema.h"
#include "operators/roles/role_sql.h"
#include "session/table_rights.h"

namespace chengheng {
namespace {

constexpr std::string_view itemTables = "projitems";

struct UseName {
    TableUse use;
    const char* name;
};
constexpr UseName useNames[] = {
    {toRead, "SELECT"}, {toAdd, "INSERT"}, {toChange, "UPDATE"}, {toDelete, "DELETE"}};

std::vector<TableGrant> grantsOf(const OperatorRecord& record) {
    std::vector<TableGrant> grants;
    const auto add = [&grants](std::span<const TableGrant> more) {
        grants.insert(grants.end(), more.begin(), more.end());
    };
    add(everybodysGrants());
    add(record.isSupervisor() ? supervisorsGrants() : plainOperatorsGrants());
    for (const FunctionGrants& each : functionGrants())
        if (record.isSupervisor() || record.rights.grants(each.function)) add(each.grants);
    return grants;
}

bool isItemTable(std::string_view table) {
    return table.starts_with(itemTables) && table.size() > itemTables.size();
}

std::vector<std::string> columnsOf(std::string_view list) {
    std::vector<std::string> columns;
    while (!list.empty()) {
        const std::size_t end = std::min(list.find(','), list.size());
        columns.push_back(inSmallLetters(withoutBlanksAround(list.substr(0, end))));
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return columns;
}

/// What a role may do with one table, use by use.
struct UseOfTable {
    bool isOfAllRows = false;
    bool isOfAllColumns = false;
    std::set<std::string> columns;
    std::set<RowRule> rules;
};
using Uses = std::map<std::pair<std::string, std::string>, UseOfTable>;

void add(Uses& uses, const TableGrant& grant, const std::string& table) {
    for (const UseName& each : useNames) {
        if ((grant.uses & each.use) == 0) continue;
        UseOfTable& use = uses[{table, each.name}];
        if (grant.rows == RowRule::any) use.isOfAllRows = true;
        use.rules.insert(grant.rows);
        const std::string_view columns = each.use == toChange ? grant.columns : "";
        if (columns.empty()) use.isOfAllColumns = true;
        for (std::string& column : columnsOf(columns)) use.columns.insert(std::move(column));
    }
}

/// The rows of ABIdTable that count the ids of the tables which get rows.
std::set<std::string> countersOf(const Uses& uses) {
    std::set<std::string> counters;
    for (const auto& [place, use] : uses)
        if (place.second == "INSERT")
            if (const TableInfo* const table = findTable(place.first);
                table && !table->idRow.empty())
                counters.insert(table->idRow);
    return counters;
}

}  // namespace

RoleRights roleRightsOf(const OperatorRecord& record, std::span<const std::string> tables) {
    Uses uses;
    for (const TableGrant& grant : grantsOf(record)) {
        const std::string wanted = inSmallLetters(grant.table);
        for (const std::string& table : tables)
            if (table == wanted || (wanted == itemTables && isItemTable(table)))
                add(uses, grant, table);
    }
    RoleRights rights;
    rights.privileges.insert({"", "USAGE", ""});
    for (const auto& [place, use] : uses) {
        const auto& [table, what] = place;
        if (use.isOfAllColumns)
            rights.privileges.insert({table, what, ""});
        else
            for (const std::string& column : use.columns)
                rights.privileges.insert({table, what, column});
        if (use.isOfAllRows) continue;
        std::string condition;
        for (const RowRule rule : use.rules)
            condition += (condition.empty() ? "(" : " OR (") +
                         role_sql::rowsOf(rule, record.user.lUserId, countersOf(uses)) + ")";
        rights.policies.insert({table, what, condition});
    }
    return rights;
}

}  // namespace chengheng
