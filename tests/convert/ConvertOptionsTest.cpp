// What the command line of convert means for sources, targets and the export filter.
#include "app/convert/ConvertOptions.h"

#include "app/base/Errors.h"
#include "app/crs/Reprojection.h"
#include "tests/support/KeptMessages.h"

#include <gtest/gtest.h>

#include <functional>
#include <ostream>

namespace {

struct OptionStringRow {
    const char* name;
    std::function<void(app::ConvertOptions&)> set;
    std::optional<std::string> expected;
};

std::ostream& operator<<(std::ostream& out, const OptionStringRow& row) {
    return out << row.name;
}

class ExportOptionString : public testing::TestWithParam<OptionStringRow> {};

TEST_P(ExportOptionString, SaysWhatIsAskedForAndIsForgotten) {
    app::ConvertOptions options;
    GetParam().set(options);

    EXPECT_EQ(app::ExportOptionString(options), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    , ExportOptionString,
    testing::Values(
        OptionStringRow{"Nothing", [](app::ConvertOptions&) {}, std::nullopt},
        OptionStringRow{"Areas", [](app::ConvertOptions& options) { options.areasToCurves = true; },
                        "AreasToCurves=1;ForgetOptions=1"},
        OptionStringRow{"NoTexts",
                        [](app::ConvertOptions& options) { options.noRenderText = true; },
                        "RenderText=0;ForgetOptions=1"},
        OptionStringRow{"NoMarkers",
                        [](app::ConvertOptions& options) { options.noRenderMarkers = true; },
                        "RenderMarkers=0;ForgetOptions=1"},
        OptionStringRow{"Defaults",
                        [](app::ConvertOptions& options) { options.useDefaults = true; },
                        "Defaults=1;ForgetOptions=1"},
        // One's own string is handed on unchanged, and may be remembered.
        OptionStringRow{"OwnString",
                        [](app::ConvertOptions& options) { options.optionString = "RenderText=0"; },
                        "RenderText=0"},
        OptionStringRow{"OwnStringAndMore",
                        [](app::ConvertOptions& options) {
                            options.optionString = "RenderText=0";
                            options.areasToCurves = true;
                        },
                        "RenderText=0;AreasToCurves=1"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(TargetOptionsOfAConversion, RefuseWhatExistsUnlessTold) {
    app::ConvertOptions options;

    EXPECT_EQ(app::TargetOptionsOf(options).ifExists, app::IfExists::Refuse);
    options.overwrite = true;
    EXPECT_EQ(app::TargetOptionsOf(options).ifExists, app::IfExists::Overwrite);
}

TEST(TargetOptionsOfAConversion, HandOnWhatTheTargetNeeds) {
    app::ConvertOptions options;
    options.withStyles = true;
    options.noStore = true;
    options.modulePath = "m.so";
    options.areasToCurves = true;

    const app::TargetOptions target = app::TargetOptionsOf(options);

    EXPECT_TRUE(target.withStyles);
    EXPECT_TRUE(target.noStore);
    EXPECT_EQ(target.modulePath, "m.so");
    EXPECT_EQ(target.optionString, "AreasToCurves=1;ForgetOptions=1");
}

TEST(SourceOptionsOfAConversion, HandOnWhatTheSourceNeeds) {
    support::KeptMessages messages;
    app::ConvertOptions options;
    options.asIs = true;
    options.noStore = true;
    options.encoding = "CP1251";
    options.modulePath = "m.so";
    options.assumedCrs = "wgs84";

    const app::SourceOptions source = app::SourceOptionsOf(options, messages.Reporter());

    EXPECT_TRUE(source.asIs);
    EXPECT_TRUE(source.noStore);
    EXPECT_EQ(source.encoding, "CP1251");
    EXPECT_EQ(source.modulePath, "m.so");
    EXPECT_TRUE(app::IsWgs84(*source.assumedSystem));
}

TEST(SourceOptionsOfAConversion, NameTheOptionWhoseSystemIsUnknown) {
    support::KeptMessages messages;
    app::ConvertOptions options;
    options.assumedCrs = "no such system";
    try {
        static_cast<void>(app::SourceOptionsOf(options, messages.Reporter()));
        FAIL() << "the system is not refused";
    } catch (const app::Failure& failure) {
        EXPECT_TRUE(std::string(failure.what()).starts_with("--assume-crs no such system: "))
            << failure.what();
    }
}

}  // namespace
