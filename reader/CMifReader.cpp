#include "reader/CMifReader.h"

#include "host/platform/Stdio.h"
#include "host/shr/CPath.h"
#include "host/shr/IError.h"
#include "host/shr/Text.h"
#include "reader/CoordSysParser.h"
#include "reader/ErrorOrigin.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace mif {

namespace {

constexpr ErrorOrigin kHeaderOutOfOrder{L"CMifReader", 105};
constexpr ErrorOrigin kBoundsOutOfOrder{L"CMifReader", 810};
constexpr ErrorOrigin kClosingFailed{L"CMifReader", 919};
constexpr ErrorOrigin kOpenOutOfOrder{L"CMifReader", 935};
constexpr ErrorOrigin kNotOpened{L"CMifReader", 946};
constexpr ErrorOrigin kBadHeader{L"CMifReader", 962};
constexpr ErrorOrigin kBadVersion{L"CMifReader", 986};

constexpr const wchar_t* kOutOfOrder =
    L"Internal Error:  Member functions called in improper order.";

// A file whose header has not ended here is something else.
constexpr std::uint64_t kHeaderLimitBytes = 65536;

constexpr int kDefaultVersion = 300;

}  // namespace

// What one reading of the header has seen so far.
struct CMifReader::HeaderRun {
    bool hasVersion = false;
    bool hasDescription = false;  // one of charset, delimiter, coordsys, columns and bounds
    std::wstring warnings;
    std::wstring error;
};

enum class CMifReader::AfterClause { GoOn, Fail, HeaderIsDone };

struct CMifReader::HeaderClause {
    const char* keyword;
    AfterClause (CMifReader::*read)(HeaderRun& run);
};

CMifReader::CMifReader() = default;

CMifReader::~CMifReader() {
    try {
        Close();
        CloseMid();
    } catch (...) {
        shr::LogExceptionInfo(L"qolf", kClosingFailed.source, kClosingFailed.line);
    }
}

bool CMifReader::Open(const std::wstring& path, std::wstring& warnings) {
    if (midStream_ != nullptr || IsOpen()) {
        return SetError(kOpenOutOfOrder.source, kOpenOutOfOrder.line, kOutOfOrder);
    }
    errorLine_ = 0;
    errorMessage_.clear();
    errorSource_.clear();
    warnings.clear();
    if (!OpenFile(path)) {
        return SetError(kNotOpened.source, kNotOpened.line, L"Failed opening specified file");
    }
    mifPath_ = path;
    OpenMid(path);
    std::wstring message;
    if (!ReadHeader(message)) {
        return SetError(kBadHeader.source, kBadHeader.line, message);
    }
    warnings += message;
    if (!CheckVersion(warnings)) {
        return false;
    }
    if (!warnings.empty()) {
        warnings = L"WARNING:\n" + warnings +
                   L"Import will continue but portions of the file might be missing or "
                   L"incorrect.\n";
    }
    return true;
}

// A missing .mid file is no error: the objects then have no attributes.
void CMifReader::OpenMid(const std::wstring& path) {
    shr::CPath beside(path);
    beside.SetExtension(L".mid");
    midPath_ = beside.GetPath();
    midStream_ = platform::OpenFile(midPath_, platform::OpenMode::ReadBinary);
    if (midStream_ == nullptr) {
        midPath_.clear();
        return;
    }
    LendBuffer(midStream_, midBuffer_);
}

bool CMifReader::CheckVersion(std::wstring& warnings) {
    if (version_ == 1 || version_ == 2 || (version_ >= 300 && version_ <= 1100)) {
        return true;
    }
    if (version_ > 1100 && version_ < 3000) {
        warnings += shr::FormatString(L"MIF version %d is not supported.\n", version_);
        return true;
    }
    return SetError(
        kBadVersion.source, kBadVersion.line,
        shr::FormatString(L"Invalid version number %d found in file header.", version_));
}

bool CMifReader::ReadHeader(std::wstring& message) {
    message.clear();
    if (!IsOpen()) {
        return SetError(kHeaderOutOfOrder.source, kHeaderOutOfOrder.line, kOutOfOrder);
    }
    Rewind();
    version_ = kDefaultVersion;
    delimiter_.assign(1, '\t');
    hasEarthProjection_ = false;
    bounds_ = {};
    transform_ = {};
    HeaderRun run;
    AfterClause after = AfterClause::GoOn;
    while (after == AfterClause::GoOn) {
        after = ReadHeaderClause(run);
    }
    const bool isDone = after == AfterClause::HeaderIsDone;
    message = isDone ? run.warnings : run.error;
    return isDone;
}

