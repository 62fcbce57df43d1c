// Features in a few words, and a target that keeps what it is given.
#pragma once

#include "app/feature/Target.h"

#include <string>
#include <vector>

namespace support {

app::LayerColumn Column(std::string name, app::ColumnKind kind, int width = 0);

app::Feature PointAt(double x, double y, std::vector<app::Value> values = {});
app::Feature PointsAt(std::vector<shr::Vec2d> points);
app::Feature LineThrough(std::vector<shr::Vec2d> points);
app::Feature RegionOf(const std::vector<std::vector<shr::Vec2d>>& rings);
app::Feature EllipseIn(const shr::Box2d& box);

// Four corners, open.
std::vector<shr::Vec2d> Square(double x, double y, double side);

class KeepingTarget : public app::Target {
public:
    void BeginLayer(const app::LayerFacts& layer) override { layers.push_back(layer); }
    void Write(app::Feature& feature) override { features.push_back(feature); }
    bool Finish() override { return !features.empty(); }

    std::vector<app::LayerFacts> layers;
    std::vector<app::Feature> features;
};

}  // namespace support
