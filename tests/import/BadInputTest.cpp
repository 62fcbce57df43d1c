// Input that no program wrote on purpose: mutated, cut off, or far too deep. Nothing of it may do
// more than stop the import with one of the host's errors.
#include "tests/import/ImportRun.h"

#include "host/shr/IError.h"

#include <random>

namespace {

using import_test::ImportRun;

// Counts objects and keeps none.
class CountingHost : public zeio::IoHost {
public:
    explicit CountingHost(standalone::OptionStore& store) : IoHost(store) {}
    void ImportObject(zeio::TrBase& object) override {
        if (object.GetTypeId() == zeio::TrMarkerSet::GetClassTypeId()) {
            ++points;
            lastX = static_cast<zeio::TrMarkerSet&>(object).positions.front().x;
        } else if (object.GetTypeId() == zeio::TrPolyline::GetClassTypeId()) {
            vertices += static_cast<zeio::TrPolyline&>(object).vertices.size();
        }
    }

    std::size_t points = 0;
    std::size_t vertices = 0;
    double lastX = 0.0;
};

class HostileInput : public testing::Test {
protected:
    // True when the import ends by itself or with one of the host's errors.
    bool Survives(std::string_view mifBytes, std::string_view midBytes) {
        static_cast<void>(folder_.Write("map.mid", midBytes));
        const std::wstring path = folder_.Write("map.mif", mifBytes);
        mif::MifImportFilter filter(manager_);
        try {
            static_cast<void>(filter.GetFileInfo(0, path));
            filter.Import(path);
        } catch (const shr::IError&) {
            // Which error it is makes no difference here.
            return true;
        }
        return true;
    }

    CountingHost& Host() { return host_; }

private:
    support::TemporaryFolder folder_;
    standalone::OptionStore store_;
    CountingHost host_{store_};
    zeio::IoManager manager_{host_};
};

constexpr std::string_view kHeader = "Version 300\nCharset \"Neutral\"\nDelimiter \",\"\n"
                                     "CoordSys Earth Projection 8, 104, \"m\", 9, 0, 0.9996, "
                                     "500000, 0 Bounds (0, 0) (1, 1)\n"
                                     "Bounds (0, 0) (100, 100)\nTransform 1,1,0,0\nIndex 1\n"
                                     "Unique 1\nColumns 2\n  NAME Char(10)\n  SIZE Integer\nData\n";

constexpr std::string_view kObjects =
    "\nPoint 1 2\n    Symbol (35,0,12)\nLine 1 2 3 4\n    Pen (2,5,255)\n"
    "Pline 3\n1 2\n3 4\n5 6\n    Pen (15,2,0)\n    Smooth\n"
    "Pline Multiple 2\n2\n1 2\n3 4\n1\n5 6\n    Pen (1,14,0)\n"
    "Region 2\n3\n0 0\n9 0\n9 9\n3\n1 1\n2 1\n2 2\n    Pen (1,2,0)\n    Brush (3,255,0)\n"
    "    Center 5 5\n"
    "Arc 0 0 4 2\n0 90\n    Pen (1,2,0)\nText \"abc\"\n1 2 3 4\n"
    "    Font (\"Arial\",3,0,255)\n    Angle 45\n    Justify Right\n    Spacing 1.5\n"
    "    Label Line Simple 1 2\nText\n\"next line\"\n0 0 0 0\n"
    "Rect 1 2 3 4\n    Brush (2,255)\nRoundrect 1 2 3 4\n0.5\nEllipse 1 2 3 4\n"
    "Collection 3\nMultipoint 2\n1 2\n3 4\n    Symbol (42,255,10,\"Map Symbols\",1,30)\n"
    "Collection 1\nPoint 5 6\nnone\nnone\n";

constexpr std::string_view kRows =
    "\"one\",1\n\"two, too\",2\n three ,  3\n\"four,4\n,\n\n7\n8,8,8\n"
    "9,9\n10,10\n11,11\n12,12\n13,13";

TEST_F(HostileInput, IsMadeOfACorpusThatImportsInFull) {
    ImportRun run;
    run.UseRows(std::string(kRows));

    run.ImportBytes(std::string(kHeader) + std::string(kObjects));

    EXPECT_EQ(run.FirstError(), "");
    EXPECT_EQ(run.HostReceived().back(),
              "MarkerSet style=1 size=0 font=\"ZEI Default Symbols\" index=0 5,6 {NAME=13, "
              "SIZE=13}");
}

TEST_F(HostileInput, CutOffAfterAnyByteSurvives) {
    const std::string corpus = std::string(kHeader) + std::string(kObjects);
    for (std::size_t length = 0; length <= corpus.size(); ++length) {
        ASSERT_TRUE(Survives(corpus.substr(0, length), kRows)) << "cut off at " << length;
    }
}

TEST_F(HostileInput, WithRowsCutOffAfterAnyByteSurvives) {
    const std::string corpus = std::string(kHeader) + std::string(kObjects);
    for (std::size_t length = 0; length <= kRows.size(); ++length) {
        ASSERT_TRUE(Survives(corpus, kRows.substr(0, length))) << "cut off at " << length;
    }
}

// Texts that a mutation puts in: numbers at the limits, and every character that means something.
constexpr std::string_view kPieces[] = {
    "-1",       "0",      "2147483647", "-2147483648", "99999999999999999999",
    "1e999",    "-1e999", "nan",        "inf",         "0x1p99",
    "\n",       "\r",     "\t",         " ",           "(",
    ")",        ",",      "\"",         "\"\"",        "",
    "Multiple", "Data",   "Pline",      "Region",      "Collection",
    "Text",     "Arc",    "Multipoint", "1000000",     "Pen",
    "Symbol",   "Font",   "none",       "\xFF",        "\x80",
};

class Mutator {
public:
    explicit Mutator(unsigned seed) : random_(seed) {}

