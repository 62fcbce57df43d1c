#include "app/feature/Values.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace {

using app::ColumnKind;

struct KindRow {
    std::string name;
    std::string text;
    ColumnKind kind;
};
class KindOfText : public testing::TestWithParam<KindRow> {};

TEST_P(KindOfText, Is) {
    EXPECT_EQ(app::KindOfText(GetParam().text), GetParam().kind);
}

INSTANTIATE_TEST_SUITE_P(
    , KindOfText,
    testing::Values(KindRow{"ADate", "2026-01-31", ColumnKind::Date},
                    KindRow{"AMonthThatIsNone", "2026-13-01", ColumnKind::Char},
                    KindRow{"ADayThatIsNone", "2026-01-00", ColumnKind::Char},
                    KindRow{"ADateWithBlanks", "2026-01-31 ", ColumnKind::Char},
                    KindRow{"ATime", "23:59:59", ColumnKind::Time},
                    KindRow{"ATimeWithMilliseconds", "00:00:00.125", ColumnKind::Time},
                    KindRow{"ATimeWithMicroseconds", "00:00:00.125001", ColumnKind::Char},
                    KindRow{"ATimeWithoutSeconds", "23:59", ColumnKind::Char},
                    KindRow{"AnHourThatIsNone", "24:00:00", ColumnKind::Char},
                    KindRow{"AMoment", "2026-01-31T10:11:12", ColumnKind::DateTime},
                    KindRow{"AMomentOfTheWorld", "2026-01-31T10:11:12.5Z", ColumnKind::DateTime},
                    KindRow{"AMomentOfAnotherZone", "2026-01-31T10:11:12+02:00", ColumnKind::Char},
                    KindRow{"AMomentWithABlank", "2026-01-31 10:11:12", ColumnKind::Char},
                    KindRow{"ANumber", "20260131", ColumnKind::Char},
                    KindRow{"Nothing", "", ColumnKind::Char}),
    [](const auto& row) { return row.param.name; });

struct ValueRow {
    std::string name;
    ColumnKind kind;
    std::string text;
    app::Value value;
};
class TypedValue : public testing::TestWithParam<ValueRow> {};

TEST_P(TypedValue, Is) {
    EXPECT_EQ(app::TypedValue({.kind = GetParam().kind}, GetParam().text), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(
    , TypedValue,
    testing::Values(
        ValueRow{"AWholeNumber", ColumnKind::Integer, " 12", std::int64_t{12}},
        ValueRow{"TheLargestWholeNumber", ColumnKind::LargeInt, "9223372036854775807",
                 std::int64_t{9223372036854775807}},
        ValueRow{"AWholeNumberWithAFraction", ColumnKind::Integer, "1.5", 1.5},
        ValueRow{"AWholeNumberBeyond64Bits", ColumnKind::LargeInt, "18446744073709551615",
                 "18446744073709551615"},
        ValueRow{"ADecimal", ColumnKind::Decimal, "12.50", 12.5},
        ValueRow{"ADecimalWithManyZeros", ColumnKind::Decimal, "99.000000000000000", 99.0},
        ValueRow{"ADecimalWithSeventeenDigits", ColumnKind::Decimal, "0.12345678901234568",
                 0.12345678901234568},
        ValueRow{"ADecimalAsPrintedWithSeventeenDigits", ColumnKind::Decimal, "49.410499999999999",
                 49.4105},
        ValueRow{"ALongDecimal", ColumnKind::Decimal, "12345678901234567.89",
                 "12345678901234567.89"},
        ValueRow{"ALongWholeDecimal", ColumnKind::Decimal, "9007199254740993",
                 std::int64_t{9007199254740993}},
        ValueRow{"ALongFloat", ColumnKind::Float, "12345678901234567.89", 12345678901234567.89},
        ValueRow{"AWordInANumber", ColumnKind::Float, "n/a", "n/a"},
        ValueRow{"NothingInANumber", ColumnKind::Float, "  ", app::Value()},
        ValueRow{"NothingInAText", ColumnKind::Char, "", ""},
        ValueRow{"Truth", ColumnKind::Logical, "T", true},
        ValueRow{"ADate", ColumnKind::Date, "20260131", "2026-01-31"},
        ValueRow{"AMoment", ColumnKind::DateTime, "20260131101112345", "2026-01-31T10:11:12.345"}),
    [](const auto& row) { return row.param.name; });

}  // namespace
