#include "data/sql/translation.h"

#include "data/sql/date_places.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/read_statements.h"

namespace chengheng {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr EngineDialect withEscape{" ESCAPE '\\'", "", nullptr};
constexpr EngineDialect withoutEscape{"", "", nullptr};

Status translateText(std::string_view text, TranslatedShape& translated,
                     const EngineDialect& dialect = withEscape) {
    BatchReader reader(text);
    ReadStatement statement;
    if (!reader.next(statement)) return reader.status();
    return translate(statement.kind, statement.shape, dialect, translated);
}

TranslatedShape translatedOf(std::string_view text, const EngineDialect& dialect = withEscape) {
    TranslatedShape translated;
    const Status status = translateText(text, translated, dialect);
    EXPECT_TRUE(status) << text << ": " << status.detail;
    return translated;
}

std::string sqlOf(std::string_view text) { return translatedOf(text).sql; }

std::string failureOf(std::string_view text) {
    TranslatedShape translated;
    const Status status = translateText(text, translated);
    EXPECT_EQ(status.failure, Failure::unreadable) << text << ": " << translated.sql;
    return status.detail;
}

/// The statement's values with its dates brought into the stored form, or the failure.
std::string normalised(std::string_view text) {
    BatchReader reader(text);
    ReadStatement statement;
    EXPECT_TRUE(reader.next(statement)) << reader.status().detail;
    TranslatedShape translated;
    Status status = translate(statement.kind, statement.shape, withEscape, translated);
    std::vector<Value> values(statement.values.begin(), statement.values.end());
    std::deque<std::string> storage;
    if (status) status = normaliseDates(translated, values, storage);
    return status ? valuesText(values) : status.detail;
}

TEST(Translation, AddsIntoAndFrom) {
    EXPECT_EQ(sqlOf("INSERT Foo Values( 1, 'a' )"), "insert into foo values($1,$2)");
    EXPECT_EQ(sqlOf("INSERT INTO Foo Values( 1 )"), "insert into foo values($1)");
    EXPECT_EQ(sqlOf("DELETE AccSum"), "delete from accsum");
    EXPECT_EQ(sqlOf("DELETE FROM AccSum WHERE lId = 1"), "delete from accsum where lid=$1");
    EXPECT_EQ(sqlOf("DELETE _Digest WHERE lId = 1"), "delete from _digest where lid=$1");
    EXPECT_EQ(sqlOf("DELETE \"From\""), "delete from \"From\"");
}

TEST(Translation, RefusesASecondNameBehindTheTableOfAChange) {
    for (const char* text :
         {"DELETE Code\nrolback", "DELETE FROM Code c WHERE lId = 1",
          "UPDATE Code AS c SET lId = 1", "INSERT INTO Code c VALUES (1)",
          "UPDATE main.Code c SET lId = 1", "DELETE Code, Users", "INSERT Code c SELECT 1"})
        EXPECT_EQ(failureOf(text), "more than a table where the table stands");
    EXPECT_EQ(sqlOf("DELETE main.Code WHERE lId = 1"), "delete from main.code where lid=$1");
    EXPECT_EQ(sqlOf("UPDATE a.b.Code SET lId = 1"), "update a.b.code set lid=$1");
    EXPECT_EQ(sqlOf("DELETE FROM a.b.Code"), "delete from a.b.code");
    EXPECT_EQ(sqlOf("INSERT Foo (lId) SELECT 1"), "insert into foo(lid)select 1");
}

TEST(Translation, BeginsAnewInWhatHeldAnotherOne) {
    TranslatedShape translated;
    ASSERT_TRUE(translateText("DELETE ABIdTable WHERE lLastId = 1 OR dtDate = ''", translated));
    ASSERT_TRUE(translateText("DELETE Code WHERE lId = 1", translated));
    EXPECT_EQ(translated.sql, "delete from code where lid=$1");
    EXPECT_EQ(translated.parameters, 1);
    EXPECT_THAT(translated.dateParameters, IsEmpty());
    EXPECT_FALSE(translated.touchesIdTable);
}

TEST(Translation, NumbersTheParametersInTheirOrder) {
    const auto translated =
        translatedOf("UPDATE A SET a = 1, b = 2.5, c = 'x' WHERE d = 4 AND e = 5");
    EXPECT_EQ(translated.sql, "update a set a=$1,b=$2,c=$3 where d=$4 and e=$5");
    EXPECT_EQ(translated.parameters, 5);
}

TEST(Translation, LeavesWhatStandsInQuotesAlone) {
    EXPECT_EQ(sqlOf("SELECT '?#~ insert  X', \"?\" FROM A WHERE a IN ('#', '''') AND b = 1"),
              "select '?#~ insert  X',\"?\" from a where a in('#','''')and b=$1");
}

TEST(Translation, TellsTheEscapeOfAPattern) {
    EXPECT_EQ(sqlOf("DELETE A WHERE s LIKE 'a\\_%' AND t = 'b'"),
              "delete from a where s like $1 ESCAPE '\\' and t=$2");
    EXPECT_EQ(sqlOf("SELECT s LIKE 'a%' FROM A"), "select s like 'a%' ESCAPE '\\' from a");
    EXPECT_EQ(sqlOf("DELETE A WHERE s LIKE 'a' ESCAPE '!'"),
              "delete from a where s like $1 escape '!'");
    EXPECT_EQ(translatedOf("DELETE A WHERE s LIKE 'a'", withoutEscape).sql,
              "delete from a where s like $1");
}

TEST(Translation, RefusesALikeWithoutAText) {
    for (const char* condition : {"s LIKE t", "s LIKE 5", "s LIKE 'a' || 'b'", "s LIKE ('a')"})
        EXPECT_EQ(failureOf("DELETE A WHERE " + std::string(condition)), "LIKE without a text")
            << condition;
}

TEST(Translation, CountsTheValuesOfAPositionalInsert) {
    EXPECT_EQ(sqlOf("INSERT UserAuth Values( 1, 2, 'N' )"),
              "insert into userauth values($1,$2,$3)");
    EXPECT_EQ(failureOf("INSERT UserAuth Values( 1, 2 )"), "2 values for 3 columns");
    EXPECT_EQ(failureOf("INSERT userauth Values( 1, 2, 'N', 0 )"), "4 values for 3 columns");
    EXPECT_EQ(failureOf("INSERT UserAuth Values( 1, 2, 'N' ), ( 1, abs(2) )"),
              "2 values for 3 columns");
    EXPECT_EQ(failureOf("INSERT UserAuth Values()"), "0 values for 3 columns");
    EXPECT_EQ(failureOf("INSERT ProjItems01 Values( 1 )"), "1 values for 3 columns");
    EXPECT_EQ(failureOf("INSERT UserAuth ( lId, lUserId ) Values( 1 )"), "1 values for 2 columns");
}

TEST(Translation, CountsTheValuesWhateverStandsInThem) {
    EXPECT_EQ(sqlOf("INSERT UserAuth Values( 1, f(2, g(3, 4), 5), 'N' )"),
              "insert into userauth values($1,f(2,g(3,4),5),$2)");
    EXPECT_EQ(failureOf("INSERT main.UserAuth Values( 1 )"), "1 values for 3 columns");
    EXPECT_EQ(failureOf("INSERT INTO a.b.UserAuth Values( 1 )"), "1 values for 3 columns");
    EXPECT_EQ(failureOf("INSERT \"USERAUTH\" Values( 1 )"), "1 values for 3 columns");
    EXPECT_EQ(failureOf("INSERT INTO UserAuth Values( 1, 2, 'N' ), ( 1 )"),
              "1 values for 3 columns");
    EXPECT_EQ(failureOf("INSERT Unknown ( a, b, c ) Values( 1 )"), "1 values for 3 columns");
    EXPECT_EQ(sqlOf("INSERT ProjItems Values( 1 )"), "insert into projitems values($1)");
    EXPECT_EQ(sqlOf("INSERT \"Values\" Values( 1 )"), "insert into \"Values\" values($1)");
}

TEST(Translation, LeavesUnknownTablesToTheEngine) {
    EXPECT_EQ(sqlOf("INSERT Unknown Values( 1 )"), "insert into unknown values($1)");
    EXPECT_EQ(sqlOf("INSERT UserAuth SELECT * FROM Old"), "insert into userauth select*from old");
}

TEST(Translation, FindsTheDatesOfAnInsert) {
    EXPECT_THAT(
        translatedOf("INSERT ExchgFlt Values(1, 2, '2026/1/5', 1, 0.0, 0.0)").dateParameters,
        ElementsAre(2));
    EXPECT_THAT(
        translatedOf("INSERT ExchgFlt Values(1, NULL, '2026/1/5', 1, 0.0, 0.0)").dateParameters,
        ElementsAre(1));
    EXPECT_THAT(translatedOf("INSERT ExchgFlt (DTDATE, lId) Values('2026/1/5', 1)").dateParameters,
                ElementsAre(0));
    EXPECT_THAT(translatedOf("INSERT UserAuth Values( 1, 2, '2026/1/5' )").dateParameters,
                IsEmpty());
    EXPECT_THAT(translatedOf("INSERT ExchgFlt Values(1, 2, NULL, 1, 0.0, 0.0), "
                             "(1, 2, '2026/1/5', 1, 0.0, 0.0)")
                    .dateParameters,
                ElementsAre(7));
    EXPECT_EQ(sqlOf("INSERT ExchgFlt Values(1, 2, f('x', '2026/1/5'), 1, 0.0, 0.0)"),
              "insert into exchgflt values($1,$2,f('x','2026/1/5'),$3,$4,$5)");
    EXPECT_THAT(
        translatedOf("INSERT main.ExchgFlt (\"dtDate\", lId) Values('2026/1/5', 1)").dateParameters,
        ElementsAre(0));
}

TEST(Translation, FindsTheDatesOfConditionsAndAssignments) {
    EXPECT_THAT(translatedOf("UPDATE RegMain SET sSign = 'x', dtDate = '2026/1/5' "
                             "WHERE RegMain.dtDate >= '2026/1/1' AND sSign = '2026/1/1'")
                    .dateParameters,
                ElementsAre(1, 2));
    EXPECT_THAT(translatedOf("DELETE RegMain WHERE dtDate NOT BETWEEN '2026/1/1' AND '2026/2/1' "
                             "OR lNumber BETWEEN 1 AND 2 OR \"dtNote\" = '2026/1/1'")
                    .dateParameters,
                ElementsAre(0, 1, 4));
}

TEST(Translation, BringsDatesThatStayIntoTheStoredForm) {
    EXPECT_EQ(sqlOf("DELETE RegMain WHERE dtDate IN ('2026/1/5', NULL, '2026.2.5') "
                    "AND sSign NOT IN ('2026/1/5')"),
              "delete from regmain where dtdate in('2026-01-05',null,'2026-02-05')"
              "and ssign not in('2026/1/5')");
    EXPECT_EQ(failureOf("DELETE RegMain WHERE dtDate IN ('2026/2/30')"), "no date: '2026/2/30'");
    EXPECT_EQ(sqlOf("DELETE RegMain WHERE dtDate NOT IN ('2026/1/5') OR f('2026/1/5')"),
              "delete from regmain where dtdate not in('2026-01-05')or f('2026/1/5')");
    EXPECT_EQ(sqlOf("SELECT a FROM A WHERE b AND c AND '2026/1/5' OR IN ('2026/1/5')"),
              "select a from a where b and c and '2026/1/5' or in('2026/1/5')");
}

TEST(Translation, LooksForDatesInShapesThatBreakOffAnywhere) {
    for (const std::string_view shape :
         {"insert into a.b.userauth(lid,\"dtDate\")values(#,?),(#,f(?,#))",
          "insert exchgflt values(#,null,?,#,~,~)",
          "update regmain set dtdate=? where not ? between dtdate and ? and dtdate in(?,null)",
          "delete regmain where ? not between a.b.dtdate and #"}) {
        const std::vector<Token> tokens = shapeTokens(shape);
        for (std::size_t count = 0; count < tokens.size(); ++count) {
            const std::vector<Token> first(tokens.begin(),
                                           tokens.begin() + static_cast<std::ptrdiff_t>(count));
            std::vector<std::size_t> dates;
            if (shape.starts_with("insert")) static_cast<void>(findInsertedDates(first, dates));
            static_cast<void>(findComparedDates(first, dates));
            for (const std::size_t date : dates) EXPECT_LT(date, count) << shape;
        }
    }
}

TEST(Translation, RefusesADateBeforeItsColumn) {
    EXPECT_EQ(failureOf("DELETE RegMain WHERE '2026/1/5' < RegMain.dtDate"),
              "a date before the column it belongs to");
    EXPECT_EQ(failureOf("DELETE RegMain WHERE '2026/1/5' BETWEEN dtDate AND dtDate"),
              "a date before the column it belongs to");
    for (const char* sign : {"=", "<>", "!=", "<", ">", "<=", ">=", "not between"})
        EXPECT_EQ(
            failureOf("SELECT a FROM A WHERE '2026/1/5' " + std::string(sign) + " a.b.dtDate"),
            "a date before the column it belongs to")
            << sign;
    for (const char* text : {"SELECT a FROM A WHERE 'x' = sSign", "SELECT 'x' FROM dtDate",
                             "SELECT a FROM A WHERE 'x' || dtDate = b", "SELECT 'x' not FROM A",
                             "SELECT a FROM A WHERE 'x' = 'y'", "SELECT 'x', dtDate FROM A"})
        EXPECT_TRUE(translatedOf(text).dateParameters.empty()) << text;
}

TEST(Translation, NormalisesDates) {
    EXPECT_EQ(normalised("Insert ExchgFlt Values(1, 2, '2026/1/5', 1, 0.0, 0.0)"),
              "1, 2, '2026-01-05', 1, 0.0, 0.0");
    EXPECT_EQ(normalised("UPDATE RegMain SET dtDate = '2028-02-29' WHERE dtDate <> '2026.12.31'"),
              "'2028-02-29', '2026-12-31'");
}

TEST(Translation, RefusesWhatIsNoDate) {
    EXPECT_EQ(normalised("DELETE RegMain WHERE dtDate = '2026/2/29'"), "no date: 2026/2/29");
    EXPECT_EQ(normalised("DELETE RegMain WHERE dtDate = ''"), "no date: ");
    EXPECT_EQ(normalised("DELETE RegMain WHERE dtDate = 20260105"), "no date: a number");
}

TEST(Translation, RecognisesTheUpdateOfOneCounter) {
    const auto update = translatedOf("Update ABIdTable Set lLastId = 12 Where sTable = 'AccSum'");
    EXPECT_TRUE(update.isIdUpdate);
    EXPECT_FALSE(update.touchesIdTable);
    EXPECT_EQ(update.sql, "update abidtable set llastid=$1 where stable=$2");
}

TEST(Translation, TellsOtherUsesOfTheCounters) {
    for (const char* text :
         {"UPDATE ABIdTable SET lLastId = 5 WHERE sTable = 'UserAuth' or sTable = 'Users'",
          "SELECT lLastId FROM ABIdTable", "DELETE \"ABIDTABLE\"",
          "UPDATE ABIdTable SET lLastId = 1",
          "UPDATE ABIdTable SET lLastId = '5' WHERE sTable = 'Users'",
          "UPDATE ABIdTable SET lLastId = 5.5 WHERE sTable = 'Users'"}) {
        const auto translated = translatedOf(text);
        EXPECT_TRUE(translated.touchesIdTable) << text;
        EXPECT_FALSE(translated.isIdUpdate) << text;
    }
    EXPECT_FALSE(translatedOf("DELETE AccSum WHERE s = 'ABIdTable'").touchesIdTable);
    EXPECT_FALSE(translatedOf("SELECT 'ABIdTable', \"ABIdTable2\" FROM Code").touchesIdTable);
}

}  // namespace
}  // namespace chengheng
