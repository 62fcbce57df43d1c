// Where labels go: around points, along lines, inside areas, and never over one another.
#include "app/draw/LabelPlaces.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace {

using app::LabelPlace;
using app::LabelPlaces;
using app::LabelSize;
using app::PageBox;
using app::PagePath;

constexpr app::PageSize kPage{200, 100};
constexpr LabelSize kLabel{40, 10};

TEST(LabelAroundAPoint, StandsToItsRight) {
    const auto place = LabelPlaces(kPage).AroundPoint({100, 50}, 5.0, kLabel);

    ASSERT_TRUE(place);
    EXPECT_GE(place->middle.x - kLabel.width / 2.0, 105.0);
    EXPECT_DOUBLE_EQ(place->middle.y, 50.0);
    EXPECT_EQ(place->angle, 0.0);
}

TEST(LabelAroundAPoint, StandsToItsLeftAtTheRightEdge) {
    const auto place = LabelPlaces(kPage).AroundPoint({190, 50}, 5.0, kLabel);

    ASSERT_TRUE(place);
    EXPECT_LE(place->middle.x + kLabel.width / 2.0, 185.0);
}

TEST(LabelAroundAPoint, GivesWayToAnEarlierOne) {
    LabelPlaces places(kPage);
    const auto first = places.AroundPoint({100, 50}, 5.0, kLabel);
    const auto second = places.AroundPoint({102, 50}, 5.0, kLabel);

    ASSERT_TRUE(first);
    ASSERT_TRUE(second);
    EXPECT_TRUE(std::abs(first->middle.x - second->middle.x) >= kLabel.width ||
                std::abs(first->middle.y - second->middle.y) >= kLabel.height);
}

TEST(LabelAroundAPoint, GivesWayToASymbolWhereItCan) {
    LabelPlaces places(kPage);
    places.Avoid({110, 45, 120, 55});

    const auto place = places.AroundPoint({100, 50}, 5.0, kLabel);

    ASSERT_TRUE(place);
    EXPECT_LT(place->middle.x, 105.0);
}

TEST(LabelAroundAPoint, StandsOnASymbolWhenThereIsNoOtherPlace) {
    LabelPlaces places(kPage);
    places.Avoid({0, 0, 200, 100});

    EXPECT_TRUE(places.AroundPoint({100, 50}, 5.0, kLabel));
}

TEST(LabelAroundAPoint, IsLeftOutWithoutRoom) {
    LabelPlaces places(kPage);
    int found = 0;
    for (int i = 0; i < 20; ++i) {
        found += places.AroundPoint({100, 50}, 5.0, kLabel) ? 1 : 0;
    }

    EXPECT_GE(found, 2);
    EXPECT_LE(found, 8);
    EXPECT_FALSE(LabelPlaces(kPage).AroundPoint({100, 50}, 5.0, {300, 10}));
}

TEST(LabelAroundAPoint, IsTheSameEachTime) {
    for (int round = 0; round < 2; ++round) {
        LabelPlaces places(kPage);
        int found = 0;
        for (int i = 0; i < 200; ++i) {
            found += places.AroundPoint({i * 37.0 - 200.0 * (i * 37 / 200), i * 0.5}, 3.0, kLabel)
                         ? 1
                         : 0;
        }
        EXPECT_GT(found, 10);
        EXPECT_LT(found, 60);
    }
}

TEST(LabelAlongALine, IsTurnedLikeIt) {
    const auto place = LabelPlaces(kPage).AlongLine({{50, 10}, {130, 90}}, kLabel, "a");

    ASSERT_TRUE(place);
    EXPECT_NEAR(place->angle, std::numbers::pi / 4.0, 1e-9);
    EXPECT_NEAR(place->middle.x, 90.0, 1e-9);
    EXPECT_NEAR(place->middle.y, 50.0, 1e-9);
}

TEST(LabelAlongALine, StaysUprightOnALineToTheLeft) {
    const auto place = LabelPlaces(kPage).AlongLine({{150, 60}, {50, 50}}, kLabel, "a");

    ASSERT_TRUE(place);
    EXPECT_LT(std::abs(place->angle), std::numbers::pi / 2.0);
}