CMifReader::AfterClause CMifReader::ReadHeaderClause(HeaderRun& run) {
    static constexpr std::array kClauses{
        HeaderClause{"version", &CMifReader::ReadVersion},
        HeaderClause{"charset", &CMifReader::ReadCharset},
        HeaderClause{"delimiter", &CMifReader::ReadDelimiter},
        HeaderClause{"coordsys", &CMifReader::ReadCoordSys},
        HeaderClause{"bounds", &CMifReader::ReadBounds},
        HeaderClause{"transform", &CMifReader::ReadTransform},
        HeaderClause{"columns", &CMifReader::ReadColumns},
        HeaderClause{"index", &CMifReader::SkipIndex},
        HeaderClause{"unique", &CMifReader::WarnOfUnique},
        HeaderClause{"data", &CMifReader::FinishAtData},
    };
    if (IsEOF()) {
        run.error = L"End of file encountered while reading file header.";
        return AfterClause::Fail;
    }
    if (Position() > kHeaderLimitBytes) {
        run.error = L"No MIF header found in file.";
        return AfterClause::Fail;
    }
    for (const HeaderClause& clause : kClauses) {
        if (TokenIs(clause.keyword)) {
            return (this->*clause.read)(run);
        }
    }
    return SkipUnknown();
}

CMifReader::AfterClause CMifReader::ReadVersion(HeaderRun& run) {
    // Kept: an empty quoted string reads as nothing, so it counts as the end of the file too;
    // hosts show users this message for both.
    if (!NextToken()) {
        run.error = L"Premature end of file after version keyword.";
        return AfterClause::Fail;
    }
    version_ = TokenAsInt();
    run.hasVersion = true;
    NextLine();
    return AfterClause::GoOn;
}

CMifReader::AfterClause CMifReader::ReadCharset(HeaderRun& run) {
    NextToken();
    charset_ = token();
    NextLine();
    run.hasDescription = true;
    return AfterClause::GoOn;
}

CMifReader::AfterClause CMifReader::ReadDelimiter(HeaderRun& run) {
    constexpr std::size_t kLongestDelimiter = 2;
    NextToken();
    if (token().size() <= kLongestDelimiter) {
        delimiter_ = token();
    }
    NextLine();
    run.hasDescription = true;
    return AfterClause::GoOn;
}

CMifReader::AfterClause CMifReader::ReadCoordSys(HeaderRun& run) {
    if (!ParseCoordSys()) {
        run.error = L"Unrecognized/invalid parameters while parsing COORDSYS section of file "
                    L"header.";
        return AfterClause::Fail;
    }
    run.hasDescription = true;
    return AfterClause::GoOn;
}

CMifReader::AfterClause CMifReader::ReadBounds(HeaderRun& run) {
    if (!ParseBounds()) {
        run.error = L"Syntax error parsing BOUNDS section of file header.";
        return AfterClause::Fail;
    }
    run.hasDescription = true;
    return AfterClause::GoOn;
}

CMifReader::AfterClause CMifReader::ReadTransform(HeaderRun&) {
    // Kept: four tokens in a row, so a comma between the numbers is taken for one of them. The
    // numbers are only stored, so files with commas come to no harm.
    for (double* number :
         {&transform_.scaleX, &transform_.scaleY, &transform_.offsetX, &transform_.offsetY}) {
        NextToken();
        *number = TokenAsDouble();
    }
    NextLine();
    return AfterClause::GoOn;
}

CMifReader::AfterClause CMifReader::ReadColumns(HeaderRun& run) {
    NextToken();
    const int count = TokenAsInt();
    NextLine();
    const auto isPastTheFile = [this] { return IsEOF() && (token().empty() || TokenIsLineEnd()); };
    // Kept: the names are added to those of an earlier clause, as the rows of such files have the
    // fields of both. A count beyond the lines that the file has ends with the file.
    for (int column = 0; column < count && !isPastTheFile(); ++column) {
        columnNames_.emplace_back(token());
        NextLine();
    }
    run.hasDescription = true;
    return AfterClause::GoOn;
}

CMifReader::AfterClause CMifReader::SkipIndex(HeaderRun&) {
    NextLine();
    return AfterClause::GoOn;
}

CMifReader::AfterClause CMifReader::WarnOfUnique(HeaderRun& run) {
    run.warnings += L"MIF file header contains unsupported UNIQUE keyword.  Relational attributes "
                    L"are not supported.\n";
    NextLine();
    return AfterClause::GoOn;
}

CMifReader::AfterClause CMifReader::FinishAtData(HeaderRun& run) {
    NextLine();
    if (!run.hasVersion) {
        run.error = L"VERSION section missing from file header.";
        return AfterClause::Fail;
    }
    if (!run.hasDescription) {
        run.error = L"Corrupt or incomplete file header.";
        return AfterClause::Fail;
    }
    return AfterClause::HeaderIsDone;
}

CMifReader::AfterClause CMifReader::SkipUnknown() {
    NextLine();
    // Kept: a file that ends with an unknown line fails without a text; hosts end their own
    // sentence there when a file is no MIF file at all.
    return IsEOF() ? AfterClause::Fail : AfterClause::GoOn;
}

bool CMifReader::ParseBounds() {
    if (!IsOpen()) {
        return SetError(kBoundsOutOfOrder.source, kBoundsOutOfOrder.line, kOutOfOrder);
    }
    ReadCorners();
    NextLine();
    return true;
}

