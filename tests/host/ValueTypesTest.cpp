#include "host/shr/Color4b.h"
#include "host/zeio/ImportFileInfo.h"
#include "host/zeio/TrObjects.h"

#include <gtest/gtest.h>

namespace {

TEST(Color4b, FromThreeBytesIsOpaque) {
    EXPECT_EQ(shr::Color4b(1, 2, 3).alpha, 255);
}

TEST(Color4b, FromThePackedValueZeroIsFourZeros) {
    EXPECT_EQ(shr::Color4b(0U), shr::Color4b(0, 0, 0, 0));
}

TEST(Color4b, FromAPackedValueTakesAlphaRedGreenAndBlueFromTheTop) {
    EXPECT_EQ(shr::Color4b(0x04010203U), shr::Color4b(1, 2, 3, 4));
}

TEST(ImportFileInfo, KeepsTheFirstTextUnderAKey) {
    zeio::ImportFileInfo info;

    info.Add(L"HDR_CHARSET", L"Neutral");
    info.Add(L"HDR_CHARSET", L"WindowsLatin1");

    EXPECT_EQ(boost::any_cast<std::wstring>(info.entries.at(L"HDR_CHARSET")), L"Neutral");
}

TEST(ImportFileInfo, HoldsValuesOfEveryKindInACopy) {
    zeio::ImportFileInfo info;
    info.entries.emplace(L"wide", 5LL);
    info.entries.emplace(L"real", 2.5);

    const zeio::ImportFileInfo copy = info;

    EXPECT_EQ(boost::any_cast<long long>(copy.entries.at(L"wide")), 5);
    EXPECT_EQ(boost::any_cast<double>(copy.entries.at(L"real")), 2.5);
}

TEST(TrText, HasAnEmptyBoxUntilOneIsSet) {
    EXPECT_TRUE(zeio::TrText(L"", shr::Vec3d::ZERO).box.IsEmpty());
}

TEST(TrPen, StartsWithoutStyleColourAndWidth) {
    const zeio::TrPen pen;

    EXPECT_EQ(pen.style, zeio::TrPen::Style::Undefined);
    EXPECT_EQ(pen.color, shr::Color4b(0, 0, 0, 0));
    EXPECT_EQ(pen.width, 0.0);
}

TEST(TrPen, IsAssignedWithItsDashes) {
    zeio::TrPen dashed(zeio::TrPen::Style::CustomDash, shr::Color4b(9, 8, 7), 0.5);
    dashed.isRelative = false;
    dashed.dashes = {3, 1};
    zeio::TrPen pen;

    pen = dashed;

    EXPECT_EQ(pen.style, zeio::TrPen::Style::CustomDash);
    EXPECT_EQ(pen.color, shr::Color4b(9, 8, 7));
    EXPECT_EQ(pen.width, 0.5);
    EXPECT_FALSE(pen.isRelative);
    EXPECT_EQ(pen.dashes, (std::vector<float>{3, 1}));
}

TEST(TrBrush, IsAssignedWithItsColours) {
    zeio::TrBrush hatched(zeio::TrBrush::Pattern::Cross);
    hatched.fore = shr::Color4b(1, 2, 3);
    hatched.back = shr::Color4b(4, 5, 6, 7);
    zeio::TrBrush brush;

    brush = hatched;

    EXPECT_EQ(brush.pattern, zeio::TrBrush::Pattern::Cross);
    EXPECT_EQ(brush.fore, shr::Color4b(1, 2, 3));
    EXPECT_EQ(brush.back, shr::Color4b(4, 5, 6, 7));
}

TEST(TrFont, IsAssignedWithItsFlags) {
    zeio::TrFont bold(L"Courier");
    bold.flags = 7 | zeio::TrFont::kItalic;
    zeio::TrFont font;

    font = bold;

    EXPECT_EQ(font.faceName, L"Courier");
    EXPECT_EQ(font.flags, 0x17);
}

TEST(TrCRS, HasNoDefinitionAtFirst) {
    EXPECT_EQ(zeio::TrCRS().GetCS(), nullptr);
}

TEST(TrCRS, KeepsACopyOfTheDefinition) {
    zeio::TrCRS crs;
    {
        const gcs::PlaneDef plane(100.0);
        crs.SetCS(&plane);
    }

    ASSERT_NE(crs.GetCS(), nullptr);
    EXPECT_EQ(crs.GetCS()->Type(), gcs::CSType::Nonearth);
    EXPECT_EQ(crs.GetCS()->UnitFactor(), 100.0);
}

TEST(TrCRS, LosesItsDefinitionToNull) {
    zeio::TrCRS crs;
    const gcs::PlaneDef plane(1.0);
    crs.SetCS(&plane);

    crs.SetCS(nullptr);

    EXPECT_EQ(crs.GetCS(), nullptr);
}

TEST(TrCRS, IsAssignedByCopyingTheDefinition) {
    zeio::TrCRS first;
    const gcs::PlaneDef plane(1000.0);
    first.SetCS(&plane);
    zeio::TrCRS second;

    second = first;

    ASSERT_NE(second.GetCS(), nullptr);
    EXPECT_NE(second.GetCS(), first.GetCS());
    EXPECT_EQ(second.GetCS()->UnitFactor(), 1000.0);
}

TEST(TrCRS, TakesItsOwnDefinitionAgain) {
    zeio::TrCRS crs;
    const gcs::PlaneDef plane(7.0);
    crs.SetCS(&plane);

    crs.SetCS(crs.GetCS());

    EXPECT_EQ(crs.GetCS()->UnitFactor(), 7.0);
}

}  // namespace
