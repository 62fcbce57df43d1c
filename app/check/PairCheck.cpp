#include "app/check/PairCheck.h"

#include "app/base/InputFile.h"
#include "app/base/Paths.h"
#include "app/check/LineCheck.h"
#include "app/check/RowCheck.h"
#include "app/check/ShapeCheck.h"
#include "app/mif/LineReader.h"
#include "app/mif/PairPass.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string>

namespace app {
namespace {

// False when the file can't be cut into lines at all.
bool CheckStart(const LineReader& lines, FileOfPair file, FindingCounter& report) {
    if (lines.Start() == FileStart::Utf16) {
        report.Add(FindingCode::Utf16, {file, 1, 0}, "the file is encoded in UTF-16");
        return false;
    }
    if (lines.Start() == FileStart::ByteOrderMark) {
        report.Add(FindingCode::ByteOrderMark, {file, 1, 0},
                   "the file begins with a byte-order mark; the reader takes it as a part of the "
                   "first word");
        report.Change(file, {.begin = 0,
                             .end = 3,
                             .text = {},
                             .code = FindingCode::ByteOrderMark,
                             .line = 1,
                             .what = "the byte-order mark goes"});
    }
    return true;
}

// Opens the file. Says why not, or nothing when all is well.
std::string OpenProblem(const std::filesystem::path& path, InputFile& stream) {
    std::error_code error;
    if (std::filesystem::is_directory(path, error)) {
        return "this is a folder; name the files in it";
    }
    if (!std::filesystem::exists(path, error)) {
        return "there is no such file";
    }
    if (!std::filesystem::is_regular_file(path, error)) {
        return "this is no file that can be read twice";
    }
    stream = OpenInput(path);
    return stream != nullptr ? ""
                             : std::string("the file can't be opened: ") + std::strerror(errno);
}

// A file of the pair, which reports how much of both has been read.
class WatchedSource : public StreamSource {
public:
    // `before` is the size of what was read earlier, `all` that of both files.
    WatchedSource(std::FILE* stream, const ProgressSink& progress, double before, double all)
        : StreamSource(stream), progress_(progress), read_(before), all_(all) {}

    std::size_t Read(char* to, std::size_t most) override {
        const std::size_t got = StreamSource::Read(to, most);
        read_ += static_cast<double>(got);
        if (progress_ && all_ > 0.0) {
            progress_(std::min(1.0, read_ / all_));  // some parts are read twice
        }
        return got;
    }

private:
    const ProgressSink& progress_;
    double read_;
    double all_;
};

class PairChecker {
public:
    PairChecker(const std::filesystem::path& mif, const PairCheckOptions& options,
                FindingSink& sink)
        : mif_(mif), mid_(FindCompanion(mif, ".mid")), options_(options),
          report_(sink, mif, mid_.empty() ? WithMidExtension(mif) : mid_, options.maxPerCode),
          mifSize_(SizeOfFile(AsOnDisk(mif))), midSize_(mid_.empty() ? 0.0 : SizeOfFile(mid_)),
          charset_(options.charset.empty() ? pair_.header.charset : options.charset) {}

    CheckedPair Check();

private:
    static std::filesystem::path WithMidExtension(std::filesystem::path path) {
        return path.replace_extension(".mid");
    }
    bool Opens(const std::filesystem::path& path, FileOfPair file, InputFile& stream);
    bool IsMif();
    void CheckMif(ByteSource& input);
    void ReportFaultsOfClause();
    void CheckMidName();
    void CheckMid(ByteSource& input);
    void CompareRows();

