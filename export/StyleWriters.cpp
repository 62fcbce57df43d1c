// The PEN, BRUSH and FONT clauses of the export filter, from its current style.
#include "export/MifExportFilter.h"

#include "export/StyleCodes.h"
#include "host/shr/CSystemInfo.h"
#include "host/shr/Text.h"

#include <cmath>

namespace mif {

namespace {

constexpr std::string_view kPenClauseStart = "  PEN (";
constexpr unsigned kPointWidthVersion = 450;
constexpr int kOpaqueFrom = 128;  // alpha of a back colour

}  // namespace

// 0 when the input's extent is not known: a reversed box has negative spans.
double MifExportFilter::InputDiagonal() const {
    const double dx = extent_.maxX - extent_.minX;
    const double dy = extent_.maxY - extent_.minY;
    return dx + dy < kSingleEpsilon ? 0.0 : std::sqrt(dx * dx + dy * dy);
}

void MifExportFilter::WritePenClause() {
    unsigned long width = 1;
    if (!pen_.isRelative) {
        width = AbsolutePenWidth(pen_.width);
        if (width != 0) {
            RaiseVersion(kPointWidthVersion);
        } else {
            width = 1;
        }
    } else if (pen_.style == zeio::TrPen::Style::NoLine) {
        width = 0;
    } else if (const double diagonal = InputDiagonal(); diagonal > 0.0) {
        width = GradePenWidth(pen_.width, diagonal);
    } else {
        penWidthPatches_.push_back({mif_.Tell() + kPenClauseStart.size(), pen_.width});
    }
    text_ += kPenClauseStart;
    text_ += std::to_string(width) + ", " + std::to_string(MifPenPattern(pen_)) + ", " +
             std::to_string(MifColor(pen_.color)) + ")\n";
    FlushText();
}

void MifExportFilter::WriteBrushClause() {
    text_ += "  BRUSH (" + std::to_string(MifFillPattern(brush_.pattern)) + ", " +
             std::to_string(MifColor(brush_.fore));
    // Kept: an opaque back colour is the one that is left out. Readers of files without it fill
    // the background all the same.
    if (brush_.back.alpha < kOpaqueFrom) {
        text_ += ", " + std::to_string(MifColor(brush_.back));
    }
    text_ += ")\n";
    FlushText();
}

void MifExportFilter::WriteFontClause() {
    const std::wstring face =
        font_.faceName.empty() ? shr::CSystemInfo::DefVariablePitchFace() : font_.faceName;
    WriteMifWide(shr::FormatString(
        L"  FONT (\"%s\", %lu, %lu, %lu)\n", face.c_str(), MifFontStyle(font_.flags),
        ToUnsigned(FontHeight() / unitsPerPoint_), MifColor(brush_.fore)));
}

}  // namespace mif
