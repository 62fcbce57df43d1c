// The translation objects of one run. Each is handed to the host for every object of its kind in
// the file, so that reading a million objects allocates as much as reading the largest of them.
//
// The host may move parts out of an object, so every field is set again before it is handed over.
#pragma once

#include "host/shr/CParamList.h"
#include "host/zeio/TrObjects.h"

#include <string>
#include <vector>

namespace mif {

struct TranslationObjects {
    zeio::TrPolyline polyline;
    zeio::TrPolygon polygon;
    zeio::TrMarkerSet markerSet;
    zeio::TrRectangle rectangle;
    zeio::TrEllipse ellipse;
    zeio::TrText text;
    zeio::TrFont font;

    // The attributes of the row that several objects share.
    shr::CParamList sharedAttributes;

    std::vector<std::wstring> columnNames;  // of the header, as wide text
    shr::CParamList emptyRow;               // every column with an empty value
    std::string field;                      // the field last read
};

}  // namespace mif
