// Options, the start of an export, the header and what ExportObject does with each kind.
#include "export/ErrorOrigins.h"
#include "export/MifExportDlg.h"
#include "export/StyleCodes.h"
#include "host/shr/Files.h"
#include "host/zeio/Errors.h"
#include "standalone/Log.h"
#include "tests/export/CoordinateSystems.h"
#include "tests/export/ExportRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <string_view>

namespace mif::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using zeio::ExportStatus;

// An object of no kind that a filter knows.
class ForeignObject : public zeio::TrBase {
public:
    const shr::CTypeInfo* GetTypeId() const override { return zeio::TrBase::GetClassTypeId(); }
};

// What a call throws as a file error, in one line.
template <class Error, class Call> std::string ErrorOf(Call call) {
    try {
        call();
    } catch (const Error& error) {
        return error.what();
    }
    return "nothing was thrown";
}

}  // namespace

TEST(ExportFilterIdentity, IsTheExportRecord) {
    const ExportRun run;
    const zeio::FilterIdentity* identity = run.filter->GetFilterIdentity();

    EXPECT_EQ(std::memcmp(identity->tag, "$ZEIO_FILT$", 12), 0);
    EXPECT_EQ(identity->version, 100U);
    EXPECT_EQ(std::u16string_view(identity->name), u"qolf");
    EXPECT_EQ(identity->kind, zeio::FilterKind::Export);
}

TEST(SupportedTypes, AreTheTwelveOfAnExport) {
    const ExportRun run;
    const shr::CTypeInfo* supported[] = {zeio::TrInitGraphicsExp::GetClassTypeId(),
                                         zeio::TrMarkerSet::GetClassTypeId(),
                                         zeio::TrNamedIds::GetClassTypeId(),
                                         zeio::TrCRS::GetClassTypeId(),
                                         zeio::TrFont::GetClassTypeId(),
                                         zeio::TrPen::GetClassTypeId(),
                                         zeio::TrBrush::GetClassTypeId(),
                                         zeio::TrText::GetClassTypeId(),
                                         zeio::TrEllipse::GetClassTypeId(),
                                         zeio::TrRectangle::GetClassTypeId(),
                                         zeio::TrPolyline::GetClassTypeId(),
                                         zeio::TrPolygon::GetClassTypeId()};

    EXPECT_THAT(supported, testing::Each(testing::Truly([&](const shr::CTypeInfo* type) {
                    return run.filter->SupportsObjectType(type);
                })));
}

TEST(SupportedTypes, AreNoOthers) {
    const ExportRun run;

    EXPECT_FALSE(run.filter->SupportsObjectType(zeio::TrInitGraphicsImp::GetClassTypeId()));
    EXPECT_FALSE(run.filter->SupportsObjectType(zeio::TrBase::GetClassTypeId()));
    EXPECT_FALSE(run.filter->SupportsObjectType(zeio::TrGraphics::GetClassTypeId()));
    EXPECT_FALSE(run.filter->SupportsObjectType(MifExportDlg::GetClassTypeId()));
    EXPECT_FALSE(run.filter->SupportsObjectType(nullptr));
}

TEST(SlotsKeptFromTheBase, AnswerAsTheBaseDoes) {
    const ExportRun run;

    EXPECT_EQ(run.filter->GetOptionsInStringForm(), L"");
    EXPECT_EQ(run.filter->GetOptionStringDelimiter(), L';');
}

TEST(ExportOptionString, IsReadOverTheSavedOptionsAndStored) {
    ExportRun run;
    run.filter->SetOptionsFromString(L"AreasToCurves=1;RenderText=0");

    EXPECT_EQ(run.filter->options(), (ExportOptions{true, false, true}));
    EXPECT_THAT(run.host.calls(),
                ElementsAre("GetStringOption Defaults", "GetStringOption ForgetOptions",
                            "GetOption AreasToCurves persistent", "GetOption RenderText persistent",
                            "GetOption RenderMarkers persistent", "GetStringOption AreasToCurves",
                            "GetStringOption RenderText", "GetStringOption RenderMarkers",
                            "SetOption AreasToCurves=true persistent",
                            "SetOption RenderText=false persistent",
                            "SetOption RenderMarkers=true persistent"));
}

