#include "app/feature/ColumnTypes.h"

#include "tests/support/Features.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

namespace {

using app::ColumnKind;
using app::LayerColumn;
using app::Value;
using support::Column;

LayerColumn Decimal(int width, int decimals) {
    LayerColumn column = Column("a", ColumnKind::Decimal, width);
    column.decimals = decimals;
    return column;
}

std::string TypeOf(const LayerColumn& column) {
    return std::string(app::ColumnKindName(column.kind)) + "(" + std::to_string(column.width) +
           "," + std::to_string(column.decimals) + ")";
}

struct WidenedRow {
    const char* name;
    LayerColumn left;
    LayerColumn right;
    const char* type;
};

std::ostream& operator<<(std::ostream& out, const WidenedRow& row) {
    return out << row.name;
}

class AWidenedColumn : public testing::TestWithParam<WidenedRow> {};

TEST_P(AWidenedColumn, HoldsBoth) {
    EXPECT_EQ(TypeOf(app::WidenedColumn(GetParam().left, GetParam().right)), GetParam().type);
    EXPECT_EQ(TypeOf(app::WidenedColumn(GetParam().right, GetParam().left)), GetParam().type);
}

INSTANTIATE_TEST_SUITE_P(
    , AWidenedColumn,
    testing::Values(
        WidenedRow{"OfTextsHasTheGreaterWidth", Column("a", ColumnKind::Char, 10),
                   Column("a", ColumnKind::Char, 20), "Char(20,0)"},
        WidenedRow{"OfATextWithoutWidthHasNone", Column("a", ColumnKind::Char, 10),
                   Column("a", ColumnKind::Char), "Char(0,0)"},
        WidenedRow{"OfWholeNumbersIsTheWider", Column("a", ColumnKind::SmallInt),
                   Column("a", ColumnKind::LargeInt), "LargeInt(0,0)"},
        WidenedRow{"OfTruthAndNumbersIsTheNumbers", Column("a", ColumnKind::Logical),
                   Column("a", ColumnKind::Integer), "Integer(0,0)"},
        WidenedRow{"OfDecimalsHasAllDigits", Decimal(8, 1), Decimal(6, 4), "Decimal(11,4)"},
        WidenedRow{"OfDecimalAndIntegerHasAllDigits", Decimal(8, 2),
                   Column("a", ColumnKind::Integer), "Decimal(13,2)"},
        WidenedRow{"OfDecimalAndLargeIntIsFloat", Decimal(8, 2), Column("a", ColumnKind::LargeInt),
                   "Float(0,0)"},
        WidenedRow{"OfDecimalsWithoutWidthHasNone", Decimal(0, 0), Decimal(6, 2), "Decimal(0,2)"},
        WidenedRow{"OfDecimalAndFloatIsFloat", Decimal(8, 2), Column("a", ColumnKind::Float),
                   "Float(0,0)"},
        WidenedRow{"OfDatesAndTimesOfDatesHasTimes", Column("a", ColumnKind::Date),
                   Column("a", ColumnKind::DateTime), "DateTime(0,0)"},
        WidenedRow{"OfTimesIsATime", Column("a", ColumnKind::Time), Column("a", ColumnKind::Time),
                   "Time(0,0)"},
        WidenedRow{"OfATimeAndADateIsText", Column("a", ColumnKind::Time),
                   Column("a", ColumnKind::Date), "Char(23,0)"},
        WidenedRow{"OfATextAndANumberIsText", Column("a", ColumnKind::Char, 5),
                   Column("a", ColumnKind::Integer), "Char(24,0)"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(TheNameOfAWidenedColumn, IsThatOfTheFirst) {
    EXPECT_EQ(
        app::WidenedColumn(Column("A", ColumnKind::Integer), Column("a", ColumnKind::Float)).name,
        "A");
}

TEST(AWidenedValue, IsInTheTermsOfItsColumn) {
    const LayerColumn text = Column("a", ColumnKind::Char);

    EXPECT_EQ(app::WidenedValue(text, std::int64_t{12}), Value(std::string("12")));
    EXPECT_EQ(app::WidenedValue(text, 0.5), Value(std::string("0.5")));
    EXPECT_EQ(app::WidenedValue(text, true), Value(std::string("true")));
    EXPECT_EQ(app::WidenedValue(text, std::monostate()), Value());
    EXPECT_EQ(app::WidenedValue(Column("a", ColumnKind::Integer), true), Value(std::int64_t{1}));
    EXPECT_EQ(app::WidenedValue(Column("a", ColumnKind::Logical), true), Value(true));
    EXPECT_EQ(app::WidenedValue(Column("a", ColumnKind::Float), std::int64_t{3}),
              Value(std::int64_t{3}));
    EXPECT_EQ(app::WidenedValue(Column("a", ColumnKind::DateTime), std::string("2026-01-31")),
              Value(std::string("2026-01-31T00:00:00")));
}

}  // namespace
