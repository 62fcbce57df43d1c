// Paths as Windows has them: wide, long, with drives and shares, patterns, and names of devices.
#include "tests/windows/StartedCommand.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;
using windows_test::BytesOf;
using windows_test::CopySample;
using windows_test::Result;
using windows_test::RunQolf;

namespace fs = std::filesystem;

const fs::path kWideFolder = L"Stra\u00DFen \u2013 \u0443\u043B\u0438\u0446\u044B";
const fs::path kWideMap = kWideFolder / L"\u043A\u0430\u0440\u0442\u0430.mif";

class AFolder : public testing::Test {
protected:
    fs::path Path() const { return folder_.path(); }
    Result Qolf(const std::vector<std::wstring>& arguments) const {
        return RunQolf(folder_.path(), arguments);
    }

    // Backslashes as on a command line of Windows.
    static std::wstring Typed(fs::path path) { return path.make_preferred().wstring(); }

    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder_.path())) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }

private:
    support::TemporaryFolder folder_;
};

class AWidePath : public AFolder {
protected:
    AWidePath() {
        fs::create_directory(Path() / kWideFolder);
        CopySample("island-places", Path() / kWideMap);
    }
};

TEST_F(AWidePath, IsReadAndToldInUtf8) {
    const Result result = Qolf({L"info", Typed(kWideMap)});

    EXPECT_EQ(result.exitCode, 0U) << result.err;
    EXPECT_THAT(result.out, StartsWith("Stra\u00DFen \u2013 \u0443\u043B\u0438\u0446\u044B"
                                       "\\\u043A\u0430\u0440\u0442\u0430.mif\n"));
}

TEST_F(AWidePath, IsWrittenInEveryFormat) {
    for (const wchar_t* extension :
         {L".geojson", L".geojsonl", L".gpkg", L".svg", L".png", L".pdf"}) {
        fs::path output = kWideFolder / L"\u043A\u043E\u043F\u0438\u044F";
        output += extension;
        const bool isPicture = std::wstring(extension).size() == 4;

        const Result result =
            Qolf({isPicture ? L"draw" : L"convert", Typed(kWideMap), Typed(output)});

        EXPECT_EQ(result.exitCode, 0U) << result.err;
        EXPECT_GT(fs::file_size(Path() / output), 500U) << output;
    }
}

TEST_F(AWidePath, IsCheckedAndConvertedInProcesses) {
    const Result checked = Qolf({L"check", Typed(kWideMap)});
    const Result converted =
        Qolf({L"convert", L"--jobs", L"2", L"--to", L"geojson", L"--output-dir",
              L"\u0432\u044B\u0432\u043E\u0434", Typed(kWideFolder)});

    EXPECT_EQ(checked.exitCode, 0U) << checked.out << checked.err;
    EXPECT_EQ(converted.exitCode, 0U) << converted.err;
    EXPECT_THAT(converted.err, HasSubstr("converted 1 of 1 file"));
    EXPECT_TRUE(fs::exists(Path() / L"\u0432\u044B\u0432\u043E\u0434" /
                           L"\u043A\u0430\u0440\u0442\u0430.geojson"));
}

TEST_F(AFolder, LaterThan260CharactersIsReadAndWritten) {
    fs::path folder;
    for (int i = 0; i < 8; ++i) {
        folder /= std::wstring(40, static_cast<wchar_t>(L'a' + i));
    }
    fs::create_directories(Path() / folder);
    CopySample("island-places", Path() / folder / "map.mif");

    const Result result = Qolf({L"convert", Typed(folder / "map.mif"), Typed(folder / "map.gpkg")});

    EXPECT_EQ(result.exitCode, 0U) << result.err;
    EXPECT_GT(fs::file_size(Path() / folder / "map.gpkg"), 10000U);
}

TEST_F(AFolder, WithItsDriveIsFound) {
    CopySample("island-places", Path() / "map.mif");
    const fs::path full = fs::absolute(Path() / "map.mif");
    ASSERT_TRUE(full.has_root_name());

    const Result result = Qolf({L"info", Typed(full)});

    EXPECT_EQ(result.exitCode, 0U) << result.err;
    EXPECT_THAT(result.out, StartsWith(full.root_name().string()));
}

