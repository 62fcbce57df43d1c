// Writing features to a pair through the module.
#include "app/formats/mif/ModuleTarget.h"

#include "app/base/Errors.h"
#include "tests/support/Features.h"
#include "tests/support/KeptMessages.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

namespace {

using app::GeometryKind;
using support::Column;
using support::PointAt;

class ModuleTarget : public testing::Test {
protected:
    ModuleTarget() {
        options_.noStore = true;
        options_.modulePath = QOLF_MODULE;
    }

    std::filesystem::path Path() const { return folder_.path() / "out.mif"; }

    bool Write(const std::vector<app::Feature>& features,
               const std::vector<app::LayerColumn>& columns = {}) {
        app::ModuleTarget target(Path(), options_, messages_.Reporter());
        app::LayerFacts layer;
        layer.columns = columns;
        target.BeginLayer(layer);
        for (app::Feature feature : features) {
            target.Write(feature);
        }
        return target.Finish();
    }

    // What follows DATA.
    std::string ObjectsOf(const std::vector<app::Feature>& features) {
        EXPECT_TRUE(Write(features));
        const std::string mif = folder_.Read("out.mif");
        std::filesystem::remove(Path());
        std::filesystem::remove(folder_.path() / "out.mid");
        return mif.substr(mif.find("\nDATA\n") + 6);
    }

    support::TemporaryFolder folder_;
    support::KeptMessages messages_;
    app::TargetOptions options_;
};

TEST_F(ModuleTarget, WritesEachKindOfGeometry) {
    EXPECT_NE(ObjectsOf({PointAt(1, 2)}).find("POINT 1 2"), std::string::npos);
    EXPECT_NE(ObjectsOf({support::LineThrough({{1, 2}, {3, 4}})}).find("PLINE 2\n1 2\n3 4\n"),
              std::string::npos);
    EXPECT_NE(ObjectsOf({support::RegionOf({support::Square(0, 0, 1)})}).find("REGION 1"),
              std::string::npos);
    EXPECT_NE(ObjectsOf({support::EllipseIn({0, 0, 2, 2})}).find("ELLIPSE 0 0 2 2"),
              std::string::npos);
}

TEST_F(ModuleTarget, WritesColumnsAndValues) {
    EXPECT_TRUE(
        Write({PointAt(1, 2, {std::int64_t{7}, std::string("Lake"), 0.5}),
               PointAt(1, 2, {std::monostate(), std::string(), 1e300})},
              {Column("id", app::ColumnKind::Integer), Column("name", app::ColumnKind::Char, 20),
               Column("size", app::ColumnKind::Float)}));

    EXPECT_NE(folder_.Read("out.mif").find("COLUMNS 3"), std::string::npos);
    EXPECT_EQ(folder_.Read("out.mid"), "\"7\" ,\"Lake\" ,\"0.5\"\n\"\" ,\"\" ,\"1e+300\"\n");
}

TEST_F(ModuleTarget, WritesMembersAndSectionsAsObjectsOfTheirOwn) {
    app::Feature collection;
    collection.geometry.kind = GeometryKind::Collection;
    collection.members = {PointAt(1, 2).geometry, PointAt(3, 4).geometry};
    app::Feature sections = support::LineThrough({{1, 2}, {3, 4}, {5, 6}, {7, 8}});
    sections.geometry.partSizes = {2, 2};

    const std::string points = ObjectsOf({collection});
    const std::string lines = ObjectsOf({sections});

    EXPECT_NE(points.find("POINT 1 2"), std::string::npos) << points;
    EXPECT_NE(points.find("POINT 3 4"), std::string::npos) << points;
    EXPECT_NE(lines.find("PLINE 2\n1 2\n3 4\n"), std::string::npos) << lines;
    EXPECT_NE(lines.find("PLINE 2\n5 6\n7 8\n"), std::string::npos) << lines;
}

TEST_F(ModuleTarget, LeavesOutPointsThatAreNotRendered) {
    options_.optionString = "RenderMarkers=0;ForgetOptions=1";

    const std::string objects = ObjectsOf({PointAt(1, 2), support::LineThrough({{1, 2}, {3, 4}})});

    EXPECT_EQ(objects.find("POINT"), std::string::npos) << objects;
    EXPECT_NE(objects.find("LINE"), std::string::npos) << objects;
}

TEST_F(ModuleTarget, LeavesOutFeaturesWithoutGeometryAndCountsThem) {
    static_cast<void>(Write({app::Feature{}, PointAt(1, 2)}));

    EXPECT_EQ(messages_.Text(), "qolf: warning: " + Path().string() +
                                    ": 1 feature has no geometry and was left out\n");
}

TEST_F(ModuleTarget, MakesNoFileOfNothing) {
    EXPECT_FALSE(Write({}));

    EXPECT_FALSE(folder_.Has("out.mif"));
    EXPECT_FALSE(folder_.Has("out.mid"));
}

TEST_F(ModuleTarget, LeavesNothingWithoutItsEnd) {
    {
        app::ModuleTarget target(Path(), options_, messages_.Reporter());
        app::Feature point = PointAt(1, 2);
        target.BeginLayer({});
        target.Write(point);
    }

    EXPECT_TRUE(std::filesystem::is_empty(folder_.path()));
}

TEST_F(ModuleTarget, RefusesAFileThatExists) {
    folder_.Write("out.mif", "old");

    EXPECT_THROW(app::ModuleTarget(Path(), options_, messages_.Reporter()), app::Failure);
    EXPECT_EQ(folder_.Read("out.mif"), "old");
}

struct ValueRow {
    const char* name;
    app::Value value;
    const char* text;
};

std::ostream& operator<<(std::ostream& out, const ValueRow& row) {
    return out << row.name;
}

class TextOfAValue : public testing::TestWithParam<ValueRow> {};

TEST_P(TextOfAValue, IsTheShortest) {
    EXPECT_EQ(app::TextOfValue(GetParam().value), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    , TextOfAValue,
    testing::Values(ValueRow{"Null", std::monostate(), ""}, ValueRow{"Text", std::string("x"), "x"},
                    ValueRow{"WholeNumber", std::int64_t{-7}, "-7"}, ValueRow{"Number", 0.1, "0.1"},
                    ValueRow{"True", true, "true"}, ValueRow{"False", false, "false"}),
    [](const auto& row) { return std::string(row.param.name); });

}  // namespace
