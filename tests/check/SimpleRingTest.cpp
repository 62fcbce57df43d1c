// Rings that certainly neither cross nor touch themselves.
#include "app/check/SimpleRing.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

struct RingRow {
    std::string name;  // letters and digits
    std::vector<shr::Vec2d> ring;
    bool isSimple;
};

class ARing : public testing::TestWithParam<RingRow> {};

TEST_P(ARing, IsKnownToBeSimpleOrNot) {
    app::SimpleRing tester;

    EXPECT_EQ(tester.IsSimple(GetParam().ring), GetParam().isSimple);
}

const RingRow kRings[] = {
    {"Square", {{0, 0}, {1, 0}, {1, 1}, {0, 1}, {0, 0}}, true},
    {"ClockwiseSquareLeftOpen", {{0, 0}, {0, 1}, {1, 1}, {1, 0}}, true},
    {"Star", {{4, 0}, {1, 1}, {0, 4}, {-1, 1}, {-4, 0}, {-1, -1}, {0, -4}, {1, -1}}, true},
    {"HorseshoeAroundItsMiddle",
     {{0, 0}, {9, 0}, {9, 9}, {8, 9}, {8, 1}, {1, 1}, {1, 9}, {0, 9}},
     true},
    {"BowTie", {{0, 0}, {2, 2}, {2, 0}, {0, 2}}, false},
    {"StarOfOneStroke", {{0, 4}, {2, -3}, {-4, 1}, {4, 1}, {-2, -3}}, false},
    {"TwiceAround", {{4, 0}, {0, 4}, {-4, 0}, {0, -4}, {3, 0}, {0, 3}, {-3, 0}, {0, -3}}, false},
    {"TouchingItself", {{0, 0}, {2, 0}, {2, 2}, {1, 0}, {0, 2}}, false},
    {"FoldedBack", {{0, 0}, {2, 0}, {1, 0}, {1, 1}}, false},
    {"TwoPoints", {{0, 0}, {1, 1}, {0, 0}}, false},
};
INSTANTIATE_TEST_SUITE_P(, ARing, testing::ValuesIn(kRings),
                         [](const auto& row) { return row.param.name; });

}  // namespace
