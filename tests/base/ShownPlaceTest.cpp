// Texts name the place in an archive instead of the private folder.
#include "app/base/ShownPlace.h"

#include "app/base/Paths.h"

#include <gtest/gtest.h>

namespace app {
namespace {

TEST(AShownPlace, StandsForFilesBelowItsFolder) {
    const ShownPlace place("/tmp/x1", "maps");

    EXPECT_EQ(PathText("/tmp/x1/a.zip/b.mif"), "maps/a.zip/b.mif");
    EXPECT_EQ(PathText("/tmp/x10/b.mif"), "/tmp/x10/b.mif");
    EXPECT_EQ(WithShownPlaces("'/tmp/x1/a', '/tmp/x1/b'"), "'maps/a', 'maps/b'");
}

TEST(AShownPlace, MayBeTheWorkingFolder) {
    const ShownPlace place("/tmp/x1", "");

    EXPECT_EQ(PathText("/tmp/x1/a.zip/b.mif"), "a.zip/b.mif");
}

TEST(AShownPlace, LastsAsLongAsItsObject) {
    const ShownPlace outer("/tmp/x1", "one");
    {
        const ShownPlace inner("/tmp/x2", "two");
        EXPECT_EQ(PathText("/tmp/x2/a"), "two/a");
    }
    EXPECT_EQ(PathText("/tmp/x2/a"), "/tmp/x2/a");
    EXPECT_EQ(PathText("/tmp/x1/a"), "one/a");
}

TEST(AnArgument, IsMadeOfAPathAsItIsRead) {
    const ShownPlace place("/tmp/x1", "maps");

    EXPECT_EQ(ArgumentOfPath("/tmp/x1/\xD0\x96.mif"), "/tmp/x1/\xD0\x96.mif");
    EXPECT_EQ(PathFromArgument(ArgumentOfPath("/tmp/x1/a\xFF.mif")), "/tmp/x1/a\xFF.mif");
}

}  // namespace
}  // namespace app
