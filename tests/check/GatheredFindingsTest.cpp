// Findings that hit every object or row are said once.
#include "app/check/GatheredFindings.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace {

using app::FileOfPair;
using app::FindingCode;
using app::ObjectKind;

class KeepingSink : public app::FindingSink {
public:
    void Add(const app::Finding& finding) override { findings.push_back(finding); }

    std::vector<app::Finding> findings;
};

class GatheredFindings : public testing::Test {
protected:
    static constexpr FindingCode kOfObjects = FindingCode::ClauseWithoutEffect;
    static constexpr FindingCode kOfRows = FindingCode::RowQuoteUnclosed;

    GatheredFindings() : counter_(gathered_, "a.mif", "a.mid", 0) {}

    void SetObjects(ObjectKind kind, std::uint64_t count) {
        pair_.objects.byKind[static_cast<std::size_t>(kind)] = count;
    }

    // Finds something at each object of the kind, from the number `first` on.
    void FindAtObjects(ObjectKind kind, std::uint64_t first, std::uint64_t count) {
        counter_.SetKind(kind);
        for (std::uint64_t object = first; object < first + count; ++object) {
            counter_.Add(kOfObjects, {FileOfPair::Mif, 10 + object, object}, "a brush");
        }
    }

    void FindAtRows(std::uint64_t count) {
        for (std::uint64_t row = 1; row <= count; ++row) {
            counter_.Add(kOfRows, {FileOfPair::Mid, row, row}, "a quote");
        }
    }

    // Passes all on. Returns the messages.
    std::vector<std::string> PassedOn() {
        pair_.findings = counter_.Counts();
        gathered_.PassOn(sink_, pair_);
        std::vector<std::string> messages;
        for (const app::Finding& finding : sink_.findings) {
            messages.push_back(finding.message);
        }
        return messages;
    }

    const app::FindingCount& CountOf(FindingCode code) const {
        return pair_.findings[static_cast<std::size_t>(code)];
    }

    app::GatheredFindings gathered_;
    app::FindingCounter counter_;
    app::CheckedPair pair_;
    KeepingSink sink_;
};

using Messages = std::vector<std::string>;

TEST_F(GatheredFindings, SayOnceWhatHitsAllObjectsOfAKind) {
    SetObjects(ObjectKind::Line, 3);
    SetObjects(ObjectKind::Point, 5);
    FindAtObjects(ObjectKind::Line, 6, 3);

    EXPECT_EQ(PassedOn(), Messages{"all 3 lines, here the first one: a brush"});
    EXPECT_EQ(sink_.findings.front().line, 16U);
    EXPECT_EQ(sink_.findings.front().object, 0U);
    EXPECT_EQ(sink_.findings.front().count, 3U);
}

TEST_F(GatheredFindings, NameEveryKindThatWasHit) {
    SetObjects(ObjectKind::Point, 2);
    SetObjects(ObjectKind::Text, 1);
    FindAtObjects(ObjectKind::Point, 1, 2);
    FindAtObjects(ObjectKind::Text, 3, 1);

    EXPECT_EQ(PassedOn(), Messages{"all 2 points and 1 text, here the first one: a brush"});
}

TEST_F(GatheredFindings, SayOnceWhatHitsAllRows) {
    pair_.rows = 4;
    FindAtRows(4);

    EXPECT_EQ(PassedOn(), Messages{"all 4 rows, here the first one: a quote"});
}

TEST_F(GatheredFindings, TakeThoseThatTheyLeaveOutForReported) {
    SetObjects(ObjectKind::Line, 3);
    FindAtObjects(ObjectKind::Line, 1, 3);

    PassedOn();

    EXPECT_EQ(CountOf(kOfObjects).found, 3U);
    EXPECT_EQ(CountOf(kOfObjects).reported, 3U);
}

TEST_F(GatheredFindings, NameFewObjectsOneByOne) {
    SetObjects(ObjectKind::Line, 2);
    FindAtObjects(ObjectKind::Line, 1, 2);

    EXPECT_EQ(PassedOn(), (Messages{"a brush", "a brush"}));
    EXPECT_EQ(sink_.findings.back().object, 2U);
}

TEST_F(GatheredFindings, NameEachObjectWhenOneOfItsKindIsRight) {
    SetObjects(ObjectKind::Line, 4);
    FindAtObjects(ObjectKind::Line, 1, 3);

    EXPECT_EQ(PassedOn(), (Messages{"a brush", "a brush", "a brush"}));
}

TEST_F(GatheredFindings, NameEachRowWhenOneIsRight) {
    pair_.rows = 4;
    FindAtRows(3);

    EXPECT_EQ(PassedOn(), (Messages{"a quote", "a quote", "a quote"}));
}

TEST_F(GatheredFindings, NameEachWhenAnObjectHasTwo) {
    SetObjects(ObjectKind::Line, 3);
    FindAtObjects(ObjectKind::Line, 1, 3);
    FindAtObjects(ObjectKind::Line, 3, 1);

    EXPECT_EQ(PassedOn().size(), 4U);
}

TEST_F(GatheredFindings, NameEachInAFileWithMembersOfCollections) {
    SetObjects(ObjectKind::Line, 3);
    pair_.objects.members = 2;
    FindAtObjects(ObjectKind::Line, 1, 3);

    EXPECT_EQ(PassedOn().size(), 3U);
}

TEST_F(GatheredFindings, KeepTheirOrder) {
    SetObjects(ObjectKind::Line, 3);
    pair_.rows = 9;
    FindAtObjects(ObjectKind::Line, 1, 2);
    FindAtRows(1);
    FindAtObjects(ObjectKind::Line, 3, 1);

    EXPECT_EQ(PassedOn(), (Messages{"all 3 lines, here the first one: a brush", "a quote"}));
}

}  // namespace
