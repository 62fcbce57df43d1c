// Whole pairs of files, byte for byte: one for each kind of object, for the style mappings and for
// each form of the COORDSYS clause. UPDATE_GOLDENS=1 rewrites them; they are of systems with LF
// line ends, and where lines end with CR LF a file has one in the place of every LF and is else the
// same.
#include "host/iolib/Styles.h"
#include "tests/export/CoordinateSystems.h"
#include "tests/export/ExportRun.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <numbers>
#include <string>

namespace mif::test {

namespace {

using gcs::DatumMethod;
using gcs::ProjectionMethod;
using zeio::TrPen;
using enum gcs::ProjectionParameterID;

struct GoldenRow {
    std::string name;  // of the files, with '_' for '-'
    std::function<void(ExportRun&)> send;
};

// gtest takes no '-' in a name, and file names read better with it.
std::filesystem::path GoldenPath(std::string name, const char* extension) {
    for (char& character : name) {
        character = character == '_' ? '-' : character;
    }
    return std::filesystem::path(QOLF_TEST_GOLDEN) / "export" / (name + extension);
}

// The bytes of a text that is written in text mode.
std::string WithSystemLineEnds(const std::string& text) {
    constexpr bool kHasCrLf = std::filesystem::path::preferred_separator == '\\';
    std::string bytes;
    for (const char character : text) {
        if (kHasCrLf && character == '\n') {
            bytes += '\r';
        }
        bytes += character;
    }
    return bytes;
}

// The bytes that the golden file asks for; it is rewritten first when that is asked for.
std::string Golden(const std::filesystem::path& path, const std::string& actualText) {
    if (std::getenv("UPDATE_GOLDENS") != nullptr) {
        std::ofstream(path, std::ios::binary) << actualText;
    }
    std::ifstream stream(path, std::ios::binary);
    return WithSystemLineEnds(
        {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()});
}

void SendColumnsOfEveryKind(ExportRun& run) {
    run.SendColumns({L"Name", L"2nd value", L"Stra\u00DFe"});
}

template <class Object> Object WithAttributes(Object object) {
    return With(std::move(object), {{L"Name", L"K\u00F6ln \"am\" Rhein"},
                                    {L"2nd value", L"1,5"},
                                    {L"Stra\u00DFe", L"\u4E2D"}});
}

void SendPolylines(ExportRun& run) {
    SendColumnsOfEveryKind(run);
    run.Send(WithAttributes(Polyline({{0, 0, 0}, {10.5, 1.0 / 3.0, 0}, {1e20, -1e-7, 0}})));
    run.Send(Polyline({{5, 5, 0}}));
    run.Send(Polyline({}));
}

zeio::TrPolygon PolygonWithRings() {
    return Polygon(
        {{0, 0, 0}, {9, 0, 0}, {9, 9, 0}, {0, 0, 0}, {1, 1, 0}, {2, 2, 0}, {3, 3, 0}, {4, 4, 0}},
        {4, 3, 0, 1});
}

void SendPolygons(ExportRun& run) {
    SendColumnsOfEveryKind(run);
    run.Send(WithAttributes(PolygonWithRings()));
    run.Send(Polygon({{0, 0, 0}, {1, 0, 0}}));
    run.Send(Polygon({}));
}

void SendCurves(ExportRun& run) {
    run.host.optionStore().Set(L"AreasToCurves", true, false);
    run.Begin();
    run.Send(PolygonWithRings());
    run.Send(Polygon({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}}));
}

void SendMarkers(ExportRun& run) {
    SendColumnsOfEveryKind(run);
    run.Send(WithAttributes(Markers({{1, 2, 3}, {-4.25, 1e9, 0}})));
    run.Send(Markers({}));
}

void SendRectangles(ExportRun& run) {
    run.Send(Rectangle(0, 0, 10, 5.5));
    run.Send(Rectangle(10, 5, 0, 0, 2, 4));
}

void SendEllipses(ExportRun& run) {
    run.Send(Ellipse(-1, -2, 3, 4));
}

void SendTexts(ExportRun& run) {
    zeio::TrFont font(L"Gr\u00F6\u00DFe");
    font.height = 2.0;
    font.flags = 0x37;
    run.Send(font);
    run.Send(Text(L"AB", 0, 0));
    zeio::TrText boxed = Text(L"Stra\u00DFe \u4E2D", 10, 20);
    boxed.box = {0, 0, 5, 2};
    run.Send(boxed);
    zeio::TrText rotated = Text(L"turned", 10, 20);
    rotated.transform.RotateZ(std::numbers::pi / 2.0);
    run.Send(rotated);
}

void SendPens(ExportRun& run) {
    const auto sendLine = [&](TrPen pen) {
        run.Send(pen);
        run.Send(Polyline({{0, 0, 0}, {600, 800, 0}}));
    };
    for (const int style : {0, 1, 2, 3, 4}) {
        TrPen pen(static_cast<TrPen::Style>(style), shr::Color4b(1, 2, 3), 30.0);
        sendLine(pen);
        pen.isRelative = false;
        pen.width = 0.05;
        sendLine(pen);
    }
    for (const float* table :
         {iolib::g_LS_Dot, iolib::g_LS_Dash, iolib::g_LS_DashDot, iolib::g_LS_DashDotDot}) {
        TrPen pen = RelativePen(TrPen::Style::CustomDash, 0.0);
        for (; *table != 0.0F; ++table) {
            pen.dashes.push_back(*table);
        }
        sendLine(pen);
    }
}

// One line for each of the seven widths.
void SendWidths(ExportRun& run) {
    for (const double width : {0.0, 3.125, 6.25, 12.5, 25.0, 50.0, 100.0}) {
        run.Send(RelativePen(TrPen::Style::Solid, width));
        run.Send(Polyline({{0, 0, 0}, {600, 800, 0}}));
    }
}

void SendWidthsOfAKnownExtent(ExportRun& run) {
    run.SendExtent(0, 0, 300, 400);
    SendWidths(run);
}

void SendBrushes(ExportRun& run) {
    for (int pattern = 0; pattern <= 13; ++pattern) {
        zeio::TrBrush brush(static_cast<zeio::TrBrush::Pattern>(pattern));
        brush.fore = shr::Color4b(0, 0, 255);
        brush.back = shr::Color4b(255, 0, 0, static_cast<std::uint8_t>(pattern % 2 == 0 ? 0 : 255));
        run.Send(brush);
        run.Send(Rectangle(0, 0, pattern, 1));
    }
}

void SendFonts(ExportRun& run) {
    for (const int flags : {4, 5, 6, 0x14, 0x17, 0x24, 0x37}) {
        zeio::TrFont font(flags == 4 ? L"" : L"Face");
        font.flags = static_cast<std::uint16_t>(flags);
        font.height = flags;
        font.widthDivisor = flags == 5 ? 2.0 : 0.0;
        run.Send(font);
        run.Send(Text(L"A", 0, flags));
    }
}

// A point in the system.
std::function<void(ExportRun&)> PointIn(const gcs::GCSDef& system) {
    return [system](ExportRun& run) {
        run.Send(SystemObject(system));
        run.Send(Markers({{1, 2, 0}}));
    };
}

std::function<void(ExportRun&)> PointOnDatum(const gcs::DatumParameters& parameters) {
    return PointIn(Earth(Projection(ProjectionMethod::LongitudeLatitude), OwnDatum(parameters)));
}

std::function<void(ExportRun&)> PointInProjection(ProjectionMethod method,
                                                  ProjectionValues values) {
    return PointIn(Earth(Projection(method, values), KnownDatum(L"DATUM_WGS84")));
}

gcs::GCSDef DisagreeingSystem() {
    gcs::ProjectionDef projection = Projection(ProjectionMethod::Mercator);
    projection.SetParameter(Ellipsoid, gcs::EllipsoidDef(6377397.155, 1.0 / 299.1528128));
    return Earth(projection, KnownDatum(L"DATUM_WGS84"));
}

gcs::GCSDef ObliqueSystem() {
    gcs::ProjectionDef projection = Projection(ProjectionMethod::HotineObliqueMercator,
                                               {{CentreLongitude, 7.5}, {Azimuth, 30.0}});
    projection.SetParameter(RectifiedOrigin, true);
    return Earth(projection, KnownDatum(L"DATUM_WGS84"));
}

}  // namespace

