#include "app/diff/SharedColumns.h"

#include "app/base/Errors.h"
#include "tests/support/Features.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

namespace {

using app::ColumnKind;
using app::ShareColumns;
using app::Value;
using support::Column;
using Names = std::vector<std::string>;
using Places = std::vector<std::size_t>;

const std::vector<app::LayerColumn> kLeft = {Column("id", ColumnKind::Integer),
                                             Column("Name", ColumnKind::Char),
                                             Column("lanes", ColumnKind::SmallInt)};
const std::vector<app::LayerColumn> kRight = {Column("width", ColumnKind::Float),
                                              Column("NAME", ColumnKind::Char),
                                              Column("id", ColumnKind::LargeInt)};

TEST(SharedColumns, AreThoseOfBothByName) {
    const app::SharedColumns shared = ShareColumns(kLeft, kRight, {});

    EXPECT_EQ(shared.names, (Names{"id", "Name"}));
    EXPECT_EQ(shared.inLeft, (Places{0, 1}));
    EXPECT_EQ(shared.inRight, (Places{2, 1}));
    EXPECT_EQ(shared.onlyInLeft, Names{"lanes"});
    EXPECT_EQ(shared.onlyInRight, Names{"width"});
    EXPECT_FALSE(shared.key);
}

TEST(SharedColumns, AreThoseThatAreSelected) {
    const app::SharedColumns shared = ShareColumns(kLeft, kRight, {.select = {"name"}});

    EXPECT_EQ(shared.names, Names{"Name"});
    EXPECT_TRUE(shared.onlyInLeft.empty());
    EXPECT_TRUE(shared.onlyInRight.empty());
}

TEST(SharedColumns, HaveTheKeyAmongThem) {
    EXPECT_EQ(ShareColumns(kLeft, kRight, {.key = "ID"}).key, 0U);

    const app::SharedColumns selected =
        ShareColumns(kLeft, kRight, {.select = {"name"}, .key = "id"});
    EXPECT_EQ(selected.names, (Names{"Name", "id"}));
    EXPECT_EQ(selected.key, 1U);
}

TEST(SharedColumns, NeedTheNamedOnesOnBothSides) {
    try {
        static_cast<void>(
            ShareColumns(kLeft, kRight, {.key = "lanes", .leftSubject = "a", .rightSubject = "b"}));
        FAIL() << "the key is not refused";
    } catch (const app::Failure& failure) {
        EXPECT_STREQ(failure.what(), "b: --key: there is no column \"lanes\"; the columns are: "
                                     "width, NAME, id");
    }
}

struct ValuesRow {
    const char* name;
    Value left;
    Value right;
    bool areSame;
};

std::ostream& operator<<(std::ostream& out, const ValuesRow& row) {
    return out << row.name;
}

class TwoValues : public testing::TestWithParam<ValuesRow> {};

TEST_P(TwoValues, AreTheSameOrNot) {
    EXPECT_EQ(app::IsSameValue(GetParam().left, GetParam().right), GetParam().areSame);
    EXPECT_EQ(app::IsSameValue(GetParam().right, GetParam().left), GetParam().areSame);
}

Value Text(const char* text) {
    return std::string(text);
}

INSTANTIATE_TEST_SUITE_P(
    , TwoValues,
    testing::Values(
        ValuesRow{"Nulls", Value(), Value(), true},
        ValuesRow{"NullAndAnEmptyText", Value(), Text(""), true},
        ValuesRow{"NullAndZero", Value(), std::int64_t{0}, false},
        ValuesRow{"Texts", Text("a"), Text("a"), true},
        ValuesRow{"TextsThatDifferInCase", Text("a"), Text("A"), false},
        ValuesRow{"WholeAndReal", std::int64_t{5}, 5.0, true},
        ValuesRow{"WholeAndFraction", std::int64_t{5}, 5.5, false},
        ValuesRow{"WholeBeyondDoubles", std::int64_t{9007199254740993}, 9007199254740992.0, false},
        ValuesRow{"LargestWhole", std::int64_t{9223372036854775807}, 9223372036854775808.0, false},
        ValuesRow{"TruthAndOne", true, std::int64_t{1}, true},
        ValuesRow{"FalsehoodAndOne", false, std::int64_t{1}, false},
        ValuesRow{"TextAndNumber", Text("5"), std::int64_t{5}, false},
        ValuesRow{"TimesWithMilliseconds", Text("10:11:12"), Text("10:11:12.000"), true},
        ValuesRow{"TimesThatDiffer", Text("10:11:12"), Text("10:11:12.5"), false},
        ValuesRow{"TimesOfDates", Text("2026-01-31T10:11:12.500Z"), Text("2026-01-31T10:11:12.5"),
                  true},
        ValuesRow{"DateAndTimeOfIt", Text("2026-01-31"), Text("2026-01-31T00:00:00"), false}),
    [](const auto& row) { return std::string(row.param.name); });

}  // namespace
