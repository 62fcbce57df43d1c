// Rows of the .mid file: which object takes one, and how its fields arrive.
#include "tests/import/ImportRun.h"

#include <gmock/gmock.h>

#include <utility>

namespace {

using import_test::Importing;
using testing::ElementsAre;

std::string Marker(const char* positionAndAttributes) {
    return std::string("MarkerSet style=1 size=0 font=\"ZEI Default Symbols\" index=0 ") +
           positionAndAttributes;
}

class ImportedRows : public Importing {
protected:
    void SetUp() override { AddToHeader("Columns 2\n  A Char(9)\n  B Integer\n"); }
};

TEST_F(ImportedRows, BecomeTheAttributesOfTheObjectsInTheirOrder) {
    UseRows("one,1\n\"two, too\",2\n");

    Import("Line 1 2 3 4\nRect 1 2 3 4\n");

    EXPECT_THAT(HostReceived(), ElementsAre("NamedIds A B", "Polyline 1,2 3,4 {A=one, B=1}",
                                            "Rectangle 1,2,3,4 radii=0,0 {A=two, too, B=2}"));
}

struct TakerRow {
    std::string name;
    std::string text;
    std::string received;
};

class AnObjectThatTakesARow : public ImportedRows, public testing::WithParamInterface<TakerRow> {};

TEST_P(AnObjectThatTakesARow, CarriesIt) {
    UseRows("a,1\nb,2\n");

    Import(GetParam().text + "Point 9 9\n");

    EXPECT_THAT(HostReceived(),
                ElementsAre("NamedIds A B", GetParam().received, Marker("9,9 {A=b, B=2}")));
}

const TakerRow kTakerRows[] = {
    {"Point", "Point 1 2\n", Marker("1,2 {A=a, B=1}")},
    {"Line", "Line 1 2 3 4\n", "Polyline 1,2 3,4 {A=a, B=1}"},
    {"Polyline", "Pline 2\n1 2\n3 4\n", "Polyline 1,2 3,4 {A=a, B=1}"},
    {"Region", "Region 1\n2\n1 2\n3 4\n", "Polygon parts=2 1,2 3,4 {A=a, B=1}"},
    {"Multipoint", "Multipoint 1\n1 2\n",
     "MarkerSet style=1 size=10 font=\"ZEI Default Symbols\" index=0 1,2 {A=a, B=1}"},
    {"Rectangle", "Rect 1 2 3 4\n", "Rectangle 1,2,3,4 radii=0,0 {A=a, B=1}"},
    {"RoundedRectangle", "Roundrect 1 2 3 4 5\n", "Rectangle 1,2,3,4 radii=5,5 {A=a, B=1}"},
    {"Ellipse", "Ellipse 1 2 3 4\n", "Ellipse 1,2,3,4 {A=a, B=1}"},
};

INSTANTIATE_TEST_SUITE_P(, AnObjectThatTakesARow, testing::ValuesIn(kTakerRows),
                         [](const auto& row) { return row.param.name; });

TEST_F(ImportedRows, GoToAnArc) {
    UseRows("a,1\n");

    Import("Arc 0 0 4 2\n0 90\n");

    EXPECT_THAT(HostReceived().back(), testing::EndsWith(" {A=a, B=1}"));
}

TEST_F(ImportedRows, AreDroppedForNone) {
    UseRows("a,1\nb,2\n");

    Import("none\nPoint 1 2\n");

    EXPECT_THAT(HostReceived(), ElementsAre("NamedIds A B", Marker("1,2 {A=b, B=2}")));
}

TEST_F(ImportedRows, KeptAreDroppedForAText) {
    UseRows("a,1\nb,2\n");

    Import("Text \"abc\"\n1 2 3 4\nPoint 1 2\n");

    EXPECT_THAT(Host().CallsStartingWith("Text"),
                ElementsAre(testing::Not(testing::HasSubstr("{"))));
    EXPECT_EQ(HostReceived().back(), Marker("1,2 {A=b, B=2}"));
}

TEST_F(ImportedRows, StayForTheNextObjectWhenATextHasNoString) {
    UseRows("a,1\n");

    Import("Text\n\"\"\n1 2 3 4\nPoint 1 2\n");

    EXPECT_THAT(HostReceived(), ElementsAre("NamedIds A B", Marker("1,2 {A=a, B=1}")));
}

TEST_F(ImportedRows, StayForTheNextObjectWhenAnArcHasNoGeometry) {
    UseRows("a,1\n");

    Import("Arc 0 0 4 2\n30 390\nPoint 1 2\n");

    EXPECT_THAT(HostReceived(), ElementsAre("NamedIds A B", Marker("1,2 {A=a, B=1}")));
}

TEST_F(ImportedRows, AreTakenForAPolylineWhoseOnlyVertexIsDropped) {
    UseRows("a,1\nb,2\n");

    Import("Pline 1\n1 2\nPoint 1 2\n");

    EXPECT_THAT(HostReceived(), ElementsAre("NamedIds A B", Marker("1,2 {A=b, B=2}")));
}

TEST_F(ImportedRows, GoToAllSectionsOfAPolyline) {
    UseRows("a,1\nb,2\n");

    Import("Pline Multiple 2\n2\n1 2\n3 4\n2\n5 6\n7 8\nPoint 1 2\n");

    EXPECT_THAT(HostReceived(),
                ElementsAre("NamedIds A B", "Polyline 1,2 3,4 {A=a, B=1}",
                            "Polyline 5,6 7,8 {A=a, B=1}", Marker("1,2 {A=b, B=2}")));
}

TEST_F(ImportedRows, GoToAllCurvesOfARegion) {
    Remember(L"AreasToCurves", true);
    UseRows("a,1\nb,2\n");

    Import("Region 2\n2\n1 2\n3 4\n2\n5 6\n7 8\nPoint 1 2\n");

    EXPECT_THAT(HostReceived(),
                ElementsAre("NamedIds A B", "Polyline 1,2 3,4 {A=a, B=1}",
                            "Polyline 5,6 7,8 {A=a, B=1}", Marker("1,2 {A=b, B=2}")));
}

TEST_F(ImportedRows, GoToThePartsOfACollectionOneByOne) {
    UseRows("a,1\nb,2\n");

    Import("Collection 2\nPoint 1 1\nPoint 2 2\n");

    EXPECT_THAT(HostReceived(),
                ElementsAre("NamedIds A B", Marker("1,1 {A=a, B=1}"), Marker("2,2 {A=b, B=2}")));
}

TEST_F(ImportedRows, LoseTheBlanksAroundTheirFields) {
    UseRows("\"  a b  \",  1 \n");

    Import("Point 1 2\n");

    EXPECT_EQ(HostReceived().back(), Marker("1,2 {A=a b, B=1}"));
}

TEST_F(ImportedRows, KeepTabsAtTheEndOfTheirFields) {
    UseRows("a \t,1\n");

    Import("Point 1 2\n");

    EXPECT_EQ(HostReceived().back(), Marker("1,2 {A=a \t, B=1}"));
}

TEST_F(ImportedRows, StoreAnEmptyTextForAnEmptyAndForAMissingField) {
    UseRows(",1\na\n");

    Import("Point 1 2\nPoint 1 2\n");

    EXPECT_THAT(HostReceived(),
                ElementsAre("NamedIds A B", Marker("1,2 {A=, B=1}"), Marker("1,2 {A=a, B=}")));
}

TEST_F(ImportedRows, ThatAreEmptyGiveNoAttributes) {
    UseRows("\nb,2\n");

    Import("Point 1 2\nPoint 1 2\n");

    EXPECT_THAT(HostReceived(),
                ElementsAre("NamedIds A B", Marker("1,2"), Marker("1,2 {A=b, B=2}")));
}

TEST_F(ImportedRows, MayBeFewerThanTheObjects) {
    UseRows("a,1");

    Import("Point 1 2\nPoint 3 4\n");

    EXPECT_THAT(HostReceived(),
                ElementsAre("NamedIds A B", Marker("1,2 {A=a, B=1}"), Marker("3,4")));
}

TEST_F(ImportedRows, MayBeMoreThanTheObjects) {
    UseRows("a,1\nb,2\nc,3\n");

    Import("Point 1 2\n");

    EXPECT_THAT(HostReceived(), ElementsAre("NamedIds A B", Marker("1,2 {A=a, B=1}")));
}

TEST_F(ImportedRows, MayBeMissingAltogether) {
    Import("Point 1 2\n");

    EXPECT_THAT(HostReceived(), ElementsAre("NamedIds A B", Marker("1,2")));
}

TEST_F(ImportedRows, ArriveInFullEvenToAHostThatMovesThemOut) {
    UseRows("a,1\nb,2\n");
    Host().onObject = [](zeio::TrBase& object) {
        if (object.GetTypeId() == zeio::TrPolyline::GetClassTypeId()) {
            auto& polyline = static_cast<zeio::TrPolyline&>(object);
            const shr::CParamList taken = std::move(polyline.attributes);
            const std::vector<shr::Vec3d> vertices = std::move(polyline.vertices);
        }
    };

    Import("Pline Multiple 2\n2\n1 2\n3 4\n2\n5 6\n7 8\nPline 2\n1 2\n3 4\n");

    EXPECT_THAT(HostReceived(),
                ElementsAre("NamedIds A B", "Polyline 1,2 3,4 {A=a, B=1}",
                            "Polyline 5,6 7,8 {A=a, B=1}", "Polyline 1,2 3,4 {A=b, B=2}"));
}

TEST_F(ImportedRows, AreNarrowTextOfTheHostsCodePage) {
    UseRows("stra\xDF"
            "e,1\n");

    Import("Line 1 2 3 4\n");

    EXPECT_EQ(Host().Received<zeio::TrPolyline>().at(0)->attributes.NarrowValue(0), "stra\xDF"
                                                                                    "e");
    EXPECT_EQ(Host().Received<zeio::TrPolyline>().at(0)->attributes.Value(0), L"stra\u00DFe");
}

TEST(RowsOfAFileWithoutColumns, GiveNoAttributes) {
    import_test::ImportRun run;
    run.UseRows("a,1\n");

    run.Import("Point 1 2\n");

    EXPECT_THAT(run.HostReceived(), ElementsAre(Marker("1,2")));
}

TEST(RowsOfColumnsWithOneName, KeepTheLastOfThem) {
    import_test::ImportRun run;
    run.AddToHeader("Columns 3\n  A Char(9)\n  A Char(9)\n  B Char(9)\n");
    run.UseRows("a,b,c\nd,e,f\n");

    run.Import("Point 1 2\nPoint 1 2\n");

    EXPECT_THAT(run.HostReceived(),
                ElementsAre("NamedIds A A B", Marker("1,2 {A=b, B=c}"), Marker("1,2 {A=e, B=f}")));
}

}  // namespace
