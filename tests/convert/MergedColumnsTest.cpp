#include "app/convert/MergedColumns.h"

#include "tests/support/Features.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace {

using app::ColumnKind;
using app::MergedColumns;
using app::Value;
using support::Column;

std::string NamesOf(const MergedColumns& columns) {
    std::string names;
    for (const app::LayerColumn& column : columns.All()) {
        names += column.name + ":" + app::ColumnKindName(column.kind) + ";";
    }
    return names;
}

TEST(MergedColumns, AreThoseOfAllLayersByName) {
    MergedColumns columns;
    columns.Add({Column("id", ColumnKind::Integer), Column("name", ColumnKind::Char, 10)});
    columns.Add({Column("NAME", ColumnKind::Char, 20), Column("lanes", ColumnKind::SmallInt)});

    EXPECT_EQ(NamesOf(columns), "id:Integer;name:Char;lanes:SmallInt;");
    EXPECT_EQ(columns.All()[1].width, 20);
    EXPECT_EQ(columns.Arranged(0, {std::int64_t{1}, std::string("a")}),
              (std::vector<Value>{std::int64_t{1}, std::string("a"), std::monostate()}));
    EXPECT_EQ(columns.Arranged(1, {std::string("b"), std::int64_t{2}}),
              (std::vector<Value>{std::monostate(), std::string("b"), std::int64_t{2}}));
    EXPECT_EQ(columns.Notes(), (std::vector<std::string>{
                                   "columns that are empty where an input lacks them: id, lanes"}));
}

TEST(MergedColumns, WidenTypesAndValues) {
    MergedColumns columns;
    columns.Add({Column("a", ColumnKind::Integer)});
    columns.Add({Column("a", ColumnKind::Char, 3)});

    EXPECT_EQ(NamesOf(columns), "a:Char;");
    EXPECT_EQ(columns.Arranged(0, {std::int64_t{7}}), (std::vector<Value>{std::string("7")}));
    EXPECT_EQ(columns.Notes(), (std::vector<std::string>{"column a: Integer, Char become Char"}));
}

TEST(MergedColumns, KeepTwoOfOneLayerApartWhoseNamesDifferInCase) {
    MergedColumns columns;
    columns.Add({Column("a", ColumnKind::Integer), Column("A", ColumnKind::Integer)});
    columns.Add({Column("A", ColumnKind::Integer)});

    EXPECT_EQ(NamesOf(columns), "a:Integer;A:Integer;");
    EXPECT_EQ(columns.Arranged(1, {std::int64_t{7}}),
              (std::vector<Value>{std::monostate(), std::int64_t{7}}));
}

TEST(MergedColumns, TakeNoMoreValuesThanThereAreColumns) {
    MergedColumns columns;
    columns.Add({Column("a", ColumnKind::Integer)});

    EXPECT_EQ(columns.Arranged(0, {std::int64_t{1}, std::int64_t{2}}),
              (std::vector<Value>{std::int64_t{1}}));
    EXPECT_EQ(columns.Arranged(0, {}), (std::vector<Value>{std::monostate()}));
}

TEST(MergedColumns, GiveAColumnOfTheirOwnANameThatIsFree) {
    MergedColumns columns;
    columns.Add({Column("Source", ColumnKind::Char), Column("source_2", ColumnKind::Char)});
    columns.AddOwn("source");

    EXPECT_EQ(NamesOf(columns), "Source:Char;source_2:Char;source_3:Char;");
    EXPECT_TRUE(columns.Notes().empty());
}

}  // namespace
