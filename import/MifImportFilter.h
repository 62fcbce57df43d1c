// Reads a MIF/MID pair and hands its contents to the host as translation objects.
//
// A filter belongs to one IoManager and one thread. Its options last from run to run. Errors leave
// as the host's own exceptions and clean nothing up: after a failed import the progress display
// stays until the next run or the filter's end, and the file stays open, so that the next run is
// refused.
#pragma once

#include "host/platform/OptionsDialogOwner.h"
#include "host/shr/Color4b.h"
#include "host/shr/Geometry.h"
#include "host/zeio/CProgress.h"
#include "host/zeio/IoImportFilter.h"
#include "import/MifStyleRecord.h"
#include "import/RunMemory.h"
#include "reader/CMifReader.h"
#include "reader/ErrorOrigin.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace mif {

// The options, as they are stored by name.
struct ImportOptions {
    bool areasToCurves = false;  // regions become polylines
    bool ignoreStyles = false;   // the objects' pens and brushes are not handed over

    bool operator==(const ImportOptions&) const = default;
};

// The smallest box around the coordinates read so far.
//
// Kept: over all runs of a filter, so sizes in a second file that states no bounds depend on the
// first. Hosts that load the sheets of one map with one filter get the same widths in all of them.
struct RunningExtents {
    RunningExtents();

    void Add(double x, double y) {
        minX = minX > x ? x : minX;
        minY = minY > y ? y : minY;
        maxX = x > maxX ? x : maxX;
        maxY = y > maxY ? y : maxY;
    }

    // 0 while a side is missing or the box has no size.
    double Diagonal() const;

    double minX;
    double minY;
    double maxX;
    double maxY;
};

class MifImportFilter : public zeio::IoImportFilter, public platform::OptionsDialogOwner {
public:
    explicit MifImportFilter(zeio::IoManager& manager);
    ~MifImportFilter() override;

    const zeio::FilterIdentity* GetFilterIdentity() const override;  // module/FilterIdentities.cpp

    // Options from the host's option string: "Defaults" starts from false instead of from the
    // stored options, "AreasToCurves" and "IgnoreStyles" override, "ForgetOptions" keeps the result
    // out of the permanent store.
    void SetOptionsFromString(const std::wstring& options) override;

    bool SupportsObjectType(const shr::CTypeInfo* type) const override;

    // 1 when the header can be read, else 0. 2 is reserved for an unsupported version.
    int CanImportFile(const std::wstring& path) override;

    // The file's size and format, and what the header says under the keys HDR_…; empty for a file
    // that can't be read, without the HDR_… keys for one that is no MIF file.
    zeio::ImportFileInfo GetFileInfo(int detail, const std::wstring& path) override;

    // Hands the whole file to the host: the start of graphics, the coordinate system of an Earth
    // file, the column names if there are any, then the objects in their order, each behind its
    // styles and with its row of the .mid file. Header warnings reach the host as one text. Fails
    // with the reader's error, an invalid object, or whatever the host throws.
    void Import(const std::wstring& path) override;

    // Edits the options in a modal dialog (import/MifImportDlg.h). True when the user accepted
    // them; they are stored then.
    bool ShowOptionsDialog(const std::wstring& captionSuffix) override;

    // Reads and stores the options by name. An option that is not stored keeps its value.
    void LoadOptions(bool persistent);
    void SaveOptions(bool persistent);

    const ImportOptions& options() const { return options_; }
    const RunningExtents& extents() const { return extents_; }

private:
    struct ObjectKeyword;
    struct StyleKeyword;
    struct TextPlace;
    static const ObjectKeyword kObjectKeywords[];
    static const StyleKeyword kStyleKeywords[];

    // MifImportFilter.cpp
    void OpenReader(const std::wstring& path);
    void HandOverCoordinateSystem();
    void HandOverColumnNames();

    // MifImportParse.cpp
    void ParseDataSection();
    void SkipLineEnds();
    void ParseObject();
    void ParseSingleObject();
    int ReadCollectionCount();
    void ReadNone();
    void ReadPoint();
    void ReadLine();
    void ReadPolyline();
    void ReadPolylineSection(zeio::TrPolyline& polyline);
    void ReadRegion();
    void ReadRegionRing(zeio::TrPolygon& polygon, MifStyleRecord& style);
    void HandOverRegionAsCurves(const zeio::TrPolygon& polygon, const MifStyleRecord& style);
    void ReadMultipoint();
    void ReadRect();
    void ReadRoundRect();
    void HandOverRectangle(const shr::Box2d& box, double radius, MifStyleRecord& style);
    void ReadEllipse();
    void ReadArc();
    void HandOverArc(const shr::Box2d& box, const shr::Vec2d& start, const shr::Vec2d& end);
    shr::Vec2d ReadPair();
    shr::Box2d ReadBox();
    std::vector<shr::Vec3d> MakeVertices(std::size_t count);
    zeio::TrMarkerSet MakeMarkerSet();
    void ReadVertexLines(std::span<shr::Vec3d> vertices);
    void HandOverWithVertices(zeio::TrBase& object, std::vector<shr::Vec3d>& vertices);
    void HandOverMarkerSet(zeio::TrMarkerSet& markerSet);
    void ReadRowAttributes(shr::CParamList* attributes);
    void HandOverPenAndBrush(MifStyleRecord& style);
    int ReadCount(const ErrorOrigin& origin, const wchar_t* format);
    [[noreturn]] void ThrowParseError(const ErrorOrigin& origin, const wchar_t* format,
                                      int count) const;

    // MifImportText.cpp
    void ReadText();
    std::string ReadTextString();
    TextPlace PlaceAtPoint(const shr::Box2d& corners, std::size_t length) const;
    void HandOverText(const std::string& string, const TextPlace& place, MifStyleRecord& style);

    // MifImportStyles.cpp
    void ParseStyleClauses(MifStyleRecord& style);
    void SkipClause(MifStyleRecord& style);
    void ReadPenClause(MifStyleRecord& style);
    void SetPenWidth(int width, zeio::TrPen& pen) const;
    void ReadBrushClause(MifStyleRecord& style);
    void ReadSymbolClause(MifStyleRecord& style);
    void ReadFontClause(MifStyleRecord& style);
    void ReadAngleClause(MifStyleRecord& style);
    void ReadJustifyClause(MifStyleRecord& style);
    void NextTokenUnlessLineEnd();
    void NextTokenAndSkipComma();
    void SkipOpeningParenthesis();
    void ApplySymbol(const MifStyleRecord& style, zeio::TrMarkerSet& markerSet);
    double ReferenceDiagonal() const;

    CMifReader reader_;
    std::unique_ptr<zeio::CProgress> progress_;  // null while no run is under way
    ImportOptions options_;
    RunningExtents extents_;
    std::unique_ptr<RunMemory> run_;  // null while no objects are read
};

}  // namespace mif
