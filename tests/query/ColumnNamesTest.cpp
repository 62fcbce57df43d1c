#include "app/query/ColumnNames.h"

#include "tests/support/Features.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

namespace {

using app::ColumnKind;
using support::Column;

const std::vector<app::LayerColumn> kColumns = {Column("Name", ColumnKind::Char),
                                                Column("NAME", ColumnKind::Char),
                                                Column("Höhe", ColumnKind::Float)};

TEST(FindColumn, FindsTheOneOfExactlyThisName) {
    EXPECT_EQ(app::FindColumn(kColumns, "NAME"), 1U);
}

TEST(FindColumn, FindsTheFirstThatDiffersInCaseOnly) {
    EXPECT_EQ(app::FindColumn(kColumns, "name"), 0U);
    EXPECT_EQ(app::FindColumn(kColumns, "HÖHE"), 2U);
}

TEST(FindColumn, FindsNoOtherName) {
    EXPECT_EQ(app::FindColumn(kColumns, "names"), std::nullopt);
    EXPECT_EQ(app::FindColumn({}, "name"), std::nullopt);
}

TEST(NoSuchColumn, SuggestsWhatWasMeantAndListsAll) {
    EXPECT_EQ(app::NoSuchColumn(kColumns, "hoehe"),
              "there is no column \"hoehe\"; the columns are: Name, NAME, Höhe");
    EXPECT_EQ(app::NoSuchColumn(kColumns, "nmae"),
              "there is no column \"nmae\"; did you mean \"Name\"? The columns are: Name, NAME, "
              "Höhe");
    EXPECT_EQ(app::NoSuchColumn({}, "x"), "there is no column \"x\"; there are no columns at all");
}

}  // namespace