class AGoldenExport : public testing::TestWithParam<GoldenRow> {};

TEST_P(AGoldenExport, IsWrittenByteForByte) {
    ExportRun run;
    static_cast<void>(run.Begin());
    GetParam().send(run);
    static_cast<void>(run.End());

    EXPECT_EQ(run.folder.Read("out.mif"), Golden(GoldenPath(GetParam().name, ".mif"), run.Mif()));
    EXPECT_EQ(run.folder.Read("out.mid"), Golden(GoldenPath(GetParam().name, ".mid"), run.Mid()));
}
INSTANTIATE_TEST_SUITE_P(
    Object, AGoldenExport,
    testing::Values(GoldenRow{"polylines", SendPolylines}, GoldenRow{"regions", SendPolygons},
                    GoldenRow{"regions_as_curves", SendCurves}, GoldenRow{"points", SendMarkers},
                    GoldenRow{"rectangles", SendRectangles}, GoldenRow{"ellipses", SendEllipses},
                    GoldenRow{"texts", SendTexts}),
    [](const auto& row) { return row.param.name; });
INSTANTIATE_TEST_SUITE_P(
    Style, AGoldenExport,
    testing::Values(GoldenRow{"pens", SendPens}, GoldenRow{"pen_widths_patched", SendWidths},
                    GoldenRow{"pen_widths_of_a_known_extent", SendWidthsOfAKnownExtent},
                    GoldenRow{"brushes", SendBrushes}, GoldenRow{"fonts", SendFonts}),
    [](const auto& row) { return row.param.name; });
