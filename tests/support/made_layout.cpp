#include "tests/support/made_layout.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>
#include <vector>

#include "data/layout/layout.h"
#include "tests/support/engine_cases.h"
#include "tests/support/engine_tools.h"

namespace chengheng {
namespace {

/// The tables that a test made.
struct MadeTables {
    const testing::TestInfo* test;
    std::string server;
    std::string schema;
    std::string relations;  ///< their object ids and those of their indexes
    std::string look;       ///< changes with everything but rows
};

/// Of a running test program; a forked child has the list as it was.
std::vector<MadeTables>& madeTables() {
    static std::vector<MadeTables> tables;
    return tables;
}

/// What the catalog says of relations. Whoever alters one writes its row there anew.
std::string lookOf(const std::string& relations) {
    return "SELECT md5(concat("
           "(SELECT string_agg(concat(oid, ' ', xmin, ' ', relfilenode), ',' ORDER BY oid) "
           "FROM pg_class WHERE oid IN (" +
           relations +
           ")), (SELECT string_agg(concat(attrelid, ' ', xmin), ',' ORDER BY attrelid, attnum) "
           "FROM pg_attribute WHERE attnum > 0 AND attrelid IN (" +
           relations + "))))";
}

std::string serverOf(Engine& engine) { return readCell(engine, "SELECT inet_server_port()"); }

MadeTables tablesOf(Engine& engine) {
    MadeTables made;
    made.test = testing::UnitTest::GetInstance()->current_test_info();
    made.server = serverOf(engine);
    made.schema = readCell(engine, "SELECT current_schema()");
    made.relations = readCell(engine,
                              "SELECT string_agg(oid::text, ', ') FROM pg_class "
                              "WHERE relnamespace = current_schema()::regnamespace");
    made.look = readCell(engine, lookOf(made.relations));
    return made;
}

/// Empties tables and lets them follow the engine. Fails where they are no longer what they were
/// or have become large; tables and views beside them go.
std::string takingOver(const MadeTables& made) {
    return fmt::format(
        R"(DO $$
DECLARE each record; mine text := current_schema(); old regnamespace := to_regnamespace('{0}');
BEGIN
    IF old IS NULL OR ({2}) IS DISTINCT FROM '{3}' OR
        EXISTS (SELECT 1 FROM pg_proc WHERE pronamespace = old) OR
        EXISTS (SELECT 1 FROM pg_index WHERE indrelid IN ({1}) AND indexrelid NOT IN ({1})) OR
        EXISTS (SELECT 1 FROM pg_class
            WHERE relnamespace = old AND relkind NOT IN ('r', 'i', 'v')) OR
        EXISTS (SELECT 1 FROM pg_namespace WHERE oid = old AND nspacl IS NOT NULL) OR
        EXISTS (SELECT 1 FROM pg_class WHERE oid IN ({1}) AND pg_relation_size(oid) > 300000)
    THEN
        RAISE EXCEPTION 'not to be taken over';
    END IF;
    FOR each IN SELECT relname, relkind FROM pg_class
        WHERE relnamespace = old AND relkind IN ('r', 'v') AND oid NOT IN ({1})
    LOOP
        EXECUTE format('DROP %s IF EXISTS {0}.%I CASCADE',
            CASE each.relkind WHEN 'r' THEN 'TABLE' ELSE 'VIEW' END, each.relname);
    END LOOP;
    EXECUTE format('DROP SCHEMA %I', mine);
    EXECUTE format('ALTER SCHEMA {0} RENAME TO %I', mine);
    FOR each IN SELECT relname FROM pg_class
        WHERE oid IN ({1}) AND relkind = 'r' AND pg_relation_size(oid) > 0
    LOOP
        EXECUTE format('DELETE FROM %I', each.relname);
    END LOOP;
END $$;
)",
        made.schema, made.relations, lookOf(made.relations), made.look);
}

/// The lines of the layout that put the first rows into its tables.
std::string firstRows(const EngineDialect& dialect) {
    std::istringstream script(layoutScript(dialect));
    std::string rows;
    for (std::string line; std::getline(script, line);)
        if (line.starts_with("INSERT INTO")) rows += line + "\n";
    return rows;
}

bool takeOver(Engine& engine, const MadeTables& made) {
    if (!engine.begin()) return false;
    if (engine.script(takingOver(made) + firstRows(engine.dialect())) && engine.commit())
        return true;
    if (const Status status = engine.rollback(); !status) throw std::runtime_error(status.detail);
    return false;
}

/// Takes over what the last of the earlier tests made that left its tables as they were.
bool takeOverAny(Engine& engine) {
    const testing::TestInfo* test = testing::UnitTest::GetInstance()->current_test_info();
    const std::string server = serverOf(engine);
    std::vector<MadeTables>& tables = madeTables();
    for (std::size_t at = tables.size(); at-- > 0;) {
        if (tables[at].test == test || tables[at].server != server) continue;
        const MadeTables made = tables[at];
        tables.erase(tables.begin() + static_cast<std::ptrdiff_t>(at));
        if (takeOver(engine, made)) return true;
    }
    return false;
}

}  // namespace

void makeLayout(Engine& engine) {
    const bool isServer = !engine.dialect().rowLock.empty();
    if (!isServer || !takeOverAny(engine)) {
        if (const Status status = createLayout(engine); !status)
            throw std::runtime_error(status.detail);
    }
    if (isServer) madeTables().push_back(tablesOf(engine));
}

void openNewBooks(CNbCwDB& database, const std::string& location, const char* name) {
    auto engine = openForTest(location);
    makeLayout(*engine);
    database.adopt(std::move(engine), location.c_str(), name);
    if (database.DBSelect(name) == 0) throw std::runtime_error(database.lastStatus().detail);
}

}  // namespace chengheng
