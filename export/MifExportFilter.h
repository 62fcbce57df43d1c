// The export filter: takes translation objects one at a time and writes a .mif file (graphics) and
// the .mid file beside it (one row of attributes per object).
//
// Objects go straight to the files. What only the end can tell (version, bounds, column widths,
// widths of pens that are graded against the bounds) is written at a fixed width and overwritten
// in place by EndExport.
//
// Order of calls: options and page, BeginExport, ExportObject for every object, EndExport. Errors
// leave as the host's exceptions. Only files that a run has opened are ever deleted: those that
// EndExport did not finish, by EndExport itself, by the next BeginExport or with the filter.
#pragma once

#include "export/AttributeColumns.h"
#include "export/ExportOptions.h"
#include "export/OutputBounds.h"
#include "export/OutputFile.h"
#include "host/zeio/CProgress.h"
#include "host/zeio/IoExportFilter.h"
#include "host/zeio/TrObjects.h"
#include "reader/ErrorOrigin.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace mif {

class MifExportDlg;

class MifExportFilter final : public zeio::IoExportFilter {
public:
    explicit MifExportFilter(zeio::IoManager& manager);
    ~MifExportFilter() override;

    const zeio::FilterIdentity* GetFilterIdentity() const override;  // module/FilterIdentities.cpp

    // Appends the options page. It stays the filter's own, until the next call or BeginExport.
    void GetPropertyPages(std::vector<zeio::IoPropertyPage*>& pages,
                          const std::wstring& title) override;

    // AreasToCurves, RenderText and RenderMarkers, over the remembered options; Defaults takes the
    // defaults instead of those, ForgetOptions keeps the result out of the persistent store.
    void SetOptionsFromString(const std::wstring& options) override;

    bool SupportsObjectType(const shr::CTypeInfo* type) const override;

    // Gives up an unfinished run, creates both files and writes the first lines. The options are
    // those of the page, if there is one, else the remembered ones: an option string counts through
    // what it stored. The page is deleted.
    //
    // Fails with the file-open error of the path that could not be created, or that is the .mid
    // file's own. EndExport then has nothing to write, and deletes what was created.
    zeio::ExportStatus BeginExport(const std::wstring& path) override;

    // NotHandled for a kind that the filter does not know. Styles, columns and coordinate system
    // apply to the graphic objects that follow; the first of these fixes the header.
    //
    // Fails with the file-write error when the object can't be written, and from then on for every
    // object: half an object can't be taken back out of the files. Likewise after a BeginExport
    // that has failed.
    zeio::ExportStatus ExportObject(zeio::TrBase& object) override;

    // Completes and closes the files. NothingWritten, with what was opened deleted, when no graphic
    // object came. Fails with the file-write error, likewise without files, when not all was
    // written.
    zeio::ExportStatus EndExport() override;

    // Takes the page's choices as the options and stores them. Fails with the internal error when
    // there is no page.
    void TakeOptionsFromPage(bool persistent);

    const ExportOptions& options() const { return options_; }

private:
    // What one kind of object is answered with.
    struct ObjectKind {
        const shr::CTypeInfo* (*typeId)();
        void (*handle)(MifExportFilter& filter, zeio::TrBase& object);
        bool isGraphic;
    };
    static const ObjectKind kObjectKinds[];
    template <class Object, void (MifExportFilter::*Handler)(Object&)>
    static constexpr ObjectKind Kind(bool isGraphic);

    // A pen width code that waits for the bounds of the whole output.
    struct PenWidthPatch {
        std::uint64_t offsetBytes;  // of the code's one digit
        double widthWorld;
    };

    void ReadSavedOptions(bool persistent);
    void StoreOptions(bool persistent);

    void ForgetRun();
    void OpenFiles(const std::wstring& path);
    void WriteFirstLines();
    void WriteRestOfHeader();
    std::string CoordSysClause();
    bool HasFailed() const { return failedWrite_ != nullptr || isIncomplete_; }
    bool Complete();
    bool PatchPenWidths();
    void WarnOfLimits() const;
    bool OverwriteMif(std::uint64_t offsetBytes, std::string_view text);
    void DiscardFiles();

    // ObjectWriters.cpp: one operation a kind of object.
    void WritePolyline(zeio::TrPolyline& polyline);
    void WritePolygon(zeio::TrPolygon& polygon);
    void WriteMarkers(zeio::TrMarkerSet& markers);
    void WriteRectangle(zeio::TrRectangle& rectangle);
    void WriteEllipse(zeio::TrEllipse& ellipse);
    void WriteText(zeio::TrText& text);
    void TakeColumns(zeio::TrNamedIds& columns);
    void TakeCoordinateSystem(zeio::TrCRS& system);
    void TakeFont(zeio::TrFont& font);
    void TakePen(zeio::TrPen& pen);
    void TakeBrush(zeio::TrBrush& brush);
    void AnswerInitGraphics(zeio::TrInitGraphicsExp& questions);

    void WriteRegion(std::span<const std::span<const shr::Vec3d>> rings,
                     const shr::CParamList& attributes);
    void WriteCurves(std::span<const std::span<const shr::Vec3d>> rings,
                     const shr::CParamList& attributes);
    void WidenBounds(std::span<const shr::Vec3d> vertices);
    void RaiseVersionForVertices(std::size_t count);
    void RaiseVersion(unsigned atLeast);
    double FontHeight() const;
    double CharacterWidth() const;
    shr::Box2d TextRectangle(const zeio::TrText& text, double rotationRadians) const;

    // StyleWriters.cpp: the clauses from the current style.
    void WritePenClause();
    void WriteBrushClause();
    void WriteFontClause();
    double InputDiagonal() const;

    void AppendNumbers(std::initializer_list<double> values);
    void AppendVertex(double x, double y);
    void AppendVertices(std::span<const shr::Vec3d> vertices);
    void WriteMidRow(const shr::CParamList& attributes);
    void FlushText();
    void WriteMif(std::string_view text);
    void WriteMifWide(const std::wstring& text);
    [[noreturn]] void FailWriting(const ErrorOrigin& origin);
    [[noreturn]] void ThrowWriteError(const ErrorOrigin& origin) const;

    std::unique_ptr<zeio::CProgress> progress_;  // from BeginExport to EndExport
    std::unique_ptr<MifExportDlg> page_;         // null when no page waits for BeginExport
    OutputFile mif_;
    OutputFile mid_;
    bool isHeaderWritten_ = false;
    const ErrorOrigin* failedWrite_ = nullptr;  // the first since BeginExport; null: none
    bool isIncomplete_ = false;  // an exception left half an object, or half a start, in the files
    std::uint32_t objectCount_ = 0;
    std::uint64_t boundsOffset_ = 0;   // of the Bounds line
    std::uint64_t columnsOffset_ = 0;  // of the column block
    shr::Box3d extent_;                // of the input; all 0 when not known
    OutputBounds bounds_;
    std::vector<PenWidthPatch> penWidthPatches_;
    AttributeColumns columns_;
    zeio::TrPen pen_;
    zeio::TrBrush brush_;
    zeio::TrFont font_;
    zeio::TrCRS system_;
    double scale_ = 1.0;          // the host's; nothing is scaled by it
    double unitsPerPoint_ = 1.0;  // world units
    unsigned version_;            // the MIF version to declare
    std::uint64_t plineCount_ = 0;
    std::uint64_t regionCount_ = 0;
    ExportOptions options_;
    std::string text_;  // lines on their way to the .mif file; empty between operations
    std::string row_;   // the .mid row under construction, kept for its memory
};

}  // namespace mif