TEST_F(AFolder, InTheFormWithoutALimitIsFound) {
    CopySample("island-places", Path() / "map.mif");
    const fs::path full = fs::absolute(Path() / "map.mif");

    const Result result = Qolf({L"convert", L"\\\\?\\" + Typed(full), L"out.geojson"});

    EXPECT_EQ(result.exitCode, 0U) << result.err;
    EXPECT_TRUE(fs::exists(Path() / "out.geojson"));
}

TEST(AShare, IsReadAndWritten) {
    const fs::path share = L"\\\\qolf\\build";  // cmake/wine-run makes it
    const support::TemporaryFolder folder(share);
    CopySample("island-places", folder.path() / "map.mif");

    const Result result =
        RunQolf(fs::temp_directory_path(), {L"convert", (folder.path() / "map.mif").wstring(),
                                            (folder.path() / "map.gpkg").wstring()});

    EXPECT_EQ(result.exitCode, 0U) << result.err;
    EXPECT_GT(fs::file_size(folder.path() / "map.gpkg"), 10000U);
}

TEST_F(AFolder, GivesTheFilesOfAPatternInOrder) {
    CopySample("island-places", Path() / "b.mif");
    CopySample("island-ways", Path() / "a.mif");

    const Result result = Qolf({L"info", L"*.mif"});

    EXPECT_EQ(result.exitCode, 0U) << result.err;
    EXPECT_THAT(result.out, StartsWith("a.mif\n"));
    EXPECT_THAT(result.out, HasSubstr("\nb.mif\n"));
}

TEST_F(AFolder, WithoutFilesOfAPatternIsNamedWithThePattern) {
    const Result result = Qolf({L"info", L"*.mif"});

    EXPECT_EQ(result.exitCode, 1U);
    EXPECT_THAT(result.err, HasSubstr("*.mif: can't open"));
}

class ADeviceName : public AFolder, public testing::WithParamInterface<const wchar_t*> {};

TEST_P(ADeviceName, IsRefusedWithTheReason) {
    CopySample("island-places", Path() / "map.mif");

    const Result result = Qolf({L"convert", L"map.mif", GetParam()});

    EXPECT_EQ(result.exitCode, 1U);
    EXPECT_THAT(result.err, HasSubstr("for a device, with any extension"));
    EXPECT_THAT(result.err, EndsWith("name the file differently\n"));
    EXPECT_EQ(Names(), (std::vector<std::string>{"map.mid", "map.mif"}));
}

INSTANTIATE_TEST_SUITE_P(, ADeviceName,
                         testing::Values(L"aux.mif", L"NUL.geojson", L"com1.gpkg",
                                         L"lpt9.old.geojson", L"Con .geojson"),
                         [](const auto& row) {
                             const std::wstring name = row.param;
                             return std::string(name.begin(),
                                                std::ranges::find_if(name, [](wchar_t c) {
                                                    return c == L'.' || c == L' ';
                                                }));
                         });

TEST_F(AFolder, MayHaveNamesThatBeginLikeADevice) {
    CopySample("island-places", Path() / "console.mif");

    EXPECT_EQ(Qolf({L"convert", L"console.mif", L"com10.geojson"}).exitCode, 0U);
}

TEST_F(AFolder, GetsAPairWithCrLfAndGeoJsonAsOnEverySystem) {
    CopySample("island-places", Path() / "map.mif");

    ASSERT_EQ(Qolf({L"convert", L"map.mif", L"out.geojson"}).exitCode, 0U);
    ASSERT_EQ(Qolf({L"convert", L"out.geojson", L"back.mif"}).exitCode, 0U);

    EXPECT_THAT(BytesOf(Path() / "back.mif"), HasSubstr("\r\nData\r\n"));
    EXPECT_THAT(BytesOf(Path() / "back.mid"), EndsWith("\r\n"));
    EXPECT_EQ(BytesOf(Path() / "out.geojson").find('\r'), std::string::npos);
}

}  // namespace
