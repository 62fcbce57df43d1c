// What the check of a header found out for the checks of the objects and the rows.
#pragma once

#include "app/mif/HeaderScan.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace app::check {

struct Box {
    double minX = 0.0;
    double minY = 0.0;
    double maxX = 0.0;
    double maxY = 0.0;

    bool Holds(double x, double y) const {
        // The corners of a declared box are often rounded.
        const double slack = 1e-9 * std::max(maxX - minX, maxY - minY) + 1e-6;
        return x >= minX - slack && x <= maxX + slack && y >= minY - slack && y <= maxY + slack;
    }
};

struct CheckedHeader {
    bool hasData = false;
    std::string charset;
    std::string delimiter = "\t";
    std::vector<Column> columns;
    bool isCoordSysGiven = false;
    std::optional<Box> bounds;  // declared
    std::optional<Box> earth;   // what coordinates of the declared system can be
};

}  // namespace app::check
