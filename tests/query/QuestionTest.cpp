#include "app/query/Question.h"

#include "app/base/Errors.h"
#include "tests/support/Features.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace {

using app::ColumnKind;
using app::Question;
using support::Column;

const std::vector<app::LayerColumn> kColumns = {
    Column("pop", ColumnKind::Integer),    Column("name", ColumnKind::Char, 20),
    Column("code", ColumnKind::Char, 5),   Column("open", ColumnKind::Logical),
    Column("since", ColumnKind::Date),     Column("area", ColumnKind::Decimal),
    Column("Pop 2020", ColumnKind::Float), Column("NAME", ColumnKind::Char),
    Column("Õ\"q", ColumnKind::Char)};

app::Feature Town() {
    app::Feature feature =
        support::PointAt(1, 2,
                         {std::int64_t{1200}, std::string("Abja"), std::string("012"), true,
                          std::string("2020-03-01"), std::string("12345678901234567890.5"), 1.5,
                          std::string("second"), std::string("x")});
    feature.number = 7;
    return feature;
}

bool Holds(const std::string& expression) {
    return Question(expression, kColumns, "a.mif").Holds(Town());
}

// The message of the exception with which an expression is refused; its kind goes before it.
std::string ProblemOf(const std::string& expression) {
    try {
        const Question question(expression, kColumns, "a.mif");
    } catch (const app::UsageError& error) {
        return std::string("usage: ") + error.what();
    } catch (const app::Failure& failure) {
        return std::string("failure: ") + failure.what();
    }
    return "";
}

struct AnswerRow {
    const char* name;
    const char* expression;
    bool holds;
};

std::ostream& operator<<(std::ostream& out, const AnswerRow& row) {
    return out << row.name;
}

class AnExpression : public testing::TestWithParam<AnswerRow> {};

TEST_P(AnExpression, HoldsOrNot) {
    EXPECT_EQ(Holds(GetParam().expression), GetParam().holds);
}

