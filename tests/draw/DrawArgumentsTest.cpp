// What the command line of the drawing takes and refuses.
#include "app/draw/DrawArguments.h"

#include "app/base/Errors.h"

#include <gtest/gtest.h>

namespace {

app::DrawArguments Arguments() {
    app::DrawArguments arguments;
    arguments.files = {"a.mif", "b.mif", "map.svg"};
    return arguments;
}

std::string RefusalOf(const app::DrawArguments& arguments) {
    try {
        static_cast<void>(app::CheckedDrawOptions(arguments));
    } catch (const app::UsageError& error) {
        return error.what();
    }
    return "";
}

TEST(DrawOptions, TakeTheLastFileAsThePicture) {
    const app::DrawOptions options = app::CheckedDrawOptions(Arguments());

    EXPECT_EQ(options.map.paths, (std::vector<std::string>{"a.mif", "b.mif"}));
    EXPECT_EQ(options.output, "map.svg");
    EXPECT_EQ(options.format, app::PictureFormat::Svg);
}

TEST(DrawOptions, KeepTheFirstLayersSystemUnlessToldOtherwise) {
    app::DrawArguments arguments = Arguments();

    EXPECT_EQ(app::CheckedDrawOptions(arguments).map.crs, "");
    arguments.crs = "wgs84";
    EXPECT_EQ(app::CheckedDrawOptions(arguments).map.crs, "EPSG:4326");
    arguments.crs = "EPSG:3301";
    EXPECT_EQ(app::CheckedDrawOptions(arguments).map.crs, "EPSG:3301");
}

TEST(DrawOptions, PutTheCornersOfABoxInOrder) {
    app::DrawArguments arguments = Arguments();
    arguments.bbox = "10,-2.5,-1e3,40";

    EXPECT_EQ(app::CheckedDrawOptions(arguments).bbox, (shr::Box2d{-1000, -2.5, 10, 40}));
}

TEST(DrawOptions, TakeTheFormatFromTheOptionBeforeTheName) {
    app::DrawArguments arguments = Arguments();
    arguments.files.back() = "-";
    arguments.format = "png";

    EXPECT_EQ(app::CheckedDrawOptions(arguments).format, app::PictureFormat::Png);
}

struct RefusalRow {
    std::string name;
    void (*change)(app::DrawArguments&);
    std::string message;
};
class DrawRefuses : public testing::TestWithParam<RefusalRow> {};

TEST_P(DrawRefuses, WithThisMessage) {
    app::DrawArguments arguments = Arguments();
    GetParam().change(arguments);

    EXPECT_EQ(RefusalOf(arguments), GetParam().message);
}

const std::string kBoxMessage =
    "--bbox must be x1,y1,x2,y2 with two different corners, such as 24.5,59.3,25,59.5; found ";

INSTANTIATE_TEST_SUITE_P(
    , DrawRefuses,
    testing::Values(
        RefusalRow{"ASingleFile", [](auto& a) { a.files = {"a.mif"}; },
                   "draw needs one or more files and, as the last one, the picture or page"},
        RefusalRow{
            "AnotherExtension", [](auto& a) { a.files.back() = "map.jpg"; },
            "'map.jpg': the picture comes last and ends in .svg, .png or .pdf; a page for the "
            "browser ends in .html"},
        RefusalRow{"StandardOutputWithoutAFormat", [](auto& a) { a.files.back() = "-"; },
                   "a map for standard output needs --to svg, png, pdf or html"},
        RefusalRow{"AnUnknownFormat", [](auto& a) { a.format = "gif"; },
                   "--to must be svg, png, pdf or html; found 'gif'"},
        RefusalRow{"AHugeWidth", [](auto& a) { a.width = 20000; },
                   "--width must be from 1 to 16384 pixels; found 20000"},
        RefusalRow{"NoWidth", [](auto& a) { a.width = 0; },
                   "--width must be from 1 to 16384 pixels; found 0"},
        RefusalRow{"ANegativeHeight", [](auto& a) { a.height = -1; },
                   "--height must be from 1 to 16384 pixels; found -1"},
        RefusalRow{"ANegativeMargin", [](auto& a) { a.margin = -0.5; },
                   "--margin must be a number of pixels, 0 or more"},
        RefusalRow{"AnUnknownColour", [](auto& a) { a.background = "bluish"; },
                   "--background must be a name such as white, none, or #rrggbb; found 'bluish'"},
        RefusalRow{"ABoxOfThreeNumbers", [](auto& a) { a.bbox = "1,2,3"; },
                   kBoxMessage + "'1,2,3'"},
        RefusalRow{"ABoxOfFiveNumbers", [](auto& a) { a.bbox = "1,2,3,4,5"; },
                   kBoxMessage + "'1,2,3,4,5'"},
        RefusalRow{"ABoxWithAWord", [](auto& a) { a.bbox = "1,2,3,x"; }, kBoxMessage + "'1,2,3,x'"},
        RefusalRow{"ABoxThatEndsInAComma", [](auto& a) { a.bbox = "1,2,3,4,"; },
                   kBoxMessage + "'1,2,3,4,'"},
        RefusalRow{"ABoxWithoutWidth", [](auto& a) { a.bbox = "1,2,1,4"; },
                   kBoxMessage + "'1,2,1,4'"},
        RefusalRow{"ABoxThatIsNoNumber", [](auto& a) { a.bbox = "nan,2,1,4"; },
                   kBoxMessage + "'nan,2,1,4'"},
        RefusalRow{"ABoxBeyondAllLimits", [](auto& a) { a.bbox = "1e301,2,1,4"; },
                   kBoxMessage + "'1e301,2,1,4'"}),
    [](const auto& row) { return row.param.name; });

}  // namespace
