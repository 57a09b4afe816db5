#include "operators/roles/role_plan.h"

#include <algorithm>
#include <iterator>

#include "operators/roles/role_sql.h"

namespace chengheng {
namespace {

class Planning {
  public:
    explicit Planning(const RolesState& state) : m_state(state) {
        for (const auto& [userId, role] : state.roles) m_ours.insert(role);
    }

    void takeOver(std::span<const OperatorRecord> operators) {
        for (const OperatorRecord& record : operators) plan(record);
    }

    RolesPlan finish() {
        for (const auto& [userId, role] : m_state.roles)
            if (!m_kept.contains(userId)) drop(userId, role);
        endPolicies();
        nameAnew();
        guardTables();
        for (const std::string& step : m_policySteps) m_plan.script += step;
        m_plan.script += m_grants;
        return std::move(m_plan);
    }

  private:
    /// A name of ours that another operator gives up is free for the one who takes it.
    std::string wantedName(const OperatorRecord& record) {
        const auto isTaken = [this](std::string_view name) {
            const std::string text(name);
            return m_taken.contains(text) ||
                   (m_state.allRoles.contains(text) && !m_ours.contains(text));
        };
        std::string name =
            roleName(m_state.place, record.user.sUserName, record.user.lUserId, isTaken);
        m_taken.insert(name);
        return name;
    }

    void plan(const OperatorRecord& record) {
        const std::int32_t userId = record.user.lUserId;
        m_kept.insert(userId);
        RoleChange change;
        change.userId = userId;
        change.operatorName = record.user.sUserName;
        change.role = wantedName(record);
        const auto found = m_state.roles.find(userId);
        if (found == m_state.roles.end()) {
            change.fate = RoleFate::made;
            m_made += role_sql::makeRole(change.role, roleMark(m_state.place, userId));
        } else if (found->second != change.role) {
            change.fate = RoleFate::renamed;
            change.formerRole = found->second;
            m_renamed.push_back({userId, found->second, change.role});
        }
        const std::string standing = found == m_state.roles.end() ? "" : found->second;
        RoleRights rights = roleRightsOf(record, m_state.tables);
        if (!m_state.mayEverybodyConnect) rights.privileges.insert({"", "CONNECT", "database"});
        comparePrivileges(standing, rights.privileges, change);
        comparePolicies(standing, rights.policies, change);
        m_plan.roles.push_back(std::move(change));
    }

    void comparePrivileges(const std::string& standing, const std::set<Privilege>& wanted,
                           RoleChange& change) {
        static const std::set<Privilege> none;
        const auto found = m_state.privileges.find(standing);
        const auto& has = found == m_state.privileges.end() ? none : found->second;
        std::ranges::set_difference(has, wanted, std::back_inserter(change.revoked));
        std::ranges::set_difference(wanted, has, std::back_inserter(change.granted));
        const auto& [database, schema] = m_state.place;
        for (const Privilege& each : change.revoked)
            m_grants += role_sql::revoke(each, schema, database, change.role);
        // What was revoked of a table as a whole is revoked of its columns, too.
        for (const Privilege& each : wanted)
            if (!has.contains(each) || isRevokedWhole(each, change))
                m_grants += role_sql::grant(each, schema, database, change.role);
    }

    static bool isRevokedWhole(const Privilege& privilege, const RoleChange& change) {
        return !privilege.column.empty() &&
               std::ranges::find(change.revoked, Privilege{privilege.table, privilege.what, ""}) !=
                   change.revoked.end();
    }

    void comparePolicies(const std::string& standing, const std::set<RowPolicy>& wanted,
                         RoleChange& change) {
        for (const RowPolicy& policy : wanted) {
            m_guarded.insert(policy.table);
            const std::string name = role_sql::policyName(policy, change.userId);
            const auto found =
                std::ranges::find_if(m_state.policies, [&](const StandingPolicy& each) {
                    return each.table == policy.table && each.name == name;
                });
            const bool stands = found != m_state.policies.end() && !standing.empty() &&
                                found->role == standing && found->condition == policy.condition;
            if (stands) {
                m_keptPolicies.insert({policy.table, name});
                continue;
            }
            m_policySteps.push_back(role_sql::addPolicy(policy, name, change.role));
            change.hasOtherRows = true;
        }
        for (const StandingPolicy& each : m_state.policies)
            if (!standing.empty() && each.role == standing &&
                !m_keptPolicies.contains({each.table, each.name}))
                change.hasOtherRows = true;
    }

    void drop(std::int32_t userId, const std::string& role) {
        RoleChange change;
        change.userId = userId;
        change.role = role;
        change.fate = RoleFate::dropped;
        const auto found = m_state.privileges.find(role);
        if (found != m_state.privileges.end())
            change.revoked.assign(found->second.begin(), found->second.end());
        for (const Privilege& each : change.revoked)
            m_dropped += role_sql::revoke(each, m_state.place.schema, m_state.place.database, role);
        m_dropped += role_sql::dropRole(role);
        m_plan.roles.push_back(std::move(change));
    }

    /// Before roles go: a policy keeps its role.
    void endPolicies() {
        for (const StandingPolicy& each : m_state.policies) {
            const bool isOpen = each.name == role_sql::openPolicy;
            const bool isKept = isOpen ? m_guarded.contains(each.table)
                                       : m_keptPolicies.contains({each.table, each.name});
            if (isKept) continue;
            m_plan.script += role_sql::dropPolicy(each.table, each.name);
            if (isOpen && !m_state.foreignlyGuarded.contains(each.table))
                m_plan.script += role_sql::keepNoRowsBack(each.table);
        }
        m_plan.script += m_dropped;
    }

    /// Names may be exchanged, so all that change are given up before any is taken.
    void nameAnew() {
        for (const Renaming& each : m_renamed)
            m_plan.script +=
                role_sql::renameRole(each.from, passingRoleName(m_state.place, each.userId));
        for (const Renaming& each : m_renamed)
            m_plan.script +=
                role_sql::renameRole(passingRoleName(m_state.place, each.userId), each.to);
        m_plan.script += m_made;
    }

    void guardTables() {
        for (const std::string& table : m_guarded) {
            if (!m_state.guardedTables.contains(table))
                m_plan.script += role_sql::keepRowsBack(table);
            const bool isOpen =
                std::ranges::any_of(m_state.policies, [&](const StandingPolicy& each) {
                    return each.table == table && each.name == role_sql::openPolicy;
                });
            if (!isOpen) m_plan.script += role_sql::addOpenPolicy(table);
        }
    }

    struct Renaming {
        std::int32_t userId;
        std::string from;
        std::string to;
    };

    const RolesState& m_state;
    RolesPlan m_plan;
    std::set<std::string> m_ours;
    std::set<std::string> m_taken;
    std::set<std::int32_t> m_kept;
    std::set<std::string> m_guarded;
    std::set<std::pair<std::string, std::string>> m_keptPolicies;
    std::vector<Renaming> m_renamed;
    std::vector<std::string> m_policySteps;
    std::string m_made;
    std::string m_dropped;
    std::string m_grants;
};

}  // namespace

RolesPlan planRoles(const RolesState& state, std::span<const OperatorRecord> operators) {
    Planning planning(state);
    planning.takeOver(operators);
    return planning.finish();
}

RolesPlan planRolesEnd(const RolesState& state) { return Planning(state).finish(); }

}  // namespace chengheng
