// The index of a layer, and the triggers that keep it right under other programs' statements.
#include "tests/formats/gpkg/Package.h"

#include <cmath>

namespace {

using gpkg_test::Package;
using support::PointAt;
using support::RegionOf;
using support::Square;

constexpr const char* kIndex = "SELECT id, minx, maxx, miny, maxy FROM rtree_layer_geom "
                               "ORDER BY id";

class SpatialIndex : public Package {
protected:
    // Three points at (1, 2), (3, 4) and (5, 6).
    void WritePoints() { WriteLayer({PointAt(1, 2), PointAt(3, 4), PointAt(5, 6)}); }

    void WriteMany(int count) {
        std::vector<app::Feature> features;
        for (int i = 0; i < count; ++i) {
            features.push_back(PointAt(i * 37 % 1000, i * 91 % 1000));
        }
        WriteLayer(features);
    }
};

TEST_F(SpatialIndex, HoldsTheBoxOfEachGeometry) {
    WriteLayer({PointAt(1, 2), RegionOf({Square(3, 4, 8)})});

    EXPECT_EQ(Query(kIndex), "1|1.0|1.0|2.0|2.0\n2|3.0|11.0|4.0|12.0");
}

TEST_F(SpatialIndex, LeavesOutARowWithoutGeometry) {
    WriteLayer({PointAt(std::nan(""), 2), PointAt(3, 4)});

    EXPECT_EQ(Query(kIndex), "2|3.0|3.0|4.0|4.0");
}

// Fills nodes in part, to the last entry, and by one more: a node has 51 entries.
class SpatialIndexOfMany : public SpatialIndex, public testing::WithParamInterface<int> {};

TEST_P(SpatialIndexOfMany, IsSoundAndComplete) {
    WriteMany(GetParam());

    EXPECT_EQ(Query("SELECT rtreecheck('rtree_layer_geom')"), "ok");
    EXPECT_EQ(Query("SELECT count(*) FROM rtree_layer_geom"), std::to_string(GetParam()));
    EXPECT_EQ(Query("PRAGMA integrity_check"), "ok");
}

TEST_P(SpatialIndexOfMany, StaysSoundUnderOtherProgramsStatements) {
    WriteMany(GetParam());

    Query("INSERT INTO layer (geom) SELECT geom FROM layer WHERE fid % 3 = 0");
    Query("DELETE FROM layer WHERE fid % 7 = 0");

    EXPECT_EQ(Query("SELECT rtreecheck('rtree_layer_geom')"), "ok");
    EXPECT_EQ(Query("SELECT count(*) FROM rtree_layer_geom"), Query("SELECT count(*) FROM layer"));
}

INSTANTIATE_TEST_SUITE_P(, SpatialIndexOfMany,
                         testing::Values(0, 1, 51, 52, 51 * 51, 51 * 51 + 1, 10000),
                         testing::PrintToStringParamName());

TEST_F(SpatialIndex, IsSoundWithMoreEntriesThanAreHeldBack) {
    WriteMany((1 << 17) + 1);

    EXPECT_EQ(Query("SELECT rtreecheck('rtree_layer_geom')"), "ok");
    EXPECT_EQ(Query("SELECT count(*) FROM rtree_layer_geom"), "131073");
}

TEST_F(SpatialIndex, HoldsBoxesThatReachAroundWhatNoFloatHolds) {
    WriteLayer({PointAt(0.1, -0.1), PointAt(1e300, -1e300), PointAt(16777217.0, 1e-300)});

    EXPECT_EQ(Query("SELECT count(*) FROM layer JOIN rtree_layer_geom i ON i.id = fid "
                    "WHERE minx <= ST_MinX(geom) AND maxx >= ST_MaxX(geom) AND "
                    "miny <= ST_MinY(geom) AND maxy >= ST_MaxY(geom)"),
              "3");
}

TEST_F(SpatialIndex, FollowsAnInsertion) {
    WritePoints();

    Query("INSERT INTO layer (geom) SELECT geom FROM layer WHERE fid = 2");

    EXPECT_EQ(Query(std::string(kIndex) + " DESC LIMIT 1"), "4|3.0|3.0|4.0|4.0");
}

TEST_F(SpatialIndex, LeavesOutAnInsertionWithoutGeometry) {
    WritePoints();

    Query("INSERT INTO layer (geom) VALUES (NULL)");

    EXPECT_EQ(Query("SELECT count(*) FROM rtree_layer_geom"), "3");
}

TEST_F(SpatialIndex, FollowsAChangeOfAGeometry) {
    WritePoints();

    Query("UPDATE layer SET geom = (SELECT geom FROM layer WHERE fid = 3) WHERE fid = 1");

    EXPECT_EQ(Query(kIndex), "1|5.0|5.0|6.0|6.0\n2|3.0|3.0|4.0|4.0\n3|5.0|5.0|6.0|6.0");
}

TEST_F(SpatialIndex, ForgetsAGeometryThatIsTakenAway) {
    WritePoints();

    Query("UPDATE layer SET geom = NULL WHERE fid = 1");

    EXPECT_EQ(Query(kIndex), "2|3.0|3.0|4.0|4.0\n3|5.0|5.0|6.0|6.0");
}

TEST_F(SpatialIndex, FollowsAChangeOfARowsNumber) {
    WritePoints();

    Query("UPDATE layer SET fid = 9 WHERE fid = 1");

    EXPECT_EQ(Query(kIndex), "2|3.0|3.0|4.0|4.0\n3|5.0|5.0|6.0|6.0\n9|1.0|1.0|2.0|2.0");
}

TEST_F(SpatialIndex, ForgetsARowThatChangesItsNumberAndLosesItsGeometry) {
    WritePoints();

    Query("UPDATE layer SET fid = 9, geom = NULL WHERE fid = 1");

    EXPECT_EQ(Query(kIndex), "2|3.0|3.0|4.0|4.0\n3|5.0|5.0|6.0|6.0");
}

TEST_F(SpatialIndex, FollowsADeletion) {
    WritePoints();

    Query("DELETE FROM layer WHERE fid = 2");

    EXPECT_EQ(Query(kIndex), "1|1.0|1.0|2.0|2.0\n3|5.0|5.0|6.0|6.0");
}

TEST_F(SpatialIndex, FindsWhatLiesInABox) {
    WritePoints();

    EXPECT_EQ(Query("SELECT fid FROM layer JOIN rtree_layer_geom i ON i.id = fid "
                    "WHERE minx <= 4 AND maxx >= 2 AND miny <= 5 AND maxy >= 3"),
              "2");
}

}  // namespace
