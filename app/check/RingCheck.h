// Finds what is wrong with one ring or line: unclosed, self-crossing, doubled vertices.
#pragma once

#include "app/check/SimpleRing.h"
#include "host/shr/Geometry.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace app {

// The number of vertices that equal the one before.
std::uint64_t CountDoubled(std::span<const shr::Vec2d> vertices);

enum class CrossingKind { Crosses, Touches, NotTested };

struct Crossing {
    CrossingKind kind = CrossingKind::NotTested;
    shr::Vec2d where;    // no meaning for NotTested
    std::string reason;  // for NotTested: why
};

// Tests rings for self-crossing. Holds what the geometry library needs between calls.
class RingTester {
public:
    // More vertices than this are not tested: the test needs several times their memory.
    static constexpr std::size_t kMaxVertices = 4'000'000;

    RingTester();
    ~RingTester();
    RingTester(const RingTester&) = delete;
    RingTester& operator=(const RingTester&) = delete;

    // The ring is closed for the test if it is not. Nothing when it is simple, or has fewer than
    // three different vertices.
    std::optional<Crossing> Test(std::span<const shr::Vec2d> ring);

private:
    void* context_;  // of the geometry library, owned
    SimpleRing simple_;
};

// True when the ring has at least three different vertices.
bool HasArea(std::span<const shr::Vec2d> ring);

}  // namespace app
