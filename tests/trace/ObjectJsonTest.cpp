// Translation objects as JSON, there and back.
#include "app/json/JsonError.h"
#include "app/trace/ObjectReader.h"
#include "app/trace/TraceJson.h"
#include "host/gcs/KnownLists.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <limits>
#include <string>

namespace {

using Json = nlohmann::json;

std::string JsonOf(const zeio::TrBase& object) {
    std::string text;
    app::AppendObjectJson(text, object);
    return text;
}

std::string Again(const std::string& text) {
    return JsonOf(*app::ObjectFromJson(Json::parse(text)));
}

std::string ErrorOf(const std::string& text) {
    try {
        app::ObjectFromJson(Json::parse(text));
    } catch (const app::JsonError& error) {
        return error.what();
    }
    return "";
}

struct ObjectRow {
    std::string name;  // letters and digits
    std::string json;
};

std::ostream& operator<<(std::ostream& out, const ObjectRow& row) {
    return out << row.name;
}

class AnObject : public testing::TestWithParam<ObjectRow> {};

TEST_P(AnObject, ReadsBackAsItIsWritten) {
    EXPECT_EQ(Again(GetParam().json), GetParam().json);
}

const ObjectRow kObjects[] = {
    {"InitImp", R"({"type":"TrInitGraphicsImp","min":[1,2,3],"max":[4,5,6],"kind":0})"},
    {"InitExp",
     R"({"type":"TrInitGraphicsExp","scale":2.5,"unitsPerPoint":0.1,"extent":[1,2,3,4,5,6],)"
     R"("codes":[0,6,0,0],"capabilities":20840704})"},
    {"NoSystem", R"({"type":"TrCRS","cs":null})"},
    {"Plane", R"({"type":"TrCRS","cs":{"type":2,"projection":null,"datum":null,"unit":3.2808}})"},
    {"EarthWithoutParts",
     R"({"type":"TrCRS","cs":{"type":1,"projection":null,"datum":null,"unit":1}})"},
    {"Projected",
     R"({"type":"TrCRS","cs":{"type":1,"projection":{"method":12,"parameters":{"3":2,"4":-0.5,)"
     R"("15":true,"16":false},"ellipsoid":{"a":6378137,"f":0.0033528106647474805}},)"
     R"("datum":{"token":"","method":3,"target":1,"ellipsoid":{"a":6378206.4,)"
     R"("f":0.0033900753040885176},"parameters":{"4":0,"5":1,"6":2,"7":3,"8":4,"9":5,"10":6,)"
     R"("11":7}},"unit":2}})"},
    {"DatumWithoutTarget",
     R"({"type":"TrCRS","cs":{"type":1,"projection":null,"datum":{"token":"","method":2,"target":0,)"
     R"("ellipsoid":{"a":6378137,"f":0},"parameters":{"4":0,"5":1,"6":2,"7":3,"8":0,"9":0,"10":0,)"
     R"("11":0}},"unit":1}})"},
    {"Names", R"({"type":"TrNamedIds","names":["A","Größe"]})"},
    {"NoNames", R"({"type":"TrNamedIds","names":[]})"},
    {"Pen",
     R"({"type":"TrPen","style":3,"color":[1,2,3,4],"relative":false,"width":0.5,"dashes":[1.5,2]})"},
    {"Brush", R"({"type":"TrBrush","pattern":7,"fore":[1,2,3,255],"back":[255,255,255,0]})"},
    {"Font", R"({"type":"TrFont","face":"Arial","flags":23,"height":2,"divisor":1.25})"},
    {"Polyline",
     R"({"type":"TrPolyline","vertices":[[0.1,-2e-300,0],[1e+300,5,1]],"attributes":{"A":"1"}})"},
    {"Polygon",
     R"({"type":"TrPolygon","vertices":[[0,0,0],[1,0,0],[1,1,0]],"parts":[3,-1],"attributes":{}})"},
    {"MarkerSet", R"({"type":"TrMarkerSet","symbolStyle":0,"size":1,"font":"Symbols","index":-3,)"
                  R"("positions":[[1,2,3]],"attributes":{}})"},
    {"Rectangle",
     R"({"type":"TrRectangle","corners":[1,2,3,4],"radii":[0.5,0.25],"attributes":{}})"},
    {"Ellipse", R"({"type":"TrEllipse","corners":[1,2,3,4],"attributes":{"A":"","B":"x"}})"},
    {"Text",
     R"({"type":"TrText","text":"a \"b\"\n","position":[1,2,0],"box":[1,2,3,4],"justify":2,)"
     R"("align":1,"transform":[1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16],"attributes":{}})"},
    {"OddNumbers",
     R"({"type":"TrPolyline","vertices":[["nan","inf",0],["-inf",-0.0,0]],"attributes":{}})"},
};
INSTANTIATE_TEST_SUITE_P(, AnObject, testing::ValuesIn(kObjects),
                         [](const auto& row) { return row.param.name; });

