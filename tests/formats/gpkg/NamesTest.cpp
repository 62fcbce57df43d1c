// Names and texts that every program can read.
#include "app/formats/gpkg/Names.h"

#include <gtest/gtest.h>

namespace {

TEST(UniqueNames, CountsOnAmongNamesThatAreTaken) {
    app::UniqueNames names;
    names.Take("a", "x");
    names.Take("A_2", "x");

    EXPECT_EQ(names.Take("a", "x"), "a_3");
}

TEST(UniqueNames, TakesTheFallbackForANameOfBlanks) {
    EXPECT_EQ(app::UniqueNames().Take("  ", "column_1"), "column_1");
}

TEST(UniqueNames, ReplacesBrokenUtf8) {
    EXPECT_EQ(app::UniqueNames().Take("a\xFF"
                                      "b",
                                      "x"),
              "a_b");
}

TEST(CleanText, LeavesOtherAlphabetsAlone) {
    EXPECT_EQ(app::CleanText("\xD0\x9C\xD0\xB0\xE2\x82\xAC"), "\xD0\x9C\xD0\xB0\xE2\x82\xAC");
}

TEST(CleanText, ReplacesTheDeleteCharacter) {
    EXPECT_EQ(app::CleanText("a\x7F"), "a\xEF\xBF\xBD");
}

TEST(TableNameFor, LeavesANameAloneThatOnlyHoldsAReservedWord) {
    EXPECT_EQ(app::TableNameFor("my_gpkg_table"), "my_gpkg_table");
}

}  // namespace
