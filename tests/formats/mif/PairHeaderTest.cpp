#include "app/formats/mif/PairHeader.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using app::ColumnKind;

app::PairHeader SomeHeader() {
    return {.version = 450,
            .charset = "WindowsLatin1",
            .delimiter = ';',
            .coordSys = "CoordSys Earth Projection 8, 104, \"m\", 27, 0, 0.9996, 500000, 0",
            .boundsPlace = app::BoundsPlace::LineBehind,
            .bounds = {499000, 6499000.5, 502000, 6502000},
            .columns = {{"name", ColumnKind::Char, 24, 0},
                        {"count", ColumnKind::LargeInt, 0, 0},
                        {"price", ColumnKind::Decimal, 10, 2}}};
}

TEST(AHeader, HasALineForEverything) {
    EXPECT_EQ(app::HeaderText(SomeHeader()),
              "Version 450\nCharset \"WindowsLatin1\"\nDelimiter \";\"\n"
              "CoordSys Earth Projection 8, 104, \"m\", 27, 0, 0.9996, 500000, 0\n"
              "  Bounds (499000, 6499000.5) (502000, 6502000)\n"
              "Columns 3\n  name Char(24)\n  count LargeInt\n  price Decimal(10,2)\n\nData\n");
}

TEST(AHeader, HasTheBoundsBehindAShortClause) {
    app::PairHeader header = SomeHeader();
    header.coordSys = "CoordSys Earth Projection 1, 104";
    header.boundsPlace = app::BoundsPlace::SameLine;

    EXPECT_NE(app::HeaderText(header).find("\nCoordSys Earth Projection 1, 104 Bounds (499000, "
                                           "6499000.5) (502000, 6502000)\nColumns 3\n"),
              std::string::npos);
}

TEST(AHeader, HasNoBoundsWithoutAClause) {
    app::PairHeader header = SomeHeader();
    header.coordSys = "";

    EXPECT_NE(app::HeaderText(header).find("\nDelimiter \";\"\nColumns 3\n"), std::string::npos);
}

TEST(AHeader, FillsTheLineBeforeDataUpToASize) {
    const std::string text = app::HeaderText(SomeHeader());

    const std::string filled = app::HeaderText(SomeHeader(), text.size() + 5);

    EXPECT_EQ(filled.size(), text.size() + 5);
    EXPECT_TRUE(filled.ends_with("Decimal(10,2)\n     \nData\n"));
}

TEST(AHeader, HasRoomForAllThatIsKnownLater) {
    app::PairHeader header = SomeHeader();
    const std::size_t most = app::MostHeaderBytes(header);
    header.version = 900;
    header.bounds = {-2.2250738585072014e-308, -1.2345678901234567e-300, 1.2345678901234567e+300,
                     2.2250738585072014e+300};
    header.columns[0].width = 254;
    header.columns[1] = {"count", ColumnKind::Char, 254, 0};

    EXPECT_LE(app::HeaderText(header).size(), most);
}

TEST(UsableBounds, AreTheBoxWithAnExtent) {
    EXPECT_EQ(app::UsableBounds({1, 2, 3, 4}), (shr::Box2d{1, 2, 3, 4}));
}

TEST(UsableBounds, LieAroundAPoint) {
    EXPECT_EQ(app::UsableBounds({5, 2, 5, 4}), (shr::Box2d{4, 2, 6, 4}));
    EXPECT_EQ(app::UsableBounds({6e6, 2, 6e6, 4}), (shr::Box2d{6e6 - 6, 2, 6e6 + 6, 4}));
}

TEST(UsableBounds, AreOneUnitForNothing) {
    EXPECT_EQ(app::UsableBounds({1, 1, 0, 0}), (shr::Box2d{0, 0, 1, 1}));
}

TEST(TheVersionOfAColumn, IsLaterForTimesAnd64Bits) {
    EXPECT_EQ(app::VersionOf(ColumnKind::Date), 300);
    EXPECT_EQ(app::VersionOf(ColumnKind::Time), 900);
    EXPECT_EQ(app::VersionOf(ColumnKind::DateTime), 900);
    EXPECT_EQ(app::VersionOf(ColumnKind::LargeInt), 900);
}

}  // namespace
