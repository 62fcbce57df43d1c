#include "app/check/CoordSysCheck.h"

#include "app/mif/CoordSysCodes.h"
#include "app/mif/Numbers.h"
#include "app/mif/Units.h"
#include "app/mif/Words.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>
#include <vector>

namespace app::check {
namespace {

// The clause as one row of tokens, and how far it was read.
class Clause {
public:
    Clause(LineReader& lines, Report& report, CheckedHeader& header)
        : lines_(lines), report_(report), header_(header) {}

    void Check();

private:
    void TakeLine();
    bool AtEnd() const { return next_ >= tokens_.size(); }
    bool At(std::string_view word) const { return !AtEnd() && tokens_[next_].Is(word); }
    void SkipComma() { next_ += At(",") ? 1U : 0U; }
    std::string Take() { return AtEnd() ? std::string() : std::string(tokens_[next_++].text); }
    double TakeNumber();

    void CheckProjection();
    bool KnowProjection(std::int64_t code, const MifToken& token);
    void CheckDatum();
    void CheckUnits(std::int64_t code);
    void CheckParameters(const Projection& projection);
    void CheckRest(const Projection* projection);
    void CheckBlanksInBounds(std::size_t first);
    void CheckSwallowing(Code line, Code data, const char* why);
    std::optional<Box> ReadBounds(std::size_t first) const;