TEST(LabelAlongALine, KeepsOffSharpBends) {
    PagePath zigzag;
    for (int i = 0; i < 20; ++i) {
        zigzag.push_back({10.0 * i, i % 2 == 0 ? 40.0 : 60.0});
    }

    EXPECT_FALSE(LabelPlaces(kPage).AlongLine(zigzag, kLabel, "a"));
}

TEST(LabelAlongALine, NeedsALineOfItsLength) {
    EXPECT_FALSE(LabelPlaces(kPage).AlongLine({{100, 50}, {130, 50}}, kLabel, "a"));
    EXPECT_FALSE(LabelPlaces(kPage).AlongLine({}, kLabel, "a"));
}

TEST(LabelAlongALine, DoesNotRepeatItselfNearby) {
    LabelPlaces places(kPage);

    EXPECT_TRUE(places.AlongLine({{10, 20}, {100, 20}}, kLabel, "Main Street"));
    EXPECT_FALSE(places.AlongLine({{10, 60}, {100, 60}}, kLabel, "Main Street"));
    EXPECT_TRUE(places.AlongLine({{10, 60}, {100, 60}}, kLabel, "Side Street"));
}

TEST(LabelAlongALine, KeepsOffWhatIsBlocked) {
    LabelPlaces places(kPage);
    places.Block({{100, 50}, std::numbers::pi / 2.0}, {100, 20});

    const auto place = places.AlongLine({{0, 50}, {200, 50}}, kLabel, "a");

    ASSERT_TRUE(place);
    EXPECT_GE(std::abs(place->middle.x - 100.0), kLabel.width / 2.0 + 10.0);
}

TEST(LabelInAnArea, StandsInItsWidestPart) {
    // A narrow tower on a wide foot.
    const PagePath area{{50, 10}, {60, 10}, {60, 60}, {150, 60}, {150, 90}, {50, 90}};

    const auto place = LabelPlaces(kPage).InsideArea({area}, kLabel);

    ASSERT_TRUE(place);
    EXPECT_GE(place->middle.y - kLabel.height / 2.0, 60.0);
    EXPECT_GE(place->middle.x - kLabel.width / 2.0, 50.0);
    EXPECT_LE(place->middle.x + kLabel.width / 2.0, 150.0);
}

TEST(LabelInAnArea, KeepsOutOfHoles) {
    const PagePath outer{{10, 10}, {190, 10}, {190, 90}, {10, 90}};
    const PagePath hole{{60, 20}, {180, 20}, {180, 80}, {60, 80}};

    const auto place = LabelPlaces(kPage).InsideArea({outer, hole}, kLabel);

    ASSERT_TRUE(place);
    EXPECT_LE(place->middle.x + kLabel.width / 2.0, 60.0);
}

TEST(LabelInAnArea, IsLeftOutOfAnAreaThatIsTooSmall) {
    EXPECT_FALSE(LabelPlaces(kPage).InsideArea({{{10, 10}, {40, 10}, {40, 90}, {10, 90}}}, kLabel));
    EXPECT_FALSE(LabelPlaces(kPage).InsideArea({{{10, 10}, {90, 10}, {90, 15}}}, kLabel));
    EXPECT_FALSE(LabelPlaces(kPage).InsideArea({}, kLabel));
}

TEST(TakenCells, AreFreeUntilTaken) {
    app::TakenCells cells(kPage);

    EXPECT_TRUE(cells.IsFree({10, 10, 20, 20}));
    cells.Take({15, 15, 30, 30});

    EXPECT_FALSE(cells.IsFree({10, 10, 20, 20}));
    EXPECT_TRUE(cells.IsFree({34, 34, 40, 40}));
}

TEST(TakenCells, AreNeverFreeOffThePage) {
    app::TakenCells cells(kPage);
    cells.Take({-100, -100, -50, -50});

    EXPECT_FALSE(cells.IsFree({-1, 10, 20, 20}));
    EXPECT_FALSE(cells.IsFree({190, 10, 201, 20}));
    EXPECT_TRUE(cells.IsFree({0, 0, 10, 10}));
}

}  // namespace
