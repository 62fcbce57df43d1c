// What the command knows of MIF text is what the module knows: tokens, numbers, codes.
#include "app/mif/CoordSysCodes.h"
#include "app/mif/MifTokens.h"
#include "app/mif/Numbers.h"
#include "host/gcs/KnownLists.h"
#include "host/shr/Text.h"
#include "reader/CMifInputFile.h"
#include "reader/ReferenceTables.h"
#include "tests/support/MutatedText.h"
#include "tests/support/NumberTexts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr std::string_view kLast = "the-last-token";

// Without the lone carriage returns: there the two differ on purpose. The module drops
// them, and the command takes them for the line ends that they were meant to be.
std::string WithoutLoneReturns(const std::string& text) {
    std::string kept;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::size_t behind = std::min(text.find_first_not_of('\r', i), text.size());
        const bool isLineEnd = behind < text.size() && text[behind] == '\n';
        if (text[i] != '\r' || isLineEnd) {
            kept += text[i];
        }
    }
    return kept;
}

using Texts = std::vector<std::string>;

// Up to a last token of our own: an empty one before it is an empty quoted text.
Texts ModuleTokens(const std::string& text) {
    mif::CMifInputFile input;
    input.OpenMemory({text.begin(), text.end()});
    input.Rewind();
    Texts tokens{std::string(input.token())};
    while (tokens.back() != kLast || input.BytesLeft() > 0) {
        input.NextToken();
        tokens.emplace_back(input.token());
    }
    return tokens;
}

Texts OwnTokens(const std::string& text) {
    Texts tokens;
    app::MifTokens source(text);
    for (app::MifToken token = source.Next(); token.kind != app::TokenKind::End;
         token = source.Next()) {
        tokens.push_back(app::WithoutReturns(token.text));
    }
    return tokens;
}

void ExpectTheSameTokens(const std::string& bytes) {
    const std::string text = WithoutLoneReturns(bytes) + "\n" + std::string(kLast);
    EXPECT_EQ(OwnTokens(text), ModuleTokens(text));
}

std::string BytesOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void ExpectTheSameTokensInFilesBelow(const std::filesystem::path& folder) {
    std::size_t count = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (entry.is_regular_file()) {
            SCOPED_TRACE(entry.path());
            ExpectTheSameTokens(BytesOf(entry.path()));
            ++count;
        }
    }
    EXPECT_GT(count, 10U);
}

TEST(Tokens, AreTheModulesInEverySample) {
    ExpectTheSameTokensInFilesBelow(QOLF_SAMPLES);
}

TEST(Tokens, AreTheModulesInTheFilesOfTheCheck) {
    ExpectTheSameTokensInFilesBelow(QOLF_TEST_DATA "/check");
}

TEST(Tokens, AreTheModulesInTheInputsOfTheFuzzTargets) {
    for (const char* target : {"check", "coordsys", "header", "import", "tokenizer"}) {
        ExpectTheSameTokensInFilesBelow(std::string(QOLF_FUZZ_CORPUS) + "/" + target);
    }
}

TEST(Tokens, AreTheModulesInMutatedHeaders) {
    std::mt19937 random(20260);
    for (int i = 0; i < 20'000; ++i) {
        ExpectTheSameTokens(support::MutatedText(support::kHeaderToMutate, random));
    }
}

class ANumber : public testing::TestWithParam<support::NumberText> {};

TEST_P(ANumber, IsTheModules) {
    const std::string& text = GetParam().text;

    EXPECT_EQ(std::bit_cast<std::uint64_t>(app::ReadDouble(text)),
              std::bit_cast<std::uint64_t>(mif::ReadDouble(text)));
    EXPECT_EQ(app::ReadInt(text), mif::ReadInt(text));
}

INSTANTIATE_TEST_SUITE_P(, ANumber, testing::ValuesIn(support::NumberTexts()),
                         [](const auto& row) { return row.param.name; });

TEST(Numbers, AreTheModulesInRandomTexts) {
    constexpr std::string_view kLetters = "0123456789012345678901234567890123456789+-.eExXpPaf ,";
    std::mt19937 random(4711);
    for (int i = 0; i < 500'000; ++i) {
        std::string text(random() % 24, '\0');
        for (char& letter : text) {
            letter = kLetters[random() % kLetters.size()];
        }
        ASSERT_EQ(std::bit_cast<std::uint64_t>(app::ReadDouble(text)),
                  std::bit_cast<std::uint64_t>(mif::ReadDouble(text)))
            << text;
        ASSERT_EQ(app::ReadInt(text), mif::ReadInt(text)) << text;
    }
}

constexpr int kLargestCode = 3000;

TEST(ProjectionCodes, AreTheModules) {
    for (int code = 0; code <= kLargestCode; ++code) {
        const app::Projection* const own = app::ModuleProjection(code);
        const mif::ProjectionRow* const row = mif::FindProjectionByCode(code);
        ASSERT_EQ(own != nullptr, row != nullptr) << code;
        if (row != nullptr) {
            const int parameters = row->hasOriginLongitude + row->hasOriginLatitude +
                                   row->hasStandardParallel1 + row->hasStandardParallel2 +
                                   row->hasAzimuth + row->hasScaleFactor + row->hasFalseEasting +
                                   row->hasFalseNorthing;
            EXPECT_EQ(own->moduleParameterCount, static_cast<std::size_t>(parameters)) << code;
            EXPECT_EQ(own->hasRange, row->hasRange) << code;
        }
    }
}

TEST(DatumCodes, AreTheModules) {
    constexpr int kFirstKnown = 2;  // what the module takes for a datum of the host's list
    for (int code = 0; code <= kLargestCode; ++code) {
        const mif::DatumRow* const row = mif::FindDatumByCode(code);
        const bool isKnown =
            row != nullptr && gcs::GCSKnownDatumsList.FindByToken(shr::AtoW(row->token).c_str(),
                                                                  nullptr) >= kFirstKnown;
        EXPECT_EQ(app::IsKnownDatum(code), isKnown) << code;
    }
}

TEST(EllipsoidCodes, AreTheModules) {
    for (int code = 0; code <= kLargestCode; ++code) {
        EXPECT_EQ(app::IsKnownEllipsoid(code), mif::FindEllipsoidByCode(code) != nullptr) << code;
    }
}

}  // namespace
