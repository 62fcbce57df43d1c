#include "app/crs/ReadClause.h"

#include "app/crs/Datums.h"
#include "app/mif/MifTokens.h"
#include "app/mif/Numbers.h"
#include "app/mif/Units.h"
#include "app/mif/Words.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace app {

namespace {

using enum ProjectionParameter;

bool IsNumber(const MifToken& word) {
    return !word.IsQuoted() && IsDecimalNumber(word.text);
}

// Walks over the words of a clause and gathers what there is to say.
class Reader {
public:
    explicit Reader(std::vector<MifToken> words) : words_(std::move(words)) {}

    CoordinateSystem Read();

    // What the clause needs; complete behind Read.
    std::optional<int> Version() const { return version_; }

    // What there was to warn of, and the problem; complete behind Read.
    std::vector<ClauseFault> TakeFaults() { return std::move(faults_); }

private:
    bool AtEnd() const { return next_ >= words_.size(); }
    bool At(std::string_view word) const {
        return !AtEnd() && !words_[next_].IsQuoted() &&
               EqualsIgnoringCase(words_[next_].text, word);
    }
    bool AtNumber() const;
    bool AtTail() const { return AtEnd() || At("Affine") || At("Bounds"); }
    void SkipComma() { next_ += At(",") ? 1U : 0U; }
    MifToken Take() { return AtEnd() ? MifToken{} : words_[next_++]; }
    std::int64_t TakeInteger();
    double TakeNumber();
    std::size_t NumbersAhead() const;

    CoordinateSystem ReadPlane();
    CoordinateSystem ReadEarth();
    CoordinateSystem ReadSystem();
    CoordinateSystem Problem(FindingCode code, std::string text);
    void ReadProjection(std::int64_t code);
    void ReadDatum();
    void ReadCustomDatum(bool hasRotations);
    void ReadUnit(std::size_t numbersExpected);
    std::optional<double> UnitOf(const MifToken& word, FindingCode code);
    void ReadParameters();
    void ReadAlbers();
    void ReadMapGrid();
    void ReadRange();
    void ReadAffine();
    void ReadTail(bool hasBoundsNumbers);
    void Need(std::optional<int> version);
    void Note(std::string text) { notes_.push_back(std::move(text)); }
    void Warn(FindingCode code, std::string text) { faults_.push_back({code, std::move(text)}); }

