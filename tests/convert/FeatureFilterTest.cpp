#include "app/convert/FeatureFilter.h"

#include "app/base/Errors.h"
#include "tests/support/Features.h"

#include <gtest/gtest.h>

#include <limits>
#include <ostream>

namespace {

using app::FeatureFilter;
using support::Column;

const std::vector<app::LayerColumn> kColumns = {Column("id", app::ColumnKind::Integer),
                                                Column("name", app::ColumnKind::Char, 20),
                                                Column("height", app::ColumnKind::Float)};

FeatureFilter FilterOf(std::vector<std::string> columns) {
    app::FilterSettings settings;
    settings.columns = std::move(columns);
    return FeatureFilter(settings);
}

std::vector<std::string> NamesOf(const std::vector<app::LayerColumn>& columns) {
    std::vector<std::string> names;
    for (const app::LayerColumn& column : columns) {
        names.push_back(column.name);
    }
    return names;
}

TEST(AFeatureFilter, KeepsEverythingUnlessTold) {
    FeatureFilter filter(app::FilterSettings{});
    app::Feature feature = support::PointAt(1, 2, {std::int64_t{7}});

    EXPECT_EQ(filter.BeginLayer(kColumns, "a.mif").size(), 3U);
    EXPECT_TRUE(filter.Wants(feature));
    filter.SelectValues(feature);
    EXPECT_EQ(feature.values, (std::vector<app::Value>{std::int64_t{7}}));
    EXPECT_FALSE(filter.IsEmpty());
    EXPECT_FALSE(filter.CountIsLast());
}

TEST(AFeatureFilter, TakesColumnsAndTheirValuesInTheOrderThatIsAskedFor) {
    FeatureFilter filter = FilterOf({"height", "id"});
    app::Feature feature = support::PointAt(1, 2, {std::int64_t{7}, std::string("x"), 1.5});

    const std::vector<app::LayerColumn> columns = filter.BeginLayer(kColumns, "a.mif");
    filter.SelectValues(feature);

    EXPECT_EQ(NamesOf(columns), (std::vector<std::string>{"height", "id"}));
    EXPECT_EQ(columns[0].kind, app::ColumnKind::Float);
    EXPECT_EQ(feature.values, (std::vector<app::Value>{1.5, std::int64_t{7}}));
}

TEST(AFeatureFilter, GivesNoValueWhereAFeatureHasTooFew) {
    FeatureFilter filter = FilterOf({"id", "height"});
    app::Feature feature = support::PointAt(1, 2, {std::int64_t{7}});

    static_cast<void>(filter.BeginLayer(kColumns, "a.mif"));
    filter.SelectValues(feature);

    EXPECT_EQ(feature.values, (std::vector<app::Value>{std::int64_t{7}, std::monostate()}));
}

TEST(AFeatureFilter, FindsColumnsWithoutRegardToCaseUnlessOneIsExact) {
    const std::vector<app::LayerColumn> columns = {Column("Name", app::ColumnKind::Char),
                                                   Column("NAME", app::ColumnKind::Char),
                                                   Column("Höhe", app::ColumnKind::Float)};

    EXPECT_EQ(NamesOf(FilterOf({"name", "NAME", "HÖHE"}).BeginLayer(columns, "a.mif")),
              (std::vector<std::string>{"Name", "NAME", "Höhe"}));
}

TEST(AFeatureFilter, LetsThroughWhatAnswersItsQuestion) {
    app::FilterSettings settings;
    settings.where = "id > 6 AND name LIKE 'X%'";
    FeatureFilter filter(settings);
    static_cast<void>(filter.BeginLayer(kColumns, "a.mif"));

    EXPECT_TRUE(filter.Answers(support::PointAt(1, 2, {std::int64_t{7}, std::string("x"), 1.5})));
    EXPECT_FALSE(filter.Answers(support::PointAt(1, 2, {std::int64_t{6}, std::string("x"), 1.5})));
}

TEST(AFeatureFilter, NamesTheColumnsThereAreForOneThereIsNot) {
    FeatureFilter filter = FilterOf({"id", "width"});
    try {
        static_cast<void>(filter.BeginLayer(kColumns, "a.mif"));
        FAIL() << "the column is not refused";
    } catch (const app::Failure& failure) {
        EXPECT_STREQ(failure.what(),
                     "a.mif: --select: there is no column \"width\"; the columns are: id, name, "
                     "height");
    }
}

TEST(AFeatureFilter, CountsUpToItsLimit) {
    app::FilterSettings settings;
    settings.limit = 2;
    FeatureFilter filter(settings);

    EXPECT_FALSE(filter.CountIsLast());
    EXPECT_TRUE(filter.CountIsLast());
}

TEST(AFeatureFilter, IsEmptyWithALimitOfNothing) {
    app::FilterSettings settings;
    settings.limit = 0;

    EXPECT_TRUE(FeatureFilter(settings).IsEmpty());
}

struct BoxRow {
    const char* name;
    app::Feature feature;
    bool isWanted;
};

std::ostream& operator<<(std::ostream& out, const BoxRow& row) {
    return out << row.name;
}

app::Feature CollectionOf(app::Feature member) {
    app::Feature feature;
    feature.geometry.kind = app::GeometryKind::Collection;
    feature.members = {std::move(member.geometry)};
    return feature;
}

class BoxOfAFilter : public testing::TestWithParam<BoxRow> {};

TEST_P(BoxOfAFilter, LetsThroughWhatMeetsIt) {
    app::FilterSettings settings;
    settings.box = shr::Box2d{0, 0, 10, 10};

    EXPECT_EQ(FeatureFilter(settings).Wants(GetParam().feature), GetParam().isWanted);
}

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

INSTANTIATE_TEST_SUITE_P(
    , BoxOfAFilter,
    testing::Values(BoxRow{"PointInside", support::PointAt(5, 5), true},
                    BoxRow{"PointOnTheEdge", support::PointAt(10, 0), true},
                    BoxRow{"PointOutside", support::PointAt(10.5, 5), false},
                    BoxRow{"LineThrough", support::LineThrough({{-5, 5}, {15, 5}}), true},
                    BoxRow{"LineBeside", support::LineThrough({{-5, 11}, {15, 12}}), false},
                    BoxRow{"RegionAround", support::RegionOf({support::Square(-5, -5, 30)}), true},
                    BoxRow{"EllipseInside", support::EllipseIn({1, 1, 2, 2}), true},
                    BoxRow{"EllipseOutside", support::EllipseIn({11, 11, 12, 12}), false},
                    BoxRow{"MemberInside", CollectionOf(support::PointAt(1, 1)), true},
                    BoxRow{"MemberOutside", CollectionOf(support::PointAt(11, 1)), false},
                    BoxRow{"NoGeometry", app::Feature{}, false},
                    BoxRow{"NoNumber", support::PointAt(kNan, 5), false}),
    [](const auto& row) { return std::string(row.param.name); });

}  // namespace
