// Translation objects made from the bytes of an input: any value may be in any field.
#pragma once

#include "host/zeio/TrObjects.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace fuzz {

// Takes values off the front of the bytes; zeros when they are used up.
class Bytes {
public:
    Bytes(const std::uint8_t* data, std::size_t size) : data_(data), left_(size) {}

    bool IsEmpty() const { return left_ == 0; }
    std::uint8_t Byte();
    double Number();  // any double

    // Up to 15 characters, without what the clauses of texts and fonts do not escape: quotes and
    // line ends.
    std::wstring Text();
    shr::Color4b Color();
    std::vector<shr::Vec3d> Vertices();  // up to 19

private:
    const std::uint8_t* data_;
    std::size_t left_;
};

zeio::TrPolyline MakePolyline(Bytes& bytes);

// Part sizes are whatever the bytes say: negative ones and too large ones too.
zeio::TrPolygon MakePolygon(Bytes& bytes);
zeio::TrMarkerSet MakeMarkers(Bytes& bytes);
zeio::TrRectangle MakeRectangle(Bytes& bytes);
zeio::TrEllipse MakeEllipse(Bytes& bytes);
zeio::TrText MakeText(Bytes& bytes);
zeio::TrPen MakePen(Bytes& bytes);
zeio::TrBrush MakeBrush(Bytes& bytes);
zeio::TrFont MakeFont(Bytes& bytes);
zeio::TrNamedIds MakeColumns(Bytes& bytes);  // up to 4
zeio::TrInitGraphicsExp MakeQuestions(Bytes& bytes);

// The rings of a polygon that have this many vertices at least, counted as an export filter takes
// the part sizes: as far as they fit the list.
std::size_t RingsWith(const zeio::TrPolygon& polygon, std::size_t vertices);

}  // namespace fuzz
