#include "operators/roles/role_sql.h"

#include <fmt/format.h>

#include "data/engines/postgres/postgres_address.h"
#include "data/sql/sql_format.h"

namespace chengheng::role_sql {
namespace {

constexpr std::string_view ourPolicies = "chengheng ";

/// "UPDATE (\"sname\") ON TABLE \"settle\"".
std::string privilegeText(const Privilege& privilege, std::string_view schema,
                          std::string_view database) {
    const std::string& what = privilege.what;
    if (privilege.isOfDatabase()) return what + " ON DATABASE " + quotedIdentifier(database);
    if (privilege.table.empty()) return what + " ON SCHEMA " + quotedIdentifier(schema);
    const std::string column =
        privilege.column.empty() ? "" : " (" + quotedIdentifier(privilege.column) + ")";
    return what + column + " ON TABLE " + quotedIdentifier(privilege.table);
}

std::string list(const std::set<std::string>& texts) {
    std::string list;
    for (const std::string& text : texts)
        list += (list.empty() ? "" : ", ") + formatSql("'%s'", text);
    return list;
}

}  // namespace

std::string rowsOf(RowRule rule, std::int32_t userId, const std::set<std::string>& counters) {
    switch (rule) {
        case RowRule::any:
            return "true";
        case RowRule::ownOperator:
            return formatSql("lUserId = %d", userId);
        case RowRule::ownTries:
            return formatSql("lId = %d OR lId < 0", userId);
        case RowRule::ownCounters:
            return formatSql("sTable IN (%s)", SqlFragment{list(counters)});
        case RowRule::emptyDetails:
            return "mBegin = 0 AND mDebt = 0 AND mCredit = 0 AND dBegin = 0 AND dDebt = 0 "
                   "AND dCredit = 0 AND mFBegin = 0 AND mFDebt = 0 AND mFCredit = 0";
        case RowRule::othersThanUsers:
            return "sTable NOT IN ('Users', 'UserAuth')";
        case RowRule::openingLines:
            return "bBegin <> 0";
        case RowRule::openingHeaders:
            return "byPeroid = 0";
        case RowRule::noVoucherHeaders:
            return "NOT EXISTS (SELECT 1 FROM RegSub WHERE RegSub.lTieId = RegMain.lId "
                   "AND RegSub.bBegin = 0)";
        case RowRule::uncheckedHeaders:
            return "lUCheck = 0";
        case RowRule::uncheckedLines:
            return "NOT EXISTS (SELECT 1 FROM UnregMain WHERE UnregMain.lId = UnregSub.lTieId "
                   "AND UnregMain.lUCheck <> 0)";
    }
    return "false";
}

std::string makeRole(std::string_view role, std::string_view mark) {
    const std::string name = quotedIdentifier(role);
    return formatSql("CREATE ROLE %s LOGIN NOINHERIT;\nCOMMENT ON ROLE %s IS '%s';\n",
                     SqlFragment{name}, SqlFragment{name}, mark);
}

std::string renameRole(std::string_view role, std::string_view name) {
    return formatSql("ALTER ROLE %s RENAME TO %s;\n", SqlFragment{quotedIdentifier(role)},
                     SqlFragment{quotedIdentifier(name)});
}

std::string setPassword(std::string_view role, std::string_view verifier) {
    return formatSql("ALTER ROLE %s PASSWORD '%s';\n", SqlFragment{quotedIdentifier(role)},
                     verifier);
}

std::string dropRole(std::string_view role) {
    return formatSql("DROP ROLE %s;\n", SqlFragment{quotedIdentifier(role)});
}

std::string grant(const Privilege& privilege, std::string_view schema, std::string_view database,
                  std::string_view role) {
    return formatSql("GRANT %s TO %s;\n", SqlFragment{privilegeText(privilege, schema, database)},
                     SqlFragment{quotedIdentifier(role)});
}

std::string revoke(const Privilege& privilege, std::string_view schema, std::string_view database,
                   std::string_view role) {
    return formatSql("REVOKE %s FROM %s;\n",
                     SqlFragment{privilegeText(privilege, schema, database)},
                     SqlFragment{quotedIdentifier(role)});
}

std::string policyName(const RowPolicy& policy, std::int32_t userId) {
    return fmt::format("{}{} {}", ourPolicies, policy.what, userId);
}

bool isOurPolicy(std::string_view name) { return name.starts_with(ourPolicies); }

std::string keepRowsBack(std::string_view table) {
    return formatSql("ALTER TABLE %s ENABLE ROW LEVEL SECURITY;\n",
                     SqlFragment{quotedIdentifier(table)});
}

std::string keepNoRowsBack(std::string_view table) {
    return formatSql("ALTER TABLE %s DISABLE ROW LEVEL SECURITY;\n",
                     SqlFragment{quotedIdentifier(table)});
}

std::string addOpenPolicy(std::string_view table) {
    return formatSql("CREATE POLICY %s ON %s USING (true) WITH CHECK (true);\n",
                     SqlFragment{quotedIdentifier(openPolicy)},
                     SqlFragment{quotedIdentifier(table)});
}

std::string addPolicy(const RowPolicy& policy, std::string_view name, std::string_view role) {
    const std::string quotedName = quotedIdentifier(name);
    const std::string table = quotedIdentifier(policy.table);
    const std::string rows = policy.what == "INSERT" ? "" : " USING (" + policy.condition + ")";
    const bool isWriting = policy.what == "INSERT" || policy.what == "UPDATE";
    const std::string written = isWriting ? " WITH CHECK (" + policy.condition + ")" : "";
    return formatSql("CREATE POLICY %s ON %s AS RESTRICTIVE FOR %s TO %s%s%s;\n",
                     SqlFragment{quotedName}, SqlFragment{table}, SqlFragment{policy.what},
                     SqlFragment{quotedIdentifier(role)}, SqlFragment{rows}, SqlFragment{written}) +
           formatSql("COMMENT ON POLICY %s ON %s IS '%s';\n", SqlFragment{quotedName},
                     SqlFragment{table}, policy.condition);
}

std::string dropPolicy(std::string_view table, std::string_view name) {
    return formatSql("DROP POLICY %s ON %s;\n", SqlFragment{quotedIdentifier(name)},
                     SqlFragment{quotedIdentifier(table)});
}

}  // namespace chengheng::role_sql
