#include "app/json/JsonFields.h"

#include <gtest/gtest.h>

namespace app {
namespace {

TEST(JsonFields, ReadsNothingButOneObject) {
    for (const char* text : {"", "[1]", "\"a\"", "{\"a\":1", "{\"a\":1} x", "null", "{a:1}"}) {
        EXPECT_FALSE(JsonFields::Parse(text).has_value()) << text;
    }
}

TEST(JsonFields, GivesTextsAndNumbersByName) {
    const auto fields = JsonFields::Parse(R"({"text":"Stra\u00dfe","whole":12,"half":0.5})");
    ASSERT_TRUE(fields.has_value());
    EXPECT_EQ(fields->Text("text"), "Straße");
    EXPECT_EQ(fields->Whole("whole"), 12U);
    EXPECT_EQ(fields->Number("whole"), 12.0);
    EXPECT_EQ(fields->Number("half"), 0.5);
}

TEST(JsonFields, TakesOnlyDigitsForAWholeNumber) {
    const auto fields = JsonFields::Parse(R"({"sign":-1,"point":1.0,"text":"1"})");
    ASSERT_TRUE(fields.has_value());
    for (const char* key : {"sign", "point", "text"}) {
        EXPECT_FALSE(fields->Whole(key).has_value()) << key;
    }
    EXPECT_EQ(fields->Number("sign"), -1.0);
}

TEST(JsonFields, HasMembersOfEveryKind) {
    const auto fields = JsonFields::Parse(R"({"null":null,"list":[1],"object":{"inner":1}})");
    ASSERT_TRUE(fields.has_value());
    for (const char* key : {"null", "list", "object"}) {
        EXPECT_TRUE(fields->Has(key)) << key;
        EXPECT_FALSE(fields->Text(key).has_value()) << key;
        EXPECT_FALSE(fields->Number(key).has_value()) << key;
    }
    EXPECT_FALSE(fields->Has("inner"));
}

}  // namespace
}  // namespace app
