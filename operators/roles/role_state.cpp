#include "operators/roles/role_state.h"

#include <fmt/format.h>

#include <algorithm>

#include "data/transfer/stored_tables.h"
#include "operators/roles/role_sql.h"

namespace chengheng {
namespace {

using RowReader = std::function<void(const Cursor&)>;

Status read(Engine& engine, const char* sql, const RowReader& receive) {
    return forEachRow(engine, sql, {}, [&receive](const Cursor& row) {
        receive(row);
        return Status::done();
    });
}

void readConnected(const Cursor& row, RolesState& state) {
    state.place = {std::string(row.text(0)), std::string(row.text(1))};
    state.connectedAs = row.text(2);
    state.mayMakeRoles = row.integer(3) != 0;
    state.mayEverybodyConnect = row.integer(4) != 0;
}

void readTable(const Cursor& row, RolesState& state) {
    const std::string& table = state.tables.emplace_back(row.text(0));
    if (row.integer(1) != 0) state.guardedTables.insert(table);
    if (row.integer(2) == 0) state.othersTables.insert(table);
}

void readRole(const Cursor& row, RolesState& state) {
    const std::string role(row.text(0));
    state.allRoles.insert(role);
    if (const auto owner = ownerInMark(state.place, row.text(1))) state.roles[*owner] = role;
}

void readPolicy(const Cursor& row, RolesState& state) {
    StandingPolicy policy{std::string(row.text(0)), std::string(row.text(1)),
                          std::string(row.text(2)), std::string(row.text(3))};
    if (role_sql::isOurPolicy(policy.name))
        state.policies.push_back(std::move(policy));
    else
        state.foreignlyGuarded.insert(policy.table);
}

bool isRoleOf(const RolesState& state, std::string_view role) {
    return std::ranges::any_of(state.roles,
                               [role](const auto& each) { return each.second == role; });
}

Status readPlaceAndRoles(Engine& engine, RolesState& state) {
    Status status = read(engine, role_sql::connected,
                         [&state](const Cursor& row) { readConnected(row, state); });
    if (status)
        status =
            read(engine, role_sql::roles, [&state](const Cursor& row) { readRole(row, state); });
    return status;
}

}  // namespace

Status readRolesState(Engine& engine, RolesState& state) {
    state = {};
    Status status = readPlaceAndRoles(engine, state);
    if (status)
        status =
            read(engine, role_sql::tables, [&state](const Cursor& row) { readTable(row, state); });
    if (status)
        status = read(engine, role_sql::policies,
                      [&state](const Cursor& row) { readPolicy(row, state); });
    if (status)
        status = read(engine, role_sql::privileges, [&state](const Cursor& row) {
            const std::string role(row.text(0));
            if (!isRoleOf(state, role)) return;
            state.privileges[role].insert(
                {std::string(row.text(1)), std::string(row.text(2)), std::string(row.text(3))});
        });
    return status;
}

Status readFurtherUses(Engine& engine, std::vector<std::string>& uses) {
    uses.clear();
    RolesState state;
    const Status status = readPlaceAndRoles(engine, state);
    if (!status) return status;
    return read(engine, role_sql::furtherUses, [&](const Cursor& row) {
        if (isRoleOf(state, row.text(0)))
            uses.push_back(fmt::format("{} {} {}", row.text(0), row.text(1), row.text(2)));
    });
}

}  // namespace chengheng
