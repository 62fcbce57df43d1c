#include "app/check/CheckRun.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"
#include "app/base/Reporter.h"
#include "app/base/Utf8.h"
#include "app/base/platform/System.h"
#include "app/check/CheckProgress.h"
#include "app/check/FindingsOfClause.h"
#include "app/check/GatheredFindings.h"
#include "app/check/LayerCheck.h"
#include "app/check/PairCheck.h"
#include "app/check/RepairMif.h"
#include "app/formats/Formats.h"
#include "app/json/JsonText.h"
#include "app/mif/Charsets.h"
#include "app/mif/PairPass.h"
#include "app/run/CodePage.h"

#include <algorithm>
#include <array>
#include <memory>
#include <optional>

namespace app {
namespace {

// How often a file is read: by the check and by the module; twice more for a repair.
constexpr int kPasses = 2;
constexpr int kPassesWithFix = 4;

constexpr int kExitErrors = 1;
constexpr int kExitWarnings = 3;

using SeverityCounts = std::array<std::uint64_t, 3>;

SeverityCounts BySeverity(const FindingCounts& counts) {
    SeverityCounts sums{};
    for (const FindingInfo& info : AllFindings()) {
        sums[static_cast<std::size_t>(info.severity)] +=
            counts[static_cast<std::size_t>(info.code)].found;
    }
    return sums;
}

// A name or message of a file on one line, without anything that drives a terminal.
std::string Printable(std::string text) {
    std::replace(text.begin(), text.end(), '\n', '?');
    return TerminalText(text);
}

std::string PlaceText(const Finding& finding) {
    std::string text = Printable(PathText(finding.file));
    if (finding.line > 0) {
        text += ":" + std::to_string(finding.line);
    }
    return text;
}

// Prints findings as they come.
class TextSink : public FindingSink {
public:
    TextSink(OutputFile& out, bool asIs) : out_(out), asIs_(asIs) {}

    void Add(const Finding& finding) override {
        std::string text = PlaceText(finding) + ": " +
                           std::string(SeverityName(finding.code->severity)) + " " +
                           finding.code->id + ": ";
        if (finding.object > 0) {
            text += "object " + std::to_string(finding.object) + ": ";
        }
        text += Printable(finding.message) + "\n    " + finding.advice + "\n";
        if (finding.isCaredFor && !asIs_) {
            text += "    qolf itself reads it as it was meant; it matters for other programs "
                    "only.\n";
        }
        out_.Write(text);
    }

private:
    OutputFile& out_;
    bool asIs_;
};

void AppendMember(std::string& json, const char* key, std::string_view value) {
    json += std::string(", \"") + key + "\": ";
    AppendJsonString(json, value);
}

void AppendMember(std::string& json, const char* key, std::uint64_t value) {
    json += std::string(", \"") + key + "\": " + std::to_string(value);
}

class JsonSink : public FindingSink {
public:
    JsonSink(OutputFile& out, bool asIs) : out_(out), asIs_(asIs) {}

    void Add(const Finding& finding) override {
        std::string json = isFirst_ ? "\n      {\"code\": " : ",\n      {\"code\": ";
        isFirst_ = false;
        AppendJsonString(json, finding.code->id);
        AppendMember(json, "name", finding.code->name);
        AppendMember(json, "severity", SeverityName(finding.code->severity));
        AppendMember(json, "file", PathText(finding.file));
        AppendMember(json, "line", finding.line);
        AppendMember(json, "object", finding.object);
        AppendMember(json, "count", finding.count);
        json += std::string(", \"otherProgramsOnly\": ") +
                (finding.isCaredFor && !asIs_ ? "true" : "false");
        AppendMember(json, "message", finding.message);
        AppendMember(json, "advice", finding.advice);
        out_.Write(json + "}");
    }

private:
    OutputFile& out_;
    bool asIs_;
    bool isFirst_ = true;
};

// The charset that headers name so; "" for an encoding that they have no name for.
std::string CharsetOf(const std::string& encoding) {
    const Charset* const charset = FindCharsetOfEncoding(encoding);
    return charset == nullptr ? std::string() : std::string(charset->mifName);
}

// Messages name pieces of the file as its bytes; here they become texts.
class DecodedFindings : public FindingSink {
public:
    explicit DecodedFindings(FindingSink& sink, bool isBelieved)
        : sink_(sink), isBelieved_(isBelieved) {}