    LineReader& lines_;
    Report& report_;
    CheckedHeader& header_;
    Place place_;
    std::vector<MifToken> tokens_;
    std::size_t next_ = 0;
    std::uint64_t behind_ = 0;  // offset behind the clause's last line
    LineEnd lineEnd_ = LineEnd::Lf;
    double unitsPerMetre_ = 1.0;
};

void Clause::TakeLine() {
    const MifLine& line = *lines_.Peek();
    place_.line = line.number;
    tokens_.insert(tokens_.end(), line.tokens.begin(), line.tokens.end());
    behind_ = line.next;
    lineEnd_ = line.lineEnd;
    lines_.Skip();
}

double Clause::TakeNumber() {
    // A minus that stands alone belongs to the number behind it.
    std::string text = Take();
    if (text == "-" && !AtEnd() && IsDecimalNumber(tokens_[next_].text)) {
        text += Take();
    }
    SkipComma();
    return ReadDouble(text);
}

void Clause::Check() {
    header_.isCoordSysGiven = true;
    TakeLine();
    next_ = 1;
    if (!At("Earth")) {
        if (!At("NonEarth")) {
            report_.Add(Code::CoordSysKindIgnored, place_,
                        "the clause is neither Earth nor NonEarth; the reader takes the "
                        "coordinates as plain numbers");
        }
        CheckRest(nullptr);
        return;
    }
    ++next_;
    const MifLine* following = lines_.Peek();
    if (AtEnd() && following != nullptr && !following->IsBlank() &&
        following->tokens.front().Is("Projection")) {
        TakeLine();
    }
    if (!At("Projection")) {
        report_.Add(Code::CoordSysKindIgnored, place_,
                    "no Projection follows Earth; the reader takes the coordinates as plain "
                    "numbers");
        if (AtEnd()) {
            CheckSwallowing(Code::LineLost, Code::LineLost, "the clause ends at Earth");
        }
        CheckRest(nullptr);
        return;
    }
    ++next_;
    CheckProjection();
}

bool Clause::KnowProjection(std::int64_t code, const MifToken& token) {
    if (FindProjection(code) != nullptr) {
        return true;
    }
    const std::optional<std::int64_t> equal = EqualProjection(code);
    const std::string name = "projection code " + std::to_string(code);
    if (equal) {
        report_.Change(PairFile::Mif, {.begin = token.begin,
                                       .end = token.end,
                                       .text = std::to_string(*equal),
                                       .code = Code::ProjectionUnknown,
                                       .line = place_.line,
                                       .what = name + " becomes " + std::to_string(*equal)});
    }
    report_.Add(Code::ProjectionUnknown, place_,
                name + " is " + ProjectionInWords(code) +
                    "; the reader does not know it and the import stops",
                AdviceForProjection(code));
    return equal.has_value();
}

void Clause::CheckProjection() {
    const MifToken token = AtEnd() ? MifToken{} : tokens_[next_];
    const std::int64_t code = ReadInteger(Take());
    const bool isKnown = KnowProjection(code, token);
    if (!At(",")) {
        if (isKnown) {
            report_.Add(Code::CoordSysMalformed, place_,
                        "no comma follows the projection code; the import stops");
        }
        return;
    }
    ++next_;
    CheckDatum();
    const bool isAtEnd = AtEnd();
    SkipComma();
    const Projection* projection = FindProjection(EqualProjection(code).value_or(code));
    if (isAtEnd && projection != nullptr && projection->parameterCount == 0) {
        CheckSwallowing(Code::LineSwallowed, Code::DataSwallowed, "the clause ends at its datum");
    }
    if (projection != nullptr) {
        if (!isAtEnd && !At("Bounds") && !At("Affine")) {
            CheckUnits(projection->code);
        }
        CheckParameters(*projection);
        if (projection->code == 1) {
            header_.earth = Box{-180.0, -90.0, 180.0, 90.0};
        } else {
            const double most = 1e8 * unitsPerMetre_;
            header_.earth = Box{-most, -most, most, most};
        }
        CheckRest(projection);
    }
}

void Clause::CheckDatum() {
    const std::int64_t code = ReadInteger(Take());
    if (code != 999 && code != 9999) {
        if (!IsKnownDatum(code)) {
            report_.Add(Code::DatumUnknown, place_,
                        "the reader does not know the datum code " + std::to_string(code) +
                            "; the objects come without a datum");
        }
        return;
    }
    SkipComma();
    const std::int64_t ellipsoid = ReadInteger(Take());
    if (!IsKnownEllipsoid(ellipsoid)) {
        report_.Add(Code::EllipsoidUnknown, place_,
                    "the reader does not know the ellipsoid code " + std::to_string(ellipsoid) +
                        " and takes Clarke 1866");
    }
    const std::size_t numbers = code == 999 ? 3 : 8;
    for (std::size_t i = 0; i < numbers; ++i) {
        SkipComma();
        std::string text = Take();
        if (text == "-") {
            static_cast<void>(Take());
        }
    }
}

void Clause::CheckUnits(std::int64_t code) {
    if (AtEnd()) {
        return;
    }
    const MifToken token = tokens_[next_++];
    SkipComma();
    const Unit* const unit = FindUnit(token.text);
    if (unit != nullptr && unit->isKnownToModule) {
        unitsPerMetre_ = unit->perMetre;
        return;
    }
    if (ReadDouble(token.text) > 0.0) {
        unitsPerMetre_ = ReadDouble(token.text);
        report_.Add(Code::UnitIsNumber, place_,
                    "the unit is " + Quoted(token.text) + ", taken as units per metre");
        return;
    }
    if (code == 1) {
        return;  // degrees, whatever stands there
    }
    report_.Add(Code::UnitIgnored, place_,
                "the reader does not know the unit " + Quoted(token.text) +
                    " and takes the coordinates as metres");
    if (unit == nullptr) {
        return;
    }
    unitsPerMetre_ = unit->perMetre;
    const std::string number = "\"" + NumberAsText(unit->perMetre) + "\"";
    report_.Change(PairFile::Mif, {.begin = token.begin,
                                   .end = token.end,
                                   .text = number,
                                   .code = Code::UnitIgnored,
                                   .line = place_.line,
                                   .what = "the unit \"" + std::string(token.text) + "\" becomes " +
                                           number + " units per metre"});
}

void Clause::CheckParameters(const Projection& projection) {
    std::size_t taken = 0;
    while (taken < projection.parameterCount && !AtEnd() && !At("Bounds") && !At("Affine")) {
        static_cast<void>(TakeNumber());
        ++taken;
    }
    if (projection.code == 9 && taken == 6) {
        report_.Add(Code::AlbersDisplaced, place_,
                    "the reader expects an azimuth before the false easting and takes the "
                    "false easting for it");
        if (AtEnd()) {
            CheckSwallowing(Code::LineLost, Code::LineLost, "a parameter is missing");
        }
    } else if (taken < projection.parameterCount) {
        report_.Add(Code::ParametersMissing, place_,
                    Counted(taken, "parameter", "parameters") + " where projection " +
                        std::to_string(projection.code) + " takes " +
                        std::to_string(projection.parameterCount));
    }
}

void Clause::CheckRest(const Projection* projection) {
    if (projection != nullptr && projection->hasRange && !AtEnd() && !At("Bounds") &&
        !At("Affine")) {
        const std::string range(tokens_[next_].text);
        static_cast<void>(TakeNumber());
        report_.Add(Code::RangeIgnored, place_, "the reader ignores the range " + range);
    }
    if (projection != nullptr && projection->code == 18 && !AtEnd() && !At("Bounds")) {
        report_.Add(Code::NzmgDisplaced, place_,
                    "the reader takes the origin for the false easting and northing");
        return;
    }
    for (bool isReported = projection == nullptr; !AtEnd(); ++next_) {
        if (At("Affine")) {
            report_.Add(Code::AffineIgnored, place_, "the reader ignores the Affine part");
            return;
        }
        if (At("Bounds")) {
            report_.Add(Code::CoordSysBoundsIgnored, place_,
                        "the reader ignores the Bounds on this line");
            CheckBlanksInBounds(next_ + 1);
            header_.bounds = ReadBounds(next_ + 1);
            return;
        }
        if (!isReported) {
            isReported = true;
            report_.Add(Code::CoordSysRestIgnored, place_,
                        "the reader ignores the rest of the line, from " +
                            Quoted(tokens_[next_].text) + " on");
        }
    }
}

void Clause::CheckBlanksInBounds(std::size_t first) {
    for (std::size_t i = first; i + 1 < tokens_.size(); ++i) {
        if (tokens_[i].text == "-" && IsDecimalNumber(tokens_[i + 1].text)) {
            report_.Add(Code::BlankInIgnoredBounds, place_,
                        "a blank stands between a minus sign and " +
                            std::string(tokens_[i + 1].text));
            report_.Change(PairFile::Mif, {.begin = tokens_[i].end,
                                           .end = tokens_[i + 1].begin,
                                           .text = {},
                                           .code = Code::BlankInIgnoredBounds,
                                           .line = place_.line,
                                           .what = "the blank after the minus sign goes"});
        }
    }
}

std::optional<Box> Clause::ReadBounds(std::size_t first) const {
    std::vector<double> numbers;
    std::string sign;
    for (std::size_t i = first; i < tokens_.size(); ++i) {
        if (tokens_[i].text == "-") {
            sign = "-";
        } else if (IsDecimalNumber(tokens_[i].text)) {
            numbers.push_back(ReadDouble(sign + std::string(tokens_[i].text)));
            sign.clear();
        }
    }
    if (numbers.size() != 4) {
        return std::nullopt;
    }
    return Box{std::min(numbers[0], numbers[2]), std::min(numbers[1], numbers[3]),
               std::max(numbers[0], numbers[2]), std::max(numbers[1], numbers[3])};
}

// The reader looks for more of the clause in the next line. An empty line there is all that it
// takes.
void Clause::CheckSwallowing(Code line, Code data, const char* why) {
    const MifLine* following = lines_.Peek();
    if (following == nullptr || following->IsBlank()) {
        return;
    }
    const std::string word(following->tokens.front().text);
    const bool isData = EqualsIgnoringCase(word, "Data");
    const Code code = isData ? data : line;
    report_.Add(code, place_,
                std::string(why) + ", and the reader takes the next line (" + word +
                    ") as its continuation");
    report_.Change(PairFile::Mif, {.begin = behind_,
                                   .end = behind_,
                                   .text = LineEndText(lineEnd_),
                                   .code = code,
                                   .line = place_.line,
                                   .what = "an empty line is put behind the CoordSys clause"});
}

}  // namespace

void CheckCoordSys(LineReader& lines, Report& report, CheckedHeader& header) {
    Clause(lines, report, header).Check();
}

}  // namespace app::check
