// Systems of the register, sampled, through a clause and back: no point moves.
#include "app/crs/ProjText.h"
#include "app/crs/WriteClause.h"
#include "tests/crs/Systems.h"

#include <gtest/gtest.h>
#include <proj.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

struct Entry {
    int code = 0;
    double west = 0.0;
    double south = 0.0;
    double east = 0.0;
    double north = 0.0;
};

// The projected systems of the register that are in use, in the order of their codes.
std::vector<Entry> RegisterOfSystems() {
    const std::unique_ptr<PJ_CONTEXT, decltype(&proj_context_destroy)> context(
        proj_context_create(), &proj_context_destroy);
    const std::unique_ptr<PROJ_CRS_LIST_PARAMETERS, decltype(&proj_get_crs_list_parameters_destroy)>
        parameters(proj_get_crs_list_parameters_create(), &proj_get_crs_list_parameters_destroy);
    const PJ_TYPE type = PJ_TYPE_PROJECTED_CRS;
    parameters->types = &type;
    parameters->typesCount = 1;
    int count = 0;
    PROJ_CRS_INFO** const list =
        proj_get_crs_info_list_from_database(context.get(), "EPSG", parameters.get(), &count);
    std::vector<Entry> entries;
    for (int i = 0; i < count; ++i) {
        entries.push_back({std::stoi(list[i]->code), list[i]->west_lon_degree,
                           list[i]->south_lat_degree, list[i]->east_lon_degree,
                           list[i]->north_lat_degree});
    }
    proj_crs_info_list_destroy(list);
    std::sort(entries.begin(), entries.end(),
              [](const Entry& left, const Entry& right) { return left.code < right.code; });
    return entries;
}

std::vector<Entry> Sample(std::size_t size) {
    std::vector<Entry> entries = RegisterOfSystems();
    std::mt19937 random(300);
    // std::shuffle is another one in every library.
    for (std::size_t i = 0; i < size && i < entries.size(); ++i) {
        std::swap(entries[i], entries[i + random() % (entries.size() - i)]);
    }
    entries.resize(std::min(size, entries.size()));
    return entries;
}

// Three places in the area of use.
std::array<Place, 3> PlacesIn(const Entry& entry) {
    const double width = entry.east - entry.west + (entry.east < entry.west ? 360.0 : 0.0);
    const double height = entry.north - entry.south;
    std::array<Place, 3> places;
    for (std::size_t i = 0; i < places.size(); ++i) {
        const double share = 0.25 * static_cast<double>(i + 1);
        places[i] = {std::remainder(entry.west + share * width, 360.0),
                     entry.south + share * height};
    }
    return places;
}

double MetresBetween(const Place& left, const Place& right) {
    constexpr double kMetresPerDegree = 111'319.5;
    const double narrowing = std::cos(left.y * 0.017453292519943295);
    return kMetresPerDegree *
           std::hypot(std::remainder(left.x - right.x, 360.0) * narrowing, left.y - right.y);
}

struct Outcome {
    int same = 0;
    int refused = 0;
    std::string moved;      // codes of those that moved a point
    std::string elsewhere;  // codes of those whose coordinates are not the register's
};

using Context = std::unique_ptr<PJ_CONTEXT, decltype(&proj_context_destroy)>;
using Object = std::unique_ptr<PJ, decltype(&proj_destroy)>;

// Whether the clause gives the register's own coordinates, datums aside: both begin at the same
// longitude and latitude of their datums.
bool HasCoordinatesOfRegister(const app::CoordinateSystem& named, const app::Clause& clause,
                              const std::array<Place, 3>& places) {
    constexpr double kCentimetre = 0.01;
    const Context context(proj_context_create(), &proj_context_destroy);
    const Object crs(proj_create(context.get(), named.definition.c_str()), &proj_destroy);
    const Object frame(proj_crs_get_geodetic_crs(context.get(), crs.get()), &proj_destroy);
    const Object unordered(
        proj_create_crs_to_crs_from_pj(context.get(), frame.get(), crs.get(), nullptr, nullptr),
        &proj_destroy);
    const Object theirs(proj_normalize_for_visualization(context.get(), unordered.get()),
                        &proj_destroy);
    const Object ours(proj_create(context.get(), app::PipelineToGeographic(clause).c_str()),
                      &proj_destroy);
    for (const Place& place : places) {
        const PJ_COORD at = proj_coord(place.x, place.y, 0.0, HUGE_VAL);
        const PJ_XY left = proj_trans(theirs.get(), PJ_FWD, at).xy;
        const PJ_XY right = proj_trans(ours.get(), PJ_INV, at).xy;
        if (std::hypot(left.x - right.x, left.y - right.y) * named.metresPerUnit > kCentimetre) {
            return false;
        }
    }
    return true;
}

Outcome Try(const std::vector<Entry>& entries) {
    Outcome outcome;
    for (const Entry& entry : entries) {
        const app::CoordinateSystem named =
            app::SystemOfDefinition("EPSG:" + std::to_string(entry.code));
        const app::ClauseForExport found = app::ClauseOf(named);
        if (!found) {
            EXPECT_NE(found.problem, "");
            ++outcome.refused;
            continue;
        }
        const bool countsFromGreenwich = found.clause->datum.GetParameters().primeMeridian == 0.0;
        if (countsFromGreenwich &&
            !HasCoordinatesOfRegister(named, *found.clause, PlacesIn(entry))) {
            outcome.elsewhere += " " + std::to_string(entry.code);
        }
        const app::CoordinateSystem written = app::SystemOfClause(*found.clause);
        const app::CoordinateSystem read = app::ReadClause(app::WriteClause(*found.clause).text);
        const app::Transformation into(app::Wgs84System(), written);
        const app::Transformation back(read, app::Wgs84System());
        bool isMoved = false;
        for (const Place& place : PlacesIn(entry)) {
            Place there = place;
            isMoved = isMoved || into.Apply({&there.x, 1}, {&there.y, 1}) > 0 ||
                      back.Apply({&there.x, 1}, {&there.y, 1}) > 0 ||
                      MetresBetween(place, there) > 1.0;
        }
        if (isMoved) {
            outcome.moved += " " + std::to_string(entry.code);
        } else {
            ++outcome.same;
        }
    }
    return outcome;
}

TEST(SampledSystemsOfTheRegister, AreWrittenAndReadBackWithoutMovingAPoint) {
    const Outcome outcome = Try(Sample(300));

    EXPECT_EQ(outcome.moved, "");
    EXPECT_EQ(outcome.elsewhere, "");
    EXPECT_GE(outcome.same, 255);
    EXPECT_LE(outcome.refused, 45);
}

}  // namespace
