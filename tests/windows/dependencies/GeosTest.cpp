// GEOS, through the C interface that the command uses.
#include <geos_c.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

class APolygon : public testing::Test {
protected:
    struct Destroy {
        void operator()(GEOSGeometry* geometry) const { GEOSGeom_destroy_r(context, geometry); }
        GEOSContextHandle_t context;
    };
    using Geometry = std::unique_ptr<GEOSGeometry, Destroy>;

    ~APolygon() override { GEOS_finish_r(context_); }

    Geometry FromText(const char* text) const {
        GEOSWKTReader* reader = GEOSWKTReader_create_r(context_);
        Geometry geometry(GEOSWKTReader_read_r(context_, reader, text), Destroy{context_});
        GEOSWKTReader_destroy_r(context_, reader);
        return geometry;
    }
    bool Contains(const char* outer, const char* inner) const {
        return GEOSContains_r(context_, FromText(outer).get(), FromText(inner).get()) == 1;
    }
    bool IsValid(const char* text) const {
        return GEOSisValid_r(context_, FromText(text).get()) == 1;
    }

private:
    GEOSContextHandle_t context_ = GEOS_init_r();
};

constexpr const char* kSquareWithHole =
    "POLYGON ((0 0, 10 0, 10 10, 0 10, 0 0), (4 4, 6 4, 6 6, 4 6, 4 4))";

TEST_F(APolygon, ContainsAPointBetweenItsRings) {
    EXPECT_TRUE(Contains(kSquareWithHole, "POINT (2 2)"));
}

TEST_F(APolygon, DoesNotContainAPointOfItsHole) {
    EXPECT_FALSE(Contains(kSquareWithHole, "POINT (5 5)"));
}

// Here an exception is thrown and caught inside the static library.
TEST_F(APolygon, ThatCannotBeReadIsNull) {
    EXPECT_EQ(FromText("POLYGON ((0 0, 1 1"), nullptr);
}

TEST_F(APolygon, ThatCrossesItselfIsNotValid) {
    EXPECT_FALSE(IsValid("POLYGON ((0 0, 2 2, 2 0, 0 2, 0 0))"));
}

}  // namespace
