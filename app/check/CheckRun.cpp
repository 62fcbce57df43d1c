#include "app/check/CheckRun.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"
#include "app/base/Reporter.h"
#include "app/check/PairCheck.h"
#include "app/check/RepairMif.h"
#include "app/json/JsonText.h"

#include <algorithm>
#include <array>
#include <memory>
#include <optional>

namespace app {
namespace {

constexpr int kExitErrors = 1;
constexpr int kExitWarnings = 3;

using SeverityCounts = std::array<std::uint64_t, 3>;

SeverityCounts BySeverity(const check::CodeCounts& counts) {
    SeverityCounts sums{};
    for (const check::CodeInfo& info : check::AllCodes()) {
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

std::string PlaceText(const check::Finding& finding) {
    std::string text = Printable(PathText(finding.file));
    if (finding.line > 0) {
        text += ":" + std::to_string(finding.line);
    }
    return text;
}

// Prints findings as they come.
class TextSink : public check::FindingSink {
public:
    explicit TextSink(OutputFile& out) : out_(out) {}

    void Add(const check::Finding& finding) override {
        std::string text = PlaceText(finding) + ": " +
                           std::string(check::SeverityName(finding.code->severity)) + " " +
                           finding.code->id + ": ";
        if (finding.object > 0) {
            text += "object " + std::to_string(finding.object) + ": ";
        }
        out_.Write(text + Printable(finding.message) + "\n    " + finding.advice + "\n");
    }

private:
    OutputFile& out_;
};

void AppendMember(std::string& json, const char* key, std::string_view value) {
    json += std::string(", \"") + key + "\": ";
    AppendJsonString(json, value);
}

void AppendMember(std::string& json, const char* key, std::uint64_t value) {
    json += std::string(", \"") + key + "\": " + std::to_string(value);
}

class JsonSink : public check::FindingSink {
public:
    explicit JsonSink(OutputFile& out) : out_(out) {}

    void Add(const check::Finding& finding) override {
        std::string json = isFirst_ ? "\n      {\"code\": " : ",\n      {\"code\": ";
        isFirst_ = false;
        AppendJsonString(json, finding.code->id);
        AppendMember(json, "name", finding.code->name);
        AppendMember(json, "severity", check::SeverityName(finding.code->severity));
        AppendMember(json, "file", PathText(finding.file));
        AppendMember(json, "line", finding.line);
        AppendMember(json, "object", finding.object);
        AppendMember(json, "message", finding.message);
        AppendMember(json, "advice", finding.advice);
        out_.Write(json + "}");
    }

private:
    OutputFile& out_;
    bool isFirst_ = true;
};

check::CodeCounts CheckFile(const std::filesystem::path& file, const CheckOptions& options,
                            check::FindingSink& sink) {
    check::CodeCounts counts = check::CheckPair(file, {.maxPerCode = options.maxPerCode}, sink);
    if (counts[static_cast<std::size_t>(check::Code::FileUnreadable)].found == 0) {
        check::CheckByImport(file, options.modulePath, sink, counts);
    }
    return counts;
}

std::string Plural(std::uint64_t count, const char* one) {
    return check::Counted(count, one, (std::string(one) + "s").c_str());
}

void WriteSummary(const std::filesystem::path& file, const check::CodeCounts& counts,
                  OutputFile& out) {
    for (const check::CodeInfo& info : check::AllCodes()) {
        const check::CodeCount& count = counts[static_cast<std::size_t>(info.code)];
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

void WriteRepairs(const CheckOptions& options, const check::RepairReport& report, OutputFile& out) {
    for (const check::Repair& repair : report.repairs) {
        out.Write(Printable(PathText(repair.file)) + ":" + std::to_string(repair.line) +
                  ": repaired " + check::InfoOf(repair.code).id + ": " + Printable(repair.what) +
                  "\n");
    }
    out.Write(PathText(options.fix) + ": written with " + Plural(report.count, "repair") + "\n");
}

std::string RepairsAsJson(const CheckOptions& options, const check::RepairReport& report) {
    std::string json = ",\n  \"fix\": {\"path\": ";
    AppendJsonString(json, PathText(options.fix));
    AppendMember(json, "count", report.count);
    json += ", \"repairs\": [";
    bool isFirst = true;
    for (const check::Repair& repair : report.repairs) {
        json += isFirst ? "\n      {\"code\": " : ",\n      {\"code\": ";
        isFirst = false;
        AppendJsonString(json, check::InfoOf(repair.code).id);
        AppendMember(json, "file", PathText(repair.file));
        AppendMember(json, "line", repair.line);
        AppendMember(json, "what", repair.what);
        json += "}";
    }
    return json + "]}";
}

SeverityCounts CheckAsJson(const CheckOptions& options, OutputFile& out) {
    SeverityCounts all{};
    out.Write("{\"files\": [");
    for (std::size_t i = 0; i < options.files.size(); ++i) {
        std::string json = i == 0 ? "\n  {\"path\": " : ",\n  {\"path\": ";
        AppendJsonString(json, PathText(options.files[i]));
        out.Write(json + ", \"findings\": [");
        JsonSink sink(out);
        const SeverityCounts sums = BySeverity(CheckFile(options.files[i], options, sink));
        out.Write("], \"errors\": " + std::to_string(sums[0]) + ", \"warnings\": " +
                  std::to_string(sums[1]) + ", \"notes\": " + std::to_string(sums[2]) + "}");
        for (std::size_t s = 0; s < all.size(); ++s) {
            all[s] += sums[s];
        }
    }
    out.Write("\n  ]");
    return all;
}

SeverityCounts CheckAsText(const CheckOptions& options, OutputFile& out) {
    SeverityCounts all{};
    for (const std::filesystem::path& file : options.files) {
        TextSink sink(out);
        const check::CodeCounts counts = CheckFile(file, options, sink);
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
                "a MIF file can't come from standard input: its .mid stands beside it");
        }
        options.files.push_back(PathFromArgument(file));
    }
    if (!arguments.fix.empty()) {
        if (options.files.size() != 1) {
            throw UsageError("--fix writes one copy, so it takes one file");
        }
        CheckMifOutput(arguments.fix);
        options.fix = PathFromArgument(arguments.fix);
    }
    options.json = arguments.json;
    options.strict = arguments.strict;
    options.maxPerCode = arguments.maxPerCode;
    options.ifExists = arguments.overwrite ? IfExists::Overwrite : IfExists::Refuse;
    return options;
}

int PrintCodes() {
    OutputFile out("-", IfExists::Overwrite);
    out.Write(check::CodesAsMarkdown());
    out.Finish();
    return 0;
}

int RunCheck(const CheckOptions& options, Reporter& reporter) {
    std::optional<check::RepairReport> repairs;
    if (!options.fix.empty()) {
        repairs = check::RepairMif(options.files.front(), options.fix, options.ifExists);
        if (repairs->count == 0) {
            reporter.Note(PathText(options.files.front()) +
                          ": nothing to repair; the copy is the same");
        }
    }
    OutputFile out("-", IfExists::Overwrite);
    const SeverityCounts sums =
        options.json ? CheckAsJson(options, out) : CheckAsText(options, out);
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
