// libarchive reads the archives in which maps are sent. Those in tests/data/archives were made by
// other programs (Python's zipfile and tarfile, gzip, bzip2, 7-Zip).
#include <archive.h>
#include <archive_entry.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

constexpr const char* kMap = "Version 300\nCharset \"WindowsCyrillic\"\nColumns 0\nData\n\n";
constexpr const wchar_t* kName = L"\u0434\u043E\u0440\u043E\u0433\u0438.mif";

struct ArchiveRow {
    std::string name;
    const wchar_t* file;
    std::wstring entry;  // the name of the one file inside
};
class TheArchive : public testing::TestWithParam<ArchiveRow> {
protected:
    TheArchive() : archive_(archive_read_new(), archive_read_free) {
        archive_read_support_filter_all(archive_.get());
        archive_read_support_format_all(archive_.get());
        archive_read_support_format_raw(archive_.get());
    }
    archive* Open(const std::wstring& file) {
        const std::string folder = QOLF_TEST_DATA "/archives/";
        const std::wstring path = std::wstring(folder.begin(), folder.end()) + file;
        EXPECT_EQ(archive_read_open_filename_w(archive_.get(), path.c_str(), 1 << 16), ARCHIVE_OK)
            << archive_error_string(archive_.get());
        return archive_.get();
    }

private:
    std::unique_ptr<archive, decltype(&archive_read_free)> archive_;
};

TEST_P(TheArchive, ListsItsFileAndGivesItsBytes) {
    archive* opened = Open(GetParam().file);
    archive_entry* entry = nullptr;

    ASSERT_EQ(archive_read_next_header(opened, &entry), ARCHIVE_OK) << archive_error_string(opened);
    const std::wstring name = archive_entry_pathname_w(entry);
    std::string bytes(1000, '\0');
    bytes.resize(static_cast<std::size_t>(archive_read_data(opened, bytes.data(), bytes.size())));

    EXPECT_EQ(name, GetParam().entry);
    EXPECT_EQ(bytes, kMap);
    EXPECT_EQ(archive_read_next_header(opened, &entry), ARCHIVE_EOF);
}

INSTANTIATE_TEST_SUITE_P(, TheArchive,
                         testing::Values(ArchiveRow{"Zip", L"map.zip", kName},
                                         ArchiveRow{"Tar", L"map.tar", kName},
                                         ArchiveRow{"TarGz", L"map.tar.gz", kName},
                                         ArchiveRow{"TarXz", L"map.tar.xz", kName},
                                         ArchiveRow{"TarBz2", L"map.tar.bz2", kName},
                                         ArchiveRow{"SevenZip", L"map.7z", kName},
                                         ArchiveRow{"OneFileInGz", L"map.mif.gz", L"data"}),
                         [](const auto& row) { return row.param.name; });

}  // namespace