// Stops at the first token that does not fit.
void CMifReader::ReadCorners() {
    struct Number {
        const char* before;
        double& value;
    };
    for (const Number& number : {Number{"(", bounds_.x1}, Number{",", bounds_.y1},
                                 Number{")", bounds_.x2}, Number{",", bounds_.y2}}) {
        if (!NextTokenIs(number.before)) {
            return;
        }
        if (*number.before == ')' && !NextTokenIs("(")) {
            return;
        }
        NextToken();
        number.value = TokenAsDouble();
    }
    NextToken();  // the last parenthesis is not checked
}

bool CMifReader::NextTokenIs(const char* text) {
    NextToken();
    return TokenIs(text);
}

bool CMifReader::ParseCoordSys() {
    CoordSysClause clause;
    ReadCoordSysClause(*this, clause);
    projection_ = clause.projection;
    datum_ = clause.datum;
    hasEarthProjection_ = clause.hasEarthProjection;
    return clause.isValid;
}

void CMifReader::Reset() {
    Close();
    CloseMid();
    midRow_.clear();
    fieldIndex_ = 0;
    fieldOffset_ = 0;
    version_ = 0;
    charset_.clear();
    delimiter_.assign(1, ',');
    columnNames_.clear();
    hasEarthProjection_ = false;
}

void CMifReader::CloseMid() {
    if (midStream_ != nullptr) {
        std::fclose(midStream_);
        midStream_ = nullptr;
    }
}

bool CMifReader::ReadMidRow() {
    midRow_.clear();
    fieldIndex_ = 0;
    fieldOffset_ = 0;
    if (midStream_ == nullptr) {
        return true;
    }
    std::array<char, 512> piece;
    std::size_t length = 0;
    for (int byte = platform::GetByte(midStream_); byte != EOF && byte != '\n' && byte != '\0';
         byte = platform::GetByte(midStream_)) {
        if (byte == '\r') {
            continue;
        }
        if (length == piece.size()) {
            midRow_.append(piece.data(), length);
            length = 0;
        }
        piece[length++] = static_cast<char>(byte);
    }
    midRow_.append(piece.data(), length);
    return !midRow_.empty();
}

bool CMifReader::GetMidField(std::size_t index, std::string& out) {
    out.clear();
    if (midStream_ == nullptr || !FindField(index)) {
        return false;
    }
    // Kept: with a tab as the delimiter this runs over empty fields to the next value. Drawings
    // made from such files have their values in these columns.
    std::size_t begin = midRow_.find_first_not_of(" \t", fieldOffset_);
    if (begin == std::string::npos) {
        return false;
    }
    // Kept: an empty delimiter is a NUL, which no row contains: the row is one field, which is all
    // that a file without a delimiter can mean.
    char terminator = delimiter_.empty() ? '\0' : delimiter_.front();
    if (midRow_[begin] == '"') {
        terminator = '"';
        ++begin;
    }
    const std::size_t end = std::min(midRow_.find(terminator, begin), midRow_.size());
    out.assign(midRow_, begin, end - begin);
    return !out.empty();
}

// Moves to the beginning of a field. False, and stays, when the row has fewer delimiters.
bool CMifReader::FindField(std::size_t index) {
    const char delimiter = delimiter_.empty() ? '\0' : delimiter_.front();
    std::size_t field = index < fieldIndex_ ? 0 : fieldIndex_;
    std::size_t offset = index < fieldIndex_ ? 0 : fieldOffset_;
    bool isInQuotes = false;
    for (; field < index && offset < midRow_.size(); ++offset) {
        if (midRow_[offset] == '"') {
            isInQuotes = !isInQuotes;
        }
        if (!isInQuotes && midRow_[offset] == delimiter) {
            ++field;
        }
    }
    if (field < index) {
        return false;
    }
    fieldIndex_ = field;
    fieldOffset_ = offset;
    return true;
}

bool CMifReader::IsMidEOF() const {
    return midStream_ == nullptr || std::feof(midStream_) != 0 || std::ferror(midStream_) != 0;
}

double CMifReader::BoundsDiagonal() const {
    constexpr double kNoLength = 1.1920928955078125e-7;  // the epsilon of single precision
    const double dx = bounds_.x2 - bounds_.x1;
    const double dy = bounds_.y2 - bounds_.y1;
    if (std::fabs(dx) + std::fabs(dy) < kNoLength) {
        return 0.0;
    }
    return std::sqrt(dx * dx + dy * dy);
}

bool CMifReader::SetError(const wchar_t* source, int line, const std::wstring& message,
                          const wchar_t* detail) {
    if (errorLine_ == 0) {
        errorSource_ = source;
        errorLine_ = line;
        errorMessage_ = message;
        if (detail != nullptr) {
            errorMessage_ += L": ";
            errorMessage_ += detail;
        }
    }
    return false;
}

}  // namespace mif
