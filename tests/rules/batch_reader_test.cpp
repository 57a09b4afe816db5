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
    EXPECT_EQ(read.statements[1].values, "-30, 0.0");
    EXPECT_NE(read.statements[2].shape, read.statements[0].shape);
}

TEST(BatchReader, ReadsAnInsertThatBeginsLikeTheOneBeforeAsIfItStoodAlone) {
    for (const std::string head :
         {"INSERT A Values( ", "insert into A (b, c) VALUES(", "INSERT A -- (\n Values ("})
        for (const std::string first : {"1, 2 )", "'(', -1 )", "1 ), ( 2 )"})
            for (const std::string next :
                 {"1, 2.5 )", "-1,'a''b', NULL )", "1 + 2, 3 )", "1 ), ( 2, 'x' )", "abs( 1 ) );",
                  ")", "1 )\nDELETE B"}) {
                const auto alone = readStatements(head + next);
                auto read = readStatements(head + first + "\n" + head + next);
                ASSERT_TRUE(read.status && alone.status) << head << next;
                read.statements.erase(read.statements.begin());
                EXPECT_EQ(read.statements, alone.statements) << head << next;
            }
}

TEST(BatchReader, TellsWhereAnInsertFailsThatBeginsLikeTheOneBefore) {
    EXPECT_EQ(failureOf("INSERT A Values( 1 )\nINSERT A Values( 1 2 )"),
              "line 2, column 20: two values in a row");
    EXPECT_EQ(failureOf("INSERT A Values( 1 )\nINSERT A Values( 1"),
              "line 2, column 16: a parenthesis is not closed");
    EXPECT_EQ(failureOf("INSERT A Values( 1 )\nINSERT A Values("),
              "line 2, column 16: a parenthesis is not closed");
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

TEST(BatchReader, PlacesCountCharactersNotBytes) {
    EXPECT_EQ(failureOf("DELETE A WHERE s = '库é𠮷' #"),
              "line 1, column 26: a character that may stand in quoted text only");
    EXPECT_EQ(failureOf("DELETE A\n\n  UPDATE B"), "line 3, column 3: a statement is unfinished");
}

TEST(BatchReader, AStatementKnowsNothingOfTheOneBeforeIt) {
    const std::string before[] = {"DELETE A WHERE b BETWEEN 1", "DELETE A WHERE b IN (1)",
                                  "UPDATE A SET b = 1 WHERE c = 2", "INSERT A VALUES(1, 'x''y')",
                                  "SELECT 1 FROM A WHERE b = (2)"};
    const std::string after[] = {"DELETE B WHERE c = 1 AND 5", "INSERT B VALUES(7)",
                                 "DELETE 'b' = 5", "SELECT 1, 2 FROM B WHERE c = 3",
                                 "UPDATE B = 4 SET c = 5"};
    for (const std::string& first : before)
        for (const std::string& second : after) {
            const auto alone = readStatements(second);
            const auto both = readStatements(first + "\n" + second);
            ASSERT_EQ(alone.statements.size() + 1, both.statements.size()) << first << second;
            if (!alone.statements.empty()) {
                EXPECT_EQ(both.statements.back(), alone.statements.back()) << first << second;
            }
        }
}

/// Batches with every kind of token, which are cut anywhere.
const std::vector<std::string_view> allTokens{
    "INSERT INTO A VALUES( 1 , -2.5, 'a''b',.5,1e-3,abs(x.y), NULL),( -7,\"q\"\"r\" )",
    "UPDATE A SET b = 5 - -3, c='x' || d WHERE e <> 2 AND s LIKE 'q%' -- end\r\nDELETE B",
    "BEGIN TRANSACTION a\nCOMMIT TRANSACTION\nSELECT /* c */ * FROM A.B WHERE b != 3 AND c>=-1;"};

TEST(BatchReader, WhatFollowsTheBatchInMemoryIsNotRead) {
    const auto readOf = [](std::string_view batch) {
        const BatchCopy read = readStatements(batch);
        std::string all = read.status.detail;
        for (const StatementCopy& one : read.statements)
            all += "\n" + one.shape + " | " + one.values + (one.isWorthKeeping ? "" : " | once");
        return all;
    };
    for (const std::string_view batch : allTokens)
        for (std::size_t size = 0; size <= batch.size(); ++size) {
            const std::string cut(batch.substr(0, size));
            const std::string alone = readOf(cut);
            for (const char following : std::string_view("a1'\"(-/*.;=>|,) \n")) {
                const std::string longer = cut + following + following;
                EXPECT_EQ(readOf(std::string_view(longer).substr(0, size)), alone) << longer;
            }
        }
}

TEST(BatchReader, AShapeMayBeLong) {
    std::string list;
    for (int name = 0; name < 3000; ++name)
        list += (name == 0 ? "" : ",") + std::string("column") + std::to_string(name);
    EXPECT_THAT(shapesOf("SELECT " + list + " FROM A"), ElementsAre("select " + list + " from a"));
    const std::string name(3000, 'a');
    EXPECT_THAT(shapesOf("DELETE " + name + " WHERE " + name + " = 1"),
                ElementsAre("delete " + name + " where " + name + "=#"));
    std::string rows;
    std::string marks;
    for (int row = 0; row < 1000; ++row) {
        rows += row == 0 ? "(1,2.5)" : ",(1,2.5)";
        marks += row == 0 ? "(#,~)" : ",(#,~)";
    }
    EXPECT_THAT(shapesOf("INSERT A VALUES" + rows), ElementsAre("insert a values" + marks));
}

TEST(BatchReader, WordsAfterWhichMoreMustComeLeaveAStatementUnfinished) {
    for (const char* word :
         {"all",       "as",     "by",    "distinct", "escape", "in",     "into",    "is",
          "join",      "not",    "on",    "or",       "and",    "like",   "between", "from",
          "where",     "having", "group", "order",    "limit",  "offset", "union",   "except",
          "intersect", "set",    "b.",    "b =",      "b <>",   "b ||",   "b +",     ","})
        EXPECT_EQ(failureOf("SELECT a FROM A WHERE b " + std::string(word)),
                  "line 1, column 1: a statement is unfinished")
            << word;
    for (const char* word : {"null", "beginx", "intersects", "wheres", "b.select"})
        EXPECT_TRUE(readStatements("SELECT a FROM A WHERE b " + std::string(word)).status) << word;
}

TEST(BatchReader, FirstWordsWithinAStatementContinueItOnlyWhereTheyCan) {
    EXPECT_EQ(failureOf("UPDATE A SELECT 1"),
              "line 1, column 10: the statement before this word is unfinished");
    EXPECT_EQ(failureOf("INSERT A VALUES(1) SELECT 2"),
              "line 1, column 20: a statement begins in the middle of a line");
    EXPECT_EQ(failureOf("DELETE A WHERE b = SELECT 1"),
              "line 1, column 20: the statement before this word is unfinished");
    EXPECT_EQ(failureOf("INSERT A, SELECT 1"),
              "line 1, column 11: the statement before this word is unfinished");
    EXPECT_THAT(shapesOf("DELETE A WHERE b IN (1, delete, drop)\nDELETE B"),
                ElementsAre("delete a where b in(1,delete,drop)", "delete b"));
    EXPECT_THAT(shapesOf("SELECT drop FROM A WHERE create = 1"),
                ElementsAre("select drop from a where create=#"));
    EXPECT_THAT(shapesOf("DELETE A WHERE b IN (\ndrop)"), ElementsAre("delete a where b in(drop)"));
    EXPECT_THAT(shapesOf("INSERT A (b, (SELECT 1), c) VALUES(2)"),
                ElementsAre("insert a(b,(select 1),c)values(#)"));
    EXPECT_EQ(failureOf("INSERT A (b, (SELECT 1), c)"),
              "line 1, column 1: a statement is unfinished");
    EXPECT_EQ(failureOf("UPDATE A (b, set)"), "line 1, column 1: a statement is unfinished");
    EXPECT_EQ(failureOf("INSERT A (values)"), "line 1, column 1: a statement is unfinished");
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