TEST(ExportOptionString, WithDefaultsDoesNotReadTheSavedOptions) {
    ExportRun run;
    run.host.optionStore().Set(L"AreasToCurves", true, false);
    run.host.optionStore().Set(L"RenderText", false, false);
    run.filter->SetOptionsFromString(L"Defaults=1;RenderMarkers=0");

    EXPECT_EQ(run.filter->options(), (ExportOptions{false, true, false}));
    EXPECT_THAT(run.host.CallsStartingWith("GetOption"), IsEmpty());
}

TEST(ExportOptionString, WithDefaultsReplacesWhatTheFilterHad) {
    ExportRun run;
    run.filter->SetOptionsFromString(L"AreasToCurves=1;RenderText=0;RenderMarkers=0");
    run.filter->SetOptionsFromString(L"Defaults");

    EXPECT_EQ(run.filter->options(), ExportOptions());
}

TEST(ExportOptionString, WithForgetOptionsStoresForTheRunOnly) {
    ExportRun run;
    run.filter->SetOptionsFromString(L"ForgetOptions=1;AreasToCurves=1");

    EXPECT_THAT(run.host.CallsStartingWith("SetOption"),
                ElementsAre("SetOption AreasToCurves=true", "SetOption RenderText=true",
                            "SetOption RenderMarkers=true"));
}

TEST(ExportOptionString, TakesSavedOptions) {
    ExportRun run;
    run.host.optionStore().Set(L"RenderText", false, false);
    run.filter->SetOptionsFromString(L"");

    EXPECT_EQ(run.filter->options(), (ExportOptions{false, false, true}));
}

TEST(OptionsFromAMissingPage, AreAnInternalError) {
    ExportRun run;

    EXPECT_EQ(
        ErrorOf<zeio::InternalError>([&] { run.filter->TakeOptionsFromPage(true); }).substr(0, 20),
        "MifExportFilter(178)");
    EXPECT_THAT(run.host.calls(), IsEmpty());
}

TEST(BeginExport, ReadsTheSavedOptionsThenStartsTheProgressTwice) {
    ExportRun run;
    EXPECT_EQ(run.Begin(), ExportStatus::Done);

    EXPECT_THAT(run.host.calls(),
                ElementsAre("GetOption AreasToCurves persistent", "GetOption RenderText persistent",
                            "GetOption RenderMarkers persistent", "ProgressStart cancel proportion",
                            "ProgressStart cancel", "Message Exporting data to MIF file out.mif"));
}

TEST(BeginExport, StartsFromTheDefaultsNotFromAnEarlierOptionString) {
    ExportRun run;
    run.filter->SetOptionsFromString(L"ForgetOptions=1;AreasToCurves=1");
    run.host.optionStore().Clear();
    static_cast<void>(run.Begin());

    EXPECT_EQ(run.filter->options(), ExportOptions());
}

TEST(BeginExport, TakesStoresAndDeletesThePage) {
    ExportRun run;
    run.host.optionStore().Set(L"AreasToCurves", true, false);
    std::vector<zeio::IoPropertyPage*> pages;
    run.filter->GetPropertyPages(pages, L"");
    run.host.ForgetCalls();
    static_cast<void>(run.Begin());

    EXPECT_THAT(run.host.CallsStartingWith("SetOption"),
                ElementsAre("SetOption AreasToCurves=true persistent",
                            "SetOption RenderText=true persistent",
                            "SetOption RenderMarkers=true persistent"));
    EXPECT_THAT(run.host.CallsStartingWith("GetOption"), IsEmpty());
    EXPECT_THROW(run.filter->TakeOptionsFromPage(true), zeio::InternalError);
}

TEST(BeginExport, WritesTheFirstThreeLines) {
    ExportRun run;
    static_cast<void>(run.Begin());
    run.SendColumns({});
    static_cast<void>(run.Send(Markers({})));
    static_cast<void>(run.End());

    EXPECT_TRUE(run.Mif().starts_with(
        "VERSION  300\nCHARSET \"WindowsLatin1\"\nDELIMITER \",\"\nCOORDSYS "));
}

