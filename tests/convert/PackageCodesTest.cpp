// The code of a system that was named, in a package that a conversion writes.
#include "app/convert/ConvertRun.h"
#include "app/sqlite/Sqlite.h"
#include "tests/support/KeptMessages.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <ostream>
#include <string>

namespace {

struct CodeRow {
    int code;
    const char* place;  // longitude and latitude within the system's area
};
void PrintTo(const CodeRow& row, std::ostream* out) {
    *out << "EPSG:" << row.code;
}

class AFrequentSystem : public testing::TestWithParam<CodeRow> {
protected:
    // The first row of a query; its columns are whole numbers or texts, parted by "|".
    std::string Query(const std::string& sql) const {
        app::SqliteDatabase package(folder_.path() / "out.gpkg", app::SqliteDatabase::Mode::Read,
                                    "out.gpkg");
        app::SqliteStatement statement(package, sql);
        EXPECT_TRUE(statement.Step());
        std::string row;
        for (int column = 0; column < statement.ColumnCount(); ++column) {
            row += (column > 0 ? "|" : "") + std::string(statement.Text(column));
        }
        return row;
    }

    support::TemporaryFolder folder_;
    support::KeptMessages messages_;
};

TEST_P(AFrequentSystem, KeepsItsCodeInThePackage) {
    const std::string code = std::to_string(GetParam().code);
    folder_.Write("in.json", std::string(R"({"type":"Feature","properties":{"id":1},)") +
                                 R"("geometry":{"type":"Point","coordinates":[)" +
                                 GetParam().place + "]}}");
    app::ConvertOptions options;
    options.modulePath = QOLF_MODULE;
    options.noStore = true;
    options.crs = "EPSG:" + code;
    options.paths = {(folder_.path() / "in.json").string(), (folder_.path() / "out.gpkg").string()};

    ASSERT_EQ(app::RunConvert(options, messages_.Reporter()), 0) << messages_.Text();

    EXPECT_EQ(Query("SELECT srs_id FROM gpkg_geometry_columns"), code);
    EXPECT_EQ(Query("SELECT srs_id FROM gpkg_contents"), code);
    EXPECT_EQ(Query("SELECT organization, organization_coordsys_id FROM gpkg_spatial_ref_sys "
                    "WHERE srs_id = " +
                    code),
              "EPSG|" + code);
}

const CodeRow kCodes[] = {
    {4326, "10,50"},    {4258, "10,50"},   {4269, "-100,40"},  {3857, "10,50"},   {3395, "10,50"},
    {32632, "9,50"},    {32635, "27,58"},  {32733, "15,-20"},  {25832, "9,50"},   {25833, "15,50"},
    {25835, "27,60"},   {26917, "-81,40"}, {2263, "-74,40.7"}, {5070, "-96,38"},  {3067, "27,62"},
    {3301, "25,58.6"},  {2154, "3,46.5"},  {27572, "2.5,47"},  {2056, "8,47"},    {21781, "8,47"},
    {31287, "14,47.5"}, {2180, "19,52"},   {7855, "147,-37"},  {3413, "-45,75"},  {3031, "0,-75"},
    {23700, "19,47"},   {27700, "-2,53"},  {31467, "9,50"},    {28992, "5.4,52"}, {5514, "15,49.5"},
    {3035, "10,52"},    {2193, "173,-41"},
};

INSTANTIATE_TEST_SUITE_P(, AFrequentSystem, testing::ValuesIn(kCodes),
                         [](const auto& row) { return "Epsg" + std::to_string(row.param.code); });

}  // namespace
