// Archives of every form, right and wrong, as files in a private folder.
#include "app/archive/UnpackedArchive.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/KeptMessages.h"
#include "tests/support/MadeArchive.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace app {
namespace {

using std::filesystem::path;
using support::ArchiveEntry;
using support::ArchiveForm;
using support::EntryKind;
using testing::ElementsAre;
using testing::HasSubstr;

std::string BytesOf(const path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream bytes;
    bytes << stream.rdbuf();
    return bytes.str();
}

bool IsMap(const path& file) {
    const std::string extension = LowerExtension(file);
    return extension == ".mif" || extension == ".mid";
}

class AnUnpackedArchive : public testing::Test {
protected:
    path Make(ArchiveForm form, const std::vector<ArchiveEntry>& entries,
              const std::string& password = {}) {
        const path file = folder_.path() / support::NameWithForm("maps", form);
        support::MakeArchive(file, form, entries, password);
        return file;
    }

    // "folder/roads.mif=bytes" a member.
    std::vector<std::string> Unpack(const path& file, const ArchiveLimits& limits = {}) {
        const UnpackedArchive archive(file, IsMap, limits, messages_.Reporter());
        std::vector<std::string> members;
        for (const UnpackedArchive::Member& member : archive.Members()) {
            members.push_back(member.inside.generic_string() + "=" + BytesOf(member.file));
        }
        return members;
    }

    std::string FailureOf(const path& file, const ArchiveLimits& limits = {}) {
        try {
            Unpack(file, limits);
        } catch (const Failure& failure) {
            return failure.what();
        }
        return "no failure";
    }

