// Inputs at the limits: wide tables, huge tokens, large counts, unusual paths, folders that take no
// file.
#include "host/platform/Stdio.h"
#include "host/zeio/Errors.h"
#include "host/zeio/IoExportFilter.h"
#include "host/zeio/IoImportFilter.h"
#include "host/zeio/IoManager.h"
#include "module/Module.h"
#include "standalone/IoHost.h"
#include "tests/faults/Drawings.h"
#include "tests/support/RecordingHost.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <ostream>
#include <stdexcept>
#include <string>
#include <unistd.h>

namespace fault_test {

namespace {

namespace fs = std::filesystem;

constexpr const char* kHeader = "Version 300\nDelimiter \",\"\n";

std::string HeaderOfTenThousandColumns(const std::string& behindName) {
    std::string header = std::string(kHeader) + "Columns 10000\n";
    for (int i = 0; i < 10'000; ++i) {
        header += 'C' + std::to_string(i) + behindName + '\n';
    }
    return header;
}

std::string RowOfTenThousandFields() {
    std::string row;
    for (int i = 0; i < 10'000; ++i) {
        row += std::to_string(i) + ',';
    }
    return row + '\n';
}

// Looks at texts only: a host that keeps them would take most of the time.
class TextMeasuringHost : public zeio::IoHost {
public:
    using IoHost::IoHost;
    void ImportObject(zeio::TrBase& object) override {
        if (object.GetTypeId() == zeio::TrText::GetClassTypeId()) {
            length_ = static_cast<zeio::TrText&>(object).text.size();
        }
    }
    std::size_t length() const { return length_; }

private:
    std::size_t length_ = 0;
};

class Importing : public testing::Test {
protected:
    void Import(const std::wstring& path) {
        const std::unique_ptr<zeio::IoImportFilter> filter(ImportMIF(manager_));
        filter->Import(path);
    }

    // The message of the error; empty when there was none.
    std::wstring ErrorOf(const std::string& mif) {
        try {
            Import(folder_.Write("map.mif", mif));
        } catch (const shr::IError& error) {
            return error.Message();
        }
        return {};
    }

