// Drawings made from a seed: what a host could send to an export.
#pragma once

#include "host/zeio/TrObjects.h"

#include <memory>
#include <random>
#include <string>
#include <vector>

namespace property_test {

class RandomDrawing {
public:
    explicit RandomDrawing(unsigned seed);

    // Columns first, then styles and graphic objects in any order.
    const std::vector<std::unique_ptr<zeio::TrBase>>& objects() const { return objects_; }
    const std::vector<std::wstring>& columns() const { return columns_; }

private:
    void AddColumns();
    void AddPen();
    void AddBrush();
    void AddPolyline();
    void AddPolygon();
    void AddMarkers();
    void AddRectangle();
    void AddEllipse();
    void AddText();

    int Pick(int from, int to);
    double Coordinate();
    shr::Color4b Color();
    std::vector<shr::Vec3d> Vertices(int count);
    std::wstring Value();
    void SetAttributes(zeio::TrGraphics& object);

    std::mt19937 random_;
    std::vector<std::wstring> columns_;
    std::vector<std::unique_ptr<zeio::TrBase>> objects_;
};

}  // namespace property_test