INSTANTIATE_TEST_SUITE_P(
    , AnExpression,
    testing::Values(AnswerRow{"ComparesNumbers", "pop > 1000", true},
                    AnswerRow{"ComparesNumbersThatAreLess", "pop < 1000", false},
                    AnswerRow{"CombinesConditions", "pop > 1000 and name like 'a%'", true},
                    AnswerRow{"FindsColumnsInAnyCase", "POP > 1000", true},
                    AnswerRow{"ComparesANumberColumnWithATextOfANumber", "pop = '1200'", true},
                    AnswerRow{"ComparesATextColumnWithANumberAsTexts", "code = 12", false},
                    AnswerRow{"ComparesTexts", "code = '012'", true},
                    AnswerRow{"KnowsTruth", "open", true},
                    AnswerRow{"ComparesTruth", "open = false", false},
                    AnswerRow{"ComparesDates", "since >= '2020-01-01'", true},
                    AnswerRow{"TakesPartsOfDates", "strftime('%m', since) = '03'", true},
                    AnswerRow{"ComparesLongDecimalsAsNumbers", "area > 1e19 and area < 2e19", true},
                    AnswerRow{"TakesNamesWithBlanksInDoubleQuotes", "\"Pop 2020\" = 1.5", true},
                    AnswerRow{"TakesNamesWithBlanksInBrackets", "[Pop 2020] = 1.5", true},
                    AnswerRow{"TakesNamesWithQuotes", "\"Õ\"\"q\" = 'x'", true},
                    AnswerRow{"TakesTheFirstOfNamesThatDifferInCase", "\"NAME\" = 'Abja'", true},
                    AnswerRow{"KnowsTheNumberOfTheFeature", "rowid = 7", true},
                    AnswerRow{"IsNotTrueWhenItIsNull", "null", false},
                    AnswerRow{"MayHaveAComment", "pop > 1000 -- towns", true},
                    AnswerRow{"MayHaveLines", "pop > 1000\nand open", true}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(AQuestion, IsAskedOfOneFeatureAfterAnother) {
    Question question("pop > 1000", kColumns, "a.mif");
    app::Feature village = Town();
    village.values[0] = std::int64_t{10};

    EXPECT_TRUE(question.Holds(Town()));
    EXPECT_FALSE(question.Holds(village));
    EXPECT_TRUE(question.Holds(Town()));
}

TEST(AQuestion, TakesMissingValuesAsNull) {
    EXPECT_TRUE(Question("name IS NULL", kColumns, "a.mif")
                    .Holds(support::PointAt(1, 2, {std::int64_t{1}})));
}

TEST(AQuestion, MayBeMoved) {
    Question question("pop > 1000", kColumns, "a.mif");
    Question moved = std::move(question);

    EXPECT_TRUE(moved.Holds(Town()));
}

TEST(AQuestion, NeedsNoColumns) {
    EXPECT_TRUE(Question("rowid = 7", {}, "a.mif").Holds(Town()));
}

struct ProblemRow {
    const char* name;
    const char* expression;
    const char* problem;
};

std::ostream& operator<<(std::ostream& out, const ProblemRow& row) {
    return out << row.name;
}

class AWrongExpression : public testing::TestWithParam<ProblemRow> {};

TEST_P(AWrongExpression, IsRefusedWithItsPlace) {
    EXPECT_EQ(ProblemOf(GetParam().expression), GetParam().problem);
}

constexpr const char* kOnlyColumns =
    "usage: --where: only the columns of the layer and functions of values may be used\n  ";

INSTANTIATE_TEST_SUITE_P(
    , AWrongExpression,
    testing::Values(
        ProblemRow{"Empty", "  ", "usage: --where needs an expression, such as \"pop > 1000\""},
        ProblemRow{"AWordThatDoesNotFit", "pop > and open",
                   "usage: --where: near \"and\": syntax error\n  pop > and open\n        ^"},
        ProblemRow{"BehindWideLetters", "name = '日' and and",
                   "usage: --where: near \"and\": syntax error\n  name = '日' and and\n"
                   "                  ^"},
        ProblemRow{"TooShort", "pop >",
                   "usage: --where: the expression ends too early\n  pop >\n       ^"},
        ProblemRow{"ABracketTooMany", "pop > 5)",
                   "usage: --where: near \")\": syntax error\n  pop > 5)\n         ^"},
        ProblemRow{"TwoStatements", "pop; DROP TABLE feature",
                   "usage: --where: near \";\": syntax error\n  pop; DROP TABLE feature\n     ^"},
        ProblemRow{"TwoQuestions", "1 UNION SELECT 2",
                   "usage: --where: near \"UNION\": syntax error\n  1 UNION SELECT 2\n    ^"},
        ProblemRow{"AParameter", "pop > ?",
                   "usage: --where: a parameter has no value here\n  pop > ?\n        ^"},
        ProblemRow{"ANearName", "popp > 5",
                   "failure: a.mif: --where: there is no column \"popp\"; did you mean \"pop\"? "
                   "The columns are: pop, name, code, open, since, area, Pop 2020, NAME, Õ\"q\n  "
                   "popp > 5\n  ^"},
        ProblemRow{"ATextInDoubleQuotes", "name = \"Tartu\"",
                   "failure: a.mif: --where: there is no column \"Tartu\"; the columns are: pop, "
                   "name, code, open, since, area, Pop 2020, NAME, Õ\"q; a text stands in single "
                   "quotes: 'Tartu'\n  name = \"Tartu\"\n         ^"}),
    [](const auto& row) { return std::string(row.param.name); });

class AForbiddenExpression : public testing::TestWithParam<const char*> {};

TEST_P(AForbiddenExpression, IsRefused) {
    EXPECT_TRUE(ProblemOf(GetParam()).starts_with("usage: --where: ")) << ProblemOf(GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    , AForbiddenExpression,
    testing::Values("load_extension('x')", "pop IN (SELECT 1 FROM sqlite_schema)",
                    "EXISTS (SELECT * FROM pragma_database_list)",
                    "EXISTS (SELECT * FROM json_each('[1]'))",
                    "1 IN (WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i FROM n) SELECT i "
                    "FROM n)",
                    "count(*) > 0", "1; ATTACH 'x' AS x"));

TEST(AQuestion, FailsWithWordsWhenAValueGrowsTooLong) {
    Question question("length(zeroblob(200000000)) > 1", kColumns, "a.mif");

    try {
        static_cast<void>(question.Holds(Town()));
        FAIL() << "it is evaluated";
    } catch (const app::Failure& failure) {
        EXPECT_STREQ(failure.what(), "a.mif: --where: string or blob too big");
    }
}

}  // namespace
