#include "app/mif/CoordSysCodes.h"

#include <algorithm>
#include <array>
#include <span>

namespace app {
namespace {

using enum ProjectionParameter;

// Layouts that several projections share.
constexpr std::array kLongitude{OriginLongitude};
constexpr std::array kOrigin{OriginLongitude, OriginLatitude};
constexpr std::array kParallel{OriginLongitude, StandardParallel1};
constexpr std::array kPlane{OriginLongitude, OriginLatitude, FalseEasting, FalseNorthing};
constexpr std::array kCylinder{OriginLongitude, StandardParallel1, FalseEasting, FalseNorthing};
constexpr std::array kScaled{OriginLongitude, OriginLatitude, ScaleFactor, FalseEasting,
                             FalseNorthing};
constexpr std::array kCone{OriginLongitude,   OriginLatitude, StandardParallel1,
                           StandardParallel2, FalseEasting,   FalseNorthing};
constexpr std::array kOblique{OriginLongitude, OriginLatitude, Azimuth,
                              ScaleFactor,     FalseEasting,   FalseNorthing};
constexpr std::array kRectified{OriginLongitude, OriginLatitude, Azimuth,      RectifiedAngle,
                                ScaleFactor,     FalseEasting,   FalseNorthing};

constexpr std::nullopt_t kStops = std::nullopt;

// The versions of the rows at which the module stops are not known for certain; these are the
// lowest that are safe.
// clang-format off
constexpr std::array kProjections = {
    Projection{1, 300, "Longitude/Latitude", {}, false, 0},
    Projection{2, 300, "Cylindrical Equal Area", kParallel, false, kStops},
    Projection{3, 300, "Lambert Conformal Conic", kCone, false, 6},
    Projection{4, 300, "Lambert Azimuthal Equal-Area", kOrigin, true, 2},
    Projection{5, 300, "Azimuthal Equidistant", kOrigin, true, 2},
    Projection{6, 300, "Equidistant Conic", kCone, false, 6},
    Projection{7, 300, "Hotine Oblique Mercator", kOblique, false, 6},
    Projection{8, 300, "Transverse Mercator", kScaled, false, 5},
    Projection{9, 300, "Albers Equal-Area Conic", kCone, false, 7},
    Projection{10, 300, "Mercator", kLongitude, false, 1},
    Projection{11, 300, "Miller Cylindrical", kLongitude, false, 1},
    Projection{12, 300, "Robinson", kLongitude, false, 1},
    Projection{13, 300, "Mollweide", kLongitude, false, 1},
    Projection{14, 300, "Eckert IV", kLongitude, false, 1},
    Projection{15, 300, "Eckert VI", kLongitude, false, 1},
    Projection{16, 300, "Sinusoidal", kLongitude, false, 1},
    Projection{17, 300, "Gall", kLongitude, false, kStops},
    Projection{18, 300, "New Zealand Map Grid", kPlane, false, 2},
    Projection{19, 300, "the Belgian variant of Lambert Conformal Conic", kCone, false, kStops},
    Projection{20, 300, "Stereographic", kScaled, false, 5},
    Projection{24, 300, "the Finnish KKJ variant of Transverse Mercator (Gauss-Kruger)", kScaled, false, kStops},
    Projection{25, 300, "Swiss Oblique Mercator", kPlane, false, kStops},
    Projection{26, 550, "Regional Mercator", kParallel, false, kStops},
    Projection{27, 550, "Polyconic", kPlane, false, 4},
    Projection{28, 600, "Azimuthal Equidistant", kOrigin, true, 2},
    Projection{29, 650, "Lambert Azimuthal Equal-Area", kOrigin, true, 2},
    Projection{30, 650, "Cassini-Soldner", kPlane, false, 4},
    Projection{31, 1050, "Double Stereographic", kScaled, false, kStops},
    Projection{33, 1050, "Equidistant Cylindrical", kCylinder, false, 4},
    Projection{34, 1050, "Extended Transverse Mercator, an exact form of projection 8", kScaled, false, kStops},
    Projection{35, 1050, "Hotine Oblique Mercator with a rectified angle", kRectified, false, kStops},
};
// clang-format on

struct CodeRange {
    std::int64_t first;
    std::int64_t last;
};

constexpr std::array kDatums = {
    CodeRange{1, 31},      CodeRange{33, 72},     CodeRange{74, 74},     CodeRange{76, 100},
    CodeRange{103, 110},   CodeRange{112, 112},   CodeRange{114, 145},   CodeRange{147, 150},
    CodeRange{154, 155},   CodeRange{157, 157},   CodeRange{1000, 1004}, CodeRange{1006, 1008},
    CodeRange{1010, 1010}, CodeRange{1016, 1016}, CodeRange{1019, 1019},
};

constexpr std::array kEllipsoids = {CodeRange{1, 28}, CodeRange{30, 53}};

bool IsIn(std::span<const CodeRange> ranges, std::int64_t code) {
    return std::ranges::any_of(
        ranges, [&](const CodeRange& range) { return code >= range.first && code <= range.last; });
}

struct NamedCode {
    std::int64_t code;
    const char* words;
};

// Known by name alone.
constexpr std::array kWithoutLayout = {
    NamedCode{21, "the Danish System 34 Jutland variant of Transverse Mercator"},
    NamedCode{22, "the Danish System 34 Zealand variant of Transverse Mercator"},
    NamedCode{23, "the Danish System 45 Bornholm variant of Transverse Mercator"},
    NamedCode{32, "Krovak"},
};

constexpr std::int64_t kThousand = 1000;
constexpr std::int64_t kEndOfCodes = 4000;

}  // namespace

bool Projection::Takes(ProjectionParameter parameter) const {
    return std::ranges::find(parameters, parameter) != parameters.end();
}

const Projection* KnownProjection(std::int64_t code) {
    const auto* const found = std::ranges::find(kProjections, code, &Projection::code);
    return found == kProjections.end() ? nullptr : found;
}

ProjectionCode SplitProjectionCode(std::int64_t code) {
    if (code < 0 || code >= kEndOfCodes) {
        return {};
    }
    const std::int64_t thousands = code / kThousand;
    return {.projection = KnownProjection(code % kThousand),
            .hasAffine = thousands % 2 == 1,
            .hasBounds = thousands >= 2};
}

const Projection* ModuleProjection(std::int64_t code) {
    constexpr std::int64_t kConeWithBounds = 2003;
    const Projection* const projection = KnownProjection(code == kConeWithBounds ? 3 : code);
    return projection != nullptr && projection->moduleParameterCount ? projection : nullptr;
}

bool IsKnownDatum(std::int64_t code) {
    return IsIn(kDatums, code);
}

bool IsKnownEllipsoid(std::int64_t code) {
    return IsIn(kEllipsoids, code);
}

std::string ProjectionInWords(std::int64_t code) {
    if (const Projection* const projection = KnownProjection(code)) {
        return projection->words;
    }
    const auto* const found = std::ranges::find(kWithoutLayout, code, &NamedCode::code);
    if (found != kWithoutLayout.end()) {
        return found->words;
    }
    const ProjectionCode split = SplitProjectionCode(code);
    if (split.projection == nullptr) {
        return "not known in this format";
    }
    return "projection " + std::to_string(split.projection->code) + " with " +
           (split.hasAffine ? "an affine transformation" : "") +
           (split.hasAffine && split.hasBounds ? " and " : "") + (split.hasBounds ? "bounds" : "");
}

std::optional<std::int64_t> EqualProjection(std::int64_t code) {
    if (code == 34) {
        return 8;
    }
    if (code > 2000 && code < 2100 && ModuleProjection(code) == nullptr &&
        ModuleProjection(code - 2000) != nullptr) {
        return code - 2000;
    }
    return code == 2034 ? std::optional<std::int64_t>(8) : std::nullopt;
}

std::string AdviceForProjection(std::int64_t code) {
    return SplitProjectionCode(code).projection != nullptr
               ? "'qolf convert' and 'qolf draw' read it."
               : "'qolf convert' reads the geometry; name the coordinate system with --assume-crs "
                 "EPSG:….";
}

}  // namespace app
