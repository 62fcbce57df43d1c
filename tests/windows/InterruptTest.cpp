// An interrupt in a console: what was begun is gone, what was there is as it was.
#include "host/platform/WindowSystem.h"
#include "tests/windows/StartedCommand.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace {

namespace fs = std::filesystem;

// Has so many points that a conversion takes seconds.
void WriteLargeMap(const fs::path& mif) {
    std::ofstream header(mif, std::ios::binary);
    header << "Version 300\nCharset \"Neutral\"\nCoordSys Earth Projection 1, 104\n"
              "Columns 1\n  id Integer\nData\n";
    std::ofstream rows(fs::path(mif).replace_extension(".mid"), std::ios::binary);
    for (int i = 0; i < 1'000'000; ++i) {
        header << "Point " << i % 180 << '.' << i << ' ' << i % 90 << '\n';
        rows << i << '\n';
    }
}

std::size_t EntriesOf(const fs::path& folder) {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

class AnInterruptedConversion : public testing::TestWithParam<const wchar_t*> {};

TEST_P(AnInterruptedConversion, LeavesNothingBehind) {
    const support::TemporaryFolder folder;
    WriteLargeMap(folder.path() / "map.mif");
    const fs::path output = folder.path() / "out";
    fs::create_directory(output);
    const windows_test::RunningCommand command(
        folder.path(), {L"convert", L"map.mif", std::wstring(L"out\\map.") + GetParam()});
    // Until it writes.
    for (int i = 0; i < 1000 && EntriesOf(output) == 0; ++i) {
        Sleep(10);
    }
    Sleep(200);
    ASSERT_TRUE(command.IsRunning());
    ASSERT_EQ(EntriesOf(output), 1U);

    ASSERT_TRUE(command.Interrupt());
    const unsigned long exitCode = command.Wait();

    EXPECT_EQ(exitCode, 0xC000013AU);
    EXPECT_EQ(EntriesOf(output), 0U);
}

INSTANTIATE_TEST_SUITE_P(To, AnInterruptedConversion, testing::Values(L"geojson", L"gpkg", L"mif"),
                         [](const auto& row) {
                             const std::wstring name = row.param;
                             return std::string(name.begin(), name.end());
                         });

}  // namespace
