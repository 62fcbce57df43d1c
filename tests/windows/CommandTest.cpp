// qolf.exe as a user starts it: the module is found beside it, and the traces are those of Linux.
#include "host/platform/Stdio.h"
#include "host/platform/WindowSystem.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>

namespace {

struct Result {
    int exitCode;
    std::string out;
};

Result Qolf(const std::string& arguments) {
    const std::wstring command =
        L"\"\"" QOLF_COMMAND L"\" " + platform::PathFromBytes(arguments) + L"\"";
    std::FILE* pipe = _wpopen(command.c_str(), L"rb");
    Result result{-1, {}};
    char block[4096];
    for (std::size_t count = 1; pipe != nullptr && count > 0;) {
        count = std::fread(block, 1, sizeof block, pipe);
        result.out.append(block, count);
    }
    result.exitCode = pipe == nullptr ? -1 : _pclose(pipe);
    return result;
}

std::string BytesOf(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << stream.rdbuf();
    return bytes.str();
}

class TheTraceOf : public testing::TestWithParam<const char*> {};

TEST_P(TheTraceOf, ASampleIsTheGoldenOne) {
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(std::filesystem::path(QOLF_SAMPLES).parent_path());

    const Result result = Qolf(std::string("trace --no-store samples/") + GetParam() + ".mif");
    std::filesystem::current_path(before);

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out,
              BytesOf(std::string(QOLF_TEST_GOLDEN) + "/trace/" + GetParam() + ".jsonl"));
}

INSTANTIATE_TEST_SUITE_P(, TheTraceOf,
                         testing::Values("objects", "styles", "texts", "attributes", "island"));

TEST(TheCommand, ReplaysATraceIntoAPairUnderAWideName) {
    const support::TemporaryFolder folder;
    const std::filesystem::path map = folder.path() / L"\u0434\u043E\u0440\u043E\u0433\u0438.mif";

    const Result result = Qolf("replay --no-store \"" QOLF_TEST_GOLDEN "/trace/island.jsonl\" \"" +
                               platform::PathToBytes(map.wstring()) + "\"");

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_TRUE(std::filesystem::exists(map));
    EXPECT_NE(BytesOf(map).find("\r\nDATA\r\n"), std::string::npos);
}

TEST(TheCommand, TellsWhatAFileHolds) {
    const Result result = Qolf("info \"" QOLF_SAMPLES "/objects.mif\"");

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_NE(result.out.find("objects.mif"), std::string::npos) << result.out;
}

struct OptionsRow {
    std::string name;  // of the page, as the command takes it
    std::wstring caption;
};
class ThePageOfTheCommand : public testing::TestWithParam<OptionsRow> {};

TEST_P(ThePageOfTheCommand, IsShownAndCanBeCancelled) {
    Result result{-1, {}};
    std::thread command([&] { result = Qolf("options " + GetParam().name); });
    HWND dialog = nullptr;
    for (int attempt = 0; attempt < 1000 && dialog == nullptr; ++attempt) {
        Sleep(20);
        dialog = FindWindowW(L"#32770", GetParam().caption.c_str());
    }
    PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    command.join();

    EXPECT_NE(dialog, nullptr);
    EXPECT_EQ(result.exitCode, 0);
}

INSTANTIATE_TEST_SUITE_P(, ThePageOfTheCommand,
                         testing::Values(OptionsRow{"import", L"MIF Import Options"},
                                         OptionsRow{"export", L"MIF Options"}),
                         [](const auto& row) { return row.param.name; });

TEST(TheCommand, EndsWithOneForAMissingFile) {
    EXPECT_EQ(Qolf("info missing.mif 2>nul").exitCode, 1);
}

}  // namespace
