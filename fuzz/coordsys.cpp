// A COORDSYS clause there and back: what is written for a clause that was read reads as the same
// system, and is written the same again but for the last digits, which units may cost.
#include "export/CoordSysWriter.h"
#include "fuzz/FuzzInput.h"
#include "host/gcs/CSDef.h"
#include "reader/CMifInputFile.h"
#include "reader/CoordSysParser.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

mif::CoordSysClause Read(const std::string& text) {
    mif::CMifInputFile input;
    input.OpenMemory(std::vector<unsigned char>(text.begin(), text.end()));
    input.Rewind();
    mif::CoordSysClause clause;
    mif::ReadCoordSysClause(input, clause);
    return clause;
}

std::string Write(const mif::CoordSysClause& clause) {
    gcs::GCSDef definition;
    definition.SetProjection(clause.projection);
    definition.SetDatum(clause.datum);
    std::string text;
    unsigned minVersion = 300;
    mif::WriteCoordSys(&definition, text, minVersion, /*inlineForm=*/true);
    static_cast<void>(text.size());
    mif::WriteCoordSys(&definition, text, minVersion, /*inlineForm=*/false);
    fuzz::Require(minVersion >= 300 && minVersion <= 1100, "the version is one that there is");
    return text;
}

// The quotes part words, too: a unit may be a number in them.
std::vector<std::string> WordsOf(const std::string& text) {
    std::vector<std::string> words(1);
    for (const char c : text) {
        if (c == ' ' || c == ',' || c == '\n' || c == '"') {
            words.emplace_back();
        } else {
            words.back() += c;
        }
    }
    return words;
}

bool IsSameWord(const std::string& left, const std::string& right) {
    constexpr double kLastDigits = 1e-13;
    char* leftEnd = nullptr;
    char* rightEnd = nullptr;
    const double leftNumber = std::strtod(left.c_str(), &leftEnd);
    const double rightNumber = std::strtod(right.c_str(), &rightEnd);
    return left == right ||
           (*leftEnd == '\0' && *rightEnd == '\0' &&
            std::fabs(leftNumber - rightNumber) <= kLastDigits * std::fabs(leftNumber));
}

bool IsSameClause(const std::string& left, const std::string& right) {
    const std::vector<std::string> leftWords = WordsOf(left);
    const std::vector<std::string> rightWords = WordsOf(right);
    return std::equal(leftWords.begin(), leftWords.end(), rightWords.begin(), rightWords.end(),
                      IsSameWord);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const mif::CoordSysClause clause =
        Read("CoordSys " + std::string(fuzz::TextOf(data, size)) + "\n\n");
    if (!clause.isValid || !clause.hasEarthProjection) {
        return 0;
    }
    const std::string written = Write(clause);
    if (clause.projection.CheckParameters() != gcs::ProjectionParameterID::None ||
        written.empty()) {
        return 0;
    }
    const mif::CoordSysClause again = Read(written + "\n");
    fuzz::Require(again.isValid && again.hasEarthProjection, "a written clause can be read");
    fuzz::Require(again.projection.GetMethod() == clause.projection.GetMethod(),
                  "the method stays");
    fuzz::Require(IsSameClause(Write(again), written), "a clause is written the same again");
    return 0;
}
