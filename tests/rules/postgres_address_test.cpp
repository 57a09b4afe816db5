#include "data/engines/postgres/postgres_address.h"

#include <gtest/gtest.h>

namespace chengheng {
namespace {

PostgresAddress read(std::string_view text) {
    PostgresAddress address;
    const Status status = readPostgresAddress(text, address);
    EXPECT_TRUE(status.isDone()) << text << ": " << status.detail;
    return address;
}

Failure failureOf(std::string_view text) {
    PostgresAddress address;
    return readPostgresAddress(text, address).failure;
}

TEST(PostgresAddresses, WithoutASchemaMeanThePublicOne) {
    const PostgresAddress address = read("postgresql://me:pw@server:5433/books");
    EXPECT_EQ(address.serverAddress, "postgresql://me:pw@server:5433/books");
    EXPECT_EQ(address.schema, "public");
}

TEST(PostgresAddresses, KeepTheSchemaFromTheServerWhereverItStands) {
    EXPECT_EQ(read("postgresql://h/d?schema=y2026").serverAddress, "postgresql://h/d");
    for (const char* text : {"postgresql://h/d?schema=y2026&sslmode=require&connect_timeout=3",
                             "postgresql://h/d?sslmode=require&schema=y2026&connect_timeout=3",
                             "postgresql://h/d?sslmode=require&connect_timeout=3&schema=y2026"}) {
        const PostgresAddress address = read(text);
        EXPECT_EQ(address.serverAddress, "postgresql://h/d?sslmode=require&connect_timeout=3");
        EXPECT_EQ(address.schema, "y2026");
    }
}

TEST(PostgresAddresses, DecodeTheNameOfTheSchema) {
    EXPECT_EQ(read("postgresql://h/d?schema=a%20%22b%22").schema, "a \"b\"");
    EXPECT_EQ(read("postgresql://h/d?schema=%E8%B4%A6").schema, "账");
}

TEST(PostgresAddresses, WithASchemaThatCannotBeOneAreRefused) {
    EXPECT_EQ(failureOf("postgresql://h/d?schema="), Failure::missing);
    EXPECT_EQ(failureOf("postgresql://h/d?schema=%"), Failure::missing);
    EXPECT_EQ(failureOf("postgresql://h/d?schema=%0"), Failure::missing);
    EXPECT_EQ(failureOf("postgresql://h/d?schema=%zz"), Failure::missing);
    EXPECT_EQ(failureOf("postgresql://h/d?schema=a%00b"), Failure::missing);
    EXPECT_EQ(failureOf("postgresql://h/d?schema=" + std::string(64, 'a')), Failure::missing);
    EXPECT_EQ(failureOf("postgresql://h/d?schema=" + std::string(63, 'a')), Failure::none);
}

TEST(PostgresNames, AreQuotedWhateverTheyHold) {
    EXPECT_EQ(quotedIdentifier("a\"b'c"), "\"a\"\"b'c\"");
    EXPECT_EQ(quotedLiteral("a\"b'c\\"), "'a\"b''c\\'");
}

}  // namespace
}  // namespace chengheng
