// Translation objects as one line of text, for a comparison that reads well when it fails.
#pragma once

#include "host/zeio/TrObjects.h"

#include <string>

namespace support {

// For example "Polyline 0,0 1,1.5 {NAME=A}", "Pen style=1 color=0,0,255,255 relative width=10",
// "Polygon parts=3,3 0,0 ...". z is written only when it is not 0, attributes only when there are
// any. Numbers read back to the same double.
std::string DescribeObject(const zeio::TrBase& object);

std::string DescribeNumber(double value);

}  // namespace support
