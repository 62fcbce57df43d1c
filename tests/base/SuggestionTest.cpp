#include "app/base/Suggestion.h"

#include <gtest/gtest.h>

#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace {

const std::vector<std::string> kNames = {"id", "name", "population", "Höhe"};

struct SuggestionRow {
    const char* name;
    std::string wanted;
    std::optional<std::string> nearest;
};

std::ostream& operator<<(std::ostream& out, const SuggestionRow& row) {
    return out << row.name;
}

class NearestName : public testing::TestWithParam<SuggestionRow> {};

TEST_P(NearestName, IsThis) {
    EXPECT_EQ(app::NearestName(GetParam().wanted, kNames), GetParam().nearest);
}

INSTANTIATE_TEST_SUITE_P(
    , NearestName,
    testing::Values(SuggestionRow{"ALetterTooMany", "namee", "name"},
                    SuggestionRow{"ALetterTooFew", "nme", "name"},
                    SuggestionRow{"TwoLettersSwapped", "nmae", "name"},
                    SuggestionRow{"AnotherCase", "POPULATION", "population"},
                    SuggestionRow{"AnotherCaseBeyondAscii", "HÖHE", "Höhe"},
                    SuggestionRow{"SeveralLettersOfALongName", "populaton_", "population"},
                    SuggestionRow{"NothingNear", "street", std::nullopt},
                    SuggestionRow{"ALetterForAName", "x", std::nullopt},
                    SuggestionRow{"NoLetter", "", std::nullopt},
                    SuggestionRow{"ThousandLetters", std::string(1000, 'n'), std::nullopt}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(NearestNameOfNone, IsAbsent) {
    EXPECT_EQ(app::NearestName("name", {}), std::nullopt);
}

}  // namespace