TEST(BeginExport, PutsTheMidFileBesideTheMifFile) {
    ExportRun run;
    static_cast<void>(run.filter->BeginExport(run.folder.PathOf("a.b.MIF")));

    EXPECT_TRUE(run.folder.Has("a.b.MIF"));
    EXPECT_TRUE(run.folder.Has("a.b.mid"));
}

TEST(AMifFileThatCannotBeOpened, IsAFileOpenErrorWithTheSystemsReason) {
    ExportRun run;
    const std::string error = ErrorOf<zeio::FileOpenError>(
        [&] { run.filter->BeginExport(run.folder.PathOf("none/out.mif")); });

    EXPECT_THAT(error, testing::StartsWith("MifExportFilter(226): "));
    EXPECT_THAT(error, testing::EndsWith("none/out.mif: No such file or directory"));
}

TEST(AMidFileThatCannotBeOpened, IsAFileOpenErrorOfTheMidPath) {
    ExportRun run;
    std::filesystem::create_directory(run.folder.path() / "out.mid");
    const std::string error = ErrorOf<zeio::FileOpenError>([&] { run.Begin(); });

    EXPECT_THAT(error, testing::StartsWith("MifExportFilter(238): "));
    EXPECT_THAT(error, testing::HasSubstr("out.mid: "));
}

TEST(AMidFileThatCannotBeOpened, LeavesTheMifFileToEndExport) {
    ExportRun run;
    std::filesystem::create_directory(run.folder.path() / "out.mid");
    EXPECT_THROW(run.Begin(), zeio::FileOpenError);
    EXPECT_TRUE(run.HasMif());

    EXPECT_EQ(run.End(), ExportStatus::NothingWritten);
    EXPECT_FALSE(run.HasMif());
}

TEST(AMidFileThatCannotBeOpened, LeavesTheMifFileToTheFiltersEnd) {
    ExportRun run;
    std::filesystem::create_directory(run.folder.path() / "out.mid");
    EXPECT_THROW(run.Begin(), zeio::FileOpenError);
    run.filter.reset();

    EXPECT_FALSE(run.HasMif());
}

TEST(AMidFileThatCannotBeOpened, MakesEveryObjectAWriteError) {
    ExportRun run;
    std::filesystem::create_directory(run.folder.path() / "out.mid");
    EXPECT_THROW(run.Begin(), zeio::FileOpenError);

    const std::string error = ErrorOf<zeio::FileWriteError>([&] {
        run.Send(Markers({{1.0, 2.0, 0.0}}));
    });
    EXPECT_THAT(error, testing::StartsWith("MifExportFilter(402): "));
    EXPECT_THAT(error, testing::EndsWith("out.mif: File write error"));
}

TEST(AnObjectBeforeBeginExport, IsAWriteError) {
    ExportRun run;

    EXPECT_EQ(ErrorOf<zeio::FileWriteError>([&] {
                  run.Send(Markers({{1.0, 2.0, 0.0}}));
              }),
              "MifExportFilter(402): : File write error");
}

TEST(ExportObject, AnswersTwoForAKindThatItDoesNotKnow) {
    ExportRun run;
    static_cast<void>(run.Begin());
    ForeignObject foreign;

    EXPECT_EQ(run.Send(foreign), ExportStatus::NotHandled);
    EXPECT_EQ(run.Send(zeio::TrInitGraphicsImp({}, {}, zeio::TrGraphics::FT_COORDSYS::World)),
              ExportStatus::NotHandled);
}

