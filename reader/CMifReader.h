// Reads the header of a .mif file and the rows of the .mid file beside it.
//
// After Open the first token of the first object is loaded; the objects are read with the token
// operations of CMifInputFile, their attributes with ReadMidRow and GetMidField.
//
// Operations fail by a false result. Of all the errors of a run the first is kept, with its origin.
#pragma once

#include "host/gcs/DatumDef.h"
#include "host/gcs/ProjectionDef.h"
#include "reader/CMifInputFile.h"

#include <cstddef>
#include <cstdio>
#include <string>
#include <vector>

namespace mif {

// The corners of the BOUNDS clause, as they stand there.
struct MifBounds {
    double x1 = 0.0;
    double y1 = 0.0;
    double x2 = 0.0;
    double y2 = 0.0;
};

// The numbers of the TRANSFORM clause. The reader only stores them.
struct MifTransform {
    double scaleX = 1.0;
    double scaleY = 1.0;
    double offsetX = 0.0;
    double offsetY = 0.0;
};

class CMifReader : public CMifInputFile {
public:
    CMifReader();
    ~CMifReader();

    // Opens the file and the .mid file beside it (which may be missing) and reads the header.
    // warnings is replaced by the text to show, empty when there is nothing to say.
    //
    // On failure the error record says why and the files may stay open: Reset before the next
    // Open, which is refused while anything is open.
    [[nodiscard]] bool Open(const std::wstring& path, std::wstring& warnings);

    // Rewinds, and reads the header up to the first object behind DATA. message becomes the error
    // on failure (it may be empty), the warnings on success.
    [[nodiscard]] bool ReadHeader(std::wstring& message);

    // Reads a BOUNDS clause, with its keyword as the token, and loads the next line's first token.
    // The corners keep what was read before the first unexpected token. False only when nothing is
    // open.
    bool ParseBounds();

    // Reads a COORDSYS clause, with its keyword as the token (reader/CoordSysParser.h).
    bool ParseCoordSys();

    // Closes both files and forgets the header. The error record, the bounds, the transform and
    // the coordinate system's definitions stay until they are read again.
    void Reset();

    // Reads the next line of the .mid file. False for an empty line and at the end; true, with an
    // empty row, when there is no .mid file.
    bool ReadMidRow();

    // The row last read, without its line end.
    const char* MidRowText() const { return midRow_.c_str(); }

    // Puts the field with this 0-based index into out. False, and out empty, when there is no such
    // field or it is empty or blank.
    bool GetMidField(std::size_t index, std::string& out);

    // True when there is no .mid file or a read behind its last byte failed.
    bool IsMidEOF() const;
    bool HasMid() const { return midStream_ != nullptr; }

    // The length of the diagonal between the corners of the bounds.
    double BoundsDiagonal() const;

    // Records an error unless one is recorded, with ": " and the detail behind the message when
    // there is one. Always false, so that a caller can return it.
    bool SetError(const wchar_t* source, int line, const std::wstring& message,
                  const wchar_t* detail = nullptr);

    int version() const { return version_; }
    const std::string& charset() const { return charset_; }
    const std::string& delimiter() const { return delimiter_; }
    const std::vector<std::string>& columnNames() const { return columnNames_; }
    bool hasEarthProjection() const { return hasEarthProjection_; }
    const gcs::ProjectionDef& projection() const { return projection_; }
    const gcs::DatumDef& datum() const { return datum_; }
    const MifBounds& bounds() const { return bounds_; }
    const MifTransform& transform() const { return transform_; }
    const std::wstring& mifPath() const { return mifPath_; }
    const std::wstring& midPath() const { return midPath_; }
    const std::wstring& errorSource() const { return errorSource_; }
    int errorLine() const { return errorLine_; }  // 0 when there is no error
    const std::wstring& errorMessage() const { return errorMessage_; }

private:
    struct HeaderRun;
    struct HeaderClause;
    enum class AfterClause;

    AfterClause ReadHeaderClause(HeaderRun& run);
    AfterClause ReadVersion(HeaderRun& run);
    AfterClause ReadCharset(HeaderRun& run);
    AfterClause ReadDelimiter(HeaderRun& run);
    AfterClause ReadCoordSys(HeaderRun& run);
    AfterClause ReadBounds(HeaderRun& run);
    AfterClause ReadTransform(HeaderRun& run);
    AfterClause ReadColumns(HeaderRun& run);
    AfterClause SkipIndex(HeaderRun& run);
    AfterClause WarnOfUnique(HeaderRun& run);
    AfterClause FinishAtData(HeaderRun& run);
    AfterClause SkipUnknown();
    void ReadCorners();
    bool NextTokenIs(const char* text);
    void OpenMid(const std::wstring& path);
    void CloseMid();
    bool CheckVersion(std::wstring& warnings);
    bool FindField(std::size_t index);

    std::FILE* midStream_ = nullptr;  // owned; null when there is no .mid file
    std::vector<char> midBuffer_;     // the memory that the C library's buffer of midStream_ uses
    std::string midRow_;
    std::wstring mifPath_;
    std::wstring midPath_;  // empty when the .mid file could not be opened
    std::wstring errorSource_;
    int errorLine_ = 0;
    std::wstring errorMessage_;
    int version_ = 0;
    std::string charset_;
    std::string delimiter_ = ",";  // only the first character counts; empty: rows have one field
    std::vector<std::string> columnNames_;
    bool hasEarthProjection_ = false;
    gcs::ProjectionDef projection_;
    gcs::DatumDef datum_;
    MifBounds bounds_;
    MifTransform transform_;

    // The last field found in the row and where it begins, so that taking the fields one after the
    // other walks the row once.
    std::size_t fieldIndex_ = 0;
    std::size_t fieldOffset_ = 0;
};

}  // namespace mif
