#include "data/engines/postgres/postgres_dialect.h"

namespace chengheng {
namespace {

std::string columnDeclaration(ColumnType type) {
    switch (type) {
        case ColumnType::integer:
            return "integer NOT NULL DEFAULT 0";
        case ColumnType::nullableInteger:
            return "integer DEFAULT NULL";
        case ColumnType::byte:
        case ColumnType::flag:
            return "smallint NOT NULL DEFAULT 0";
        case ColumnType::real:
            return "double precision NOT NULL DEFAULT 0";
        case ColumnType::single:
            return "real NOT NULL DEFAULT 0";
        case ColumnType::date:
            return "date NOT NULL DEFAULT '1899-12-31'";
        case ColumnType::text:
            break;
    }
    // Codes are ordered and compared byte by byte, on every server alike.
    return "text COLLATE \"C\" NOT NULL DEFAULT ''";
}

std::string columnCheck(const ColumnInfo& column) {
    switch (column.type) {
        case ColumnType::byte:
            return column.name + " BETWEEN 0 AND 255";
        case ColumnType::real:
            return column.name + " BETWEEN " + finiteReal;
        case ColumnType::single:
            return column.name + " BETWEEN " + finiteSingle;
        default:
            return {};
    }
}

constexpr std::string_view otherObjects =
    "SELECT 'trigger', CAST(t.tgname AS text) COLLATE \"C\" AS name FROM pg_trigger t "
    "JOIN pg_class c ON c.oid = t.tgrelid "
    "JOIN pg_proc p ON p.oid = t.tgfoid "
    "WHERE c.relnamespace = current_schema()::regnamespace AND NOT t.tgisinternal "
    "AND NOT (t.tgname = c.relname || '_keep' AND p.prosrc = ' BEGIN RAISE EXCEPTION ''% is only "
    "added to'', TG_TABLE_NAME; END ') "
    "UNION ALL SELECT 'trigger', CAST(rulename AS text) FROM pg_rules "
    "WHERE schemaname = current_schema() "
    "UNION ALL SELECT 'view', CAST(c.relname AS text) FROM pg_class c "
    "WHERE c.relnamespace = current_schema()::regnamespace AND c.relkind IN ('v', 'm') "
    "UNION ALL SELECT 'index', CAST(indexname AS text) FROM pg_indexes "
    "WHERE schemaname = current_schema() ORDER BY 1, 2";

std::string guard(const std::string& table) {
    return "CREATE OR REPLACE FUNCTION " + table +
           "_keep() RETURNS trigger LANGUAGE plpgsql AS $$ BEGIN RAISE EXCEPTION '% is only added "
           "to', TG_TABLE_NAME; END $$;\nCREATE TRIGGER " +
           table + "_keep BEFORE UPDATE OR DELETE OR TRUNCATE ON " + table +
           " FOR EACH STATEMENT EXECUTE FUNCTION " + table + "_keep();\n";
}

std::string guardOff(const std::string& table) {
    return "ALTER TABLE " + table + " DISABLE TRIGGER " + table + "_keep;\n";
}

std::string guardOn(const std::string& table) {
    return "ALTER TABLE " + table + " ENABLE TRIGGER " + table + "_keep;\n";
}

constexpr std::string_view now = "CAST(extract(epoch FROM clock_timestamp()) AS double precision)";

/// The owner of the other table, and whoever was granted rights on it. 0 is everybody.
std::string shareTable(const std::string& table, const std::string& model) {
    return "DO $$ DECLARE each record; BEGIN FOR each IN "
           "SELECT relowner AS person, 'ALL' AS kind FROM pg_class WHERE oid = '" +
           model +
           "'::regclass UNION ALL SELECT a.grantee, a.privilege_type "
           "FROM pg_class, aclexplode(relacl) a WHERE pg_class.oid = '" +
           model + "'::regclass LOOP EXECUTE format('GRANT %s ON " + table +
           " TO %s', each.kind, CASE each.person WHEN 0 THEN 'PUBLIC' "
           "ELSE quote_ident(pg_get_userbyid(each.person)) END); END LOOP; END $$;\n";
}

}  // namespace

const EngineDialect& postgresDialect() {
    static constexpr EngineDialect dialect{.likeEscape = "",
                                           .rowLock = " FOR UPDATE",
                                           .columnDeclaration = columnDeclaration,
                                           .columnCheck = columnCheck,
                                           .altersTables = true,
                                           .guard = guard,
                                           .guardOff = guardOff,
                                           .guardOn = guardOn,
                                           .otherObjects = otherObjects,
                                           .now = now,
                                           .shareTable = shareTable};
    return dialect;
}

}  // namespace chengheng