    support::TemporaryFolder folder_;
    support::KeptMessages messages_;
};

class EveryForm : public AnUnpackedArchive, public testing::WithParamInterface<ArchiveForm> {};

TEST_P(EveryForm, GivesTheMembersThatAreWanted) {
    const path file = Make(GetParam(), {{"2014", "", EntryKind::Folder},
                                        {"2014/roads.mif", "header"},
                                        {"2014/read me.txt", "text"},
                                        {"2014/roads.mid", ""}});

    EXPECT_THAT(Unpack(file), ElementsAre("2014/roads.mid=", "2014/roads.mif=header"));
    EXPECT_EQ(messages_.Text(), "");
}

TEST_P(EveryForm, ThatWasCutOffIsRefused) {
    std::string noise;
    for (std::uint32_t i = 0; i < 200'000; ++i) {
        noise += static_cast<char>(i * 2'654'435'761U >> 24);
    }
    const path file = Make(GetParam(), {{"roads.mif", noise}, {"roads.mid", noise}});
    support::CutOff(file, std::filesystem::file_size(file) * 3 / 4);

    EXPECT_THAT(FailureOf(file), HasSubstr(file.string() + ": "));
    EXPECT_THAT(FailureOf(file), HasSubstr("damaged"));
}

INSTANTIATE_TEST_SUITE_P(Of, EveryForm,
                         testing::Values(ArchiveForm::Zip, ArchiveForm::Tar, ArchiveForm::TarGz,
                                         ArchiveForm::TarXz, ArchiveForm::SevenZip));

TEST_F(AnUnpackedArchive, IsOneCompressedFileWithTheMidBesideIt) {
    support::MakeArchive(folder_.path() / "roads.mif.gz", ArchiveForm::Gz, {{"x", "header"}});
    support::MakeArchive(folder_.path() / "ROADS.MID.GZ", ArchiveForm::Gz, {{"x", "rows"}});

    EXPECT_THAT(Unpack(folder_.path() / "roads.mif.gz"),
                ElementsAre("ROADS.MID=rows", "roads.mif=header"));
}

TEST_F(AnUnpackedArchive, IsShownAsAFolderInTexts) {
    const path file = Make(ArchiveForm::Zip, {{"2014/roads.mif", ""}});
    path unpacked;
    {
        const UnpackedArchive archive(file, IsMap, {}, messages_.Reporter());
        unpacked = archive.Members().front().file;

        EXPECT_EQ(PathText(unpacked), (file / "2014/roads.mif").string());
        EXPECT_EQ(WithShownPlaces("can't open " + unpacked.string() + "."),
                  "can't open " + (file / "2014/roads.mif").string() + ".");
    }
    EXPECT_EQ(PathText(unpacked), unpacked.string());
    EXPECT_FALSE(std::filesystem::exists(unpacked));
}

TEST_F(AnUnpackedArchive, KeepsNamesApartThatDifferInCaseOnly) {
    const path file =
        Make(ArchiveForm::Zip, {{"A.mif", "1"}, {"a.mid", "2"}, {"a.mif", "2"}, {"A.mid", "1"}});
    const UnpackedArchive archive(file, IsMap, {}, messages_.Reporter());

    EXPECT_EQ(archive.Roots().size(), 2U);
    for (const UnpackedArchive::Member& member : archive.Members()) {
        EXPECT_EQ(BytesOf(FindCompanion(member.file, ".mid")), BytesOf(member.file));
        EXPECT_EQ(PathText(member.file), (file / member.inside).string());
    }
}

TEST_F(AnUnpackedArchive, HasNoNameTwice) {
    const path file = Make(ArchiveForm::Tar, {{"a.mif", "1"}, {"./a.mif", "2"}});

    EXPECT_EQ(FailureOf(file), (file / "a.mif").string() +
                                   ": is in the archive twice; unpack it and name the one "
                                   "that is meant");
}

TEST_F(AnUnpackedArchive, LeavesOutWhatLeadsElsewhere) {
    const path file = Make(ArchiveForm::Tar, {{"../out.mif", "x"},
                                              {"/tmp/qolf-out.mif", "x"},
                                              {"link.mif", "", EntryKind::Link},
                                              {"hard.mif", "", EntryKind::HardLink},
                                              {"device.mif", "", EntryKind::Device},
                                              {"link.txt", "", EntryKind::Link},
                                              {"in.mif", "x"}});

    EXPECT_THAT(Unpack(file), ElementsAre("in.mif=x"));
    EXPECT_THAT(messages_.Text(),
                HasSubstr("maps.tar/../out.mif: is left out: its path leads out"));
    EXPECT_THAT(messages_.Text(), HasSubstr("/tmp/qolf-out.mif: is left out: its path leads out"));
    for (const char* name : {"link.mif", "hard.mif", "device.mif"}) {
        EXPECT_THAT(messages_.Text(),
                    HasSubstr(std::string(name) + ": is left out: it is a link or a device"));
    }
    EXPECT_THAT(messages_.Text(), testing::Not(HasSubstr("link.txt")));
    EXPECT_FALSE(std::filesystem::exists(folder_.path() / "out.mif"));
    EXPECT_FALSE(std::filesystem::exists("/tmp/qolf-out.mif"));
}

TEST_F(AnUnpackedArchive, TakesNamesOfOldCodePages) {
    const path file =
        Make(ArchiveForm::Zip, {{"r\x82gion.mif", "1"}, {"\x84\xAE\xE0\xAE\xA3\xA8.mif", "2"}});

    EXPECT_THAT(Unpack(file), ElementsAre("région.mif=1", "Дороги.mif=2"));
}

TEST_F(AnUnpackedArchive, RefusesAMemberThatIsTooLarge) {
    for (const ArchiveForm form : {ArchiveForm::Zip, ArchiveForm::TarGz, ArchiveForm::SevenZip}) {
        const path file = Make(form, {{"a.mif", std::string(3000, 'x')}});

        EXPECT_EQ(FailureOf(file, {.mostBytes = 2048}),
                  (file / "a.mif").string() +
                      ": is larger than 2048 bytes; --max-size allows more");
        EXPECT_EQ(FailureOf(file, {.mostBytes = 3000}), "no failure");
    }
}

TEST_F(AnUnpackedArchive, RefusesACompressedFileThatIsTooLargeWhileItUnpacks) {
    const path file = folder_.path() / "a.mif.gz";
    support::MakeArchive(file, ArchiveForm::Gz, {{"x", std::string(9'000'000, 'x')}});

    EXPECT_THAT(FailureOf(file, {.mostBytes = std::uint64_t{4} << 20}),
                HasSubstr("is larger than 4 MiB"));
}

// 8 MB of zeros are packed a thousand times smaller, and more than that by xz.
TEST_F(AnUnpackedArchive, RefusesAMemberThatUnpacksToFarMoreThanItsSize) {
    const std::string zeros(8'000'000, '\0');
    for (const ArchiveForm form : {ArchiveForm::Zip, ArchiveForm::TarGz, ArchiveForm::TarXz}) {
        const path file = Make(form, {{"a.mif", zeros}});

        EXPECT_THAT(FailureOf(file, {.mostRatio = 100, .leastBytes = 1 << 20}),
                    HasSubstr((file / "a.mif").string() + ": unpacks to more than 100 times"))
            << static_cast<int>(form);
        EXPECT_EQ(FailureOf(file), "no failure");
    }
}

TEST_F(AnUnpackedArchive, RefusesManyMembersThatTogetherUnpackToFarMore) {
    std::vector<ArchiveEntry> entries;
    for (int i = 0; i < 20; ++i) {
        entries.push_back({std::to_string(i) + ".mif", std::string(500'000, '\0')});
    }
    const path file = Make(ArchiveForm::Zip, entries);

    EXPECT_THAT(FailureOf(file, {.mostRatio = 100, .leastBytes = 1 << 20}),
                HasSubstr(".mif: unpacks to more than 100 times"));
}

TEST_F(AnUnpackedArchive, RefusesSuchAMemberAlsoWhenItIsNotWanted) {
    const path file = Make(ArchiveForm::TarXz, {{"a.txt", std::string(8'000'000, '\0')}});

    EXPECT_THAT(FailureOf(file, {.mostRatio = 100, .leastBytes = 1 << 20}),
                HasSubstr("maps.tar.xz/a.txt: unpacks to more than"));
}

TEST_F(AnUnpackedArchive, SaysThatAPasswordProtectsIt) {
    const path file = Make(ArchiveForm::Zip, {{"a.mif", "x"}}, "secret");

    EXPECT_EQ(FailureOf(file), (file / "a.mif").string() +
                                   ": is protected by a password; unpack it and name the file");
}

TEST_F(AnUnpackedArchive, LeavesProtectedMembersAloneThatAreNotWanted) {
    const path file = Make(ArchiveForm::Zip, {{"a.txt", "x"}}, "secret");

    EXPECT_TRUE(Unpack(file).empty());
}

TEST_F(AnUnpackedArchive, MayBeATarThatLacksItsEndWithAWarning) {
    const path file = Make(ArchiveForm::Tar, {{"a.mif", std::string(512, 'x')}, {"b.mif", "x"}});
    support::CutOff(file, 1024);

    EXPECT_EQ(Unpack(file).size(), 1U);
    EXPECT_EQ(messages_.Text(), "qolf: warning: " + file.string() +
                                    ": lacks the end of an archive and may be cut off\n");
}

TEST_F(AnUnpackedArchive, IsNotAFileOfAnotherKind) {
    folder_.Write("maps.zip", "This is no archive.");

    EXPECT_THAT(FailureOf(folder_.path() / "maps.zip"), HasSubstr("is not an archive"));
    EXPECT_THAT(FailureOf(folder_.path() / "maps.zip"), HasSubstr(".zip, .tar, .tar.gz"));
}

TEST_F(AnUnpackedArchive, SaysWhyItFoundNoRoom) {
    const path file = Make(ArchiveForm::Zip, {{"a.mif", std::string(3'000'000, 'x')}});
    const support::FileSizeLimit limit(1 << 20);

    EXPECT_THAT(FailureOf(file), HasSubstr("a.mif: can't unpack into "));
    EXPECT_THAT(FailureOf(file), HasSubstr(": File too large; name another folder in TMPDIR"));
}

TEST_F(AnUnpackedArchive, HasFilesAsOldAsItself) {
    const path file = Make(ArchiveForm::Zip, {{"a.mif", "x"}});
    const auto then = std::filesystem::file_time_type::clock::now() - std::chrono::hours(24 * 365);
    std::filesystem::last_write_time(file, then);
    const UnpackedArchive archive(file, IsMap, {}, messages_.Reporter());

    EXPECT_EQ(std::filesystem::last_write_time(archive.Members().front().file),
              std::filesystem::last_write_time(file));
}

}  // namespace
}  // namespace app
