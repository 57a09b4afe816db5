#include "tests/support/made_layout.h"

#include <gtest/gtest.h>

#include "data/layout/layout.h"
#include "data/transfer/content_digest.h"
#include "tests/support/engine_cases.h"
#include "tests/support/engine_tools.h"
#include "tests/support/private_postgres.h"
#include "tests/support/small_books.h"

namespace {

using namespace chengheng;

/// What a test leaves behind for the next one, which must not notice it.
struct Leftover {
    const char* name;
    const char* sql;
};

void PrintTo(const Leftover& leftover, std::ostream* stream) { *stream << leftover.name; }

constexpr Leftover leftovers[] = {
    {"Rows", "INSERT INTO Code (lId, sCode) VALUES (1, '1001'); UPDATE ABIdTable SET lLastId = 7"},
    {"Tables", "CREATE TABLE ProjItems01 (lId integer PRIMARY KEY)"},
    {"Views", "CREATE VIEW Names AS SELECT sName FROM Code"},
    {"StoredViews", "CREATE MATERIALIZED VIEW Names AS SELECT sName FROM Code"},
    {"Columns", "ALTER TABLE Code ADD COLUMN more integer"},
    {"Defaults", "ALTER TABLE Code ALTER COLUMN sName SET DEFAULT 'x'"},
    {"FewerChecks", "ALTER TABLE AccSum DROP CONSTRAINT AccSum_byPeroid"},
    {"FewerTables", "DROP TABLE Settle"},
    {"Indexes", "CREATE INDEX more ON Code (sName)"},
    {"FewerIndexes", "DROP INDEX AccSum_lCodeId_byPeroid"},
    {"Triggers",
     "CREATE FUNCTION nothing() RETURNS trigger LANGUAGE plpgsql AS "
     "'BEGIN RETURN NEW; END'; CREATE TRIGGER eager BEFORE INSERT ON Code "
     "FOR EACH ROW EXECUTE FUNCTION nothing()"},
    {"Functions", "CREATE FUNCTION nothing() RETURNS integer LANGUAGE sql AS 'SELECT 1'"},
    {"RightsOfTheSchema",
     "DO $$ BEGIN EXECUTE format('GRANT USAGE ON SCHEMA %I TO PUBLIC', current_schema()); END $$"},
    {"Rights", "GRANT SELECT ON Code TO PUBLIC"},
    {"Nothing", ""},
};

/// All that the catalog says of the tables of a schema but their numbers.
std::string catalogOf(Engine& engine) {
    return readCell(
        engine,
        "SELECT string_agg(line, chr(10) ORDER BY line COLLATE \"C\") FROM ("
        "SELECT concat('class ', relname, relkind, relacl, relhastriggers) FROM pg_class "
        "WHERE relnamespace = current_schema()::regnamespace UNION ALL "
        "SELECT concat('check ', conname, pg_get_constraintdef(oid)) FROM pg_constraint "
        "WHERE connamespace = current_schema()::regnamespace UNION ALL "
        "SELECT concat('column ', table_name, column_name, data_type, column_default) "
        "FROM information_schema.columns WHERE table_schema = current_schema() UNION ALL "
        "SELECT concat('schema ', nspacl) FROM pg_namespace WHERE nspname = current_schema() "
        "UNION ALL SELECT concat('function ', proname) FROM pg_proc "
        "WHERE pronamespace = current_schema()::regnamespace) AS lines (line)");
}

std::vector<TableDigest> contentOf(Engine& engine) {
    std::vector<TableDigest> digests;
    EXPECT_TRUE(digestContent(engine, digests));
    return digests;
}

class MadeLayouts : public testing::TestWithParam<Leftover> {};

TEST_P(MadeLayouts, AreAsNewWhateverTheTestBeforeLeft) {
    if (!hasTestServer()) GTEST_SKIP() << "no PostgreSQL server for tests";
    const auto made = openForTest(freshSchema());
    makeLayout(*made);
    const auto fresh = openForTest(freshSchema());
    ASSERT_TRUE(createLayout(*fresh));
    EXPECT_EQ(catalogOf(*made), catalogOf(*fresh));
    EXPECT_EQ(contentOf(*made), contentOf(*fresh));
    runScript(*made, GetParam().sql);
}

// Each is followed by one that takes over what it left.
INSTANTIATE_TEST_SUITE_P(Behind, MadeLayouts, testing::ValuesIn(leftovers),
                         [](const auto& one) { return one.param.name; });

}  // namespace
