#include "tests/support/schema_page.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>

namespace chengheng {
namespace {

const std::filesystem::path sourceFolder = CHENGHENG_SOURCE_FOLDER;

TEST(SchemaPage, TellsTheMeaningThatTheRecordHeadersTell) {
    const RecordNotes notes = readRecordNotes(sourceFolder / "data/tables");
    EXPECT_EQ(notes.at("Code.sCode"), "code, unique, the sort key");
    EXPECT_EQ(notes.at("Code.sAssBook"),
              "auxiliary letters: A person, B unit, C department, D project, E bank book, "
              "R journal");
    EXPECT_EQ(notes.at("AccSum"),
              "Sums of one account in one period; period 1 carries the opening balance.");
    EXPECT_EQ(notes.at("AssAcc.lPersonId"), "person, may be unknown");
}

TEST(SchemaPage, IsTheOneThatIsKeptInDocs) {
    const std::filesystem::path kept = sourceFolder / "docs/schema.md";
    const std::string page = schemaPage(readRecordNotes(sourceFolder / "data/tables"));
    if (std::getenv("CHENGHENG_WRITE_DOCS")) std::ofstream(kept) << page;
    std::ifstream file(kept);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    EXPECT_TRUE(text == page) << "the tables changed; run: CHENGHENG_WRITE_DOCS=1 "
                                 "build/dev/test_rules --gtest_filter='SchemaPage.*'";
}

}  // namespace
}  // namespace chengheng
