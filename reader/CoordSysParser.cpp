#include "reader/CoordSysParser.h"

#include "host/gcs/KnownLists.h"
#include "host/shr/Text.h"
#include "reader/CMifInputFile.h"
#include "reader/ReferenceTables.h"

#include <algorithm>
#include <array>

namespace mif {

namespace {

using Id = gcs::ProjectionParameterID;
using Method = gcs::ProjectionMethod;

// Datum codes that stand for a datum of the clause's own.
constexpr int kThreeShifts = 999;
constexpr int kSevenNumbers = 9999;

// Taken when the code of the ellipsoid is not in the table: Clarke 1866.
constexpr double kPresetMajorRadius = 6378206.4;
constexpr double kPresetFlattening = 0.0033900753040885176;

// Kept: feet of every kind are survey feet, the international ones included. Drawings lie where
// this factor has put them, and files of this system name no other foot.
constexpr double kFeetPerMetre = 3.28083333333333;

class ClauseReader {
public:
    ClauseReader(CMifInputFile& input, CoordSysClause& clause) : input_(input), clause_(clause) {}

    void Read();

private:
    bool ReadEarth();
    const ProjectionRow* ReadProjection(int code);
    void ReadDatum();
    void TakeKnownDatum(int code);
    void ReadOwnDatum(int code);
    void ReadEllipsoid(gcs::EllipsoidDef& ellipsoid);
    double ReadNextNumber();
    void ReadUnits();
    void ReadParameters(const ProjectionRow& row);
    void ReadParameter(bool isCarried, std::initializer_list<Id> ids);
    void SkipOptionalComma();
    void Object(const wchar_t* format);
    void Object(const wchar_t* format, int code);