TEST(ExportObject, AnswersZeroForEveryKindThatItKnows) {
    ExportRun run;
    static_cast<void>(run.Begin());

    EXPECT_EQ(run.Send(zeio::TrInitGraphicsExp()), ExportStatus::Done);
    EXPECT_EQ(run.Send(zeio::TrCRS()), ExportStatus::Done);
    EXPECT_EQ(run.Send(zeio::TrNamedIds()), ExportStatus::Done);
    EXPECT_EQ(run.Send(zeio::TrPen()), ExportStatus::Done);
    EXPECT_EQ(run.Send(zeio::TrBrush()), ExportStatus::Done);
    EXPECT_EQ(run.Send(zeio::TrFont()), ExportStatus::Done);
    EXPECT_EQ(run.Send(Polyline({})), ExportStatus::Done);
    EXPECT_EQ(run.Send(Polygon({})), ExportStatus::Done);
    EXPECT_EQ(run.Send(Markers({})), ExportStatus::Done);
    EXPECT_EQ(run.Send(Rectangle(0, 0, 1, 1)), ExportStatus::Done);
    EXPECT_EQ(run.Send(Ellipse(0, 0, 1, 1)), ExportStatus::Done);
    EXPECT_EQ(run.Send(Text(L"A", 0, 0)), ExportStatus::Done);
}

namespace {

void SendMany(ExportRun& run, int count) {
    for (int i = 0; i < count; ++i) {
        static_cast<void>(run.Send(zeio::TrPen()));
    }
}

}  // namespace

TEST(Progress, MovesAtEveryHundredthObject) {
    ExportRun run;
    static_cast<void>(run.Begin());
    SendMany(run, 99);
    EXPECT_THAT(run.host.CallsStartingWith("ProgressIndeterminate"), IsEmpty());

    SendMany(run, 101);
    EXPECT_EQ(run.host.CallsStartingWith("ProgressIndeterminate").size(), 2U);
}

TEST(InitGraphics, IsAnsweredWithTheCodesAndTheCapabilities) {
    ExportRun run;
    static_cast<void>(run.Begin());
    zeio::TrInitGraphicsExp questions;
    static_cast<void>(run.Send(questions));

    EXPECT_THAT(questions.codes, ElementsAre(0, 6, 0, 0));
    EXPECT_EQ(questions.capabilities, 0x013E0103U);
}

struct CapabilityRow {
    std::string name;
    std::wstring options;
    std::uint32_t capabilities;
};
class Capabilities : public testing::TestWithParam<CapabilityRow> {};

TEST_P(Capabilities, FollowTheOptions) {
    ExportRun run;
    run.filter->SetOptionsFromString(GetParam().options);
    zeio::TrInitGraphicsExp questions;
    questions.capabilities = 0xFFFFFFFF;
    static_cast<void>(run.Send(questions));

    EXPECT_EQ(questions.capabilities, GetParam().capabilities);
}
INSTANTIATE_TEST_SUITE_P(, Capabilities,
                         testing::Values(CapabilityRow{"Neither", L"RenderText=0;RenderMarkers=0",
                                                       0x013E0100},
                                         CapabilityRow{"Text", L"RenderMarkers=0", 0x013E0101},
                                         CapabilityRow{"Markers", L"RenderText=0", 0x013E0102}),
                         [](const auto& row) { return row.param.name; });

TEST(Header, HasTheLinesInTheirOrder) {
    ExportRun run;
    static_cast<void>(run.Begin());
    run.SendColumns({L"Name", L"2nd"});
    static_cast<void>(run.Send(SystemObject(Geographic())));
    static_cast<void>(run.Send(With(Markers({{1.0, 2.0, 0.0}}), {{L"Name", L"x"}})));
    static_cast<void>(run.End());

    EXPECT_EQ(run.Mif(), "VERSION  300\n"
                         "CHARSET \"WindowsLatin1\"\n"
                         "DELIMITER \",\"\n"
                         "COORDSYS Earth  \n"
                         "  Projection 1, 104\n"
                         "  Bounds (        1.0000000000,         2.0000000000) "
                         "(        1.0000000000,         2.0000000000)\n"
                         "COLUMNS 2\n"
                         "  Name char (1)    \n"
                         "  _2nd char (1)    \n"
                         "\n"
                         "DATA\n"
                         "POINT 1 2\n");
    EXPECT_EQ(run.Mid(), "\"x\" ,\"\"\n");
}