    void Add(const Finding& finding) override {
        const bool isText = finding.code->code == FindingCode::MidNameCase ||
                            (!isBelieved_ && IsUtf8(finding.message));
        Finding decoded = finding;
        if (!isText) {
            decoded.message = Utf8FromNarrow(finding.message);
        }
        sink_.Add(decoded);
    }

private:
    FindingSink& sink_;
    bool isBelieved_;  // the bytes are of the code page that is set, whatever they look like
};

// Null for pairs, and for files of no format, which are checked as such.
const Format* OtherFormatOf(const std::filesystem::path& file) {
    const Format* const format = FindFormatOfFile(file);
    return format != nullptr && format->mainFile == nullptr ? format : nullptr;
}

FindingCounts CheckFile(const std::filesystem::path& file, const CheckOptions& options,
                        CheckProgress& progress, FindingSink& sink) {
    if (const Format* const format = OtherFormatOf(file)) {
        return CheckLayers(file, *format, options.maxPerCode, sink);
    }
    MifHeader header;
    if (std::error_code error; std::filesystem::is_regular_file(AsOnDisk(file), error)) {
        header = ScanHeader(file);
    }
    Reporter silent(stderr, false, false);
    silent.SetVerbosity(Verbosity::Quiet);
    SetCodePageFor(header, options.encoding, /*areLettersUtf8=*/false, PathText(file), silent);
    std::vector<ClauseFault> faults;
    if (options.assumedSystem == nullptr && !options.asIs) {
        faults = FaultsOfClause(header.coordSysText);
    }
    FindingsOfClause ofClause(sink, faults);
    DecodedFindings decoded(options.asIs ? sink : ofClause,
                            AreLettersBelieved(header, options.encoding));
    PairCheckOptions pairOptions{.maxPerCode = options.maxPerCode,
                                 .tabRewriting = TabRewriting::Off,
                                 .charset = CharsetOf(options.encoding),
                                 .faultsOfClause = faults,
                                 .progress = progress.NextPass(file)};
    if (options.assumedSystem != nullptr) {
        pairOptions.possible = PossibleCoordinates(*options.assumedSystem);
    }
    CheckedPair pair;
    if (options.maxPerCode == 0) {
        pair = CheckPair(file, pairOptions, decoded);
    } else {
        GatheredFindings gathered;
        pair = CheckPair(file, pairOptions, gathered);
        progress.Hide();
        gathered.PassOn(decoded, pair);
    }
    if (pair.findings[static_cast<std::size_t>(FindingCode::FileUnreadable)].found == 0) {
        CheckByImport(file, options.modulePath, sink, pair.findings, pair.objects.Objects(),
                      progress.NextPass(file));
    }
    return pair.findings;
}

std::string Plural(std::uint64_t count, const char* one) {
    return Counted(count, one, (std::string(one) + "s").c_str());
}

void WriteSummary(const std::filesystem::path& file, const FindingCounts& counts, OutputFile& out) {
    for (const FindingInfo& info : AllFindings()) {
        const FindingCount& count = counts[static_cast<std::size_t>(info.code)];
        if (count.found > count.reported) {
            out.Write(Printable(PathText(file)) + ": " + info.id + ": " +
                      std::to_string(count.found - count.reported) + " more not shown\n");
        }
    }
    const SeverityCounts sums = BySeverity(counts);
    const std::string text = sums[0] + sums[1] + sums[2] == 0
                                 ? "nothing found"
                                 : Plural(sums[0], "error") + ", " + Plural(sums[1], "warning") +
                                       ", " + Plural(sums[2], "note");
    out.Write(Printable(PathText(file)) + ": " + text + "\n");
}

void WriteRepairs(const CheckOptions& options, const RepairReport& report, OutputFile& out) {
    if (report.count == 0) {
        out.Write(PathText(options.fix) + ": not written: there is nothing to repair\n");
        return;
    }
    for (const Repair& repair : report.repairs) {
        out.Write(Printable(PathText(repair.file)) + ":" + std::to_string(repair.line) +
                  ": repaired " + InfoOf(repair.code).id + ": " + Printable(repair.what) + "\n");
    }
    out.Write(PathText(options.fix) + ": written with " + Plural(report.count, "repair") + "\n");
}

std::string RepairsAsJson(const CheckOptions& options, const RepairReport& report) {
    std::string json = ",\n  \"fix\": {\"path\": ";
    AppendJsonString(json, PathText(options.fix));
    json += std::string(", \"written\": ") + (report.count > 0 ? "true" : "false");
    AppendMember(json, "count", report.count);
    json += ", \"repairs\": [";
    bool isFirst = true;
    for (const Repair& repair : report.repairs) {
        json += isFirst ? "\n      {\"code\": " : ",\n      {\"code\": ";
        isFirst = false;
        AppendJsonString(json, InfoOf(repair.code).id);
        AppendMember(json, "file", PathText(repair.file));
        AppendMember(json, "line", repair.line);
        AppendMember(json, "what", repair.what);
        json += "}";
    }
    return json + "]}";
}

SeverityCounts CheckAsJson(const CheckOptions& options, CheckProgress& progress, OutputFile& out) {
    SeverityCounts all{};
    out.Write("{\"files\": [");
    for (std::size_t i = 0; i < options.files.size(); ++i) {
        std::string json = i == 0 ? "\n  {\"path\": " : ",\n  {\"path\": ";
        AppendJsonString(json, PathText(options.files[i]));
        out.Write(json + ", \"findings\": [");
        JsonSink sink(out, options.asIs);
        const SeverityCounts sums =
            BySeverity(CheckFile(options.files[i], options, progress, sink));
        out.Write("], \"errors\": " + std::to_string(sums[0]) + ", \"warnings\": " +
                  std::to_string(sums[1]) + ", \"notes\": " + std::to_string(sums[2]) + "}");
        for (std::size_t s = 0; s < all.size(); ++s) {
            all[s] += sums[s];
        }
    }
    out.Write("\n  ]");
    return all;
}

SeverityCounts CheckAsText(const CheckOptions& options, CheckProgress& progress, OutputFile& out) {
    SeverityCounts all{};
    for (const std::filesystem::path& file : options.files) {
        TextSink sink(out, options.asIs);
        const FindingCounts counts = CheckFile(file, options, progress, sink);
        WriteSummary(file, counts, out);
        const SeverityCounts sums = BySeverity(counts);
        for (std::size_t s = 0; s < all.size(); ++s) {
            all[s] += sums[s];
        }
    }
    return all;
}

}  // namespace

CheckOptions CheckedCheckOptions(const CheckArguments& arguments) {
    CheckOptions options;
    if (arguments.files.empty()) {
        throw UsageError("check needs one or more MIF files");
    }
    for (const std::string& file : arguments.files) {
        if (file == "-") {
            throw UsageError(
                "a MIF file can't come from standard input: its .mid is a file beside it");
        }
        options.files.push_back(MifBeside(PathFromArgument(file)));
    }
    if (!arguments.fix.empty()) {
        if (options.files.size() != 1) {
            throw UsageError("--fix writes one copy, so it takes one file");
        }
        if (OtherFormatOf(options.files.front()) != nullptr) {
            throw UsageError(PathText(options.files.front()) + ": --fix repairs MIF files only");
        }
        CheckMifOutput(arguments.fix);
        options.fix = PathFromArgument(arguments.fix);
    }
    options.json = arguments.json;
    options.strict = arguments.strict;
    options.maxPerCode = arguments.maxPerCode;
    options.encoding = arguments.encoding;
    options.asIs = arguments.asIs;
    options.ifExists = arguments.overwrite ? IfExists::Overwrite : IfExists::Refuse;
    return options;
}

int PrintCodes() {
    OutputFile out("-", IfExists::Overwrite);
    out.Write(FindingsAsMarkdown());
    out.Finish();
    return 0;
}

int RunCheck(const CheckOptions& options, Reporter& reporter) {
    if (options.maxPerCode == 0 && IsTerminal(stdout)) {
        reporter.SetProgress(false);  // findings go to the terminal as they come
    }
    std::optional<CheckProgress> progress;
    progress.emplace(options.files, options.fix.empty() ? kPasses : kPassesWithFix, reporter);
    std::optional<RepairReport> repairs;
    if (!options.fix.empty()) {
        const std::filesystem::path& file = options.files.front();
        repairs = RepairMif(file, options.fix, options.ifExists,
                            [&] { return progress->NextPass(file); });
    }
    OutputFile out("-", IfExists::Overwrite);
    const SeverityCounts sums =
        options.json ? CheckAsJson(options, *progress, out) : CheckAsText(options, *progress, out);
    progress.reset();
    if (repairs && options.json) {
        out.Write(RepairsAsJson(options, *repairs));
    } else if (repairs) {
        WriteRepairs(options, *repairs, out);
    }
    if (options.json) {
        out.Write("\n}\n");
    }
    out.Finish();
    if (sums[0] > 0) {
        return kExitErrors;
    }
    return options.strict && sums[1] > 0 ? kExitWarnings : 0;
}

}  // namespace app