    CMifInputFile& input_;
    CoordSysClause& clause_;
};

void ClauseReader::Read() {
    if (!input_.IsOpen()) {
        Object(L"Input file not open.");
        return;
    }
    clause_.isValid = ReadEarth();
    if (clause_.isValid) {
        input_.NextLine();
    } else {
        clause_.projection = gcs::ProjectionDef();
        clause_.datum = gcs::DatumDef();
    }
}

// Reads up to the last parameter. A clause that is not of the Earth, or of no projection, is as
// good as any: it says nothing that could be used.
bool ClauseReader::ReadEarth() {
    input_.NextToken();
    if (!input_.TokenIs("Earth")) {
        return true;
    }
    input_.NextToken();
    if (input_.TokenIsLineEnd()) {
        input_.NextToken();
    }
    if (!input_.TokenIs("Projection")) {
        return true;
    }
    input_.NextToken();
    const int code = input_.TokenAsInt();
    input_.NextToken();
    const ProjectionRow* const row = FindProjectionByCode(code);
    if (row == nullptr) {
        Object(L"Invalid MIF projection code '%d'.", code);
        return false;
    }
    clause_.projection.SetMethod(row->method);
    clause_.projection.SetParameter(Id::UnitsPerMetre, 1.0);
    clause_.hasEarthProjection = true;
    if (row->method == Method::HotineObliqueMercator) {
        clause_.projection.SetParameter(Id::DefinedByAzimuth, true);
        clause_.projection.SetParameter(Id::RectifiedOrigin, true);
    }
    if (!input_.TokenIs(",")) {
        Object(L"Missing comma.");
        return false;
    }
    ReadDatum();
    ReadUnits();
    ReadParameters(*row);
    return true;
}

void ClauseReader::ReadDatum() {
    input_.NextToken();
    const int code = input_.TokenAsInt();
    input_.NextToken();
    if (code == kThreeShifts || code == kSevenNumbers) {
        ReadOwnDatum(code);
    } else {
        TakeKnownDatum(code);
    }
    if (!clause_.datum.IsUnknown()) {
        gcs::EllipsoidDef ellipsoid;
        clause_.datum.GetParameter(gcs::DatumParameterID::Ellipsoid, ellipsoid);
        clause_.projection.SetParameter(Id::Ellipsoid, ellipsoid);
    }
}

void ClauseReader::TakeKnownDatum(int code) {
    const DatumRow* const row = FindDatumByCode(code);
    if (row == nullptr) {
        Object(L"Invalid datum code '%d'.", code);
        return;
    }
    constexpr int kFirstKnown = 2;  // below are "not found" and the unknown datum
    const std::wstring token = shr::AtoW(row->token, 0);
    const int index = gcs::GCSKnownDatumsList.FindByToken(token.c_str(), nullptr);
    if (index >= kFirstKnown) {
        gcs::GCSKnownDatumsList.Enum(index, clause_.datum);
        clause_.hasEarthProjection = true;
    }
}

void ClauseReader::ReadOwnDatum(int code) {
    gcs::DatumParameters parameters;
    parameters.kind = code == kSevenNumbers ? gcs::DatumMethod::SevenParameters
                                            : gcs::DatumMethod::ThreeParameters;
    ReadEllipsoid(parameters.ellipsoid);
    parameters.dx = ReadNextNumber();
    parameters.dy = ReadNextNumber();
    parameters.dz = ReadNextNumber();
    if (code == kSevenNumbers) {
        parameters.rx = ReadNextNumber();
        parameters.ry = ReadNextNumber();
        parameters.rz = ReadNextNumber();
        parameters.scale = ReadNextNumber();
        parameters.primeMeridian = ReadNextNumber();
        const auto numbers = {parameters.rx, parameters.ry, parameters.rz, parameters.scale};
        if (std::all_of(numbers.begin(), numbers.end(), [](double n) { return n == 0.0; })) {
            parameters.kind = gcs::DatumMethod::ThreeParameters;
        }
    }
    input_.NextToken();
    clause_.datum.SetParameters(&parameters);
}

void ClauseReader::ReadEllipsoid(gcs::EllipsoidDef& ellipsoid) {
    SkipOptionalComma();
    ellipsoid.SetMajorRadius(kPresetMajorRadius);
    ellipsoid.SetFlattening(kPresetFlattening);
    if (const EllipsoidRow* const row = FindEllipsoidByCode(input_.TokenAsInt())) {
        ellipsoid.SetMajorRadius(row->majorRadius);
        ellipsoid.SetFlattening(Flattening(*row));
    }
    const gcs::EllipsoidList& known = gcs::GCSKnownEllipsoidsList;
    const int index = known.FindByDimensions(ellipsoid.GetMajorRadius(), ellipsoid.GetFlattening());
    if (index != 0) {
        known.Enum(index, ellipsoid);
    }
}

double ClauseReader::ReadNextNumber() {
    input_.NextToken();
    SkipOptionalComma();
    return input_.TokenAsDouble();
}

// Kept: whatever token stands here is the unit, a line end too. So a clause that ends right after
// its datum loses the line that follows it, when the rest of "its" line is dropped. In the files
// that this system writes that line holds the clause's own Bounds, and hosts expect it unread.
void ClauseReader::ReadUnits() {
    SkipOptionalComma();
    if (!input_.token().empty()) {
        const auto isOneOf = [this](auto... names) { return (input_.TokenIs(names) || ...); };
        const double number = input_.TokenAsDouble();
        if (isOneOf("m", "meters")) {
            clause_.projection.SetParameter(Id::UnitsPerMetre, 1.0);
        } else if (isOneOf("f", "feet", "survey ft", "survey feet", "us survey ft")) {
            clause_.projection.SetParameter(Id::UnitsPerMetre, kFeetPerMetre);
        } else if (number > 0.0) {
            clause_.projection.SetParameter(Id::UnitsPerMetre, number);
        }
        input_.NextToken();
    }
    SkipOptionalComma();
}

// The range of an azimuthal projection stays unread; it goes with the rest of the line.
void ClauseReader::ReadParameters(const ProjectionRow& row) {
    ReadParameter(row.hasOriginLongitude, {Id::CentralLongitude, Id::CentreLongitude});
    ReadParameter(row.hasOriginLatitude, {Id::LatitudeOfOrigin, Id::StandardParallel1});
    if (row.hasOriginLatitude && row.method == Method::Stereographic) {
        clause_.projection.SetParameter(Id::StandardParallel1, 0.0);
    }
    // Kept: this replaces the origin latitude that the same parameter has just received; hosts
    // find that latitude in the other one.
    ReadParameter(row.hasStandardParallel1, {Id::StandardParallel1});
    ReadParameter(row.hasStandardParallel2, {Id::StandardParallel2});
    ReadParameter(row.hasAzimuth, {Id::Azimuth});
    ReadParameter(row.hasScaleFactor, {Id::ScaleFactor});
    ReadParameter(row.hasFalseEasting, {Id::FalseEasting});
    ReadParameter(row.hasFalseNorthing, {Id::FalseNorthing});
}

void ClauseReader::ReadParameter(bool isCarried, std::initializer_list<Id> ids) {
    if (!isCarried) {
        return;
    }
    for (const Id id : ids) {
        clause_.projection.SetParameter(id, input_.TokenAsDouble());
    }
    input_.NextToken();
    SkipOptionalComma();
}

void ClauseReader::SkipOptionalComma() {
    static_cast<void>(input_.SkipComma());  // whether there was one makes no difference
}

void ClauseReader::Object(const wchar_t* format) {
    shr::AppendFormatString(clause_.message, clause_.message.empty() ? L"%s" : L" %s", format);
}

void ClauseReader::Object(const wchar_t* format, int code) {
    Object(shr::FormatString(format, code).c_str());
}

}  // namespace

void ReadCoordSysClause(CMifInputFile& input, CoordSysClause& clause) {
    ClauseReader(input, clause).Read();
}

}  // namespace mif
