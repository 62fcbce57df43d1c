// The built qolf.dll, driven through its factories and the filters' slots only.
#include "host/platform/Stdio.h"
#include "host/zeio/Errors.h"
#include "host/zeio/IoExportFilter.h"
#include "host/zeio/IoImportFilter.h"
#include "host/zeio/IoManager.h"
#include "host/zeio/TrObjects.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/windows/LoadedModule.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <stdexcept>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class TheDll : public testing::Test {
protected:
    std::unique_ptr<zeio::IoImportFilter> NewImportFilter() {
        return std::unique_ptr<zeio::IoImportFilter>(module.NewImportFilter(manager));
    }

    // Exports a text in a face, both beyond ASCII, and two points.
    void ExportTo(const std::wstring& path) {
        const std::unique_ptr<zeio::IoExportFilter> filter(module.NewExportFilter(manager));
        ASSERT_EQ(filter->BeginExport(path), zeio::ExportStatus::Done);
        zeio::TrInitGraphicsExp start;
        filter->ExportObject(start);
        zeio::TrFont font(L"Gr\u00F6\u00DFe \u20AC");
        font.height = 2.0;
        filter->ExportObject(font);
        zeio::TrText text(L"K\u00F6ln \u4E2D", {1.0, 2.0, 0.0});
        filter->ExportObject(text);
        zeio::TrMarkerSet markers;
        markers.positions = {{-4.0, -5.0, 0.0}, {7.0, 8.0, 0.0}};
        filter->ExportObject(markers);
        ASSERT_EQ(filter->EndExport(), zeio::ExportStatus::Done);
    }

    support::TemporaryFolder folder;
    windows_test::LoadedModule module;
    windows_test::DialogHost host{module};
    zeio::IoManager manager{host};
};

TEST_F(TheDll, ThrowsErrorsThatTheHostCanTellApart) {
    EXPECT_THROW(NewImportFilter()->Import(folder.PathOf("missing.mif")), zeio::ErrorMsg);
    EXPECT_THROW(ExportTo(folder.PathOf("missing\\map.mif")), zeio::FileOpenError);
}

TEST_F(TheDll, LetsAnExceptionOfTheHostPassThroughIt) {
    host.onObject = [](zeio::TrBase&) { throw std::runtime_error("full"); };

    EXPECT_THROW(NewImportFilter()->Import(
                     folder.Write("a.mif", "Version 300\nDelimiter \",\"\nData\nPoint 1 2\n")),
                 std::runtime_error);
}

TEST_F(TheDll, ReadsWhatItWroteBeyondAscii) {
    ExportTo(folder.PathOf("map.mif"));

    NewImportFilter()->Import(folder.PathOf("map.mif"));

    ASSERT_EQ(host.Received<zeio::TrText>().size(), 1U);
    EXPECT_EQ(host.Received<zeio::TrText>()[0]->text, L"K\u00F6ln ?");
    ASSERT_FALSE(host.Received<zeio::TrFont>().empty());
    EXPECT_EQ(host.Received<zeio::TrFont>()[0]->faceName, L"Gr\u00F6\u00DFe \u20AC");
}

TEST_F(TheDll, EndsEveryLineWithCrLfAndPatchesInPlace) {
    ExportTo(folder.PathOf("map.mif"));

    const std::string bytes = folder.Read("map.mif");
    std::string rest = bytes;
    for (std::size_t at = rest.find("\r\n"); at != std::string::npos; at = rest.find("\r\n")) {
        rest.erase(at, 2);
    }
    EXPECT_EQ(rest.find_first_of("\r\n"), std::string::npos);
    EXPECT_THAT(bytes, HasSubstr("\r\nDATA\r\n"));
    const std::size_t bounds = bytes.find("Bounds");
    ASSERT_NE(bounds, std::string::npos);
    EXPECT_THAT(bytes.substr(bounds, bytes.find('\r', bounds) - bounds),
                HasSubstr("-4.0000000000"));
}

TEST_F(TheDll, TakesPathsBeyondLatin1) {
    const std::wstring path = (folder.path() / L"\u5730\u56FE-\u0434\u043E\u0440.mif").wstring();
    ExportTo(path);

    NewImportFilter()->Import(path);

    EXPECT_TRUE(std::filesystem::exists(path));
    EXPECT_EQ(host.Received<zeio::TrText>().size(), 1U);
}

TEST_F(TheDll, TakesPathsBeyond260Characters) {
    std::wstring deep = L"\\\\?\\" + folder.path().wstring();
    for (int level = 0; level < 3; ++level) {
        deep += L"\\" + std::wstring(120, static_cast<wchar_t>(L'a' + level));
        ASSERT_NE(CreateDirectoryW(deep.c_str(), nullptr), 0);
    }
    const std::wstring path = deep.substr(4) + L"\\map.mif";
    ASSERT_GT(path.size(), 360U);
    ExportTo(path);

    NewImportFilter()->Import(path);

    EXPECT_EQ(host.Received<zeio::TrText>().size(), 1U);
    for (const wchar_t* name : {L"\\map.mif", L"\\map.mid"}) {
        DeleteFileW((deep + name).c_str());
    }
    for (std::size_t end = deep.size(); end > folder.path().wstring().size() + 4;
         end = deep.rfind(L'\\', end - 1)) {
        RemoveDirectoryW(deep.substr(0, end).c_str());
    }
}

TEST_F(TheDll, CarriesAVersionResource) {
    wchar_t path[MAX_PATH];
    GetModuleFileNameW(module.instance(), path, MAX_PATH);
    std::vector<char> resource(GetFileVersionInfoSizeW(path, nullptr));
    ASSERT_FALSE(resource.empty());
    ASSERT_NE(GetFileVersionInfoW(path, 0, static_cast<DWORD>(resource.size()), resource.data()),
              0);

    void* value = nullptr;
    UINT length = 0;
    ASSERT_NE(VerQueryValueW(resource.data(), L"\\StringFileInfo\\040904B0\\ProductVersion", &value,
                             &length),
              0);
    EXPECT_EQ(std::wstring(static_cast<const wchar_t*>(value)), L"" QOLF_VERSION);
}

// A gap takes no room where the file system knows sparse files.
TEST(TheTextStream, IsPatchedInPlaceBeyondTwoGiB) {
    constexpr std::uint64_t kThreeGiB = 3ULL << 30U;
    const support::TemporaryFolder folder;
    const std::wstring path = folder.PathOf("large.mif");
    std::FILE* stream = platform::OpenFile(path, platform::OpenMode::WriteText);
    ASSERT_NE(stream, nullptr);
    ASSERT_TRUE(platform::SeekTo(stream, kThreeGiB));
    ASSERT_TRUE(platform::WriteBytes(stream, "a\nPEN (1)\n", 10));
    EXPECT_EQ(platform::Tell(stream), kThreeGiB + 12);  // two line ends became two bytes each

    ASSERT_TRUE(platform::SeekTo(stream, kThreeGiB + 8));
    ASSERT_TRUE(platform::WriteBytes(stream, "7", 1));
    ASSERT_EQ(std::fclose(stream), 0);
    stream = platform::OpenFile(path, platform::OpenMode::ReadBinary);
    ASSERT_NE(stream, nullptr);
    ASSERT_TRUE(platform::SeekTo(stream, kThreeGiB));
    char bytes[13] = {};
    EXPECT_EQ(std::fread(bytes, 1, 12, stream), 12U);
    std::fclose(stream);

    EXPECT_STREQ(bytes, "a\r\nPEN (7)\r\n");
}

}  // namespace
