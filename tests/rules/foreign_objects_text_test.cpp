#include "books/logon/foreign_objects_text.h"

#include <gtest/gtest.h>

namespace chengheng {
namespace {

TEST(ForeignObjectsText, NamesTheFirstFiveAndCountsTheRest) {
    std::vector<ForeignObject> objects;
    for (const char* name : {"a", "b", "c", "d", "e"}) objects.push_back({true, name});
    EXPECT_NE(
        foreignObjectsText(objects, "/n.db").find(":视图“a”、视图“b”、视图“c”、视图“d”、视图“e”。"),
        std::string::npos);
    objects.push_back({false, "f"});
    EXPECT_NE(foreignObjectsText(objects, "/n.db").find("、视图“e”等 6 个。"), std::string::npos);
}

TEST(ForeignObjectsText, KeepsANameOnItsLine) {
    EXPECT_EQ(nameOf({false, "a\n帐套\tb"}), "触发器“a␊帐套␉b”");
}

}  // namespace
}  // namespace chengheng
