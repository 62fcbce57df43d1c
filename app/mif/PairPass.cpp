#include "app/mif/PairPass.h"

#include "app/base/Errors.h"
#include "app/base/InputFile.h"
#include "app/base/Paths.h"
#include "app/mif/HeaderPass.h"
#include "app/mif/LineCursor.h"
#include "app/mif/RowReader.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

namespace app {
namespace {

struct FileKind {
    std::string_view begin;
    const char* name;
};
constexpr std::array kFileKinds = {
    FileKind{"PK\x03\x04", "a zip archive"},
    FileKind{"\x1F\x8B", "a gzip archive"},
    FileKind{"7z\xBC\xAF", "a 7z archive"},
    FileKind{"SQLite format 3", "a database, such as a GeoPackage"},
    FileKind{"%PDF", "a PDF document"},
    FileKind{"\x89PNG", "a picture"},
    FileKind{"\xFF\xD8\xFF", "a picture"},
    FileKind{"GIF8", "a picture"},
    FileKind{"II*", "a TIFF picture"},
    FileKind{"<", "XML or HTML"},
    FileKind{"{", "JSON"},
    FileKind{"[", "JSON"},
    FileKind{"!table", "the .tab file of a native table"},
};

[[noreturn]] void FailToOpen(const std::filesystem::path& path) {
    throw Failure(PathText(path) + ": can't open: " + std::strerror(errno));
}

InputFile Open(const std::filesystem::path& path) {
    InputFile stream = OpenInput(path);
    if (stream == nullptr) {
        FailToOpen(path);
    }
    return stream;
}

bool HasClauses(const MifHeader& header) {
    return header.hasVersion || !header.charset.empty() || !header.coordSys.text.empty() ||
           !header.columns.empty();
}

// What is wrong with a file that has no header, or one without an end.
std::string ProblemOf(const LineReader& lines, std::string_view begin, const MifHeader& header) {
    if (lines.Start() == FileStart::Utf16) {
        return "is encoded in UTF-16, which MIF files never are; save it in UTF-8";
    }
    if (begin.empty()) {
        return "is not a MIF file: it is empty";
    }
    if (HasClauses(header)) {
        return "the header ends without the line Data";
    }
    const std::string kind = KindOfFile(begin);
    return "is not a MIF file: " + (kind.empty() ? "it has no header that ends with the line Data"
                                                 : "it looks like " + kind);
}

// The .mif file on its way through the pass.
class MifPass {
public:
    explicit MifPass(const std::filesystem::path& mif)
        : mif_(mif), stream_(Open(mif)), input_(stream_.get()), lines_(input_) {}

    void PassHeader(FindingCounter& findings, MifHeader& header) {
        const std::string begin(lines_.Buffered().substr(0, 512));
        if (lines_.Start() != FileStart::Utf16) {
            app::PassHeader(lines_, findings, TabRewriting::Off, header);
        }
        problem_ = header.hasData ? "" : ProblemOf(lines_, begin, header);
    }

    const std::string& Problem() const { return problem_; }
    [[noreturn]] void Fail() const { throw Failure(PathText(mif_) + ": " + problem_); }

    MifCounts PassObjects(FindingCounter& findings, PassSink& sink) {
        std::uint64_t object = 0;
        return ObjectPass(lines_, findings, sink, object).Run();
    }

private:
    const std::filesystem::path& mif_;
    InputFile stream_;
    StreamSource input_;
    LineReader lines_;
    std::string problem_;
};

void SeeNames(const MifHeader& header, Utf8Check& utf8) {
    for (const Column& column : header.columns) {
        utf8.See(column.name);
    }
}

// Looks at the letters of the objects that go to a sink.
class LetterSink : public PassSink {
public:
    LetterSink(PassSink& sink, Utf8Check& utf8) : sink_(sink), utf8_(utf8) {}

