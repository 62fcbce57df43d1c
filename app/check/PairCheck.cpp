#include "app/check/PairCheck.h"

#include "app/base/InputFile.h"
#include "app/base/Paths.h"
#include "app/check/CharsetCheck.h"
#include "app/check/ObjectCheck.h"
#include "app/check/RowCheck.h"
#include "app/mif/LineReader.h"
#include "app/mif/Numbers.h"
#include "app/mif/Words.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <memory>
#include <string>

namespace app::check {
namespace {

// What holds for every line of both files: characters and line ends.
class LineChecks {
public:
    LineChecks(PairFile file, Report& report, const std::string& charset,
               const std::uint64_t& object)
        : file_(file), report_(report), charset_(charset), object_(object) {}

    void See(const MifLine& line) {
        const Place place{file_, line.number, object_};
        if (line.raw.find('\0') != std::string::npos) {
            report_.Add(Code::NulByte, place, "the line holds a NUL byte; the reader stops there");
        }
        if (line.isCut) {
            report_.Add(Code::LineTooLong, place, "the line is longer than 1 MiB");
        }
        SeeLineEnd(line, place);
        SeeCharacters(line, place);
    }

    const CharsetTester& Tester() {
        if (tester_ == nullptr || testerName_ != charset_) {
            testerName_ = charset_;
            tester_ = std::make_unique<CharsetTester>(charset_);
        }
        return *tester_;
    }

private:
    void SeeLineEnd(const MifLine& line, const Place& place) {
        if (line.lineEnd == LineEnd::LoneCr) {
            if (!isReturnReported_) {
                isReturnReported_ = true;
                report_.Add(Code::LoneCarriageReturn, place,
                            "the line ends with a carriage return alone; the reader takes the "
                            "next line as its continuation");
            }
            report_.Change(file_, {.begin = line.end,
                                   .end = line.next,
                                   .text = "\n",
                                   .code = Code::LoneCarriageReturn,
                                   .line = line.number,
                                   .what = "the carriage return becomes a line end"});
        }
        if (line.lineEnd == LineEnd::None) {
            const bool isLost =
                file_ == PairFile::Mif && line.tokens.size() == 1 && line.tokens.front().Is("none");
            const Code code = isLost ? Code::LastObjectLost : Code::FinalLineEndMissing;
            report_.Add(code, place, "the last line has no line end");
            report_.Change(file_, {.begin = line.end,
                                   .end = line.end,
                                   .text = LineEndText(lastLineEnd_),
                                   .code = code,
                                   .line = line.number,
                                   .what = "a line end is put behind the last line"});
        }
        lastLineEnd_ = line.lineEnd;
    }

    void SeeCharacters(const MifLine& line, const Place& place) {
        if (IsAscii(line.raw)) {
            return;
        }
        static_cast<void>(Tester());
        const CharsetVerdict verdict = tester_->Test(line.raw);
        if (verdict == CharsetVerdict::NotInCharset) {
            report_.Add(Code::OutsideCharset, place,
                        "the line holds bytes that are no characters of " + charset_);
        } else if (verdict == CharsetVerdict::LooksLikeUtf8 && !isUtf8Reported_) {
            isUtf8Reported_ = true;
            report_.Add(Code::LooksLikeUtf8, place,
                        "the charset is " + charset_ + ", but the line is valid UTF-8");
        } else if (tester_->Kind() == CharsetKind::Neutral && !isNeutralReported_) {
            isNeutralReported_ = true;
            report_.Add(Code::NeutralBytes, place,
                        "the line holds letters beyond ASCII, and the charset is Neutral");
        }
    }