TEST(ObjectFromJson, TakesTheDefaultsOfTheClassForWhatIsNotGiven) {
    EXPECT_EQ(Again(R"({"type":"TrPen"})"), JsonOf(zeio::TrPen()));
    EXPECT_EQ(Again(R"({"type":"TrBrush"})"), JsonOf(zeio::TrBrush()));
    EXPECT_EQ(Again(R"({"type":"TrFont"})"), JsonOf(zeio::TrFont()));
    EXPECT_EQ(Again(R"({"type":"TrText"})"), JsonOf(zeio::TrText()));
    EXPECT_EQ(Again(R"({"type":"TrMarkerSet"})"), JsonOf(zeio::TrMarkerSet()));
    EXPECT_EQ(Again(R"({"type":"TrCRS"})"), JsonOf(zeio::TrCRS()));
    EXPECT_EQ(Again(R"({"type":"TrInitGraphicsExp"})"), JsonOf(zeio::TrInitGraphicsExp()));
}

TEST(ObjectFromJson, IgnoresKeysThatTheClassDoesNotHave) {
    EXPECT_EQ(Again(R"({"type":"TrBrush","colour":1})"), JsonOf(zeio::TrBrush()));
}

TEST(ObjectFromJson, CompletesADatumOfTheKnownList) {
    gcs::DatumDef known;
    ASSERT_GE(gcs::GCSKnownDatumsList.FindByToken(L"DATUM_ED50", &known), 2);

    const auto object = app::ObjectFromJson(
        Json::parse(R"({"type":"TrCRS","cs":{"datum":{"token":"DATUM_ED50"}}})"));

    const auto& system =
        dynamic_cast<const gcs::GCSDef&>(*static_cast<zeio::TrCRS&>(*object).GetCS());
    EXPECT_EQ(system.GetDatum().GetToken(), L"DATUM_ED50");
    EXPECT_EQ(system.GetDatum().GetParameters().dx, known.GetParameters().dx);
    EXPECT_EQ(system.GetDatum().GetEllipsoid(), known.GetEllipsoid());
}

struct ErrorRow {
    std::string name;  // letters and digits
    std::string json;
    std::string message;
};

std::ostream& operator<<(std::ostream& out, const ErrorRow& row) {
    return out << row.name;
}

class AFaultyObject : public testing::TestWithParam<ErrorRow> {};

TEST_P(AFaultyObject, IsRefusedInTheseWords) {
    EXPECT_EQ(ErrorOf(GetParam().json), GetParam().message);
}