    const std::filesystem::path& mif_;
    std::filesystem::path mid_;
    const PairCheckOptions& options_;
    FindingCounter report_;
    CheckedPair pair_;
    double mifSize_;
    double midSize_;
    const std::string& charset_;
};

CheckedPair PairChecker::Check() {
    InputFile mif;
    if (Opens(AsOnDisk(mif_), FileOfPair::Mif, mif) && IsMif()) {
        WatchedSource input(mif.get(), options_.progress, 0.0, mifSize_ + midSize_);
        CheckMif(input);
    }
    if (pair_.isReadable) {
        CheckMidName();
    }
    InputFile mid;
    if (!mid_.empty() && pair_.header.hasData && Opens(mid_, FileOfPair::Mid, mid)) {
        WatchedSource input(mid.get(), options_.progress, mifSize_, mifSize_ + midSize_);
        CheckMid(input);
    }
    pair_.findings = report_.Counts();
    return std::move(pair_);
}

bool PairChecker::Opens(const std::filesystem::path& path, FileOfPair file, InputFile& stream) {
    const std::string problem = OpenProblem(path, stream);
    if (!problem.empty()) {
        report_.Add(FindingCode::FileUnreadable, {file, 0, 0}, problem);
    }
    return problem.empty();
}

bool PairChecker::IsMif() {
    const std::string problem = WhyNoMif(mif_);
    if (!problem.empty()) {
        report_.Add(FindingCode::FileUnreadable, {}, problem);
    }
    return problem.empty();
}

void PairChecker::CheckMif(ByteSource& input) {
    std::uint64_t object = 0;
    LineCheck checks(FileOfPair::Mif, report_, charset_, object);
    LineReader lines(input, [&](const MifLine& line) { checks.See(line); });
    if (!CheckStart(lines, FileOfPair::Mif, report_)) {
        return;
    }
    pair_.isReadable = true;
    PassHeader(lines, report_, options_.tabRewriting, pair_.header);
    ReportFaultsOfClause();
    if (options_.possible) {
        pair_.header.possible = options_.possible;
    }
    if (pair_.header.hasData) {
        ShapeCheck shapes(pair_.header, report_);
        pair_.objects = ObjectPass(lines, report_, shapes, object).Run();
    }
}

void PairChecker::ReportFaultsOfClause() {
    for (const ClauseFault& fault : options_.faultsOfClause) {
        if (report_.Counts()[static_cast<std::size_t>(fault.code)].found == 0) {
            report_.Add(fault.code, {FileOfPair::Mif, pair_.header.coordSys.line, 0}, fault.text);
        }
    }
}

void PairChecker::CheckMidName() {
    if (mid_.empty()) {
        if (!pair_.header.columns.empty()) {
            report_.Add(FindingCode::MidMissing, {FileOfPair::Mid, 0, 0},
                        "there is no .mid file; the objects come without attributes");
        }
        return;
    }
    const std::filesystem::path expected = WithMidExtension(mif_);
    if (mid_.filename() != expected.filename()) {
        report_.Add(FindingCode::MidNameCase, {FileOfPair::Mid, 0, 0},
                    "expected the name " + PathText(expected.filename()));
    }
}

void PairChecker::CheckMid(ByteSource& input) {
    std::uint64_t row = 0;
    LineCheck checks(FileOfPair::Mid, report_, charset_, row);
    LineReader lines(input, [&](const MifLine& line) { checks.See(line); });
    if (!CheckStart(lines, FileOfPair::Mid, report_)) {
        return;
    }
    pair_.rows =
        CheckRows(lines, report_, pair_.header, checks.Tester(), options_.tabRewriting, row);
    if (!pair_.header.columns.empty()) {
        CompareRows();
    } else if (pair_.rows > 0) {
        report_.Add(FindingCode::RowsWithoutColumns, {FileOfPair::Mid, 0, 0},
                    Counted(pair_.rows, "row", "rows") + ", but the header declares no columns");
    }
}

// By the format each object has a row; the module takes one for each part of a collection.
void PairChecker::CompareRows() {
    const std::uint64_t rows = pair_.rows;
    const std::uint64_t collections = pair_.objects.Of(ObjectKind::Collection);
    const std::uint64_t objects = pair_.objects.Objects() - collections + pair_.objects.members;
    if (rows == objects || rows + pair_.objects.emptyTexts == objects) {
        return;
    }
    const std::string text =
        Counted(rows, "row", "rows") + " and " + Counted(objects, "object", "objects");
    if (collections > 0 && rows == pair_.objects.Objects()) {
        report_.Add(FindingCode::CollectionTakesRows, {FileOfPair::Mid, 0, 0},
                    text + ": one row for each Collection, but the reader takes one for each part");
    } else if (rows < objects) {
        report_.Add(FindingCode::ObjectWithoutRow, {FileOfPair::Mid, 0, rows + 1}, text);
    } else {
        report_.Add(FindingCode::RowWithoutObject, {FileOfPair::Mid, 0, objects + 1}, text);
    }
}

}  // namespace

CheckedPair CheckPair(const std::filesystem::path& mif, const PairCheckOptions& options,
                      FindingSink& sink) {
    return PairChecker(mif, options, sink).Check();
}

}  // namespace app
