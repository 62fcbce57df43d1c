#include "app/base/Paths.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace {

struct FileNameRow {
    const char* name;
    std::string wanted;
    std::string safe;
};

std::ostream& operator<<(std::ostream& out, const FileNameRow& row) {
    return out << row.name;
}

class SafeFileName : public testing::TestWithParam<FileNameRow> {};

TEST_P(SafeFileName, IsThis) {
    EXPECT_EQ(app::SafeFileName(GetParam().wanted), GetParam().safe);
}

INSTANTIATE_TEST_SUITE_P(
    , SafeFileName,
    testing::Values(FileNameRow{"TheNameWhereItCanBe", "Höhen v1.2 (neu)", "Höhen v1.2 (neu)"},
                    FileNameRow{"WithoutSeparators", "../a\\b:c", "_.._a_b_c"},
                    FileNameRow{"WithoutQuotesAndPatterns", "a*b?c\"<d>|", "a_b_c__d__"},
                    FileNameRow{"WithoutControlCharacters", std::string("a\0b\n\x7F", 5), "a_b__"},
                    FileNameRow{"WithoutBytesThatAreNoText", "a\xFF", "a_"},
                    FileNameRow{"WithoutBlanksAndDotsAtItsEnds", "  a. .", "a"},
                    FileNameRow{"ALayerWhenNothingIsLeft", " ..", "layer"},
                    FileNameRow{"NotHidden", ".roads", "_.roads"},
                    FileNameRow{"NoOption", "-rf", "_-rf"}, FileNameRow{"NoDevice", "Con", "_Con"},
                    FileNameRow{"NoDeviceWithAnEnding", "nul.old", "_nul.old"},
                    FileNameRow{"NoPort", "COM1", "_COM1"},
                    FileNameRow{"AWordLikeOne", "come", "come"},
                    FileNameRow{"CutBetweenCharacters", "x" + std::string(198, 'a') + "öö",
                                "x" + std::string(198, 'a')}),
    [](const auto& row) { return std::string(row.param.name); });

}  // namespace