    support::TemporaryFolder folder_;
    support::RecordingHost host_;
    zeio::IoManager manager_{host_};
};

// Exports one drawing to a path and imports it from there.
class AtAPath : public Importing {
protected:
    void RoundTripAt(const fs::path& path) {
        const std::wstring wide = platform::PathFromBytes(path.string());
        const std::unique_ptr<zeio::IoExportFilter> filter(ExportMIF(manager_));
        ExportAll(*filter, wide, ExportRows().front().make());
        Import(wide);
    }
};

constexpr auto kReadOnly = static_cast<fs::perms>(0555);

// Takes the superuser's powers, whom permissions don't hold back, from the process for a while.
class OrdinaryUser {
public:
    OrdinaryUser() : before_(geteuid()) {
        if (before_ == 0 && seteuid(kNobody) != 0) {
            throw std::runtime_error("the user can't be changed");
        }
    }
    ~OrdinaryUser() { static_cast<void>(seteuid(before_)); }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    static constexpr uid_t kNobody = 65534;
    uid_t before_;
};

struct CountRow {
    std::string name;
    std::string object;
    std::wstring message;
};
std::ostream& operator<<(std::ostream& out, const CountRow& row) {
    return out << row.name;
}
class ALargestCount : public Importing, public testing::WithParamInterface<CountRow> {};

}  // namespace

TEST_F(Importing, TakesTenThousandColumns) {
    const std::string mif = HeaderOfTenThousandColumns("") + "Data\nPoint 1 2\nPoint 3 4\n";
    const std::string row = RowOfTenThousandFields();
    static_cast<void>(folder_.Write("map.mid", row + row));

    EXPECT_EQ(ErrorOf(mif), L"");
    ASSERT_EQ(host_.Received<zeio::TrMarkerSet>().size(), 2U);
    const shr::CParamList& attributes = host_.Received<zeio::TrMarkerSet>()[1]->attributes;
    EXPECT_EQ(attributes.Size(), 10'000U);
    EXPECT_EQ(attributes.NarrowValue(9999), "9999");
}

TEST_F(Importing, RefusesColumnsThatTakeTheHeaderBeyond64KiB) {
    const std::string mif = HeaderOfTenThousandColumns(" Integer") + "Data\nPoint 1 2\n";

    EXPECT_THAT(ErrorOf(mif), testing::HasSubstr(L"No MIF header found in file."));
}

TEST(ATokenOfAHundredMegabytes, IsImportedWhole) {
    constexpr std::size_t kBytes = 100'000'000;
    const support::TemporaryFolder folder;
    const std::wstring path =
        folder.Write("map.mif", std::string(kHeader) + "Data\nText \"" + std::string(kBytes, 'x') +
                                    "\"\n0 0 1 1\n");
    standalone::OptionStore store;
    TextMeasuringHost host(store);
    zeio::IoManager manager(host);
    const std::unique_ptr<zeio::IoImportFilter> filter(ImportMIF(manager));

    filter->Import(path);

    EXPECT_EQ(host.length(), kBytes);
}

TEST_P(ALargestCount, IsRefusedBeforeRoomIsMade) {
    EXPECT_THAT(ErrorOf(std::string(kHeader) + "Data\n" + GetParam().object),
                testing::StartsWith(GetParam().message));
}
INSTANTIATE_TEST_SUITE_P(
    , ALargestCount,
    testing::Values(CountRow{"OfVertices", "Pline 2147483647\n1 2\n",
                             L"Bad vertex count (2147483647) in a polyline object."},
                    CountRow{"OfVerticesBeyondInt", "Pline 99999999999\n1 2\n",
                             L"Bad vertex count (2147483647) in a polyline object."},
                    CountRow{"OfSections", "Pline Multiple 2147483647\n2\n1 2\n3 4\n",
                             L"Bad section count (2147483647) in a polyline object."},
                    CountRow{"OfRings", "Region 2147483647\n3\n1 2\n3 4\n5 6\n",
                             L"Bad section count (2147483647) in a region object."},
                    CountRow{"OfPoints", "Multipoint 2147483647\n1 2\n",
                             L"Bad vertex count (2147483647) in a multipoint object."},
                    CountRow{"OfParts", "Collection 2147483647\nPoint 1 2\n",
                             L"Invalid object type '\n' in MIF file"}),
    [](const auto& row) { return row.param.name; });

TEST_F(Importing, TakesALargestCountOfColumnsToTheEndOfTheFile) {
    EXPECT_THAT(ErrorOf(kHeader + std::string("Columns 2147483647\n  A Integer\nData\n")),
                testing::HasSubstr(L"End of file encountered while reading file header."));
}

TEST_F(AtAPath, WithSpacesAFileIsWrittenAndRead) {
    const fs::path inner = folder_.path() / " a folder with  spaces ";
    fs::create_directory(inner);

    RoundTripAt(inner / " my map .mif");

    EXPECT_TRUE(fs::exists(inner / " my map .mid"));
    EXPECT_EQ(host_.Received<zeio::TrPolyline>().size(), 1U);
}

TEST_F(AtAPath, OfOtherScriptsAFileIsWrittenAndRead) {
    const fs::path inner = folder_.path() / "карты 地図 🗺";
    fs::create_directory(inner);

    RoundTripAt(inner / "дорога.mif");

    EXPECT_TRUE(fs::exists(inner / "дорога.mid"));
    EXPECT_EQ(host_.Received<zeio::TrPolyline>().size(), 1U);
}

TEST_F(AtAPath, OfFourThousandCharactersAFileIsWrittenAndRead) {
    constexpr std::size_t kLength = 4000;
    std::string name = folder_.path().string();
    while (name.size() + 8 < kLength) {
        name += "/" + std::string(std::min<std::size_t>(200, kLength - name.size() - 7), 'd');
    }
    fs::create_directories(name);
    name += "/";
    name += std::string(kLength - name.size() - 4, 'm') + ".mif";

    RoundTripAt(name);

    EXPECT_EQ(name.size(), kLength);
    EXPECT_EQ(host_.Received<zeio::TrPolyline>().size(), 1U);
}

TEST_F(AtAPath, LongerThanTheSystemTakesNothingCanBeWritten) {
    EXPECT_THROW(RoundTripAt(folder_.path() / (std::string(300, 'm') + ".mif")),
                 zeio::FileOpenError);
    EXPECT_TRUE(fs::is_empty(folder_.path()));
}

TEST_F(AtAPath, InAFolderThatTakesNoFileNothingCanBeWritten) {
    // Nobody, the superuser included, can make files in this one.
    const fs::path folder = "/proc/self";

    EXPECT_THROW(RoundTripAt(folder / "out.mif"), zeio::FileOpenError);
}

TEST_F(AtAPath, InAReadOnlyFolderNothingCanBeWritten) {
    fs::permissions(folder_.path(), kReadOnly);
    {
        const OrdinaryUser user;
        EXPECT_TRUE(fs::is_empty(folder_.path())) << "the folder can be read";
        EXPECT_THROW(RoundTripAt(folder_.path() / "out.mif"), zeio::FileOpenError);
    }
    EXPECT_TRUE(fs::is_empty(folder_.path()));
    fs::permissions(folder_.path(), fs::perms::owner_all);
}

}  // namespace fault_test