    std::vector<MifToken> words_;
    std::size_t next_ = 0;
    Clause clause_;
    std::vector<std::string> notes_;
    std::vector<ClauseFault> faults_;
    std::optional<int> version_ = 300;
};

// A minus between blanks belongs to the number behind it.
bool Reader::AtNumber() const {
    if (AtEnd()) {
        return false;
    }
    return IsNumber(words_[next_]) ||
           (words_[next_].text == "-" && next_ + 1 < words_.size() && IsNumber(words_[next_ + 1]));
}

double Reader::TakeNumber() {
    const MifToken word = Take();
    double number = ReadDouble(word.text);
    if (word.text == "-") {
        number = -ReadDouble(Take().text);
    }
    SkipComma();
    return number;
}

std::int64_t Reader::TakeInteger() {
    const std::int64_t number = ReadInteger(Take().text);
    SkipComma();
    return number;
}

std::size_t Reader::NumbersAhead() const {
    std::size_t count = 0;
    for (std::size_t i = next_; i < words_.size(); ++i) {
        if (IsNumber(words_[i])) {
            ++count;
        } else if (words_[i].text != "," && words_[i].text != "-") {
            break;
        }
    }
    return count;
}

CoordinateSystem Reader::Read() {
    CoordinateSystem system = ReadSystem();
    system.notes.insert(system.notes.begin(), notes_.begin(), notes_.end());
    std::vector<std::string> warnings;
    for (const ClauseFault& fault : faults_) {
        if (!fault.isProblem) {
            warnings.push_back(fault.text);
        }
    }
    system.warnings.insert(system.warnings.begin(), warnings.begin(), warnings.end());
    return system;
}

void Reader::Need(std::optional<int> version) {
    version_ = version_ && version ? std::optional(std::max(*version_, *version)) : std::nullopt;
}

CoordinateSystem Reader::ReadSystem() {
    if (!At("Earth")) {
        return ReadPlane();
    }
    ++next_;
    return ReadEarth();
}

CoordinateSystem Reader::Problem(FindingCode code, std::string text) {
    faults_.push_back({code, text, /*isProblem=*/true});
    return UnknownSystem(std::move(text));
}

CoordinateSystem Reader::ReadPlane() {
    if (!AtEnd() && !At("NonEarth") && !At("Layout")) {
        Warn(FindingCode::CoordSysKindIgnored,
             "the CoordSys clause names no kind of system that is known; the coordinates are taken "
             "as plain numbers");
    }
    double metres = 1.0;
    for (; !AtEnd(); ++next_) {
        if (At("Units") && next_ + 1 < words_.size()) {
            const Unit* const unit = FindUnit(words_[next_ + 1].text);
            metres = unit != nullptr ? unit->metres : 1.0;
        }
    }
    return PlaneSystem(metres);
}

CoordinateSystem Reader::ReadEarth() {
    if (!At("Projection")) {
        clause_.projection = KnownProjection(1);
        Note("no projection is given; longitude and latitude of WGS 84 are taken");
        clause_.datum = Wgs84Datum();
        ReadTail(/*hasBoundsNumbers=*/false);
        return SystemOfClause(std::move(clause_));
    }
    ++next_;
    const std::int64_t code = TakeInteger();
    const ProjectionCode split = SplitProjectionCode(code);
    Need(split.projection != nullptr ? std::optional(split.projection->fromVersion) : std::nullopt);
    if (split.projection == nullptr) {
        return Problem(FindingCode::ProjectionUnknown, "projection code " + std::to_string(code) +
                                                           " is " + ProjectionInWords(code) +
                                                           ", and its coordinates can't be placed");
    }
    if (AtEnd()) {
        return Problem(FindingCode::CoordSysMalformed,
                       "the CoordSys clause ends at its projection code");
    }
    clause_.projection = split.projection;
    ReadProjection(code);
    ReadDatum();
    ReadUnit(split.projection->parameters.size() + (split.projection->hasRange ? 1U : 0U));
    ReadParameters();
    if (split.hasAffine && !At("Affine")) {
        ReadAffine();
    }
    if (split.hasBounds) {
        Note("the bounds of projection " + std::to_string(code) + " are skipped");
    }
    ReadTail(split.hasBounds);
    CoordinateSystem system = SystemOfClause(std::move(clause_));
    if (!system.problem.empty()) {
        faults_.push_back({system.kind == SystemKind::Faulty ? FindingCode::AffineIgnored
                                                             : FindingCode::ParameterOutOfRange,
                           system.problem, /*isProblem=*/true});
    }
    return system;
}

void Reader::ReadProjection(std::int64_t code) {
    constexpr std::int64_t kFinnish = 24;
    constexpr std::int64_t kExtended = 34;
    const std::int64_t base = clause_.projection->code;
    if (base == kFinnish || base == kExtended) {
        Note("projection " + std::to_string(code) + ", " + clause_.projection->words +
             ", is read as projection 8, Transverse Mercator");
        clause_.projection = KnownProjection(8);
    }
}

void Reader::ReadDatum() {
    constexpr std::int64_t kCustomShifts = 999;
    constexpr std::int64_t kCustomWithRotations = 9999;
    const std::int64_t code = TakeInteger();
    if (code == kCustomShifts || code == kCustomWithRotations) {
        Need(kCustomDatumVersion);
        ReadCustomDatum(code == kCustomWithRotations);
        return;
    }
    Need(VersionOfDatum(code));
    clause_.datum = DatumOfCode(code);
    if (clause_.datum.IsUnknown()) {
        Warn(FindingCode::DatumUnknown,
             "the datum code " + std::to_string(code) + " is not known; WGS 84 is taken");
    }
}

void Reader::ReadCustomDatum(bool hasRotations) {
    gcs::DatumParameters datum;
    const std::int64_t code = TakeInteger();
    const auto ellipsoid = EllipsoidOfCode(code);
    if (code == 0) {
        Note("ellipsoid 0 of the datum is read as GRS 80");
    }
    if (!ellipsoid) {
        Warn(FindingCode::EllipsoidUnknown,
             "the ellipsoid code " + std::to_string(code) + " is not known; WGS 84 is taken");
    }
    datum.ellipsoid = ellipsoid.value_or(Wgs84Datum().GetEllipsoid());
    datum.dx = TakeNumber();
    datum.dy = TakeNumber();
    datum.dz = TakeNumber();
    datum.kind = gcs::DatumMethod::ThreeParameters;
    if (hasRotations) {
        datum.rx = TakeNumber();
        datum.ry = TakeNumber();
        datum.rz = TakeNumber();
        datum.scale = TakeNumber();
        datum.primeMeridian = TakeNumber();
        const bool isTurned =
            datum.rx != 0.0 || datum.ry != 0.0 || datum.rz != 0.0 || datum.scale != 0.0;
        datum.kind =
            isTurned ? gcs::DatumMethod::SevenParameters : gcs::DatumMethod::ThreeParameters;
    }
    clause_.datum.SetParameters(&datum);
}

// Without a unit the parameters follow the datum at once. The unit of degrees is always a degree.
void Reader::ReadUnit(std::size_t numbersExpected) {
    const bool isNumber = !AtEnd() && !words_[next_].IsQuoted() && AtNumber();
    const bool isMissing = isNumber && !clause_.IsGeographic() && NumbersAhead() <= numbersExpected;
    if (AtTail() || isMissing) {
        if (!clause_.IsGeographic()) {
            Warn(FindingCode::UnitMissing, "the clause has no unit; metres are taken");
        }
        return;
    }
    const MifToken word = Take();
    SkipComma();
    if (!clause_.IsGeographic()) {
        clause_.metresPerUnit = UnitOf(word, FindingCode::UnitIgnored).value_or(1.0);
    }
}

std::optional<double> Reader::UnitOf(const MifToken& word, FindingCode code) {
    constexpr double kLastUnitNumber = 99.0;
    if (const Unit* const unit = FindUnit(word.text)) {
        return unit->metres;
    }
    const double number = ReadDouble(word.text);
    const bool isCode = !word.IsQuoted() && IsWholeNumber(word.text) && number != 1.0 &&
                        number >= 0.0 && number <= kLastUnitNumber;
    if (const Unit* const unit = isCode ? FindUnitByNumber(static_cast<int>(number)) : nullptr) {
        Note("the unit " + std::string(word.text) +
             " is read as a number of the format's list: " + std::string(unit->name));
        return unit->metres;
    }
    if (number > 0.0 && std::isfinite(number)) {
        return 1.0 / number;  // units per metre
    }
    Warn(code, "the unit " + Quoted(word.text) + " is not known; metres are taken");
    return std::nullopt;
}

void Reader::ReadParameters() {
    const Projection& projection = *clause_.projection;
    if (projection.code == kNewZealandMapGrid) {
        ReadMapGrid();
        return;
    }
    const std::size_t found = NumbersAhead();
    if (projection.code == kAlbers && found == projection.parameters.size() + 1) {
        ReadAlbers();
    } else {
        for (const ProjectionParameter parameter : projection.parameters) {
            clause_[parameter] = AtNumber() ? TakeNumber() : 0.0;
        }
    }
    if (found < projection.parameters.size()) {
        Warn(FindingCode::ParametersMissing,
             "the clause has " + std::to_string(found) + " of the " +
                 std::to_string(projection.parameters.size()) + " numbers of projection " +
                 std::to_string(projection.code) + "; the others count as 0");
    }
    if (projection.hasRange && AtNumber()) {
        ReadRange();
    }
}

// The module writes a seventh number: the last, which is 0 when the rest came from a file; or an
// azimuth of 0 in the fifth place, when it came from a host.
void Reader::ReadAlbers() {
    std::array<double, 7> numbers{};
    for (double& number : numbers) {
        number = TakeNumber();
    }
    const bool hasAzimuth = numbers[4] == 0.0 && numbers[6] != 0.0;
    clause_[OriginLongitude] = numbers[0];
    clause_[OriginLatitude] = numbers[1];
    clause_[StandardParallel1] = numbers[2];
    clause_[StandardParallel2] = numbers[3];
    clause_[FalseEasting] = numbers[hasAzimuth ? 5 : 4];
    clause_[FalseNorthing] = numbers[hasAzimuth ? 6 : 5];
    if (hasAzimuth) {
        Note("the fifth of seven numbers of the Albers projection is read as an azimuth");
    } else if (numbers[6] != 0.0) {
        Warn(FindingCode::CoordSysRestIgnored,
             "the seventh number of the Albers projection is ignored");
    }
}

// The grid has constants; clauses give them, or the first two.
void Reader::ReadMapGrid() {
    constexpr std::array kConstants{173.0, -41.0, 2510000.0, 6023150.0};
    bool isOther = false;
    for (std::size_t i = 0; i < kConstants.size(); ++i) {
        isOther = (AtNumber() && TakeNumber() != kConstants[i]) || isOther;
        clause_[clause_.projection->parameters[i]] = kConstants[i];
    }
    if (isOther) {
        Warn(FindingCode::NzmgDisplaced,
             "the New Zealand Map Grid has its own constants; other numbers are ignored");
    }
}

void Reader::ReadRange() {
    const double range = TakeNumber();
    Note("the range of " + NumberAsText(range) +
         " degrees around the centre is ignored; it moves no coordinate");
}

// A unit and six numbers. The unit may be missing; in lists of systems it is a number.
void Reader::ReadAffine() {
    constexpr std::size_t kCoefficients = 6;
    constexpr std::size_t kBounds = 4;
    const std::size_t ahead = NumbersAhead();
    const bool hasUnitNumber = ahead == kCoefficients + 1 || ahead == kCoefficients + 1 + kBounds;
    AffineTransformation affine;
    affine.metresPerUnit = clause_.metresPerUnit;
    if (!AtEnd() && (!AtNumber() || hasUnitNumber)) {
        const MifToken unit = Take();
        SkipComma();
        if (!clause_.IsGeographic()) {
            affine.metresPerUnit =
                UnitOf(unit, FindingCode::AffineIgnored).value_or(clause_.metresPerUnit);
        }
    }
    if (NumbersAhead() < kCoefficients) {
        Warn(FindingCode::AffineIgnored,
             "the affine transformation lacks numbers; they count as 0");
    }
    for (double* const number :
         {&affine.a, &affine.b, &affine.c, &affine.d, &affine.e, &affine.f}) {
        *number = AtNumber() ? TakeNumber() : 0.0;
    }
    clause_.affine = affine;
    Need(kAffineVersion);
    Note("the coordinates are those behind the clause's affine transformation");
}

void Reader::ReadTail(bool hasBoundsNumbers) {
    constexpr std::size_t kBounds = 4;
    std::size_t ignored = 0;
    while (!AtEnd() && !At("Bounds")) {
        if (At("Affine")) {
            ++next_;
            next_ += At("Units") ? 1U : 0U;
            ReadAffine();
        } else {
            ignored += AtNumber() ? 1U : 0U;
            ++next_;
        }
    }
    if (ignored > 0 && !(hasBoundsNumbers && ignored == kBounds)) {
        Warn(FindingCode::CoordSysRestIgnored,
             std::to_string(ignored) + (ignored == 1 ? " further number" : " further numbers") +
                 " of the clause " + (ignored == 1 ? "is" : "are") + " ignored");
    }
}

std::vector<MifToken> WordsOf(std::string_view clause) {
    std::vector<MifToken> words = TokensOf(clause);
    std::erase_if(words, [](const MifToken& word) { return word.IsLineEnd(); });
    if (!words.empty() && words.front().Is("CoordSys")) {
        words.erase(words.begin());
    }
    return words;
}

}  // namespace

CoordinateSystem ReadClause(std::string_view text) {
    return Reader(WordsOf(text)).Read();
}

std::optional<int> VersionOfClause(std::string_view text) {
    Reader reader(WordsOf(text));
    static_cast<void>(reader.Read());
    return reader.Version();
}

std::vector<ClauseFault> FaultsOfClause(std::string_view text) {
    Reader reader(WordsOf(text));
    static_cast<void>(reader.Read());
    return reader.TakeFaults();
}

}  // namespace app
