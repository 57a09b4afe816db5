#include "data/sql/batch_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/read_statements.h"

namespace chengheng {
namespace {

using testing::ElementsAre;

std::vector<std::string> shapesOf(std::string_view batch) {
    const BatchCopy read = readStatements(batch);
    EXPECT_TRUE(read.status) << read.status.detail;
    std::vector<std::string> shapes;
    for (const StatementCopy& statement : read.statements) shapes.push_back(statement.shape);
    return shapes;
}

/// The detail of the failure that the batch must end with.
std::string failureOf(std::string_view batch) {
    const Status status = readStatements(batch).status;
    EXPECT_EQ(status.failure, Failure::unreadable) << batch;
    return status.detail;
}

TEST(BatchReader, GivesTheKindOfEachStatement) {
    const auto read = readStatements(
        "BEGIN TRANSACTION xiugai\r\nINSERT Users VALUES( 1 )\r\nupdate Users set lId = 1\r\n"
        "Delete Users\r\nselect * from Users\r\nCOMMIT TRANSACTION xiugai");
    ASSERT_TRUE(read.status) << read.status.detail;
    std::vector<StatementKind> kinds;
    for (const StatementCopy& statement : read.statements) kinds.push_back(statement.kind);
    EXPECT_THAT(kinds,
                ElementsAre(StatementKind::begin, StatementKind::insert, StatementKind::update,
                            StatementKind::remove, StatementKind::select, StatementKind::commit));
}

TEST(BatchReader, FoldsBlanksAndLetters) {
    EXPECT_THAT(shapesOf("  SELECT\tsCode ,\n lId  FROM  Code\r\n\r\n"),
                ElementsAre("select scode,lid from code"));
    EXPECT_THAT(shapesOf("DELETE AccSum"), ElementsAre("delete accsum"));
}

TEST(BatchReader, StatementsOfOneShapeDifferOnlyInTheirValues) {
    const auto read = readStatements(
        "INSERT AccSum Values( 1, 2.5 )\ninsert   accsum VALUES(-30,0.00)\n"
        "INSERT AccSum Values( 1, 2 )\n");
    ASSERT_EQ(read.statements.size(), 3U);
    EXPECT_EQ(read.statements[0].shape, "insert accsum values(#,~)");
    EXPECT_EQ(read.statements[1].shape, read.statements[0].shape);
    EXPECT_EQ(read.statements[1].hash, read.statements[0].hash);
    EXPECT_EQ(read.statements[1].values, "-30, 0.0");
    EXPECT_NE(read.statements[2].hash, read.statements[0].hash);
}

TEST(BatchReader, SplitsAtLineEndsOfBothKindsAndAtSemicolons) {
    EXPECT_THAT(
        shapesOf("DELETE A\nDELETE B\r\nDELETE C\rDELETE D;DELETE E;\n;DELETE F\n"),
        ElementsAre("delete a", "delete b", "delete c", "delete d", "delete e", "delete f"));
}

TEST(BatchReader, AnEmptyBatchHasNoStatements) {
    EXPECT_THAT(shapesOf(""), ElementsAre());
    EXPECT_THAT(shapesOf(" \r\n;; -- nothing\n /* at all */ "), ElementsAre());
}

TEST(BatchReader, AStatementMaySpanLines) {
    EXPECT_THAT(shapesOf("UPDATE Code\nSET bEnd = 1\nWHERE sCode = 'a'\nDELETE AccSum"),
                ElementsAre("update code set bend=# where scode=?", "delete accsum"));
}

TEST(BatchReader, AnInsertMayTakeItsRowsFromASelect) {
    EXPECT_THAT(shapesOf("INSERT AccSum\nSELECT * FROM Old\nINSERT INTO A (lId) SELECT lId FROM B\n"
                         "SELECT * FROM C"),
                ElementsAre("insert accsum select*from old", "insert into a(lid)select lid from b",
                            "select*from c"));
}

TEST(BatchReader, SelectsMayBeJoined) {
    EXPECT_THAT(shapesOf("SELECT lId FROM A UNION ALL\nSELECT lId FROM B\nEXCEPT\n"
                         "SELECT lId FROM C INTERSECT SELECT lId FROM D\nSELECT lId FROM E"),
                ElementsAre("select lid from a union all select lid from b except select lid from "
                            "c intersect select lid from d",
                            "select lid from e"));
}

TEST(BatchReader, ASelectInParenthesesIsPartOfItsStatement) {
    EXPECT_THAT(shapesOf("DELETE A WHERE lId IN (\nSELECT lId FROM B\nWHERE lId = 1\n)\nDELETE B"),
                ElementsAre("delete a where lid in(select lid from b where lid=#)", "delete b"));
}

TEST(BatchReader, FirstWordsInsideTextAndNamesMeanNothing) {
    const auto read = readStatements(
        "UPDATE Code SET sName = 'a\r\nDELETE Code\r\n-- ; /*' WHERE Code.\nDelete = 1\n"
        "DELETE \"Select\"");
    ASSERT_TRUE(read.status) << read.status.detail;
    ASSERT_EQ(read.statements.size(), 2U);
    EXPECT_EQ(read.statements[0].shape, "update code set sname=? where code.delete=#");
    EXPECT_EQ(read.statements[0].values, "'a\r\nDELETE Code\r\n-- ; /*', 1");
    EXPECT_EQ(read.statements[1].shape, "delete \"Select\"");
}

TEST(BatchReader, CommentsAreBlanks) {
    EXPECT_THAT(shapesOf("-- first\nDELETE/**/AccSum -- all of it\r\n"
                         "/* DELETE\nB */ DELETE C WHERE lId = 1 - -2"),
                ElementsAre("delete accsum", "delete c where lid=1- -2"));
    EXPECT_THAT(shapesOf("SELECT a-- b"), ElementsAre("select a"));
}

TEST(BatchReader, TransactionsMayHaveAName) {
    EXPECT_THAT(shapesOf("BEGIN TRANSACTION xiugai\nCOMMIT TRANSACTION\nbegin; commit;\n"
                         "Begin\nCommit"),
                ElementsAre("begin", "commit", "begin", "commit", "begin", "commit"));
}

TEST(BatchReader, NothingElseStandsWithATransaction) {
    EXPECT_EQ(failureOf("BEGIN TRANSACTION a b"),
              "line 1, column 21: more than BEGIN or COMMIT, TRANSACTION and a name");
    EXPECT_EQ(failureOf("BEGIN xiugai"),
              "line 1, column 7: more than BEGIN or COMMIT, TRANSACTION and a name");
    EXPECT_EQ(failureOf("COMMIT 'x'"),
              "line 1, column 8: more than BEGIN or COMMIT, TRANSACTION and a name");
    EXPECT_EQ(failureOf("BEGIN TRANSACTION DELETE A"),
              "line 1, column 19: a statement begins in the middle of a line");
}

TEST(BatchReader, OtherFirstWordsAreRefused) {
    for (const char* word :
         {"DROP TABLE Code", "PRAGMA x", "ATTACH 'x'", "CREATE TABLE x (a)", "ROLLBACK", "WITH x",
          "Values(1)", "'x'", "(SELECT 1)", "5", "帐", "DELETEX", "VACUUM", "= 1"})
        EXPECT_EQ(failureOf(word),
                  "line 1, column 1: no statement of this dialect begins like this")
            << word;
}

TEST(BatchReader, OtherFirstWordsAreRefusedBehindAStatementToo) {
    EXPECT_EQ(failureOf("DELETE Code\nROLLBACK"),
              "line 2, column 1: no statement of this dialect begins like this");
    EXPECT_EQ(failureOf("SELECT * FROM Code\r\n  drop table Code"),
              "line 2, column 3: no statement of this dialect begins like this");
}

TEST(BatchReader, AStatementBehindAnotherOnOneLineIsRefused) {
    EXPECT_EQ(failureOf("DELETE AccSum DELETE AssAcc"),
              "line 1, column 15: a statement begins in the middle of a line");
    EXPECT_EQ(failureOf("SELECT * FROM Code SELECT 1"),
              "line 1, column 20: a statement begins in the middle of a line");
    EXPECT_EQ(failureOf("UPDATE Code SET bEnd = 1 /*\n*/ DELETE Code"),
              "line 2, column 4: a statement begins in the middle of a line");
}

TEST(BatchReader, AStatementBehindAnUnfinishedOneIsRefused) {
    for (const char* start :
         {"INSERT AccSum", "UPDATE Code", "DELETE FROM", "SELECT a,", "DELETE A WHERE",
          "DELETE A WHERE lId =", "DELETE A WHERE lId = 1 AND", "UPDATE Code SET a = b +",
          "DELETE A WHERE NOT", "SELECT a FROM b ORDER BY", "INSERT A VALUES", "INSERT A (b)"})
        EXPECT_EQ(failureOf(std::string(start) + "\nDELETE Code"),
                  "line 2, column 1: the statement before this word is unfinished")
            << start;
}

TEST(BatchReader, AnUnfinishedStatementAtTheEndIsRefused) {
    for (const char* start : {"INSERT AccSum", "UPDATE Code", "DELETE", "SELECT", "INSERT",
                              "DELETE A WHERE lId =", "DELETE A WHERE lId = 1 OR;",
                              "SELECT a UNION", "SELECT a, ", "SELECT a.", "UPDATE A SET"})
        EXPECT_EQ(failureOf("  " + std::string(start)),
                  "line 1, column 3: a statement is unfinished")
            << start;
}

TEST(BatchReader, ParenthesesMustBalance) {
    EXPECT_EQ(failureOf("DELETE A\nINSERT A VALUES( 1, (2 )\nINSERT A VALUES( 2 )"),
              "line 2, column 16: a parenthesis is not closed");
    EXPECT_EQ(failureOf("INSERT A VALUES( 1;"), "line 1, column 16: a parenthesis is not closed");
    EXPECT_EQ(failureOf("DELETE A WHERE lId = 1)"),
              "line 1, column 23: a parenthesis closes what was not opened");
    EXPECT_EQ(failureOf("SELECT " + std::string(64, '(')),
              "line 1, column 71: too many parentheses inside each other");
    EXPECT_TRUE(
        readStatements("SELECT " + std::string(63, '(') + "1" + std::string(63, ')')).status);
}

TEST(BatchReader, QuotesMustBeClosed) {
    EXPECT_EQ(failureOf("DELETE A WHERE s = 'O'Brien'"),
              "line 1, column 28: a text that a word runs into");
    EXPECT_EQ(failureOf("UPDATE A SET\n s = '''"), "line 2, column 6: a text is not closed");
    EXPECT_EQ(failureOf("DELETE \"A"), "line 1, column 8: a quoted name is not closed");
    EXPECT_EQ(failureOf("DELETE A /* '"), "line 1, column 10: a comment is not closed");
}

TEST(BatchReader, CharactersOutsideTheDialectAreRefused) {
    for (const char* letter : {"#", "$1", "?", "~", "[x]", "`x`", "@a", "{", "\\", "&", "^", ":",
                               "“", "帐", "\x01", "\xff"})
        EXPECT_EQ(failureOf("DELETE A WHERE a = " + std::string(letter)),
                  "line 1, column 20: a character that may stand in quoted text only")
            << letter;
    EXPECT_EQ(failureOf("DELETE A WHERE a ! b"),
              "line 1, column 18: an operator that is not known");
    EXPECT_EQ(failureOf("DELETE A WHERE a | b"),
              "line 1, column 18: an operator that is not known");
}

TEST(BatchReader, ANulByteIsRefusedWhereverItStands) {
    using namespace std::string_view_literals;
    EXPECT_EQ(failureOf("DELETE A\nUPDATE A SET s = 'x\0'"sv), "line 2, column 20: a NUL byte");
    EXPECT_EQ(failureOf("DELETE A -- \0"sv), "line 1, column 13: a NUL byte");
}

TEST(BatchReader, TextThatIsNotUtf8IsRefused) {
    for (const char* bytes : {"\xff", "\xc0\xaf", "\xe5\xb8", "\xed\xa0\x80", "\xf4\x90\x80\x80",
                              "\xb8", "\xf0\x9f\x98"})
        EXPECT_EQ(failureOf("DELETE A WHERE s = '帐帐" + std::string(bytes) + "'"),
                  "line 1, column 23: a byte that is no character");
    EXPECT_EQ(failureOf("DELETE \"\xff\""), "line 1, column 9: a byte that is no character");
}

TEST(BatchReader, AFailureEndsTheReadingForGood) {
    BatchReader reader("DELETE A;DROP B;DELETE C");
    ReadStatement statement;
    EXPECT_TRUE(reader.next(statement));
    EXPECT_FALSE(reader.next(statement));
    EXPECT_FALSE(reader.next(statement));
    EXPECT_EQ(reader.status().failure, Failure::unreadable);
}

}  // namespace
}  // namespace chengheng