    PairFile file_;
    Report& report_;
    const std::string& charset_;
    const std::uint64_t& object_;
    std::unique_ptr<CharsetTester> tester_;
    std::string testerName_;
    LineEnd lastLineEnd_ = LineEnd::Lf;
    bool isReturnReported_ = false;
    bool isUtf8Reported_ = false;
    bool isNeutralReported_ = false;
};

// False when the file can't be cut into lines at all.
bool CheckStart(const LineReader& lines, PairFile file, Report& report) {
    if (lines.Start() == FileStart::Utf16) {
        report.Add(Code::Utf16, {file, 1, 0}, "the file is encoded in UTF-16");
        return false;
    }
    if (lines.Start() == FileStart::ByteOrderMark) {
        report.Add(Code::ByteOrderMark, {file, 1, 0},
                   "the file begins with a byte-order mark; the reader takes it as a part of the "
                   "first word");
        report.Change(file, {.begin = 0,
                             .end = 3,
                             .text = {},
                             .code = Code::ByteOrderMark,
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

void CompareRows(std::uint64_t rows, const ObjectCounts& counts, Report& report) {
    if (rows == counts.objects || rows + counts.emptyTexts == counts.objects) {
        return;
    }
    const std::string text =
        Counted(rows, "row", "rows") + " and " + Counted(counts.objects, "object", "objects");
    if (counts.collections > 0 && rows + counts.parts == counts.objects + counts.collections) {
        report.Add(Code::CollectionTakesRows, {PairFile::Mid, 0, 0},
                   text + ": one row for each Collection, but the reader takes one for each part");
    } else if (rows < counts.objects) {
        report.Add(Code::ObjectWithoutRow, {PairFile::Mid, 0, rows + 1}, text);
    } else {
        report.Add(Code::RowWithoutObject, {PairFile::Mid, 0, counts.objects + 1}, text);
    }
}

void CheckMid(const std::filesystem::path& mid, const CheckedHeader& header,
              const ObjectCounts& counts, TabRewriting rewriting, Report& report) {
    InputFile stream;
    if (const std::string problem = OpenProblem(mid, stream); !problem.empty()) {
        report.Add(Code::FileUnreadable, {PairFile::Mid, 0, 0}, problem);
        return;
    }
    std::uint64_t row = 0;
    LineChecks checks(PairFile::Mid, report, header.charset, row);
    LineReader lines(stream.get(), LineReader::Cut::NotAtAll,
                     [&](const MifLine& line) { checks.See(line); });
    if (!CheckStart(lines, PairFile::Mid, report)) {
        return;
    }
    const std::uint64_t rows = CheckRows(lines, report, header, checks.Tester(), rewriting, row);
    if (header.columns.empty()) {
        if (rows > 0) {
            report.Add(Code::RowsWithoutColumns, {PairFile::Mid, 0, 0},
                       Counted(rows, "row", "rows") + ", but the header declares no columns");
        }
        return;
    }
    CompareRows(rows, counts, report);
}

void CheckMidName(const std::filesystem::path& mif, const std::filesystem::path& mid,
                  const CheckedHeader& header, Report& report) {
    if (mid.empty()) {
        if (!header.columns.empty()) {
            report.Add(Code::MidMissing, {PairFile::Mid, 0, 0},
                       "there is no .mid file; the objects come without attributes");
        }
        return;
    }
    std::filesystem::path expected = mif;
    expected.replace_extension(".mid");
    if (mid.filename() != expected.filename()) {
        report.Add(Code::MidNameCase, {PairFile::Mid, 0, 0},
                   "expected the name " + PathText(expected.filename()));
    }
}

}  // namespace

CodeCounts CheckPair(const std::filesystem::path& mif, const PairCheckOptions& options,
                     FindingSink& sink) {
    const std::filesystem::path found = FindCompanion(mif, ".mid");
    std::filesystem::path shown = mif;
    shown.replace_extension(".mid");
    Report report(sink, mif, found.empty() ? shown : found, options.maxPerCode);
    InputFile stream;
    if (const std::string problem = OpenProblem(AsOnDisk(mif), stream); !problem.empty()) {
        report.Add(Code::FileUnreadable, {PairFile::Mif, 0, 0}, problem);
        return report.Counts();
    }
    CheckedHeader header;
    std::uint64_t object = 0;
    LineChecks checks(PairFile::Mif, report, header.charset, object);
    LineReader lines(stream.get(), LineReader::Cut::IntoTokens,
                     [&](const MifLine& line) { checks.See(line); });
    if (!CheckStart(lines, PairFile::Mif, report)) {
        return report.Counts();
    }
    CheckHeader(lines, report, options.tabRewriting, header);
    const ObjectCounts counts =
        header.hasData ? CheckObjects(lines, report, header, object) : ObjectCounts{};
    CheckMidName(mif, found, header, report);
    if (!found.empty() && header.hasData) {
        CheckMid(found, header, counts, options.tabRewriting, report);
    }
    return report.Counts();
}

}  // namespace app::check
