#include "app/feature/ValueText.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <ostream>
#include <string>

namespace {

struct ValueRow {
    const char* name;
    app::Value value;
    std::string text;
    std::string json;
};

std::ostream& operator<<(std::ostream& out, const ValueRow& row) {
    return out << row.name;
}

class AValue : public testing::TestWithParam<ValueRow> {};

TEST_P(AValue, HasThisText) {
    EXPECT_EQ(app::TextOf(GetParam().value), GetParam().text);
}

TEST_P(AValue, HasThisJson) {
    std::string json = "x";
    app::AppendJsonValue(json, GetParam().value);

    EXPECT_EQ(json, "x" + GetParam().json);
}

INSTANTIATE_TEST_SUITE_P(, AValue,
                         testing::Values(ValueRow{"Null", std::monostate(), "", "null"},
                                         ValueRow{"Text", std::string("a \"b\""), "a \"b\"",
                                                  "\"a \\\"b\\\"\""},
                                         ValueRow{"Whole", std::int64_t{-5}, "-5", "-5"},
                                         ValueRow{"Number", 500000.0, "500000", "500000"},
                                         ValueRow{"Fraction", 0.1, "0.1", "0.1"},
                                         ValueRow{"Truth", true, "true", "true"},
                                         ValueRow{"Falsehood", false, "false", "false"}),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
