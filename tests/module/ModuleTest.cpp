// The built module, driven through its factories and the filters' virtual slots only.
#include "host/platform/OptionsDialogOwner.h"
#include "host/zeio/Errors.h"
#include "host/zeio/IoExportFilter.h"
#include "host/zeio/IoImportFilter.h"
#include "host/zeio/IoManager.h"
#include "host/zeio/IoPropertyPage.h"
#include "tests/module/LoadedModule.h"
#include "tests/support/RecordingHost.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdio>
#include <cstring>
#include <memory>
#include <new>

namespace {

// While true, an allocation that may fail without an exception does.
bool g_outOfMemory = false;

}  // namespace

// Replaces the C++ library's own, for the module too.
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    if (g_outOfMemory) {
        return nullptr;
    }
    try {
        return ::operator new(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

namespace {

using module_test::LoadedModule;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr char kMap[] = "Version 300\nCharset \"Neutral\"\nDelimiter \",\"\n"
                        "CoordSys Earth Projection 1, 104\n\nColumns 1\n  NAME Char(9)\nData\n"
                        "Pline 2\n1 2\n3 4\n    Pen (1,2,255)\n";

class TheModule : public testing::Test {
protected:
    std::unique_ptr<zeio::IoImportFilter> NewImportFilter() {
        return std::unique_ptr<zeio::IoImportFilter>(module_.NewImportFilter(manager_));
    }
    std::unique_ptr<zeio::IoExportFilter> NewExportFilter() {
        return std::unique_ptr<zeio::IoExportFilter>(module_.NewExportFilter(manager_));
    }
    std::wstring WriteMap() {
        static_cast<void>(folder_.Write("map.mid", "\"one\"\n"));
        return folder_.Write("map.mif", kMap);
    }

    support::RecordingHost& Host() { return host_; }
    zeio::IoManager& Manager() { return manager_; }
    support::TemporaryFolder& Folder() { return folder_; }

private:
    LoadedModule module_;
    support::TemporaryFolder folder_;
    support::RecordingHost host_;
    zeio::IoManager manager_{host_};
};

std::string OutputOf(const std::string& command) {
    std::FILE* pipe = popen(command.c_str(), "r");
    std::string output;
    char line[256];
    while (pipe != nullptr && std::fgets(line, sizeof line, pipe) != nullptr) {
        output += line;
    }
    if (pipe != nullptr) {
        pclose(pipe);
    }
    return output;
}

// The module's symbols as nm lists them with these options.
std::vector<std::string> Symbols(const std::string& options) {
    std::vector<std::string> symbols;
    std::string output = OutputOf(QOLF_NM " --format=just-symbols " + options + " " QOLF_MODULE);
    for (std::size_t end = output.find('\n'); end != std::string::npos; end = output.find('\n')) {
        symbols.push_back(output.substr(0, end));
        output.erase(0, end + 1);
    }
    return symbols;
}

// The sources whose static objects are made when the module is loaded.
std::vector<std::string> SourcesThatWorkAtLoad() {
    const std::string prefix = "_GLOBAL__sub_I_";
    std::vector<std::string> sources;
    for (const std::string& symbol : Symbols("")) {
        if (symbol.starts_with(prefix)) {
            sources.push_back(symbol.substr(prefix.size()));
        }
    }
    return sources;
}

TEST_F(TheModule, ExportsExactlyItsTwoFactories) {
    EXPECT_THAT(Symbols("-D --defined-only"),
                testing::UnorderedElementsAre("ImportMIF", "ExportMIF"));
}

TEST_F(TheModule, DoesNothingAtLoadButMakeItsPagesTypeRecord) {
    EXPECT_THAT(SourcesThatWorkAtLoad(), ElementsAre("PageType.cpp"));
}

TEST_F(TheModule, ReturnsADistinctImportFilterFromEachCall) {
    const auto first = NewImportFilter();
    const auto second = NewImportFilter();

    EXPECT_NE(first, nullptr);
    EXPECT_NE(second, nullptr);
    EXPECT_NE(first, second);
}

TEST_F(TheModule, ReturnsADistinctExportFilterFromEachCall) {
    const auto first = NewExportFilter();
    const auto second = NewExportFilter();

    EXPECT_NE(first, nullptr);
    EXPECT_NE(second, nullptr);
    EXPECT_NE(first, second);
}

TEST_F(TheModule, ReturnsNullWithoutMemoryForAFilter) {
    g_outOfMemory = true;
    const auto importFilter = NewImportFilter();
    const auto exportFilter = NewExportFilter();
    g_outOfMemory = false;

    EXPECT_EQ(importFilter, nullptr);
    EXPECT_EQ(exportFilter, nullptr);
}

TEST_F(TheModule, GivesEachFilterOptionsOfItsOwn) {
    const std::wstring path =
        Folder().Write("map.mif", "Version 300\nDelimiter \",\"\nData\nRegion 1\n2\n1 2\n3 4\n");
    const auto first = NewImportFilter();
    support::RecordingHost otherHost;
    zeio::IoManager otherManager(otherHost);
    const LoadedModule sameModule;
    const std::unique_ptr<zeio::IoImportFilter> second(sameModule.NewImportFilter(otherManager));
    first->SetOptionsFromString(L"AreasToCurves=1");

    first->Import(path);
    second->Import(path);

    EXPECT_THAT(Host().ImportedObjects(), ElementsAre("Polyline 1,2 3,4"));
    EXPECT_THAT(otherHost.ImportedObjects(), ElementsAre("Polygon parts=2 1,2 3,4"));
}

TEST_F(TheModule, GivesEachFilterAProgressOfItsOwn) {
    const auto first = NewImportFilter();
    const auto second = NewImportFilter();
    EXPECT_THROW(first->Import(Folder().PathOf("missing.mif")), shr::IError);
    Host().ForgetCalls();

    second->Import(WriteMap());

    EXPECT_THAT(Host().CallsStartingWith("ProgressEnd"), ElementsAre("ProgressEnd"));
}

TEST_F(TheModule, IdentifiesItsFiltersByRecordsThatDifferInTheirKindOnly) {
    const auto importFilter = NewImportFilter();
    const auto exportFilter = NewExportFilter();

    zeio::FilterIdentity importIdentity = *importFilter->GetFilterIdentity();
    const zeio::FilterIdentity exportIdentity = *exportFilter->GetFilterIdentity();
    EXPECT_EQ(importIdentity.kind, zeio::FilterKind::Import);
    EXPECT_EQ(exportIdentity.kind, zeio::FilterKind::Export);
    importIdentity.kind = zeio::FilterKind::Export;
    EXPECT_EQ(std::memcmp(&importIdentity, &exportIdentity, sizeof importIdentity), 0);
}

TEST_F(TheModule, KeepsItsIdentityRecordsInPlace) {
    EXPECT_EQ(NewImportFilter()->GetFilterIdentity(), NewImportFilter()->GetFilterIdentity());
    EXPECT_EQ(NewExportFilter()->GetFilterIdentity(), NewExportFilter()->GetFilterIdentity());
}

TEST_F(TheModule, LaysItsIdentityRecordOutAsOneHundredAndTwelveBytes) {
    unsigned char bytes[112];
    static_assert(sizeof(zeio::FilterIdentity) == sizeof bytes);
    std::memcpy(bytes, NewImportFilter()->GetFilterIdentity(), sizeof bytes);

    unsigned char expected[112] = {};
    std::memcpy(expected, "$ZEIO_FILT$", 12);
    expected[12] = 100;
    expected[16] = 'q';
    expected[18] = 'o';
    expected[20] = 'l';
    expected[22] = 'f';
    expected[96] = 1;
    EXPECT_THAT(bytes, testing::ElementsAreArray(expected));
}

TEST_F(TheModule, ImportsThroughItsSlots) {
    const auto filter = NewImportFilter();
    const std::wstring path = WriteMap();

    EXPECT_EQ(filter->CanImportFile(path), 1);
    filter->Import(path);

    EXPECT_THAT(Host().ImportedObjects(),
                ElementsAre("CRS projection=1 datum=\"DATUM_WGS84\"", "NamedIds NAME",
                            "Pen style=1 color=0,0,255,255 relative width=0",
                            "Polyline 1,2 3,4 {NAME=one}"));
}

TEST_F(TheModule, AnswersFileQuestionsInTypesThatTheHostCanRead) {
    const auto filter = NewImportFilter();

    const zeio::ImportFileInfo info = filter->GetFileInfo(0, WriteMap());

    EXPECT_EQ(boost::any_cast<long long>(info.entries.at(L"File Size")),
              static_cast<long long>(std::strlen(kMap)));
    EXPECT_EQ(boost::any_cast<int>(info.entries.at(L"HDR_VERSION")), 300);
    EXPECT_EQ(boost::any_cast<double>(info.entries.at(L"HDR_XMIN")), 0.0);
    EXPECT_EQ(boost::any_cast<bool>(info.entries.at(L"HDR_HAS_EARTH_COORDS")), true);
    EXPECT_EQ(boost::any_cast<std::string>(info.entries.at(L"HDR_CHARSET")), "Neutral");
}

TEST_F(TheModule, ThrowsErrorsThatTheHostCanTellApart) {
    const auto importFilter = NewImportFilter();
    const auto exportFilter = NewExportFilter();

    EXPECT_THROW(importFilter->Import(Folder().PathOf("missing.mif")), zeio::ErrorMsg);
    EXPECT_THROW(exportFilter->BeginExport(Folder().PathOf("missing/map.mif")),
                 zeio::FileOpenError);
}

TEST_F(TheModule, ExportsWhatItImports) {
    NewImportFilter()->Import(WriteMap());
    const auto filter = NewExportFilter();
    zeio::TrInitGraphicsExp start;
    zeio::TrNamedIds columns = *Host().Received<zeio::TrNamedIds>().at(0);
    zeio::TrPen pen = *Host().Received<zeio::TrPen>().at(0);
    zeio::TrPolyline polyline = *Host().Received<zeio::TrPolyline>().at(0);

    filter->BeginExport(Folder().PathOf("copy.mif"));
    for (zeio::TrBase* object :
         std::initializer_list<zeio::TrBase*>{&start, &columns, &pen, &polyline}) {
        EXPECT_EQ(filter->ExportObject(*object), zeio::ExportStatus::Done);
    }
    EXPECT_EQ(filter->EndExport(), zeio::ExportStatus::Done);

    EXPECT_THAT(Folder().Read("copy.mif"), HasSubstr("1 2"));
    EXPECT_THAT(Folder().Read("copy.mid"), HasSubstr("one"));
}

TEST_F(TheModule, OffersAnOptionsPageForTheExportOnly) {
    std::vector<zeio::IoPropertyPage*> importPages;
    std::vector<zeio::IoPropertyPage*> exportPages;
    const auto importFilter = NewImportFilter();
    const auto exportFilter = NewExportFilter();

    importFilter->GetPropertyPages(importPages, L"title");
    exportFilter->GetPropertyPages(exportPages, L"title");

    EXPECT_EQ(importPages.size(), 0U);
    ASSERT_EQ(exportPages.size(), 1U);
    const shr::CTypeInfo* type = exportPages[0]->GetTypeId();
    EXPECT_EQ(type->Name(), L"MifExportDlg");
    EXPECT_EQ(type->Base(), zeio::IoPropertyPage::GetClassTypeId());
    EXPECT_EQ(type->Create(), nullptr);
}

TEST_F(TheModule, LetsAProgramFindTheImportDialog) {
    const auto filter = NewImportFilter();

    EXPECT_NE(dynamic_cast<platform::OptionsDialogOwner*>(filter.get()), nullptr);
}

TEST(TheUnloadedModule, CanBeLoadedAgain) {
    support::RecordingHost host;
    zeio::IoManager manager(host);
    {
        const LoadedModule module;
        delete module.NewExportFilter(manager);
    }

    const LoadedModule module;
    const std::unique_ptr<zeio::IoImportFilter> filter(module.NewImportFilter(manager));

    EXPECT_NE(filter, nullptr);
}

}  // namespace
