#include "import/MifImportFilter.h"

#include "host/gcs/CSDef.h"
#include "host/platform/Stdio.h"
#include "host/shr/CPath.h"
#include "host/shr/Files.h"
#include "host/shr/Text.h"
#include "host/zeio/IoManager.h"
#include "host/zeio/TrObjects.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string_view>

namespace mif {

namespace {

constexpr wchar_t kAreasToCurves[] = L"AreasToCurves";
constexpr wchar_t kIgnoreStyles[] = L"IgnoreStyles";

// Kept: the maxima start at the smallest positive double, not at the lowest one, so a file that
// lies wholly below zero keeps a maximum of about 0. Diagonal() recognises "nothing read yet" by
// exactly these values.
constexpr double kEmptyMinimum = std::numeric_limits<double>::max();
constexpr double kEmptyMaximum = std::numeric_limits<double>::min();

// A box whose width and height add up to less than this has no size.
constexpr double kSmallestSize = std::numeric_limits<float>::epsilon();

// Kept: the reader words an unsupported version differently, so this text never occurs today; the
// answer 2 stays reserved for it.
constexpr std::wstring_view kUnsupportedVersion = L"Unsupported MIF version";

void AddHeader(const CMifReader& reader, zeio::ImportFileInfo& info) {
    info.entries.emplace(L"HDR_XMIN", reader.bounds().x1);
    info.entries.emplace(L"HDR_XMAX", reader.bounds().x2);
    info.entries.emplace(L"HDR_YMIN", reader.bounds().y1);
    info.entries.emplace(L"HDR_YMAX", reader.bounds().y2);
    info.entries.emplace(L"HDR_VERSION", reader.version());
    info.entries.emplace(L"HDR_CHARSET", reader.charset());
    info.entries.emplace(L"HDR_DELIMITER", reader.delimiter());
    info.entries.emplace(L"HDR_HAS_EARTH_COORDS", reader.hasEarthProjection());
}

}  // namespace

RunningExtents::RunningExtents()
    : minX(kEmptyMinimum), minY(kEmptyMinimum), maxX(kEmptyMaximum), maxY(kEmptyMaximum) {}

double RunningExtents::Diagonal() const {
    if (minX == kEmptyMinimum || minY == kEmptyMinimum || maxX == kEmptyMaximum ||
        maxY == kEmptyMaximum) {
        return 0.0;
    }
    const double width = maxX - minX;
    const double height = maxY - minY;
    if (std::fabs(width) + std::fabs(height) < kSmallestSize) {
        return 0.0;
    }
    return std::sqrt(width * width + height * height);
}

MifImportFilter::MifImportFilter(zeio::IoManager& manager) : IoImportFilter(manager) {}

MifImportFilter::~MifImportFilter() = default;

void MifImportFilter::SetOptionsFromString(const std::wstring& options) {
    bool useDefaults = false;
    bool forget = false;
    static_cast<void>(Manager().GetStringOption(options, L"Defaults", useDefaults));
    static_cast<void>(Manager().GetStringOption(options, L"ForgetOptions", forget));
    if (useDefaults) {
        options_ = ImportOptions{};
    } else {
        LoadOptions(/*persistent=*/true);
    }
    static_cast<void>(Manager().GetStringOption(options, kAreasToCurves, options_.areasToCurves));
    static_cast<void>(Manager().GetStringOption(options, kIgnoreStyles, options_.ignoreStyles));
    SaveOptions(!forget);
}

bool MifImportFilter::SupportsObjectType(const shr::CTypeInfo* type) const {
    const shr::CTypeInfo* const types[] = {
        zeio::TrInitGraphicsImp::GetClassTypeId(),
        zeio::TrCRS::GetClassTypeId(),
        zeio::TrNamedIds::GetClassTypeId(),
        zeio::TrPolygon::GetClassTypeId(),
        zeio::TrPolyline::GetClassTypeId(),
        zeio::TrEllipse::GetClassTypeId(),
        zeio::TrRectangle::GetClassTypeId(),
        zeio::TrText::GetClassTypeId(),
        zeio::TrFont::GetClassTypeId(),
        zeio::TrPen::GetClassTypeId(),
        zeio::TrBrush::GetClassTypeId(),
        zeio::TrMarkerSet::GetClassTypeId(),
    };
    return std::find(std::begin(types), std::end(types), type) != std::end(types);
}

int MifImportFilter::CanImportFile(const std::wstring& path) {
    CMifReader reader;
    std::wstring warnings;
    if (reader.Open(path, warnings)) {
        return 1;
    }
    const bool isUnsupported =
        platform::CompareNoCase(reader.errorMessage().c_str(), kUnsupportedVersion.data(),
                                kUnsupportedVersion.size()) == 0;
    return isUnsupported ? 2 : 0;
}

zeio::ImportFileInfo MifImportFilter::GetFileInfo(int /*detail*/, const std::wstring& path) {
    zeio::ImportFileInfo info;
    if (!shr::IsFileReadable(path)) {
        return info;
    }
    info.entries.emplace(L"File Size", shr::GetFileSize(path));
    info.Add(L"File Format", L"MapInfo Interchange Format (MIF) file");
    CMifReader reader;
    std::wstring warnings;
    if (reader.Open(path, warnings)) {
        AddHeader(reader, info);
    }
    return info;
}

void MifImportFilter::Import(const std::wstring& path) {
    LoadOptions(/*persistent=*/true);
    SaveOptions(/*persistent=*/true);
    progress_.reset();
    progress_ = std::make_unique<zeio::CProgress>(Manager());
    progress_->MessageVA(L"Importing Mif file %s", shr::CPath(path).GetNameAndExtension().c_str());
    OpenReader(path);

    zeio::TrInitGraphicsImp start(shr::Vec3d::ZERO, shr::Vec3d::ZERO,
                                  zeio::TrGraphics::FT_COORDSYS::World);
    ImportObject(start);
    HandOverCoordinateSystem();
    HandOverColumnNames();
    ParseDataSection();

    if (progress_) {
        Manager().ProgressProportion(1.0);
    }
    reader_.Reset();
    progress_.reset();
}

void MifImportFilter::OpenReader(const std::wstring& path) {
    std::wstring warnings;
    if (!reader_.Open(path, warnings)) {
        ThrowErrorMsg(reader_.errorSource(), reader_.errorLine(),
                      shr::FormatString(L"Can't import '%s'.  %s", path.c_str(),
                                        reader_.errorMessage().c_str()));
    }
    if (!warnings.empty()) {
        static_cast<void>(Manager().Warning(shr::IError::WarnStyle::Ordinary, warnings));
    }
}

void MifImportFilter::HandOverCoordinateSystem() {
    if (!reader_.hasEarthProjection()) {
        return;
    }
    gcs::GCSDef definition;
    if (!reader_.projection().IsUnknown(/*resolve=*/false)) {
        // Faulty parameters cost the projection, not the import: the host gets a plane instead.
        if (reader_.projection().CheckParameters() != gcs::ProjectionParameterID::None) {
            gcs::ProjectionDef plane;
            plane.SetMethod(gcs::ProjectionMethod::ArbitraryPlane);
            definition.SetProjection(plane);
        } else {
            definition.SetProjection(reader_.projection());
        }
    }
    if (!reader_.datum().IsUnknown()) {
        definition.SetDatum(reader_.datum());
    }
    zeio::TrCRS coordinateSystem;
    coordinateSystem.SetCS(&definition);
    ImportObject(coordinateSystem);
}

void MifImportFilter::HandOverColumnNames() {
    if (reader_.columnNames().empty()) {
        return;
    }
    zeio::TrNamedIds columns;
    columns.names.reserve(reader_.columnNames().size());
    for (const std::string& name : reader_.columnNames()) {
        columns.names.push_back(shr::AtoW(name, 0));
    }
    ImportObject(columns);
}

// Kept: whether an option is stored at all is ignored; one that is not keeps its value.
void MifImportFilter::LoadOptions(bool persistent) {
    static_cast<void>(Manager().GetOption(kAreasToCurves, options_.areasToCurves, persistent));
    static_cast<void>(Manager().GetOption(kIgnoreStyles, options_.ignoreStyles, persistent));
}

void MifImportFilter::SaveOptions(bool persistent) {
    Manager().SetOption(kAreasToCurves, options_.areasToCurves, persistent);
    Manager().SetOption(kIgnoreStyles, options_.ignoreStyles, persistent);
}

}  // namespace mif