INSTANTIATE_TEST_SUITE_P(
    CoordSys, AGoldenExport,
    testing::Values(
        GoldenRow{"coordsys_wgs84", PointIn(Geographic())},
        GoldenRow{"coordsys_known_datum",
                  PointIn(Earth(Projection(ProjectionMethod::LongitudeLatitude),
                                KnownDatum(L"DATUM_NZGD2000")))},
        GoldenRow{"coordsys_without_datum",
                  PointIn(Earth(Projection(ProjectionMethod::LongitudeLatitude), {}))},
        GoldenRow{"coordsys_999", PointOnDatum({.kind = DatumMethod::ThreeParameters,
                                                .ellipsoid = {},
                                                .dx = -87,
                                                .dy = -98.5,
                                                .dz = -121})},
        GoldenRow{"coordsys_9999", PointOnDatum({.kind = DatumMethod::SevenParameters,
                                                 .ellipsoid = {},
                                                 .dx = 1,
                                                 .dy = 2,
                                                 .dz = 3,
                                                 .rx = 0.1,
                                                 .ry = 0.2,
                                                 .rz = 0.3,
                                                 .scale = 4,
                                                 .primeMeridian = 5})},
        GoldenRow{"coordsys_no_shift", PointOnDatum({.kind = DatumMethod::None, .ellipsoid = {}})},
        GoldenRow{"coordsys_fall_through", PointOnDatum({.kind = DatumMethod::ThreeParameters,
                                                         .ellipsoid = {},
                                                         .primeMeridian = 2.5})},
        GoldenRow{"coordsys_survey_feet", PointInProjection(ProjectionMethod::LambertConformalConic,
                                                            {{UnitsPerMetre, 3.28083333333333},
                                                             {CentralLongitude, -96},
                                                             {StandardParallel1, 29.5},
                                                             {FalseEasting, 1e6}})},
        GoldenRow{"coordsys_unit_without_name",
                  PointInProjection(ProjectionMethod::TransverseMercator,
                                    {{UnitsPerMetre, 0.001}, {ScaleFactor, 0.9996}})},
        GoldenRow{"coordsys_range", PointInProjection(ProjectionMethod::AzimuthalEquidistant,
                                                      {{StandardParallel1, 90}})},
        GoldenRow{"coordsys_oblique", PointIn(ObliqueSystem())},
        GoldenRow{"coordsys_version_1050",
                  PointInProjection(ProjectionMethod::EquidistantCylindrical, {})},
        GoldenRow{"coordsys_refused_ellipsoids", PointIn(DisagreeingSystem())},
        GoldenRow{"coordsys_refused_stereographic",
                  PointInProjection(ProjectionMethod::Stereographic, {{StandardParallel1, 60}})},
        GoldenRow{"coordsys_refused_method",
                  PointInProjection(ProjectionMethod::ArbitraryPlane, {})},
        GoldenRow{"coordsys_refused_false_easting",
                  PointInProjection(ProjectionMethod::Mercator, {{FalseEasting, 1}})},
        GoldenRow{"coordsys_refused_oblique",
                  PointInProjection(ProjectionMethod::HotineObliqueMercator, {{Azimuth, 30}})},
        GoldenRow{"coordsys_refused_mercator",
                  PointInProjection(ProjectionMethod::Mercator, {{LatitudeOfOrigin, 5}})}),
    [](const auto& row) { return row.param.name; });

}  // namespace mif::test
