// Facts of objects, kept in order until they are wanted.
#include "app/mif/FactStore.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using app::FactStore;
using app::ObjectFacts;
using app::ObjectKind;

ObjectFacts PointWith(const std::string& clauses) {
    ObjectFacts facts;
    facts.kind = ObjectKind::Point;
    facts.handedOver = 1;
    facts.clauses = clauses;
    return facts;
}

TEST(AFactStore, HandsOutWhatItWasGivenInItsOrder) {
    FactStore store;
    store.Add(PointWith("Symbol (35, 0, 12)\n"));
    store.Add(PointWith(""));
    store.Add(PointWith("Symbol (35, 0, 12)\n"));
    store.Finish();

    FactStore::Reader reader(store);

    EXPECT_EQ(reader.Next()->clauses, "Symbol (35, 0, 12)\n");
    EXPECT_EQ(reader.Next()->clauses, "");
    EXPECT_EQ(reader.Next()->clauses, "Symbol (35, 0, 12)\n");
    EXPECT_EQ(reader.Next(), nullptr);
}

TEST(AFactStore, KeepsEveryPartOfAnObject) {
    ObjectFacts facts;
    facts.kind = ObjectKind::Collection;
    ObjectFacts region;
    region.kind = ObjectKind::Region;
    region.isOwn = true;
    region.points = {{1, 2}, {3, 4}, {5, 6}};
    region.partSizes = {1, 2};
    ObjectFacts text;
    text.kind = ObjectKind::Text;
    text.handedOver = 1;
    text.text = "one \"two\"";
    text.numbers = {1, 2, 3, 4, 5, 6};
    text.hasNumbers = true;
    ObjectFacts polyline;
    polyline.kind = ObjectKind::Pline;
    polyline.isMultiple = true;
    polyline.handedOver = 300;
    facts.members = {region, text, polyline};
    FactStore store;
    store.Add(facts);
    store.Finish();

    FactStore::Reader reader(store);
    const ObjectFacts& read = *reader.Next();

    ASSERT_EQ(read.members.size(), 3U);
    EXPECT_TRUE(read.members[0].isOwn);
    EXPECT_EQ(read.members[0].points, region.points);
    EXPECT_EQ(read.members[0].partSizes, region.partSizes);
    EXPECT_EQ(read.members[1].text, text.text);
    EXPECT_EQ(read.members[1].numbers, text.numbers);
    EXPECT_EQ(read.members[2].handedOver, 300U);
    EXPECT_EQ(read.handedOver, 0U);
}

TEST(AFactStore, RepeatsEqualFacts) {
    FactStore store;
    for (int i = 0; i < 1000; ++i) {
        store.Add(PointWith("Symbol (35, 0, 12)\n"));
    }
    store.Finish();

    FactStore::Reader reader(store);
    int count = 0;
    while (reader.Next() != nullptr) {
        ++count;
    }

    EXPECT_EQ(count, 1000);
}

TEST(AFactStore, HoldsMoreThanItKeepsInMemory) {
    FactStore store;
    const std::string filler(1000, 'x');
    const std::size_t count = 3 * FactStore::kMostInMemory / filler.size();
    for (std::size_t i = 0; i < count; ++i) {
        store.Add(PointWith(std::to_string(i) + filler));
    }
    store.Finish();

    for (int pass = 0; pass < 2; ++pass) {
        FactStore::Reader reader(store);
        for (std::size_t i = 0; i < count; ++i) {
            ASSERT_EQ(reader.Next()->clauses, std::to_string(i) + filler);
        }
        EXPECT_EQ(reader.Next(), nullptr);
    }
}

}  // namespace
