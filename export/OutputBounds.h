// The box of what was written, and the one line of the header that holds it.
#pragma once

#include <limits>
#include <string>

namespace mif {

struct OutputBounds {
    double minX = std::numeric_limits<double>::max();
    double maxX = std::numeric_limits<double>::lowest();
    double minY = std::numeric_limits<double>::max();
    double maxY = std::numeric_limits<double>::lowest();

    // Not-a-number widens nothing.
    void Widen(double x, double y);

    // The length of the diagonal that pen widths are graded against, in world units: 1 when the
    // box is a point, infinite while nothing was written.
    double Diagonal() const;
};

// Appends the Bounds line. It has the same length whatever the bounds, so that it can be written
// again in its place; an axis without any coordinate gets zeros.
void AppendBoundsLine(std::string& text, const OutputBounds& bounds);

}  // namespace mif
