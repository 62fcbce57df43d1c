#include "app/mif/CopyWithoutCoordSys.h"
#include "app/base/Errors.h"
#include "tests/check/KeptFindings.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

TEST(ANeutralCopy, HasAPlainClauseInPlaceOfTheFilesOwn) {
    const support::TemporaryFolder folder;
    folder.Write("a.mif", "Version 300\nCoordSys Earth Projection 24, 1016, \"m\", 27\nColumns 1\n"
                          "  a Integer\nData\nPoint 1 2\n");

    const app::check::NeutralCopy copy(folder.path() / "a.mif");

    EXPECT_EQ(BytesOf(copy.Path()),
              "Version 300\nCoordSys NonEarth Units \"m\"\nColumns 1\n  a Integer\nData\n"
              "Point 1 2\n");
}

TEST(ANeutralCopy, TakesAClauseThatBreaksBehindEarthAsOne) {
    const support::TemporaryFolder folder;
    folder.Write("a.mif", "CoordSys Earth\r\n  Projection 24, 1016\r\nData\r\nCoordSys Earth\r\n");

    const app::check::NeutralCopy copy(folder.path() / "a.mif");

    EXPECT_EQ(BytesOf(copy.Path()), "CoordSys NonEarth Units \"m\"\r\nData\r\nCoordSys Earth\r\n");
}

TEST(ANeutralCopy, HasTheMidFileBesideIt) {
    const support::TemporaryFolder folder;
    folder.Write("a.mif", "Data\n");
    folder.Write("a.mid", "1\n");

    const app::check::NeutralCopy copy(folder.path() / "a.mif");

    EXPECT_EQ(BytesOf(copy.Path().parent_path() / "a.mid"), "1\n");
}

TEST(ANeutralCopy, CanBeImportedWhateverTheProjection) {
    const app::check::NeutralCopy copy(std::filesystem::path(QOLF_SAMPLES) /
                                       "real/finnish_kkj.mif");

    EXPECT_TRUE(ImportFindingsOf(copy.Path()).names.empty());
}

TEST(ANeutralCopy, IsRemovedWithItsObject) {
    std::filesystem::path path;

    {
        const app::check::NeutralCopy copy(std::filesystem::path(QOLF_SAMPLES) / "island.mif");
        path = copy.Path();
    }

    EXPECT_FALSE(std::filesystem::exists(path.parent_path()));
}

TEST(ANeutralCopy, OfAFileThatIsNotThereFails) {
    const support::TemporaryFolder folder;

    EXPECT_THROW(app::check::NeutralCopy(folder.path() / "a.mif"), app::Failure);
}

TEST(ANeutralCopy, NamesTheOriginalInTexts) {
    const support::TemporaryFolder folder;
    folder.Write("a.mif", "Data\n");
    const app::check::NeutralCopy copy(folder.path() / "a.mif");

    EXPECT_EQ(copy.WithOriginalPath("in " + copy.Path().string() + "!"),
              "in " + (folder.path() / "a.mif").string() + "!");
}

}  // namespace
