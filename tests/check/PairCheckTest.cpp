#include "app/check/PairCheck.h"
#include "tests/check/KeptFindings.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <random>
#include <string>
#include <string_view>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::filesystem::path Data(const std::string& name) {
    return std::filesystem::path(QOLF_TEST_DATA) / "check" / name;
}

TEST(ACheck, OfAFileThatIsNotThereFindsThat) {
    EXPECT_THAT(FindingsOf(Data("nowhere.mif")).names, ElementsAre("file-unreadable@0"));
}

TEST(ACheck, NamesAnUnknownProjectionInWords) {
    const KeptFindings kept = FindingsOf(Data("projection-double-stereographic.mif"));

    EXPECT_THAT(kept.messages, ElementsAre("projection code 31 is Double Stereographic; the "
                                           "reader does not know it and the import stops"));
    EXPECT_THAT(kept.advice, ElementsAre("Save the file with a projection that the reader knows."));
}

TEST(ACheck, GivesTheNumberOfTheObject) {
    const support::TemporaryFolder folder;
    folder.Write("roads.mif", "Version 300\nCharset \"Neutral\"\nCoordSys NonEarth Units \"m\"\n"
                              "Data\nPoint 1 2\nnone\nPoint 1 x\n");

    const KeptFindings kept = FindingsOf(folder.path() / "roads.mif");

    EXPECT_THAT(kept.names, ElementsAre("number-unreadable@7"));
    EXPECT_THAT(kept.objects, ElementsAre(3U));
}

constexpr std::string_view kPlainHeader =
    "Version 300\nCharset \"Neutral\"\nCoordSys NonEarth Units \"m\"\nData\n";

TEST(ACheck, KeepsNoMoreThanTheBeginningOfALongLine) {
    const support::TemporaryFolder folder;
    std::string text(kPlainHeader);
    text += "Point 1 " + std::string(20'000'000, '2') + "\nPoint 1 2\n";
    folder.Write("long.mif", text);

    const KeptFindings kept = FindingsOf(folder.path() / "long.mif");

    EXPECT_THAT(kept.names, ElementsAre("line-too-long@5", "number-unreadable@5"));
    EXPECT_LT(kept.messages[1].size(), 200U);
}

TEST(ACheck, FindsAHeaderThatBeginsTooLate) {
    const support::TemporaryFolder folder;
    folder.Write("late.mif", std::string(70'000, '\n') + std::string(kPlainHeader) + "Point 1 2\n");

    EXPECT_THAT(FindingsOf(folder.path() / "late.mif").names, ElementsAre("header-too-long@65538"));
}

TEST(ACheck, SaysWhenARingCannotBeTested) {
    const support::TemporaryFolder folder;
    folder.Write("infinite.mif",
                 std::string(kPlainHeader) + "Region 1\n4\n0 0\n1e999 0\n1 1\n0 0\n");

    EXPECT_THAT(FindingsOf(folder.path() / "infinite.mif").names,
                ElementsAre("number-unreadable@8", "ring-not-tested@6"));
}

TEST(ACheck, PassesOnNoMoreFindingsOfACodeThanAskedFor) {
    class CountingSink : public app::FindingSink {
    public:
        void Add(const app::Finding&) override { ++count; }
        int count = 0;
    } sink;

    const app::FindingCounts counts =
        app::CheckPair(Data("decimal-commas.mif"), {.maxPerCode = 2}, sink).findings;

    EXPECT_EQ(sink.count, 2);
    EXPECT_EQ(counts[static_cast<std::size_t>(app::FindingCode::DecimalComma)].found, 3U);
}

TEST(TheImportOfACheck, PassesOnTheModulesError) {
    const KeptFindings kept = ImportFindingsOf(Data("count-no-number.mif"));

    EXPECT_THAT(kept.names, ElementsAre("module-error@0"));
    EXPECT_THAT(kept.messages,
                ElementsAre(HasSubstr("Bad vertex count (0) in a polyline object.")));
}

TEST(TheImportOfACheck, PassesOnTheModulesWarning) {
    const KeptFindings kept = ImportFindingsOf(Data("version-1200.mif"));

    EXPECT_THAT(kept.names, ElementsAre("module-warning@0"));
    EXPECT_THAT(kept.messages, ElementsAre(HasSubstr("MIF version 1200 is not supported.")));
}

TEST(TheImportOfACheck, FindsNothingInACleanFile) {
    EXPECT_THAT(ImportFindingsOf(Data("clean-region.mif")).names, IsEmpty());
}

// Words that lead random text into all parts of the checks.
constexpr std::array<std::string_view, 40> kWords = {
    "Version ",    "300",         "Charset ", "\"UTF-8\"", "Delimiter ", "\"\t\"", "CoordSys ",
    "Earth ",      "Projection ", "Columns ", "Char(2)",   "Data\n",     "Pline ", "Multiple ",
    "Region ",     "Arc ",        "Text ",    "\"",        "Point ",     "Rect ",  "Roundrect ",
    "Collection ", "2",           "1 2\n",    "- 1",       "1,5",        ",",      "\n",
    "\r",          "\r\n",        "Pen (",    "Angle ",    "none\n",     "\0x",    "\xEF\xBB\xBF",
    "999",         "Bounds ",     "Affine ",  "nan",       "1e999 "};

TEST(ACheck, OfRandomTextNeverCrashes) {
    const support::TemporaryFolder folder;
    std::mt19937 random(20260721);
    for (int run = 0; run < 300; ++run) {
        std::string mif = run % 2 == 0 ? "Version 300\nCharset \"Neutral\"\nColumns 2\n a Integer\n"
                                         " b Char(3)\nData\n"
                                       : "";
        std::string mid;
        for (int i = 0; i < 120; ++i) {
            mif += kWords[random() % kWords.size()];
            mid += kWords[random() % kWords.size()];
            mid += static_cast<char>(random() % 256);
        }
        folder.Write("random.mif", mif);
        folder.Write("random.mid", mid);

        static_cast<void>(FindingsOf(folder.path() / "random.mif"));
    }
}

TEST(ACheck, OfRandomBytesNeverCrashes) {
    const support::TemporaryFolder folder;
    std::mt19937 random(4711);
    for (int run = 0; run < 100; ++run) {
        std::string bytes(random() % 2000, '\0');
        for (char& byte : bytes) {
            byte = static_cast<char>(random() % 256);
        }
        folder.Write("random.mif", bytes);
        folder.Write("random.mid", bytes);

        static_cast<void>(FindingsOf(folder.path() / "random.mif"));
    }
}

}  // namespace
