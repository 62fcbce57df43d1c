// Checks the coordinates of a .mif file's objects: where they lie, and what shapes they make.
#pragma once

#include "app/check/RingCheck.h"
#include "app/mif/FindingCounter.h"
#include "app/mif/MifHeader.h"
#include "app/mif/PassSink.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>

namespace app {

// "(24.5, 59.3)".
std::string PointText(const shr::Vec2d& point);

// Receives what is wrong with a ring.
using RingSink = std::function<void(FindingCode code, const std::string& message)>;

// Checks one ring of a region, which is not empty.
void CheckRing(std::span<const shr::Vec2d> ring, RingTester& tester, const RingSink& sink);

class ShapeCheck : public PassSink {
public:
    // Both must outlive the check. The header's bounds and system are those of the coordinates.
    ShapeCheck(const MifHeader& header, FindingCounter& report);

    bool WantsPoints() const override { return true; }
    void TakePoints(const ObjectPart& part) override;

private:
    void CheckPlaces(const ObjectPart& part);
    bool CheckPlace(const shr::Vec2d& point, const Place& place);
    static Place PlaceOf(const ObjectPart& part) {
        return {FileOfPair::Mif, part.line, part.object};
    }

    const MifHeader& header_;
    std::optional<shr::Box2d> bounds_;  // with the lower left corner first
    FindingCounter& report_;
    RingTester rings_;
    std::uint64_t outside_ = 0;  // the last object that was found to lie outside
};

}  // namespace app
