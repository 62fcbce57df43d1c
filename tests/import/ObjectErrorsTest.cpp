// The errors that stop an import inside the DATA section, each with its full text and origin.
#include "tests/import/ImportRun.h"

#include <gmock/gmock.h>

namespace {

using import_test::Importing;
using testing::ElementsAre;

struct ErrorRow {
    std::string name;
    std::string text;
    std::string error;
};

class AnImport : public Importing, public testing::WithParamInterface<ErrorRow> {};

TEST_P(AnImport, IsStoppedBy) {
    Import(GetParam().text);

    EXPECT_EQ(FirstError(), GetParam().error);
}

const ErrorRow kErrorRows[] = {
    {"APolylineOfNoVertices", "Pline 0\n",
     "MifImportParse(692): Bad vertex count (0) in a polyline object.\nFile: PATH"},
    {"APolylineOfFewerThanNoVertices", "Pline -3\n",
     "MifImportParse(692): Bad vertex count (-3) in a polyline object.\nFile: PATH"},
    {"APolylineWithoutACount", "Pline\n1 2\n",
     "MifImportParse(692): Bad vertex count (0) in a polyline object.\nFile: PATH"},
    {"APolylineOfNoSections", "Pline Multiple 0\n",
     "MifImportParse(677): Bad section count (0) in a polyline object.\nFile: PATH"},
    {"APolylineWithAnEmptySection", "Pline Multiple 2\n2\n1 2\n3 4\n0\n",
     "MifImportParse(692): Bad vertex count (0) in a polyline object.\nFile: PATH"},
    {"APolylineWithAMissingSection", "Pline Multiple 2\n2\n1 2\n3 4\n",
     "MifImportParse(692): Bad vertex count (0) in a polyline object.\nFile: PATH"},
    {"ARegionOfNoRings", "Region 0\n",
     "MifImportParse(752): Bad section count (0) in a region object.\nFile: PATH"},
    {"ARegionWithAnEmptyRing", "Region 1\n0\n",
     "MifImportParse(775): Bad vertex count (0) in a region object.\nFile: PATH"},
    {"AMultipointOfNoPoints", "Multipoint 0\n",
     "MifImportParse(1457): Bad vertex count (0) in a multipoint object.\nFile: PATH"},
    {"AnUnknownKeyword", "Spline 3\n",
     "MifImportParse(1722): Invalid object type 'Spline' in MIF file 'PATH'"},
    {"AKeywordOfWhichTheFileHasOnlyTheBeginning", "Poin 1 2\n",
     "MifImportParse(1722): Invalid object type 'Poin' in MIF file 'PATH'"},
    {"AnUnknownStyleClause", "Point 1 2\nShade (1,2)\n",
     "MifImportParse(1722): Invalid object type 'Shade' in MIF file 'PATH'"},
    {"ABlankLineBetweenThePartsOfACollection", "Collection 2\nPoint 1 2\n\nPoint 3 4\n",
     "MifImportParse(1722): Invalid object type '\n' in MIF file 'PATH'"},
    {"ACollectionThatEndsTooEarly", "Collection 3\nnone\nnone\n",
     "MifImportParse(1722): Invalid object type '\n' in MIF file 'PATH'"},
    {"ACollectionOfMoreThanTheFileCanHold", "Collection 2147483647\nPoint 1 2\nx\n",
     "MifImportParse(1722): Invalid object type 'x' in MIF file 'PATH'"},
    {"MoreVerticesThanTheFileCanHold", "Pline 1000001\n1 2\n",
     "MifImportParse(692): Bad vertex count (1000001) in a polyline object.\nFile: PATH"},
    {"MoreSectionsThanTheFileCanHold", "Pline Multiple 2147483647\n2\n1 2\n3 4\n",
     "MifImportParse(677): Bad section count (2147483647) in a polyline object.\nFile: PATH"},
    {"MoreRingsThanTheFileCanHold", "Region 99999999999\n3\n1 2\n3 4\n5 6\n",
     "MifImportParse(752): Bad section count (2147483647) in a region object.\nFile: PATH"},
    {"MoreRingVerticesThanTheFileCanHold", "Region 1\n2000000000\n1 2\n3 4\n5 6\n",
     "MifImportParse(775): Bad vertex count (2000000000) in a region object.\nFile: PATH"},
    {"MorePointsThanTheFileCanHold", "Multipoint 1000001\n1 2\n",
     "MifImportParse(1457): Bad vertex count (1000001) in a multipoint object.\nFile: PATH"},
};

INSTANTIATE_TEST_SUITE_P(, AnImport, testing::ValuesIn(kErrorRows),
                         [](const auto& row) { return row.param.name; });

using AStoppedImport = Importing;

TEST_F(AStoppedImport, LeavesTheEarlierObjectsWithTheHost) {
    Import("Line 1 2 3 4\nPline 0\n");

    EXPECT_THAT(HostReceived(), ElementsAre("Polyline 1,2 3,4"));
}

TEST_F(AStoppedImport, HandsOverNothingOfTheObjectThatStoppedIt) {
    Import("Region 2\n2\n1 2\n3 4\nPen (1,2,0)\n0\n");

    EXPECT_THAT(HostReceived(), ElementsAre());
}

TEST_F(AStoppedImport, LeavesTheProgressDisplayOpen) {
    Import("Pline 0\n");

    EXPECT_THAT(Host().CallsStartingWith("ProgressEnd"), ElementsAre());
}

TEST_F(AStoppedImport, NamesAKeywordInTheHostsCodePage) {
    Import("Stra\xDF"
           "e\n");

    EXPECT_EQ(FirstError(),
              "MifImportParse(1722): Invalid object type 'Stra\u00DFe' in MIF file 'PATH'");
}

}  // namespace
