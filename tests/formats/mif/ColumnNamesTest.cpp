#include "app/formats/mif/ColumnNames.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

struct NamesRow {
    std::string name;
    std::vector<std::string> wanted;
    std::vector<std::string> names;
    std::string codePage = "UTF-8";
};
class ColumnNames : public testing::TestWithParam<NamesRow> {};

TEST_P(ColumnNames, Are) {
    app::CharsetEncoder encoder(GetParam().codePage);
    std::vector<app::LayerColumn> columns;
    for (const std::string& wanted : GetParam().wanted) {
        columns.push_back({.name = wanted});
    }

    EXPECT_EQ(app::ColumnNamesFor(columns, encoder), GetParam().names);
}

INSTANTIATE_TEST_SUITE_P(
    , ColumnNames,
    testing::Values(
        NamesRow{
            "KeptWhenTheyCanBe", {"ID", "name_2", "Stra\u00DFe"}, {"ID", "name_2", "Stra\u00DFe"}},
        NamesRow{"WithoutBlanks", {"name of road", " x"}, {"name_of_road", "_x"}},
        NamesRow{"WithoutSigns",
                 {"a-b", "a\"b", "50%", "a\u2013b", "a\u00A0b", "x\u00B2"},
                 {"a_b", "a_b_2", "_50_", "a_b_3", "a_b_4", "x_"}},
        NamesRow{"NotBegunByADigit", {"1st"}, {"_1st"}},
        NamesRow{"NumberedWhenDoubled", {"a", "A", "a"}, {"a", "A_2", "a_3"}},
        NamesRow{"NumberedPastATakenNumber", {"a", "a_2", "a"}, {"a", "a_2", "a_3"}},
        NamesRow{"KeptWhereAnotherBecomesTheSame", {"a b", "a_b"}, {"a_b_2", "a_b"}},
        NamesRow{"CutAt31Characters", {std::string(40, 'x')}, {std::string(31, 'x')}},
        NamesRow{"CutForTheirNumber",
                 {std::string(31, 'x'), std::string(32, 'x')},
                 {std::string(31, 'x'), std::string(29, 'x') + "_2"}},
        NamesRow{
            "CutByCharactersNotBytes",
            {"\u0430\u0431\u0432\u0433\u0434\u0435\u0436\u0437\u0438\u0439\u043A\u043B\u043C\u043D"
             "\u043E\u043F\u0440\u0441"},
            {"\u0430\u0431\u0432\u0433\u0434\u0435\u0436\u0437\u0438\u0439\u043A\u043B\u043C\u043D"
             "\u043E\u043F\u0440\u0441"}},
        NamesRow{"TheirPlaceWhenEmpty", {"a", ""}, {"a", "column_2"}},
        NamesRow{"OnlyLettersOfTheCharset",
                 {"\u0438\u043C\u044F", "caf\u00E9"},
                 {"\u0438\u043C\u044F", "caf_"},
                 "CP1251"},
        NamesRow{"WithoutInvalidBytes", {"a\xFF"}, {"a_"}}),
    [](const auto& row) { return row.param.name; });

}  // namespace
