// What a host may ask before it imports: what the filter is, and what a file holds.
#include "tests/import/ImportRun.h"

#include <gmock/gmock.h>

#include <cstring>
#include <string_view>

namespace {

using import_test::Importing;
using testing::ElementsAre;

class ImportFilterAnswers : public Importing {
protected:
    zeio::ImportFileInfo InfoOf(const std::wstring& path) { return Filter().GetFileInfo(0, path); }

    std::vector<std::wstring> KeysOf(const std::wstring& path) {
        std::vector<std::wstring> keys;
        for (const auto& [key, value] : InfoOf(path).entries) {
            keys.push_back(key);
        }
        return keys;
    }

    template <typename Value> Value InfoValue(const wchar_t* key) {
        const zeio::ImportFileInfo info = InfoOf(Path());
        return boost::any_cast<Value>(info.entries.at(key));
    }

    static constexpr std::string_view kMap = "Version 450\nCharset \"WindowsLatin1\"\n"
                                             "Delimiter \";\"\nCoordSys Earth Projection 1, 104\n"
                                             "\nBounds (-1.5, -2) (3, 4.25)\nData\n";
};

TEST_F(ImportFilterAnswers, ItsIdentityIsThatOfAnImportFilterOfThisModule) {
    const zeio::FilterIdentity* identity = Filter().GetFilterIdentity();

    zeio::FilterIdentity expected{};
    std::memcpy(expected.tag, "$ZEIO_FILT$", 12);
    expected.version = 100;
    std::u16string_view(u"qolf").copy(expected.name, 4);
    expected.kind = zeio::FilterKind::Import;
    EXPECT_EQ(std::memcmp(identity, &expected, sizeof expected), 0);
}

TEST_F(ImportFilterAnswers, ItSupportsTheTwelveClassesOfAnImport) {
    const shr::CTypeInfo* const types[] = {zeio::TrInitGraphicsImp::GetClassTypeId(),
                                           zeio::TrCRS::GetClassTypeId(),
                                           zeio::TrNamedIds::GetClassTypeId(),
                                           zeio::TrPolygon::GetClassTypeId(),
                                           zeio::TrPolyline::GetClassTypeId(),
                                           zeio::TrEllipse::GetClassTypeId(),
                                           zeio::TrRectangle::GetClassTypeId(),
                                           zeio::TrText::GetClassTypeId(),
                                           zeio::TrFont::GetClassTypeId(),
                                           zeio::TrPen::GetClassTypeId(),
                                           zeio::TrBrush::GetClassTypeId(),
                                           zeio::TrMarkerSet::GetClassTypeId()};

    EXPECT_THAT(types, testing::Each(testing::Truly([this](const shr::CTypeInfo* type) {
                    return Filter().SupportsObjectType(type);
                })));
}

TEST_F(ImportFilterAnswers, ItSupportsNoOtherClass) {
    const shr::CTypeInfo* const types[] = {zeio::TrInitGraphicsExp::GetClassTypeId(),
                                           zeio::TrBase::GetClassTypeId(),
                                           zeio::TrGraphics::GetClassTypeId(), nullptr};

    EXPECT_THAT(types, testing::Each(testing::Truly([this](const shr::CTypeInfo* type) {
                    return !Filter().SupportsObjectType(type);
                })));
}

TEST_F(ImportFilterAnswers, TheRestOfTheSlotsIsTheBases) {
    std::vector<zeio::IoPropertyPage*> pages;
    Filter().GetPropertyPages(pages, L"title");

    EXPECT_TRUE(pages.empty());
    EXPECT_EQ(Filter().GetOptionsInStringForm(), L"");
    EXPECT_EQ(Filter().GetOptionStringDelimiter(), L';');
    EXPECT_FALSE(Filter().HasDelayedImport());
}

TEST_F(ImportFilterAnswers, AFileWithAHeaderCanBeImported) {
    WriteFiles(kMap);

    EXPECT_EQ(Filter().CanImportFile(Path()), 1);
}

TEST_F(ImportFilterAnswers, AMissingFileCanNotBeImported) {
    EXPECT_EQ(Filter().CanImportFile(Path()), 0);
}

TEST_F(ImportFilterAnswers, AFolderCanNotBeImported) {
    EXPECT_EQ(Filter().CanImportFile(Folder().path().wstring()), 0);
}

TEST_F(ImportFilterAnswers, KeptAnInvalidVersionIsNotToldFromAnyOtherFailure) {
    WriteFiles("Version 3000\nDelimiter \",\"\nData\n");

    EXPECT_EQ(Filter().CanImportFile(Path()), 0);
}

TEST_F(ImportFilterAnswers, AskingLeavesTheFilterReadyForAnImport) {
    WriteFiles(kMap);
    static_cast<void>(Filter().CanImportFile(Path()));
    static_cast<void>(InfoOf(Path()));

    ImportFile();

    EXPECT_EQ(FirstError(), "");
}

TEST_F(ImportFilterAnswers, NothingAtAllAboutAMissingFile) {
    EXPECT_THAT(KeysOf(Path()), ElementsAre());
}

TEST_F(ImportFilterAnswers, OnlySizeAndFormatOfAFileThatIsNoMif) {
    WriteFiles("hello");

    EXPECT_THAT(KeysOf(Path()), ElementsAre(L"File Format", L"File Size"));
}

TEST_F(ImportFilterAnswers, TheSizeIsALongLongAndTheFormatWideText) {
    WriteFiles("hello");

    EXPECT_EQ(InfoValue<long long>(L"File Size"), 5);
    EXPECT_EQ(InfoValue<std::wstring>(L"File Format"), L"MapInfo Interchange Format (MIF) file");
}

TEST_F(ImportFilterAnswers, EightHeaderKeysAboutAMifFile) {
    WriteFiles(kMap);

    EXPECT_THAT(KeysOf(Path()),
                ElementsAre(L"File Format", L"File Size", L"HDR_CHARSET", L"HDR_DELIMITER",
                            L"HDR_HAS_EARTH_COORDS", L"HDR_VERSION", L"HDR_XMAX", L"HDR_XMIN",
                            L"HDR_YMAX", L"HDR_YMIN"));
}

TEST_F(ImportFilterAnswers, TheBoundsAsDoubles) {
    WriteFiles(kMap);

    EXPECT_EQ(InfoValue<double>(L"HDR_XMIN"), -1.5);
    EXPECT_EQ(InfoValue<double>(L"HDR_XMAX"), 3.0);
    EXPECT_EQ(InfoValue<double>(L"HDR_YMIN"), -2.0);
    EXPECT_EQ(InfoValue<double>(L"HDR_YMAX"), 4.25);
}

TEST_F(ImportFilterAnswers, VersionCharsetDelimiterAndEarthInTheirOwnTypes) {
    WriteFiles(kMap);

    EXPECT_EQ(InfoValue<int>(L"HDR_VERSION"), 450);
    EXPECT_EQ(InfoValue<std::string>(L"HDR_CHARSET"), "WindowsLatin1");
    EXPECT_EQ(InfoValue<std::string>(L"HDR_DELIMITER"), ";");
    EXPECT_EQ(InfoValue<bool>(L"HDR_HAS_EARTH_COORDS"), true);
}

TEST_F(ImportFilterAnswers, AskingTellsTheHostNothing) {
    WriteFiles(kMap);

    static_cast<void>(InfoOf(Path()));
    static_cast<void>(Filter().CanImportFile(Path()));

    EXPECT_THAT(Host().calls(), ElementsAre());
}

}  // namespace