TEST(Header, WithoutColumnsDeclaresId1AndEveryRowHoldsOneEmptyValue) {
    ExportRun run;
    run.Export(Markers({{1.0, 2.0, 0.0}, {3.0, 4.0, 0.0}}));

    EXPECT_NE(run.Mif().find("COLUMNS 1\n  ID1 char (1)    \n\nDATA\n"), std::string::npos);
    EXPECT_EQ(run.Mid(), "\"\"\n\"\"\n");
}

TEST(Header, OfAnEmptyListOfColumnsDeclaresId1Too) {
    ExportRun run;
    run.Export(zeio::TrNamedIds(), Markers({{1.0, 2.0, 0.0}}));

    EXPECT_EQ(run.HeaderLines("  ID1"), "  ID1 char (1)    ");
}

TEST(Header, DeclaresAPlaneInMetresWithoutACoordinateSystem) {
    ExportRun run;
    run.Export(Markers({}));

    EXPECT_NE(run.Mif().find("\nCOORDSYS Nonearth\n  Units \"m\"\n  Bounds ("), std::string::npos);
}

TEST(Header, DeclaresAPlaneInMetresForAPlaneOfAnotherUnit) {
    ExportRun run;
    run.Export(SystemObject(gcs::PlaneDef(3.28083333333333)), Markers({}));

    EXPECT_NE(run.Mif().find("\nCOORDSYS Nonearth\n  Units \"m\"\n  Bounds ("), std::string::npos);
}

TEST(Header, DeclaresAPlaneInMetresForASystemThatMifCannotExpress) {
    ExportRun run;
    run.Export(SystemObject(Earth(Projection(gcs::ProjectionMethod::ArbitraryPlane),
                                  KnownDatum(L"DATUM_WGS84"))),
               Markers({}));

    EXPECT_NE(run.Mif().find("\nCOORDSYS Nonearth\n  Units \"m\"\n  Bounds ("), std::string::npos);
}

TEST(Header, RaisesTheVersionToWhatTheCoordinateSystemNeeds) {
    ExportRun run;
    run.Export(SystemObject(Earth(Projection(gcs::ProjectionMethod::EquidistantCylindrical),
                                  KnownDatum(L"DATUM_WGS84"))),
               Markers({}));

    EXPECT_EQ(run.HeaderLines("VERSION"), "VERSION 1050");
}

TEST(Header, IsFixedByTheFirstGraphicObject) {
    ExportRun run;
    run.Export(Markers({}), SystemObject(Geographic()), Markers({{1.0, 2.0, 0.0}}));

    EXPECT_EQ(run.HeaderLines("COORDSYS"), "COORDSYS Nonearth");
}

TEST(ACoordinateSystem, OfNullTakesAnEarlierOneAway) {
    ExportRun run;
    run.Export(SystemObject(Geographic()), zeio::TrCRS(), Markers({}));

    EXPECT_EQ(run.HeaderLines("COORDSYS"), "COORDSYS Nonearth");
}

struct SaveRefInfoRow {
    std::string name;
    std::optional<bool> value;
    std::string line;
};
class SaveRefInfoAsInternal : public testing::TestWithParam<SaveRefInfoRow> {};

TEST_P(SaveRefInfoAsInternal, DecidesWhetherACoordinateSystemCounts) {
    ExportRun run;
    if (GetParam().value.has_value()) {
        run.host.optionStore().Set(L"SaveRefInfoAsInternal", *GetParam().value, false);
    }
    run.Export(SystemObject(Geographic()), Markers({}));

    EXPECT_EQ(run.HeaderLines("COORDSYS"), GetParam().line);
    EXPECT_THAT(run.host.CallsStartingWith("GetOption Save"),
                ElementsAre("GetOption SaveRefInfoAsInternal"));
}
INSTANTIATE_TEST_SUITE_P(, SaveRefInfoAsInternal,
                         testing::Values(SaveRefInfoRow{"NotStated", {}, "COORDSYS Earth  "},
                                         SaveRefInfoRow{"True", true, "COORDSYS Earth  "},
                                         SaveRefInfoRow{"False", false, "COORDSYS Nonearth"}),
                         [](const auto& row) { return row.param.name; });

}  // namespace mif::test