    void TakeHeader(const MifHeader& header) override {
        SeeNames(header, utf8_);
        sink_.TakeHeader(header);
    }
    void Take(const ObjectFacts& facts) override {
        See(facts);
        sink_.Take(facts);
    }
    void Cut(std::uint64_t begin, std::uint64_t end, std::string_view text) override {
        sink_.Cut(begin, end, text);
    }
    bool WantsPoints() const override { return sink_.WantsPoints(); }
    void TakePoints(const ObjectPart& part) override { sink_.TakePoints(part); }

private:
    void See(const ObjectFacts& facts) {
        utf8_.See(facts.text);
        if (facts.clauses.size() != clauses_.size() || facts.clauses != clauses_) {
            clauses_ = facts.clauses;
            utf8_.See(clauses_);
        }
        for (const ObjectFacts& member : facts.members) {
            See(member);
        }
    }

    PassSink& sink_;
    Utf8Check& utf8_;
    std::string clauses_;  // that were seen last
};

}  // namespace

std::string KindOfFile(std::string_view begin) {
    if (begin.find('\0') == std::string_view::npos) {
        const std::size_t first = begin.find_first_not_of(" \t\r\n");
        begin.remove_prefix(std::min(first, begin.size()));
    }
    for (const FileKind& kind : kFileKinds) {
        if (begin.starts_with(kind.begin)) {
            return kind.name;
        }
    }
    return begin.find('\0') != std::string_view::npos ? "binary data" : "";
}

std::filesystem::path MifBeside(const std::filesystem::path& path) {
    const std::filesystem::path mif =
        LowerExtension(path) == ".mid" ? FindCompanion(path, ".mif") : std::filesystem::path();
    return mif.empty() ? path : mif;
}

std::string WhyNoMif(const std::filesystem::path& path) {
    constexpr std::string_view kNoMif = "is not a MIF file";
    try {
        PassedHeader passed;
        FindingCounter findings;
        MifPass pass(path);
        pass.PassHeader(findings, passed.header);
        return pass.Problem().starts_with(kNoMif) ? pass.Problem() : "";
    } catch (const Failure&) {
        return "";
    }
}

PassedHeader PassHeaderOf(const std::filesystem::path& mif) {
    PassedHeader passed;
    FindingCounter findings;
    MifPass pass(mif);
    pass.PassHeader(findings, passed.header);
    if (!passed.header.hasData && !HasClauses(passed.header)) {
        pass.Fail();
    }
    Utf8Check utf8;
    SeeNames(passed.header, utf8);
    passed.findings = findings.Counts();
    passed.areLettersUtf8 = utf8.IsUtf8WithLetters();
    return passed;
}

PassedPair PassPair(const std::filesystem::path& mif, PassSink& sink) {
    PassedPair passed;
    FindingCounter findings;
    Utf8Check utf8;
    MifPass pass(mif);
    pass.PassHeader(findings, passed.header);
    if (!passed.header.hasData) {
        pass.Fail();
    }
    LetterSink letters(sink, utf8);
    letters.TakeHeader(passed.header);
    passed.objects = pass.PassObjects(findings, letters);
    passed.mid = FindCompanion(mif, ".mid");
    if (!passed.mid.empty()) {
        const InputFile stream = Open(passed.mid);
        StreamSource input(stream.get());
        LineReader lines(input);
        passed.rows =
            PassRows(lines, DelimiterOf(passed.header), passed.header.columns.size(), utf8);
    }
    passed.findings = findings.Counts();
    passed.areLettersUtf8 = utf8.IsUtf8WithLetters();
    return passed;
}

std::uint64_t PassRows(LineReader& lines, char delimiter, std::size_t columns, Utf8Check& utf8) {
    std::uint64_t rows = 0;
    std::uint64_t blanks = 0;  // the last lines so far
    for (bool isMore = true; isMore;) {
        LineCursor cursor(lines, LineReader::AtTheEnd::ClosesLastLine);
        std::string_view line;
        bool isOpen = false;
        while (!isOpen && cursor.Line(line)) {
            utf8.See(line);
            isOpen = HasLoneReturn(line) || std::ranges::count(line, '"') % 2 != 0;
            if (!isOpen) {
                ++rows;
                blanks = line.empty() || line == "\r" ? blanks + 1 : 0;
                cursor.Next();
            }
        }
        cursor.Leave();
        // A value may go on on the next line; lines may end with carriage returns alone.
        RowReader reader(lines, delimiter, columns);
        isMore = reader.Skip();
        rows += isMore ? 1 : 0;
        blanks = isMore ? 0 : blanks;
    }
    return rows - blanks;
}

}  // namespace app
