// Where among the clauses of an object its row is written.
#include "host/zeio/Errors.h"
#include "tests/export/ExportRun.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <functional>
#include <string>

namespace mif::test {

namespace {

constexpr const char* kInitialBrush = "  BRUSH (1, 0, 16777215)\n";

struct RowOrderRow {
    std::string name;
    std::function<void(ExportRun&)> send;
    std::string text;  // what the .mif file has when the object's row can't be written
};
class TheRowOf : public testing::TestWithParam<RowOrderRow> {};

// The .mid file is on a full device and a row fills more than its stream's buffer, so an object
// ends where its row is due. The pens keep the digit that the end of an export would have patched.
TEST_P(TheRowOf, AnObjectIsDueBehindThisText) {
    ExportRun run;
    std::filesystem::create_symlink("/dev/full", run.folder.path() / "out.mid");
    static_cast<void>(run.Begin());
    run.SendColumns({L"A"});
    run.Send(RelativePen(zeio::TrPen::Style::Solid, 50.0));

    EXPECT_THROW(GetParam().send(run), zeio::FileWriteError);

    static_cast<void>(std::fflush(nullptr));  // what was written is in the .mif stream's buffer
    EXPECT_EQ(run.Objects(), GetParam().text);
}

template <class Object> std::function<void(ExportRun&)> Sending(const Object& object) {
    const std::wstring value(70'000, L'x');
    return [object = With(object, {{L"A", value.c_str()}})](ExportRun& run) {
        run.Send(Object(object));
    };
}

INSTANTIATE_TEST_SUITE_P(
    , TheRowOf,
    testing::Values(RowOrderRow{"Pline", Sending(Polyline({{1, 2, 0}, {3, 4, 0}})),
                                "PLINE 2\n1 2\n3 4\n  PEN (1, 2, 0)\n"},
                    RowOrderRow{"Region", Sending(Polygon({{0, 0, 0}, {9, 0, 0}, {9, 9, 0}})),
                                "REGION 1\n  3\n0 0\n9 0\n9 9\n"},
                    RowOrderRow{"PointOfSeveral", Sending(Markers({{1, 2, 0}, {3, 4, 0}})),
                                "POINT 1 2\n"},
                    RowOrderRow{"Rect", Sending(Rectangle(1, 2, 3, 4)),
                                std::string("RECT 1 2 3 4\n  PEN (1, 2, 0)\n") + kInitialBrush},
                    RowOrderRow{"Ellipse", Sending(Ellipse(1, 2, 3, 4)),
                                std::string("ELLIPSE 1 2 3 4\n  PEN (1, 2, 0)\n") + kInitialBrush},
                    RowOrderRow{"Text", Sending(Text(L"A", 0, 0)),
                                "TEXT \"A\"\n  0 0 0.699999999999999956 -1\nAngle 0\n"
                                "  FONT (\"Arial\", 0, 1, 0)\n"}),
    [](const auto& row) { return row.param.name; });

}  // namespace

}  // namespace mif::test
