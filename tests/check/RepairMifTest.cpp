// Repairs of the broken files in tests/data/check, against tests/data/check/repaired.
#include "app/check/RepairMif.h"
#include "app/base/Errors.h"
#include "tests/check/KeptFindings.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>

namespace {

std::filesystem::path Data(const std::string& name) {
    return std::filesystem::path(QOLF_TEST_DATA) / "check" / name;
}

class ARepairOf : public testing::TestWithParam<std::string> {
protected:
    app::RepairReport Repair() {
        return app::RepairMif(Data(GetParam() + ".mif"), folder_.path() / "copy.mif",
                              app::IfExists::Refuse);
    }

    support::TemporaryFolder folder_;
};

TEST_P(ARepairOf, TheFileIsByteForByteTheExpectedOne) {
    const auto report = Repair();

    EXPECT_GT(report.count, 0U);
    EXPECT_EQ(folder_.Read("copy.mif"), BytesOf(Data("repaired/" + GetParam() + ".mif")));
    EXPECT_EQ(folder_.Read("copy.mid"), BytesOf(Data("repaired/" + GetParam() + ".mid")));
}

TEST_P(ARepairOf, TheFileLeavesNothingThatCouldBeRepaired) {
    static_cast<void>(Repair());

    EXPECT_EQ(FindingsOf(folder_.path() / "copy.mif").editCount, 0U);
}

TEST_P(ARepairOf, TheFileCanBeImported) {
    static_cast<void>(Repair());

    EXPECT_THAT(ImportFindingsOf(folder_.path() / "copy.mif").names, testing::IsEmpty());
}

TEST_P(ARepairOf, TheFileLeavesTheInputAlone) {
    const std::string before = BytesOf(Data(GetParam() + ".mif"));

    static_cast<void>(Repair());

    EXPECT_EQ(BytesOf(Data(GetParam() + ".mif")), before);
}

INSTANTIATE_TEST_SUITE_P(, ARepairOf,
                         testing::Values("albers-at-the-end-of-its-line", "data-swallowed",
                                         "earth-alone", "empty-field-and-quotes-under-tab", "arc",
                                         "blank-after-minus", "bounds-on-coordsys-line",
                                         "byte-order-mark", "columns-one-off", "columns-swallowed",
                                         "count-on-next-line", "decimal-comma-in-value",
                                         "decimal-commas", "empty-field-under-default-tab",
                                         "empty-field-under-tab", "empty-line-in-object",
                                         "line-break-in-value", "lone-carriage-returns",
                                         "no-final-line-end", "none-without-line-end",
                                         "projection-extended-transverse-mercator",
                                         "projection-transverse-mercator-with-bounds",
                                         "ring-count-one-too-large", "ring-count-one-too-small",
                                         "section-count-one-too-large", "unit-in-kilometres"),
                         [](const auto& row) {
                             std::string name = row.param;
                             std::ranges::replace(name, '-', '_');
                             return name;
                         });

struct UnitRow {
    std::string name;
    std::string perMetre;  // as the repair writes it
};

class AUnit : public testing::TestWithParam<UnitRow> {};

TEST_P(AUnit, BecomesItsNumberInAMetre) {
    const support::TemporaryFolder folder;
    const auto text = [](const std::string& unit) {
        return "Version 300\nCharset \"Neutral\"\nCoordSys Earth Projection 8, 104, \"" + unit +
               "\", 27, 0, 1, 0, 0\nData\n\nPoint 1 2\n";
    };
    folder.Write("a.mif", text(GetParam().name));

    app::RepairMif(folder.path() / "a.mif", folder.path() / "copy.mif", app::IfExists::Refuse);

    EXPECT_EQ(folder.Read("copy.mif"), text(GetParam().perMetre));
}

INSTANTIATE_TEST_SUITE_P(
    , AUnit,
    testing::Values(UnitRow{"km", "0.001"}, UnitRow{"mi", "0.0006213711922373339"},
                    UnitRow{"in", "39.37007874015748"}, UnitRow{"ft", "3.280839895013123"},
                    UnitRow{"yd", "1.0936132983377078"}, UnitRow{"mm", "1000"},
                    UnitRow{"cm", "100"}, UnitRow{"nmi", "0.0005399568034557236"},
                    UnitRow{"li", "4.970959595959596"}, UnitRow{"ch", "0.04970959595959596"},
                    UnitRow{"rd", "0.19883838383838384"}),
    [](const auto& row) { return row.param.name; });

TEST(RepairMif, WritesNothingForAFileWithoutFaults) {
    const support::TemporaryFolder folder;

    const auto report =
        app::RepairMif(Data("clean-region.mif"), folder.path() / "copy.mif", app::IfExists::Refuse);

    EXPECT_EQ(report.count, 0U);
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST(RepairMif, LeavesAnEarlierCopyForAFileWithoutFaults) {
    const support::TemporaryFolder folder;
    folder.Write("copy.mif", "earlier");

    app::RepairMif(Data("clean-region.mif"), folder.path() / "copy.mif", app::IfExists::Overwrite);

    EXPECT_EQ(folder.Read("copy.mif"), "earlier");
}

TEST(RepairMif, SaysWhatItChanged) {
    const support::TemporaryFolder folder;

    const auto report = app::RepairMif(Data("ring-count-one-too-large.mif"),
                                       folder.path() / "copy.mif", app::IfExists::Refuse);

    ASSERT_EQ(report.repairs.size(), 1U);
    EXPECT_EQ(report.repairs[0].what, "the count 6 becomes 5");
    EXPECT_EQ(report.repairs[0].line, 10U);
    EXPECT_EQ(report.repairs[0].code, app::FindingCode::CountMismatch);
}

TEST(RepairMif, MakesNoMidFileWhereThereIsNone) {
    const support::TemporaryFolder folder;

    folder.Write("a.mif", "Version 300\nCharset \"Neutral\"\nData\n\nPoint 1,5 2\n");

    const auto report =
        app::RepairMif(folder.path() / "a.mif", folder.path() / "copy.mif", app::IfExists::Refuse);

    EXPECT_FALSE(report.hasMid);
    EXPECT_TRUE(folder.Has("copy.mif"));
    EXPECT_FALSE(folder.Has("copy.mid"));
}

TEST(RepairMif, RefusesToReplaceTheInputEvenIfOverwritingIsAllowed) {
    const support::TemporaryFolder folder;
    folder.Write("roads.mif", BytesOf(Data("arc.mif")));

    EXPECT_THROW(app::RepairMif(folder.path() / "roads.mif", folder.path() / "roads.mif",
                                app::IfExists::Overwrite),
                 app::Failure);
    EXPECT_EQ(folder.Read("roads.mif"), BytesOf(Data("arc.mif")));
}

TEST(RepairMif, LeavesNothingBehindForAFileThatCannotBeRead) {
    const support::TemporaryFolder folder;

    EXPECT_THROW(
        app::RepairMif(Data("utf-16.mif"), folder.path() / "copy.mif", app::IfExists::Refuse),
        app::Failure);
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

}  // namespace
