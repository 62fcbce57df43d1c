#include "app/mif/CoordSysPass.h"

#include "app/mif/ByteClasses.h"
#include "app/mif/CoordSysCodes.h"
#include "app/mif/MifTokens.h"
#include "app/mif/Numbers.h"
#include "app/mif/Units.h"
#include "app/mif/Words.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>
#include <vector>

namespace app {
namespace {

// Whether the line goes on with the numbers of a clause.
bool BeginsWithNumber(const MifLine& line) {
    const MifToken first = MifTokens(line.raw).Next();
    return first.kind == TokenKind::Word &&
           (IsByte(first.text[0], kFractionByte) || first.text[0] == '-' || first.text[0] == '+');
}

bool BeginsWith(const MifLine& line, std::string_view word) {
    return MifTokens(line.raw).Next().Is(word);
}

// The tokens on one line, blanks squeezed.
std::string OnOneLine(const std::vector<MifToken>& tokens) {
    std::string text;
    for (const MifToken& token : tokens) {
        const bool isTight = token.IsMark(',') || token.IsMark(')');
        text += text.empty() || isTight || text.back() == '(' ? "" : " ";
        const char* const quote = token.IsQuoted() ? "\"" : "";
        text += quote + std::string(token.text) + quote;
    }
    return text;
}

// The clause as one row of tokens, and how far it was read.
class Clause {
public:
    Clause(LineReader& lines, FindingCounter& report, MifHeader& header)
        : lines_(lines), report_(report), header_(header) {}

    void Check();

private:
    void CheckKind();
    void TakeContinuation(std::size_t parts);
    std::size_t CountLackingParts(std::size_t parts) const;
    std::size_t CountBlankLinesBehind(std::size_t most);
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
    void CheckSwallowing(FindingCode line, FindingCode data, const char* why);
    std::optional<shr::Box2d> ReadBounds(std::size_t first) const;

