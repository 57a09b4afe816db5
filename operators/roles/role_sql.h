#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <string_view>

#include "operators/roles/role_rights.h"
#include "session/table_rights.h"

/// What is asked of a server about its roles, and what makes them what they are to be. Names of
/// roles are any text.
namespace chengheng::role_sql {

/// Database, schema, role and whether it may make roles, of whoever is connected.
inline constexpr const char* connected =
    "SELECT CAST(current_database() AS text), CAST(coalesce(current_schema(), '') AS text), "
    "CAST(current_user AS text), CASE WHEN rolsuper OR rolcreaterole THEN 1 ELSE 0 END, "
    "CASE WHEN has_database_privilege('public', current_database(), 'CONNECT') THEN 1 ELSE 0 END "
    "FROM pg_roles WHERE rolname = current_user";

/// The tables of the schema, whether rows of theirs are kept back, and whether they are one's own.
inline constexpr const char* tables =
    "SELECT CAST(relname AS text), CASE WHEN relrowsecurity THEN 1 ELSE 0 END, "
    "CASE WHEN pg_has_role(relowner, 'USAGE') THEN 1 ELSE 0 END "
    "FROM pg_class c JOIN pg_namespace n ON n.oid = c.relnamespace "
    "WHERE n.nspname = current_schema() AND relkind IN ('r', 'p') ORDER BY 1";

/// Every role that is no superuser, with what is noted beside it; of a superuser nothing is.
inline constexpr const char* roles =
    "SELECT CAST(rolname AS text), CASE WHEN rolsuper THEN '' ELSE "
    "coalesce(shobj_description(oid, 'pg_authid'), '') END FROM pg_roles ORDER BY oid";

/// Role, table, privilege and column of what roles have been granted here.
inline constexpr const char* privileges =
    "SELECT CAST(r.rolname AS text), g.place, g.what, g.part FROM ("
    "SELECT a.grantee, CAST(c.relname AS text) AS place, a.privilege_type AS what, '' AS part "
    "FROM pg_class c JOIN pg_namespace n ON n.oid = c.relnamespace, aclexplode(c.relacl) a "
    "WHERE n.nspname = current_schema() AND c.relkind IN ('r', 'p') "
    "UNION ALL SELECT a.grantee, CAST(c.relname AS text), a.privilege_type, "
    "CAST(t.attname AS text) FROM pg_class c JOIN pg_namespace n ON n.oid = c.relnamespace "
    "JOIN pg_attribute t ON t.attrelid = c.oid, aclexplode(t.attacl) a "
    "WHERE n.nspname = current_schema() AND c.relkind IN ('r', 'p') AND NOT t.attisdropped "
    "UNION ALL SELECT a.grantee, '', a.privilege_type, '' "
    "FROM pg_namespace n, aclexplode(n.nspacl) a WHERE n.nspname = current_schema() "
    "UNION ALL SELECT a.grantee, '', a.privilege_type, 'database' "
    "FROM pg_database d, aclexplode(d.datacl) a WHERE d.datname = current_database()"
    ") g JOIN pg_roles r ON r.oid = g.grantee";

/// Table, name, role and condition of the row policies that are ours, and how many others are
/// there.
inline constexpr const char* policies =
    "SELECT CAST(c.relname AS text), CAST(p.polname AS text), "
    "CAST(coalesce(r.rolname, '') AS text), coalesce(obj_description(p.oid, 'pg_policy'), '') "
    "FROM pg_policy p JOIN pg_class c ON c.oid = p.polrelid "
    "JOIN pg_namespace n ON n.oid = c.relnamespace LEFT JOIN pg_roles r ON r.oid = p.polroles[1] "
    "WHERE n.nspname = current_schema() ORDER BY 1, 2";

/// Role, table and use of what roles can do with tables beside what they were granted: as
/// everybody, or as members of other roles.
inline constexpr const char* furtherUses =
    "SELECT CAST(r.rolname AS text), CAST(c.relname AS text), u.what FROM pg_roles r "
    "CROSS JOIN pg_class c JOIN pg_namespace n ON n.oid = c.relnamespace "
    "CROSS JOIN unnest(ARRAY['INSERT', 'UPDATE', 'DELETE', 'TRUNCATE']) AS u(what) "
    "WHERE n.nspname = current_schema() AND c.relkind IN ('r', 'p') "
    "AND c.relname <> 'locksession' AND has_table_privilege(r.oid, c.oid, u.what) "
    "AND NOT EXISTS (SELECT 1 FROM aclexplode(c.relacl) a "
    "WHERE a.grantee = r.oid AND a.privilege_type = u.what) "
    "AND shobj_description(r.oid, 'pg_authid') IS NOT NULL AND NOT r.rolsuper ORDER BY 1, 2, 3";

/// The condition of the rows of a rule.
std::string rowsOf(RowRule rule, std::int32_t userId, const std::set<std::string>& counters);

// Each ends its statement.

std::string makeRole(std::string_view role, std::string_view mark);
std::string renameRole(std::string_view role, std::string_view name);
std::string setPassword(std::string_view role, std::string_view verifier);
std::string dropRole(std::string_view role);
std::string grant(const Privilege& privilege, std::string_view schema, std::string_view database,
                  std::string_view role);
std::string revoke(const Privilege& privilege, std::string_view schema, std::string_view database,
                   std::string_view role);

/// The name of what lets everybody who is no operator see and do as before.
inline constexpr const char* openPolicy = "chengheng everybody";
std::string policyName(const RowPolicy& policy, std::int32_t userId);
/// Whether a policy of that name is ours.
bool isOurPolicy(std::string_view name);
std::string keepRowsBack(std::string_view table);
std::string keepNoRowsBack(std::string_view table);
std::string addOpenPolicy(std::string_view table);
std::string addPolicy(const RowPolicy& policy, std::string_view name, std::string_view role);
std::string dropPolicy(std::string_view table, std::string_view name);

}  // namespace chengheng::role_sql
