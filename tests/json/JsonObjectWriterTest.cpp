#include "app/json/JsonObjectWriter.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace {

TEST(AJsonObject, HasABoxAsFourNumbersOrNull) {
    std::string text;
    app::JsonObjectWriter object(text);
    object.Box("all", shr::Box2d{-1.5, 2, 500000, 4});
    object.Box("none", std::nullopt);
    object.Close();

    EXPECT_EQ(text, R"({"all":[-1.5,2,500000,4],"none":null})");
}

}  // namespace