    std::string Mutate(std::string text) {
        const std::size_t count = Below(6) + 1;
        for (std::size_t change = 0; change < count && !text.empty(); ++change) {
            ChangeOnce(text);
        }
        return text;
    }

private:
    std::size_t Below(std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random_);
    }

    void ChangeOnce(std::string& text) {
        const std::size_t position = Below(text.size());
        const std::size_t length = Below(12);
        switch (Below(5)) {
        case 0:
            text[position] = static_cast<char>(Below(256));
            return;
        case 1:
            text.erase(position, length);
            return;
        case 2:
            text.insert(position, text.substr(Below(text.size()), length));
            return;
        case 3:
            text.insert(position, kPieces[Below(std::size(kPieces))]);
            return;
        default:
            text.replace(position, length, kPieces[Below(std::size(kPieces))]);
        }
    }

    std::mt19937 random_;
};

class MutatedInput : public HostileInput, public testing::WithParamInterface<unsigned> {};

TEST_P(MutatedInput, Survives) {
    Mutator mutator(GetParam());
    const std::string corpus = std::string(kHeader) + std::string(kObjects);
    for (int run = 0; run < 1000; ++run) {
        const std::string mif = mutator.Mutate(corpus);
        ASSERT_TRUE(Survives(mif, mutator.Mutate(std::string(kRows)))) << "run " << run << ":\n"
                                                                       << mif;
    }
}

TEST_P(MutatedInput, SurvivesWhenOnlyItsObjectsChanged) {
    Mutator mutator(GetParam());
    for (int run = 0; run < 1000; ++run) {
        const std::string mif = std::string(kHeader) + mutator.Mutate(std::string(kObjects));
        ASSERT_TRUE(Survives(mif, kRows)) << "run " << run << ":\n" << mif;
    }
}

INSTANTIATE_TEST_SUITE_P(Seed, MutatedInput, testing::Values(1U, 2U, 3U, 4U),
                         testing::PrintToStringParamName());

TEST_F(HostileInput, OfAMillionCollectionsInOneAnotherKeepsItsOrder) {
    std::string text = "Version 300\nDelimiter \",\"\nData\n";
    for (int depth = 0; depth < 1'000'000; ++depth) {
        text += "Collection 2\n";
    }
    for (int count = 0; count <= 1'000'000; ++count) {
        text += "Point " + std::to_string(count) + " 1\n";
    }

    EXPECT_TRUE(Survives(text, ""));

    EXPECT_EQ(Host().points, 1'000'001U);
    EXPECT_EQ(Host().lastX, 1'000'000.0);
}

TEST_F(HostileInput, OfAMillionVerticesThatAreMissingReadsThemAsZero) {
    EXPECT_TRUE(Survives("Version 300\nDelimiter \",\"\nData\nPline 1000000\n1 2\n", ""));

    EXPECT_EQ(Host().vertices, 1'000'000U);
}

TEST_F(HostileInput, OfMoreThanAMillionVerticesIsReadWhenTheFileHoldsThem) {
    std::string text = "Version 300\nDelimiter \",\"\nData\nPline 1000001\n";
    for (int count = 0; count < 1'000'001; ++count) {
        text += "1 2\n";
    }

    EXPECT_TRUE(Survives(text, ""));

    EXPECT_EQ(Host().vertices, 1'000'001U);
}

TEST(ACutOffFile, GivesItsLastObjectWithTheMissingNumbersAsZero) {
    EXPECT_EQ(import_test::ObjectsOf("Pline 3\n1 2\n3"),
              import_test::Lines{"Polyline 1,2 3,0 0,0"});
}

TEST(ACutOffFile, LosesALastKeywordThatNothingFollows) {
    EXPECT_EQ(import_test::ObjectsOf("Line 1 2 3 4\nPoint").size(), 1U);
}

}  // namespace
