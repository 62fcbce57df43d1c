#include "host/zeio/Errors.h"
#include "host/zeio/IoExportFilter.h"
#include "host/zeio/IoImportFilter.h"
#include "host/zeio/IoManager.h"
#include "tests/support/RecordingHost.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace {

class PlainImport : public zeio::IoImportFilter {
public:
    explicit PlainImport(zeio::IoManager& manager) : IoImportFilter(manager) {}
    const zeio::FilterIdentity* GetFilterIdentity() const override { return nullptr; }
    void Import(const std::wstring& /*path*/) override {}
};

struct FilterInHost {
    support::RecordingHost host;
    zeio::IoManager manager{host};
    PlainImport filter{manager};
};

TEST(BaseFilter, OffersNoPage) {
    FilterInHost given;
    std::vector<zeio::IoPropertyPage*> pages;

    given.filter.GetPropertyPages(pages, L"roads.mif");

    EXPECT_TRUE(pages.empty());
}

TEST(BaseFilter, HasNoOptionsAndASemicolonBetweenThem) {
    FilterInHost given;

    given.filter.SetOptionsFromString(L"Anything=1");

    EXPECT_EQ(given.filter.GetOptionsInStringForm(), L"");
    EXPECT_EQ(given.filter.GetOptionStringDelimiter(), L';');
}

TEST(BaseFilter, SupportsNoType) {
    FilterInHost given;

    EXPECT_FALSE(given.filter.SupportsObjectType(nullptr));
}

TEST(BaseFilter, KeepsTheManagerThatItWasMadeWith) {
    FilterInHost given;

    EXPECT_EQ(&given.filter.Manager(), &given.manager);
}

TEST(BaseFilter, HandsAHelpTopicToTheHost) {
    FilterInHost given;

    given.filter.ShowHelp(L"Mif-Import.htm", L"");

    EXPECT_EQ(given.host.calls(), std::vector<std::string>{"ShowHelp Mif-Import.htm#"});
}

TEST(BaseImportFilter, KnowsNoFileAndDelaysNothing) {
    FilterInHost given;

    EXPECT_EQ(given.filter.CanImportFile(L"roads.mif"), 0);
    EXPECT_TRUE(given.filter.GetFileInfo(0, L"roads.mif").entries.empty());
    EXPECT_FALSE(given.filter.HasDelayedImport());
}

TEST(BaseImportFilter, HandsAnObjectToTheHost) {
    FilterInHost given;
    zeio::TrNamedIds names;
    names.names = {L"a", L"b"};

    given.filter.ImportObject(names);

    ASSERT_EQ(given.host.Received<zeio::TrNamedIds>().size(), 1U);
    EXPECT_EQ(given.host.Received<zeio::TrNamedIds>()[0]->names, names.names);
}

TEST(ThrowErrorMsg, CarriesSourceLineAndMessage) {
    FilterInHost given;

    try {
        given.filter.ThrowErrorMsg(L"MifImportParse", 692, L"Bad count");
    } catch (const zeio::ErrorMsg& error) {
        EXPECT_EQ(error.Source(), L"MifImportParse");
        EXPECT_EQ(error.Line(), 692);
        EXPECT_EQ(error.Message(), L"Bad count");
        EXPECT_STREQ(error.what(), "MifImportParse(692): Bad count");
    }
}

TEST(ThrowErrInternal, CarriesSourceAndLine) {
    FilterInHost given;

    try {
        given.filter.Throw_ERR_INTERNAL(L"MifImportParse", 1430);
    } catch (const zeio::InternalError& error) {
        EXPECT_STREQ(error.what(), "MifImportParse(1430): Internal error");
    }
}

TEST(ThrowErrFileOpen, CarriesPathAndReason) {
    FilterInHost given;

    try {
        given.filter.Throw_ERR_FILE_OPEN(L"MifExportFilter", 5, L"a.mif", L"No such folder");
    } catch (const zeio::FileOpenError& error) {
        EXPECT_EQ(error.Path(), L"a.mif");
        EXPECT_EQ(error.Reason(), L"No such folder");
        EXPECT_EQ(error.Message(), L"a.mif: No such folder");
    }
}

TEST(ThrowErrFileWrite, IsAnotherKindOfFileError) {
    FilterInHost given;

    EXPECT_THROW(given.filter.Throw_ERR_FILE_WRITE(L"MifExportFilter", 6, L"a.mif", L"Disk full"),
                 zeio::FileWriteError);
}

TEST(AFilter, CannotBeCopied) {
    EXPECT_FALSE(std::is_copy_constructible_v<PlainImport>);
    EXPECT_FALSE(std::is_copy_assignable_v<PlainImport>);
}

}  // namespace