const ErrorRow kErrors[] = {
    {"NoObject", "[]", "the object has no \"type\""},
    {"NoType", "{}", "the object has no \"type\""},
    {"TypeIsNoText", R"({"type":1})", "the object has no \"type\""},
    {"UnknownType", R"({"type":"TrCloud"})", "unknown type \"TrCloud\""},
    {"TextForANumber", R"({"type":"TrPen","width":"thin"})", "\"width\" of TrPen must be a number"},
    {"NullForANumber", R"({"type":"TrPen","width":null})", "\"width\" of TrPen must be a number"},
    {"NumberForATruth", R"({"type":"TrPen","relative":1})",
     "\"relative\" of TrPen must be true or false"},
    {"NumberForAText", R"({"type":"TrFont","face":1})", "\"face\" of TrFont must be a text"},
    {"StyleOutOfRange", R"({"type":"TrPen","style":70000})",
     "\"style\" of TrPen must be a whole number from 0 to 65535"},
    {"HugeWholeNumber", R"({"type":"TrMarkerSet","index":18446744073709551615})",
     "\"index\" of TrMarkerSet must be a whole number from -2147483648 to 2147483647"},
    {"BrokenWholeNumber", R"({"type":"TrFont","flags":1.5})",
     "\"flags\" of TrFont must be a whole number from 0 to 65535"},
    {"ColourOfThree", R"({"type":"TrPen","color":[1,2,3]})",
     "\"color\" of TrPen must be a colour: four whole numbers from 0 to 255"},
    {"ColourOutOfRange", R"({"type":"TrPen","color":[1,2,3,256]})",
     "\"color\" of TrPen must be a colour: four whole numbers from 0 to 255"},
    {"PointOfOne", R"({"type":"TrText","position":[1]})",
     "\"position\" of TrText must be a point: [x,y,z]"},
    {"PointForPoints", R"({"type":"TrPolyline","vertices":[1,2]})",
     "\"vertices\" of TrPolyline must be a list of points: [[x,y,z],...]"},
    {"ThreeCorners", R"({"type":"TrRectangle","corners":[1,2,3]})",
     "\"corners\" of TrRectangle must be a list of 4 numbers"},
    {"SmallTransform", R"({"type":"TrText","transform":[1]})",
     "\"transform\" of TrText must be a list of 16 numbers"},
    {"NumberAsAttribute", R"({"type":"TrEllipse","attributes":{"A":1}})",
     "\"attributes\" of TrEllipse must be an object of texts"},
    {"ListAsAttributes", R"({"type":"TrEllipse","attributes":[]})",
     "\"attributes\" of TrEllipse must be an object of texts"},
    {"NumbersAsNames", R"({"type":"TrNamedIds","names":[1]})",
     "\"names\" of TrNamedIds must be a list of texts"},
    {"HugePart", R"({"type":"TrPolygon","parts":[1e10]})",
     "\"parts\" of TrPolygon must be a list of whole numbers"},
    {"BrokenPart", R"({"type":"TrPolygon","parts":[3,2.5]})",
     "\"parts\" of TrPolygon must be a list of whole numbers"},
    {"TextForATarget", R"({"type":"TrCRS","cs":{"datum":{"target":"WGS84"}}})",
     "\"target\" of a datum must be a whole number from -2147483648 to 2147483647"},
    {"UnknownSystem", R"({"type":"TrCRS","cs":{"type":7}})",
     "\"type\" of a coordinate system must be 1 (of the Earth) or 2 (a plane)"},
    {"SystemIsNoObject", R"({"type":"TrCRS","cs":4326})",
     "a coordinate system is not a JSON object"},
    {"UnknownParameter",
     R"({"type":"TrCRS","cs":{"projection":{"method":1,"parameters":{"99":1}}}})",
     "a projection has no parameter \"99\""},
    {"NumberForAFlagOfAProjection",
     R"({"type":"TrCRS","cs":{"projection":{"method":1,"parameters":{"15":1}}}})",
     "\"15\" of a projection's parameters must be true or false"},
};
INSTANTIATE_TEST_SUITE_P(, AFaultyObject, testing::ValuesIn(kErrors),
                         [](const auto& row) { return row.param.name; });

}  // namespace
