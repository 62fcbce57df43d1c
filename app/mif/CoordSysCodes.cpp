#include "app/mif/CoordSysCodes.h"

#include <algorithm>
#include <array>
#include <span>

namespace app {
namespace {

constexpr std::array kProjections = {
    Projection{1, 0, false},  Projection{3, 6, false},    Projection{4, 2, true},
    Projection{5, 2, true},   Projection{6, 6, false},    Projection{7, 6, false},
    Projection{8, 5, false},  Projection{9, 7, false},    Projection{10, 1, false},
    Projection{11, 1, false}, Projection{12, 1, false},   Projection{13, 1, false},
    Projection{14, 1, false}, Projection{15, 1, false},   Projection{16, 1, false},
    Projection{18, 2, false}, Projection{20, 5, false},   Projection{27, 4, false},
    Projection{28, 2, true},  Projection{29, 2, true},    Projection{30, 4, false},
    Projection{33, 4, false}, Projection{2003, 6, false},
};

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

constexpr std::array kUnknownProjections = {
    NamedCode{2, "Cylindrical Equal Area"},
    NamedCode{17, "Gall"},
    NamedCode{19, "the Belgian variant of Lambert Conformal Conic"},
    NamedCode{21, "the Danish System 34 Jutland variant of Transverse Mercator"},
    NamedCode{22, "the Danish System 34 Zealand variant of Transverse Mercator"},
    NamedCode{23, "the Danish System 45 Bornholm variant of Transverse Mercator"},
    NamedCode{24, "the Finnish KKJ variant of Transverse Mercator (Gauss-Kruger)"},
    NamedCode{25, "Swiss Oblique Mercator"},
    NamedCode{26, "Regional Mercator"},
    NamedCode{31, "Double Stereographic"},
    NamedCode{32, "Krovak"},
    NamedCode{34, "Extended Transverse Mercator, an exact form of projection 8"},
};

}  // namespace

const Projection* FindProjection(std::int64_t code) {
    const auto* const found = std::ranges::find(kProjections, code, &Projection::code);
    return found == kProjections.end() ? nullptr : found;
}

bool IsKnownDatum(std::int64_t code) {
    return IsIn(kDatums, code);
}

bool IsKnownEllipsoid(std::int64_t code) {
    return IsIn(kEllipsoids, code);
}

std::string ProjectionInWords(std::int64_t code) {
    const auto* const found = std::ranges::find(kUnknownProjections, code, &NamedCode::code);
    if (found != kUnknownProjections.end()) {
        return found->words;
    }
    const std::int64_t base = code % 1000;
    if (code >= 1000 && code < 4000 && base > 0 && base < 100) {
        const char* const with = code < 2000   ? " with an affine transformation"
                                 : code < 3000 ? " with bounds"
                                               : " with an affine transformation and bounds";
        return "projection " + std::to_string(base) + with;
    }
    return "none that the format is known to have";
}

std::optional<std::int64_t> EqualProjection(std::int64_t code) {
    if (code == 34) {
        return 8;
    }
    if (code > 2000 && code < 2100 && FindProjection(code) == nullptr &&
        FindProjection(code - 2000) != nullptr) {
        return code - 2000;
    }
    return code == 2034 ? std::optional<std::int64_t>(8) : std::nullopt;
}

std::string AdviceForProjection(std::int64_t code) {
    if (const std::optional<std::int64_t> equal = EqualProjection(code)) {
        return "Let --fix of 'qolf check' or 'qolf convert' rewrite the code as " +
               std::to_string(*equal) +
               ", which means the same, or name the system with 'qolf convert --assume-crs "
               "EPSG:…'.";
    }
    if (code == 24) {
        return "Name the system with 'qolf convert --assume-crs EPSG:2393', or the code of the "
               "zone that is meant.";
    }
    return "Read the geometry with 'qolf convert --assume-crs EPSG:…' and name the coordinate "
           "system there.";
}

}  // namespace app
