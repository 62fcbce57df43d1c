// Which files are archives, and where their members would lie.
#include "app/archive/MemberNames.h"

#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace app {
namespace {

using std::filesystem::path;

TEST(AnArchive, IsKnownByItsExtensionInAnyCase) {
    for (const char* name : {"a.zip", "GEOFLA.ZIP", "a.tar", "a.tar.gz", "a.tgz", "a.tar.xz",
                             "a.txz", "a.7z", "roads.geojson.gz"}) {
        EXPECT_TRUE(IsArchiveName(name)) << name;
    }
    for (const char* name : {"a.mif", "zip", "a.zip.mif", "a.xz", "a.rar", ""}) {
        EXPECT_FALSE(IsArchiveName(name)) << name;
    }
}

TEST(ACompressedFile, IsNoTar) {
    EXPECT_TRUE(IsCompressedFile("roads.mif.gz"));
    EXPECT_FALSE(IsCompressedFile("roads.tar.gz"));
    EXPECT_FALSE(IsCompressedFile("roads.zip"));
}

TEST(APlaceInAnArchive, IsFoundBehindTheArchivesName) {
    const support::TemporaryFolder folder;
    folder.Write("GEOFLA.zip", "x");

    const auto all = FindInArchive(folder.path() / "GEOFLA.zip");
    const auto member = FindInArchive(folder.path() / "GEOFLA.zip" / "2014" / "COMMUNE.MIF");

    ASSERT_TRUE(all && member);
    EXPECT_EQ(all->inside, "");
    EXPECT_EQ(member->archive, folder.path() / "GEOFLA.zip");
    EXPECT_EQ(member->inside, "2014/COMMUNE.MIF");
}

TEST(APlaceInAnArchive, IsNotFoundBehindOtherFilesAndFolders) {
    const support::TemporaryFolder folder;
    folder.Write("roads.mif", "x");
    std::filesystem::create_directory(folder.path() / "maps.zip");
    static_cast<void>(folder.Write("maps.zip/roads.mif", "x"));

    EXPECT_FALSE(FindInArchive(folder.path() / "roads.mif"));
    EXPECT_FALSE(FindInArchive(folder.path() / "roads.mif" / "a.mif"));
    EXPECT_FALSE(FindInArchive(folder.path() / "maps.zip"));
    EXPECT_FALSE(FindInArchive(folder.path() / "maps.zip" / "roads.mif"));
    EXPECT_FALSE(FindInArchive(folder.path() / "missing.zip"));
    EXPECT_FALSE(FindInArchive("missing.mif"));
}

TEST(AMembersName, StaysWhenItIsUtf8) {
    EXPECT_EQ(MemberNameFromBytes("région.mif"), "région.mif");
}

TEST(AMembersName, OfRussianDosIsCyrillic) {
    EXPECT_EQ(MemberNameFromBytes("\x84\xAE\xE0\xAE\xA3\xA8.mif"), "Дороги.mif");
}

TEST(AMembersName, OfWesternDosIsLatin) {
    EXPECT_EQ(MemberNameFromBytes("r\x82gion.mif"), "région.mif");
    EXPECT_EQ(MemberNameFromBytes("D\x90PARTEMENT/\x90t\x82.mif"), "DÉPARTEMENT/Été.mif");
}

TEST(AMembersPlace, IsBelowTheArchive) {
    EXPECT_EQ(PlaceOfMember("2014/COMMUNE.MIF"), path("2014/COMMUNE.MIF"));
    EXPECT_EQ(PlaceOfMember("./2014//./COMMUNE.MIF"), path("2014/COMMUNE.MIF"));
    EXPECT_EQ(PlaceOfMember("2014\\COMMUNE.MIF"), path("2014/COMMUNE.MIF"));
}

TEST(AMembersPlace, NeverLeavesIt) {
    for (const char* name : {"/etc/a.mif", "\\a.mif", "../a.mif", "a/../../b.mif", "a/..", "..",
                             "C:\\a.mif", "c:a.mif", "..\\a.mif", "", ".", "./"}) {
        EXPECT_FALSE(PlaceOfMember(name)) << name;
    }
}

TEST(AMembersPlace, HasNoNameThatIsSomethingElseOnWindows) {
    EXPECT_EQ(PlaceOfMember("a|b?.mif"), path("a_b_.mif"));
    EXPECT_EQ(PlaceOfMember("maps/con.mif"), path("maps/_con.mif"));
    EXPECT_EQ(PlaceOfMember("Com1.mif"), path("_Com1.mif"));
    EXPECT_EQ(PlaceOfMember("con-roads.mif"), path("con-roads.mif"));
    EXPECT_EQ(PlaceOfMember("a\x01.mif"), path("a_.mif"));
}

std::vector<std::size_t> FoldersOf(const std::vector<path>& names) {
    std::vector<MemberPlace> members;
    for (const path& name : names) {
        members.push_back({name});
    }
    EXPECT_EQ(SeparateCollisions(members), path());
    std::vector<std::size_t> folders;
    for (const MemberPlace& member : members) {
        folders.push_back(member.folder);
    }
    return folders;
}

using testing::ElementsAre;

TEST(NamesThatCollide, GoToFoldersOfTheirOwnWithTheirPairs) {
    EXPECT_THAT(FoldersOf({"A.mif", "a.mid", "a.mif", "A.mid"}), ElementsAre(0, 1, 1, 0));
    EXPECT_THAT(FoldersOf({"m/A.MIF", "M/a.mif"}), ElementsAre(0, 1));
}

TEST(NamesThatCollide, InTheirExtensionsAloneAreSeparateToo) {
    EXPECT_THAT(FoldersOf({"a.mif", "a.MIF", "a.mid"}), ElementsAre(0, 1, 0));
}

TEST(NamesThatDoNotCollide, StayTogether) {
    EXPECT_THAT(FoldersOf({"ROADS.MIF", "roads.mid", "lakes.mif", "x/roads.mif"}),
                ElementsAre(0, 0, 0, 0));
}

TEST(ANameThatIsThereTwice, IsReturned) {
    std::vector<MemberPlace> members = {{"a.mif"}, {"b.mif"}, {"a.mif"}};

    EXPECT_EQ(SeparateCollisions(members), path("a.mif"));
}

}  // namespace
}  // namespace app
