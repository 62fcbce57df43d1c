// What a layer holds: its objects by kind, and its columns.
#pragma once

#include "app/feature/Feature.h"
#include "app/feature/LayerFacts.h"
#include "app/stats/ColumnStatistics.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace app {

// The objects of one kind.
struct KindStatistics {
    const char* name = "";  // "points", "lines", ...
    std::uint64_t count = 0;
    std::optional<shr::Box2d> extent = {};  // absent without any coordinate
};

class LayerStatistics {
public:
    explicit LayerStatistics(std::vector<LayerColumn> columns);

    void Take(const Feature& feature);

    std::uint64_t Features() const { return features_; }

    // One for each kind, also for those without objects, in the order of GeometryKind: the first is
    // "without place". The extent of collections is that of their members.
    std::span<const KindStatistics> Kinds() const { return kinds_; }

    // Of all objects; absent without any coordinate.
    std::optional<shr::Box2d> Extent() const;

    const std::vector<LayerColumn>& Columns() const { return columns_; }

    // In the order of the columns.
    const std::vector<ColumnStatistics>& Values() const { return values_; }

private:
    static constexpr std::size_t kKinds = static_cast<std::size_t>(GeometryKind::Collection) + 1;

    std::vector<LayerColumn> columns_;
    std::vector<ColumnStatistics> values_;
    std::array<KindStatistics, kKinds> kinds_;
    std::uint64_t features_ = 0;
};

}  // namespace app