    LineReader& lines_;
    FindingCounter& report_;
    MifHeader& header_;
    Place place_;
    std::vector<MifToken> tokens_;
    std::size_t next_ = 0;
    std::uint64_t behind_ = 0;  // offset behind the clause's last line
    LineEnd lineEnd_ = LineEnd::Lf;
    double unitsPerMetre_ = 1.0;
};

void Clause::TakeLine() {
    const MifLine& line = *lines_.Peek();
    CoordSysClause& clause = header_.coordSys;
    if (tokens_.empty()) {
        clause = {.text = {}, .begin = line.begin, .line = line.number};
    }
    clause.text.append(clause.text.empty() ? "" : "\n").append(line.raw);
    clause.end = line.end;
    place_.line = line.number;
    const std::vector<MifToken> tokens = TokensOf(line.raw, line.begin);
    tokens_.insert(tokens_.end(), tokens.begin(), tokens.end());
    behind_ = line.next;
    lineEnd_ = line.lineEnd;
    lines_.Skip();
}

// The numbers of a clause may go on on the next lines.
void Clause::TakeContinuation(std::size_t parts) {
    while (CountLackingParts(parts) > 0 && lines_.Peek() != nullptr &&
           BeginsWithNumber(*lines_.Peek())) {
        TakeLine();
    }
}

// How many of the parts from next_ on the module would look for behind the clause. It takes the
// words of Bounds and Affine as well, and their numbers are enough for all parts.
std::size_t Clause::CountLackingParts(std::size_t parts) const {
    std::size_t at = next_;
    for (; parts > 0 && at < tokens_.size(); --parts) {
        const bool areNumbersBehind = at + 1 < tokens_.size();
        if (areNumbersBehind && (tokens_[at].Is("bounds") || tokens_[at].Is("affine"))) {
            return 0;
        }
        ++at;
        at += at < tokens_.size() && tokens_[at].IsMark(',') ? 1 : 0;
    }
    return parts;
}

std::size_t Clause::CountBlankLinesBehind(std::size_t most) {
    std::size_t count = 0;
    while (count < most && lines_.Peek(count) != nullptr && lines_.Peek(count)->IsBlank()) {
        ++count;
    }
    return count;
}

double Clause::TakeNumber() {
    // A minus between blanks belongs to the number behind it.
    std::string text = Take();
    if (text == "-" && !AtEnd() && IsDecimalNumber(tokens_[next_].text)) {
        text += Take();
    }
    SkipComma();
    return ReadDouble(text);
}

void Clause::Check() {
    header_.unitsText.clear();
    header_.unknownProjection.reset();
    TakeLine();
    next_ = 1;
    CheckKind();
    header_.coordSysText = OnOneLine(tokens_);
    CoordSysClause& clause = header_.coordSys;
    clause.emptyLinesBehind = CountBlankLinesBehind(clause.lackingParts);
}

void Clause::CheckKind() {
    if (!At("Earth")) {
        if (!At("NonEarth")) {
            report_.Add(FindingCode::CoordSysKindIgnored, place_,
                        "the clause is neither Earth nor NonEarth; the reader takes the "
                        "coordinates as plain numbers");
        }
        CheckRest(nullptr);
        return;
    }
    ++next_;
    const MifLine* following = lines_.Peek();
    if (AtEnd() && following != nullptr && BeginsWith(*following, "Projection")) {
        TakeLine();
    }
    if (!At("Projection")) {
        report_.Add(FindingCode::CoordSysKindIgnored, place_,
                    "no Projection follows Earth; the reader takes the coordinates as plain "
                    "numbers");
        if (AtEnd()) {
            header_.coordSys.lackingParts = 1;
            CheckSwallowing(FindingCode::LineLost, FindingCode::LineLost,
                            "the clause ends at Earth");
        }
        CheckRest(nullptr);
        return;
    }
    ++next_;
    CheckProjection();
}

bool Clause::KnowProjection(std::int64_t code, const MifToken& token) {
    if (ModuleProjection(code) != nullptr) {
        return true;
    }
    header_.unknownProjection = code;
    const std::optional<std::int64_t> equal = EqualProjection(code);
    const std::string name = "projection code " + std::to_string(code);
    if (equal) {
        report_.Change(FileOfPair::Mif, {.begin = token.begin,
                                         .end = token.end,
                                         .text = std::to_string(*equal),
                                         .code = FindingCode::ProjectionUnknown,
                                         .line = place_.line,
                                         .what = name + " becomes " + std::to_string(*equal)});
    }
    report_.Add(FindingCode::ProjectionUnknown, place_,
                name + " is " + ProjectionInWords(code) +
                    "; the reader does not know it and the import stops");
    return equal.has_value();
}

void Clause::CheckProjection() {
    const MifToken token = AtEnd() ? MifToken{} : tokens_[next_];
    const std::int64_t code = ReadInteger(Take());
    const bool isKnown = KnowProjection(code, token);
    header_.coordSys.isReadByModule = ModuleProjection(code) != nullptr && At(",");
    if (!At(",")) {
        if (isKnown) {
            report_.Add(FindingCode::CoordSysMalformed, place_,
                        "no comma follows the projection code; the import stops");
        }
        return;
    }
    ++next_;
    const Projection* projection = ModuleProjection(EqualProjection(code).value_or(code));
    if (projection != nullptr) {
        const std::int64_t datum = AtEnd() ? 0 : ReadInteger(tokens_[next_].text);
        const std::size_t numbers = datum == 999 ? 4 : datum == 9999 ? 9 : 0;
        const std::size_t parts = 1 + numbers + 1 + *projection->moduleParameterCount;
        TakeContinuation(parts);
        header_.coordSys.lackingParts = CountLackingParts(parts);
    }
    CheckDatum();
    const bool isAtEnd = AtEnd();
    SkipComma();
    if (isAtEnd && projection != nullptr && *projection->moduleParameterCount == 0) {
        CheckSwallowing(FindingCode::LineSwallowed, FindingCode::DataSwallowed,
                        "the clause ends at its datum");
    }
    if (projection != nullptr) {
        if (!isAtEnd && !At("Bounds") && !At("Affine")) {
            header_.unitsText = AtEnd() ? "" : std::string(tokens_[next_].text);
            CheckUnits(projection->code);
        }
        CheckParameters(*projection);
        if (projection->code == 1) {
            header_.possible = shr::Box2d{-180.0, -90.0, 180.0, 90.0};
        } else {
            const double most = 1e8 * unitsPerMetre_;
            header_.possible = shr::Box2d{-most, -most, most, most};
        }
        CheckRest(projection);
    }
}

void Clause::CheckDatum() {
    const std::int64_t code = ReadInteger(Take());
    if (code != 999 && code != 9999) {
        if (!IsKnownDatum(code)) {
            report_.Add(FindingCode::DatumUnknown, place_,
                        "the reader does not know the datum code " + std::to_string(code) +
                            "; the objects come without a datum");
        }
        return;
    }
    SkipComma();
    const std::int64_t ellipsoid = ReadInteger(Take());
    if (!IsKnownEllipsoid(ellipsoid)) {
        report_.Add(FindingCode::EllipsoidUnknown, place_,
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
        unitsPerMetre_ = unit->PerMetre();
        return;
    }
    if (ReadDouble(token.text) > 0.0) {
        unitsPerMetre_ = ReadDouble(token.text);
        report_.Add(FindingCode::UnitIsNumber, place_,
                    "the unit is " + Quoted(token.text) + ", taken as units per metre");
        return;
    }
    if (code == 1) {
        return;  // degrees, whatever the clause names
    }
    report_.Add(FindingCode::UnitIgnored, place_,
                "the reader does not know the unit " + Quoted(token.text) +
                    " and takes the coordinates as metres");
    if (unit == nullptr) {
        return;
    }
    unitsPerMetre_ = unit->PerMetre();
    const std::string number = "\"" + NumberAsText(unit->PerMetre()) + "\"";
    report_.Change(FileOfPair::Mif, {.begin = token.begin,
                                     .end = token.end,
                                     .text = number,
                                     .code = FindingCode::UnitIgnored,
                                     .line = place_.line,
                                     .what = "the unit \"" + std::string(token.text) +
                                             "\" becomes " + number + " units per metre"});
}

void Clause::CheckParameters(const Projection& projection) {
    std::size_t taken = 0;
    while (taken < *projection.moduleParameterCount && !AtEnd() && !At("Bounds") && !At("Affine")) {
        static_cast<void>(TakeNumber());
        ++taken;
    }
    if (projection.code == kAlbers && taken == 6) {
        report_.Add(FindingCode::AlbersDisplaced, place_,
                    "the reader expects an azimuth before the false easting and takes the "
                    "false easting for it");
        if (AtEnd()) {
            CheckSwallowing(FindingCode::LineLost, FindingCode::LineLost, "a parameter is missing");
        }
    } else if (taken < *projection.moduleParameterCount) {
        report_.Add(FindingCode::ParametersMissing, place_,
                    Counted(taken, "parameter", "parameters") + " where projection " +
                        std::to_string(projection.code) + " takes " +
                        std::to_string(*projection.moduleParameterCount));
    }
}

void Clause::CheckRest(const Projection* projection) {
    if (projection != nullptr && projection->hasRange && !AtEnd() && !At("Bounds") &&
        !At("Affine")) {
        const std::string range(tokens_[next_].text);
        static_cast<void>(TakeNumber());
        report_.Add(FindingCode::RangeIgnored, place_, "the reader ignores the range " + range);
    }
    if (projection != nullptr && projection->code == kNewZealandMapGrid && !AtEnd() &&
        !At("Bounds")) {
        report_.Add(FindingCode::NzmgDisplaced, place_,
                    "the reader takes the origin for the false easting and northing");
        return;
    }
    for (bool isReported = projection == nullptr; !AtEnd(); ++next_) {
        if (projection == nullptr && At("Units") && next_ + 1 < tokens_.size()) {
            header_.unitsText = tokens_[next_ + 1].text;
        }
        if (At("Affine")) {
            report_.Add(FindingCode::AffineIgnored, place_, "the reader ignores the Affine part");
            return;
        }
        if (At("Bounds")) {
            report_.Add(FindingCode::CoordSysBoundsIgnored, place_,
                        "the reader ignores the Bounds on this line");
            CheckBlanksInBounds(next_ + 1);
            header_.bounds = ReadBounds(next_ + 1);
            return;
        }
        if (!isReported) {
            isReported = true;
            report_.Add(FindingCode::CoordSysRestIgnored, place_,
                        "the reader ignores the rest of the line, from " +
                            Quoted(tokens_[next_].text) + " on");
        }
    }
}

void Clause::CheckBlanksInBounds(std::size_t first) {
    for (std::size_t i = first; i + 1 < tokens_.size(); ++i) {
        if (tokens_[i].text == "-" && IsDecimalNumber(tokens_[i + 1].text)) {
            report_.Add(FindingCode::BlankInIgnoredBounds, place_,
                        "a blank is between a minus sign and " + std::string(tokens_[i + 1].text));
            report_.Change(FileOfPair::Mif, {.begin = tokens_[i].end,
                                             .end = tokens_[i + 1].begin,
                                             .text = {},
                                             .code = FindingCode::BlankInIgnoredBounds,
                                             .line = place_.line,
                                             .what = "the blank after the minus sign goes"});
        }
    }
}

std::optional<shr::Box2d> Clause::ReadBounds(std::size_t first) const {
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
    return numbers.size() == 4
               ? std::optional(shr::Box2d{numbers[0], numbers[1], numbers[2], numbers[3]})
               : std::nullopt;
}

// The reader looks for more of the clause in the next line. An empty line there is all that it
// takes.
void Clause::CheckSwallowing(FindingCode line, FindingCode data, const char* why) {
    const MifLine* following = lines_.Peek();
    if (following == nullptr || following->IsBlank()) {
        return;
    }
    const std::string word(MifTokens(following->raw).Next().text);
    const bool isData = EqualsIgnoringCase(word, "Data");
    const FindingCode code = isData ? data : line;
    report_.Add(code, place_,
                std::string(why) + ", and the reader takes the next line (" + word +
                    ") as its continuation");
    report_.Change(FileOfPair::Mif, {.begin = behind_,
                                     .end = behind_,
                                     .text = LineEndText(lineEnd_),
                                     .code = code,
                                     .line = place_.line,
                                     .what = "an empty line is put behind the CoordSys clause"});
}

}  // namespace

void PassCoordSys(LineReader& lines, FindingCounter& report, MifHeader& header) {
    Clause(lines, report, header).Check();
}

}  // namespace app
