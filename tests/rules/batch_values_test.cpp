#include <gtest/gtest.h>

#include <limits>

#include "data/sql/sql_format.h"
#include "tests/support/read_statements.h"

namespace chengheng {
namespace {

/// "shape | values", with " | once" when the shape is not worth keeping.
std::string lifted(std::string_view text) {
    const BatchCopy read = readStatements(text);
    if (!read.status) return read.status.detail;
    if (read.statements.size() != 1) return "not one statement";
    const StatementCopy& only = read.statements[0];
    return only.shape + " | " + only.values + (only.isWorthKeeping ? "" : " | once");
}

TEST(BatchValues, OfAnInsertAreLifted) {
    EXPECT_EQ(lifted("INSERT INTO Users VALUES( 7, -8, 'O''Brien', 0.50, NULL )"),
              "insert into users values(#,#,?,~,null) | 7, -8, 'O'Brien', 0.5");
    EXPECT_EQ(lifted("INSERT A ( lId, sName ) VALUES (1,'a'),(2,'b')"),
              "insert a(lid,sname)values(#,?),(#,?) | 1, 'a', 2, 'b'");
}

TEST(BatchValues, AreLiftedWhateverBlanksStandBetweenThem) {
    const std::string expected = "insert a values(#,~,#,?,#) | 1, -2.5, 3, 'x', 4";
    EXPECT_EQ(lifted("INSERT A VALUES(1,-2.5,3,'x',4)"), expected);
    EXPECT_EQ(lifted("INSERT A VALUES ( 1 , -2.5 , 3 , 'x' , 4 )"), expected);
    EXPECT_EQ(lifted("INSERT A VALUES (\t1\n,\t-2.5/**/,--\n3\t,'x'\t,\t4\t)"), expected);
}

TEST(BatchValues, AfterSetAndWhereAreLifted) {
    EXPECT_EQ(lifted("Update AccSum Set mBegin = -1.500000, sX = '' Where lCodeId = 5 AND a <> 1"),
              "update accsum set mbegin=~,sx=? where lcodeid=# and a<># | -1.5, '', 5, 1");
    EXPECT_EQ(
        lifted("DELETE A WHERE ( a = 1 OR b > -1 ) AND c >= 2 AND d <= 3 AND e < 4 AND f != 5"),
        "delete a where(a=# or b>#)and c>=# and d<=# and e<# and f!=# | 1, -1, 2, 3, 4, 5");
    EXPECT_EQ(lifted("SELECT * FROM A WHERE s LIKE 'x%' AND t not like 'y'"),
              "select*from a where s like ? and t not like ? | 'x%', 'y'");
    EXPECT_EQ(lifted("DELETE A WHERE b BETWEEN 1 AND 2 AND c = 3"),
              "delete a where b between # and # and c=# | 1, 2, 3");
    EXPECT_EQ(lifted("DELETE A WHERE b BETWEEN 1 AND 2 AND 3"),
              "delete a where b between # and # and 3 | 1, 2 | once");
    EXPECT_EQ(lifted("DELETE A WHERE lId=5AND sCode='x'"),
              "line 1, column 20: a number that runs into a word");
}

TEST(BatchValues, ElsewhereStayInTheShape) {
    EXPECT_EQ(lifted("SELECT 1, 'a', -2 AS b FROM A ORDER BY 2 LIMIT 10"),
              "select 1,'a',-2 as b from a order by 2 limit 10 | ");
    EXPECT_EQ(lifted("SELECT CASE WHEN a = 1 THEN 2 ELSE 3 END FROM A WHERE b = 4"),
              "select case when a=1 then 2 else 3 end from a where b=# | 4");
    EXPECT_EQ(lifted("SELECT a FROM A GROUP BY a HAVING Sum(b) = 5"),
              "select a from a group by a having sum(b)=5 |  | once");
}

TEST(BatchValues, OfAListStayAndMakeTheShapeUnique) {
    EXPECT_EQ(lifted("DELETE FROM AccSum WHERE lCodeId in ( 1,-2 ) AND s IN ('O''Brien', '?')"),
              "delete from accsum where lcodeid in(1,-2)and s in('O''Brien','?') |  | once");
}

TEST(BatchValues, OfAFunctionStay) {
    EXPECT_EQ(lifted("DELETE A WHERE substr(s, 1, 2) = 'ab'"),
              "delete a where substr(s,1,2)=? | 'ab' | once");
    EXPECT_EQ(lifted("INSERT A VALUES( abs(-5), 2 )"), "insert a values(abs(-5),#) | 2 | once");
}

TEST(BatchValues, ThatArePartOfASumStay) {
    EXPECT_EQ(lifted("UPDATE A SET b = 5 - -3, c = b + 2, d = 'x' || d WHERE e = 2 * (7)"),
              "update a set b=5- -3,c=b+2,d='x'||d where e=2*(7) |  | once");
    EXPECT_EQ(lifted("INSERT A VALUES( -1 + 2, 3 )"), "insert a values(-1+2,#) | 3 | once");
    EXPECT_EQ(lifted("UPDATE A SET b=-1*c"), "update a set b= -1*c |  | once");
    EXPECT_EQ(lifted("UPDATE A SET b = - 5"), "update a set b= -5 |  | once");
}

TEST(BatchValues, RealsInAConditionStay) {
    EXPECT_EQ(lifted("DELETE A WHERE mBegin <> 0.5 AND lId > -1.0"),
              "delete a where mbegin<>0.5 and lid> -1.0 |  | once");
    EXPECT_EQ(lifted("DELETE A WHERE lId < 9223372036854775808"),
              "delete a where lid<9223372036854775808 |  | once");
}

TEST(BatchValues, OfASubselectAreLifted) {
    EXPECT_EQ(lifted("UPDATE A SET b = 1 WHERE EXISTS (SELECT 1 FROM B WHERE c = 2) AND d = 3"),
              "update a set b=# where exists(select 1 from b where c=#)and d=# | 1, 2, 3");
}

TEST(BatchValues, StayInEveryPartButThoseThatTellTheirType) {
    EXPECT_EQ(lifted("SELECT a FROM f(1) WHERE b = 2 GROUP BY 3 HAVING c = 4 ORDER BY 5 LIMIT 6"),
              "select a from f(1)where b=# group by 3 having c=4 order by 5 limit 6 | 2 | once");
    EXPECT_EQ(lifted("SELECT a FROM A WHERE b = 1 UNION SELECT 2 FROM B WHERE c = 3"),
              "select a from a where b=# union select 2 from b where c=# | 1, 3");
    EXPECT_EQ(lifted("SELECT a FROM A WHERE b = 1 OFFSET 7"),
              "select a from a where b=# offset 7 | 1");
    EXPECT_EQ(lifted("SELECT (1), f(2) FROM A"), "select(1),f(2)from a | ");
    EXPECT_EQ(lifted("UPDATE f(1) SET a = 2"), "update f(1)set a=# | 2 | once");
    EXPECT_EQ(lifted("UPDATE A SET b = 1.5, c = (2), d = f(3), e = 'x' WHERE g = f(4)"),
              "update a set b=~,c=(2),d=f(3),e=? where g=f(4) | 1.5, 'x' | once");
    EXPECT_EQ(lifted("INSERT A VALUES((1), 2), (3, 4)"),
              "insert a values((1),#),(#,#) | 2, 3, 4 | once");
    EXPECT_EQ(lifted("DELETE A WHERE (b = 1 AND c BETWEEN 2 AND (3)) AND 4"),
              "delete a where(b=# and c between # and(3))and 4 | 1, 2 | once");
    EXPECT_EQ(lifted("DELETE A WHERE b BETWEEN (SELECT 1 AND 2) AND 3"),
              "delete a where b between(select 1 and 2)and # | 3");
}

TEST(BatchValues, WithAnOperatorBehindThemAreUnlifted) {
    EXPECT_EQ(lifted("UPDATE A SET b = 1 + 2, c = -3 - 4, d = 'x''y' || e, f = 5"),
              "update a set b=1+2,c= -3-4,d='x''y'||e,f=# | 5 | once");
    EXPECT_EQ(lifted("DELETE A WHERE b = 1 = 2"), "delete a where b=1=# | 2 | once");
    EXPECT_EQ(lifted("DELETE A WHERE b = 1 % 2"), "delete a where b=1%2 |  | once");
    EXPECT_EQ(lifted("DELETE A WHERE b LIKE 'x' || 'y'"),
              "delete a where b like 'x'||'y' |  | once");
    EXPECT_EQ(lifted("UPDATE A SET b = NULL - -1"), "update a set b=null- -1 |  | once");
    EXPECT_EQ(lifted("UPDATE A SET b = *-1"), "update a set b= * -1 |  | once");
}

TEST(BatchValues, BeforeAComparisonStay) {
    EXPECT_EQ(lifted("DELETE A WHERE 0 = lId AND 5 < mBegin"),
              "delete a where 0=lid and 5<mbegin |  | once");
}

TEST(BatchValues, NumbersAreReadExactly) {
    const auto number = [](std::string_view text) {
        const std::string read = lifted("INSERT A VALUES(" + std::string(text) + ")");
        return read.substr(read.find('|') + 2);
    };
    EXPECT_EQ(number("9223372036854775807"), "9223372036854775807");
    EXPECT_EQ(number("-9223372036854775808"), "-9223372036854775808");
    EXPECT_EQ(number("9223372036854775808"), "9223372036854775808.0");
    EXPECT_EQ(number("-9223372036854775809"), "-9223372036854775808.0");
    EXPECT_EQ(number("9007199254740993"), "9007199254740993");
    EXPECT_EQ(number("000000000000000000000001"), "1");
    EXPECT_EQ(number(".5"), "0.5");
    EXPECT_EQ(number("5."), "5.0");
    EXPECT_EQ(number("-.25"), "-0.25");
    EXPECT_EQ(number("1e3"), "1000.0");
    EXPECT_EQ(number("1.5E-3"), "0.0015");
    EXPECT_EQ(number("-0.00"), "0.0");
    EXPECT_EQ(number("0.1"), "0.1");
    EXPECT_EQ(number("12345678901.500000"), "12345678901.5");
    EXPECT_EQ(number("2.718281828459045235360287"), "2.718281828459045");
    EXPECT_EQ(number("123456789012345678901234567890.5"), "1.2345678901234568e+29");
}

TEST(BatchValues, WhatLooksLikeANumberMustBeOne) {
    EXPECT_EQ(lifted("INSERT A VALUES(1.2.3)"),
              "line 1, column 17: a number that runs into a word");
    EXPECT_EQ(lifted("INSERT A VALUES(0x10)"), "line 1, column 17: a number that runs into a word");
    EXPECT_EQ(lifted("INSERT A VALUES(1e)"), "line 1, column 17: a number that runs into a word");
    EXPECT_EQ(lifted("INSERT A VALUES(1e999)"), "line 1, column 17: a number that cannot be held");
    EXPECT_EQ(lifted("INSERT A VALUES(-.)"), "line 1, column 17: a number that cannot be held");
    EXPECT_EQ(lifted("DELETE A WHERE b = ."), "line 1, column 20: a number that cannot be held");
    EXPECT_EQ(lifted("DELETE A WHERE b = 1x"), "line 1, column 20: a number that runs into a word");
    EXPECT_EQ(lifted("DELETE A WHERE b = 1.2."),
              "line 1, column 20: a number that runs into a word");
    EXPECT_EQ(lifted("DELETE A WHERE b = 1'x'"), "line 1, column 21: two values in a row");
    EXPECT_EQ(lifted("SELECT 1 2"), "line 1, column 10: two values in a row");
}

TEST(BatchValues, FormattedNonNumbersAreRefused) {
    EXPECT_EQ(lifted(formatSql("INSERT A VALUES(%lf)", std::numeric_limits<double>::quiet_NaN())),
              "line 1, column 17: a character that may stand in quoted text only");
}

TEST(BatchValues, DoNotStandInARow) {
    EXPECT_EQ(lifted("INSERT A VALUES(1 2)"), "line 1, column 19: two values in a row");
    EXPECT_EQ(lifted("INSERT A VALUES('a'\n'b')"), "line 2, column 1: two values in a row");
    EXPECT_EQ(lifted("DELETE A WHERE x = x'41'"),
              "line 1, column 21: a text that a word runs into");
}

TEST(BatchValues, TextComesBackAsItWasFormatted) {
    const std::string megabyte(1 << 20, 'x');
    for (const std::string& text :
         {std::string(), std::string("O'Brien"), std::string("'"), std::string("''"),
          std::string("50%_\\ \\' \\"), std::string("a\r\nDELETE Code\r\n"),
          std::string("帐\xF0\x9F\x98\x80套“引号”‘单’"), std::string("INSERT -- ; /* */ ? # ~ $1"),
          std::string("_name"), std::string("\x01\x7f"), megabyte, megabyte + "'" + megabyte}) {
        const auto read =
            readStatements(formatSql("UPDATE A SET s = '%s' WHERE t = '%s'\r\n", text, text));
        ASSERT_TRUE(read.status) << read.status.detail;
        ASSERT_EQ(read.statements.size(), 1U);
        EXPECT_EQ(read.statements[0].shape, "update a set s=? where t=?");
        EXPECT_EQ(read.statements[0].values, "'" + text + "', '" + text + "'");
    }
}

TEST(BatchValues, DoublesComeBackAsTheyWereFormatted) {
    for (const double amount : {0.01, 0.07, 1234567.89, -99999999999.99, 0.000001, 1e17, 4503.6})
        EXPECT_EQ(lifted(formatSql("INSERT A VALUES(%lf)", amount)),
                  "insert a values(~) | " + valuesText(std::vector{Value::of(amount)}));
}

TEST(BatchValues, TextsStayValidWhileTheReaderLives) {
    BatchReader reader("INSERT A VALUES('a''b')\nINSERT A VALUES('c''d')");
    ReadStatement statement;
    ASSERT_TRUE(reader.next(statement));
    const std::string_view first = statement.values[0].text;
    ASSERT_TRUE(reader.next(statement));
    EXPECT_EQ(first, "a'b");
    EXPECT_EQ(statement.values[0].text, "c'd");
}

}  // namespace
}  // namespace chengheng
