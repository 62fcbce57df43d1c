// What one run keeps from object to object: the column names, and memory that is used again.
//
// Translation objects are not among it. Each is made afresh and handed over once, so nothing that
// the host writes into one can reach the next.
#pragma once

#include "host/shr/Geometry.h"

#include <string>
#include <vector>

namespace mif {

struct RunMemory {
    std::vector<std::wstring> columnNames;  // of the header, as wide text

    // The memory of the last object's vertices and of the last marker set's font: reading a million
    // objects allocates as much for them as reading the largest one. What is in it does not count.
    std::vector<shr::Vec3d> vertices;
    std::wstring markerFont;

    std::string field;  // the field last read
};

}  // namespace mif
