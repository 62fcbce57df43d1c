#include "app/json/JsonEdit.h"

#include "app/json/JsonError.h"

#include <gtest/gtest.h>

namespace app {
namespace {

TEST(JsonEdit, AddsAMemberInTheOrderOfNames) {
    EXPECT_EQ(WithJsonMember(R"({"a": 1, "c": [true]})", "b", R"({"x": "y"})"),
              R"({"a":1,"b":{"x":"y"},"c":[true]})");
}

TEST(JsonEdit, ReplacesAMember) {
    EXPECT_EQ(WithJsonMember(R"({"a":1})", "a", "\"two\""), R"({"a":"two"})");
}

TEST(JsonEdit, RemovesAMemberOfTheOutermostObjectAlone) {
    EXPECT_EQ(WithoutJsonMember(R"({"a":1,"b":{"a":2}})", "a"), R"({"b":{"a":2}})");
    EXPECT_EQ(WithoutJsonMember(R"({"b":1})", "a"), R"({"b":1})");
}

TEST(JsonEdit, RefusesWhatIsNotJson) {
    EXPECT_THROW(WithJsonMember("[1]", "a", "1"), JsonError);
    EXPECT_THROW(WithJsonMember("{", "a", "1"), JsonError);
    EXPECT_THROW(WithJsonMember("{}", "a", "one"), JsonError);
    EXPECT_THROW(WithoutJsonMember("", "a"), JsonError);
}

}  // namespace
}  // namespace app
