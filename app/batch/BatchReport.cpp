#include "app/batch/BatchReport.h"

#include "app/base/Output.h"
#include "app/base/Paths.h"
#include "app/base/Reporter.h"
#include "app/batch/BatchLog.h"
#include "app/batch/ShardPlan.h"
#include "app/json/JsonObjectWriter.h"

#include <algorithm>
#include <cstdio>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace app {
namespace {

using std::filesystem::path;
using LastLines = std::unordered_map<std::string, BatchLogLine>;  // by output

// What stands in a name for bytes that are no UTF-8.
constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

// The last line of each file; of several parts' lines, a success wins.
LastLines ReadLogs(const path& folder) {
    LastLines all;
    for (const path& log : LogsIn(folder)) {
        LastLines ofLog;
        for (BatchLogLine& line : ReadBatchLog(log)) {
            ofLog.insert_or_assign(line.output, std::move(line));
        }
        for (auto& [output, line] : ofLog) {
            BatchLogLine& kept = all.try_emplace(output, line).first->second;
            if (line.error.empty()) {
                kept = std::move(line);
            }
        }
    }
    return all;
}

bool IsThere(const path& folder, const BatchLogLine& line) {
    if (line.features == 0U || line.output.find(kReplacement) != std::string::npos) {
        return true;  // nothing to write; or no name to look for
    }
    std::error_code error;
    return std::filesystem::exists(
        folder / path(std::u8string(line.output.begin(), line.output.end())), error);
}

std::string OneLine(std::string text) {
    std::ranges::replace(text, '\n', '?');
    return TerminalText(text);
}

std::string Grouped(std::uint64_t number) {
    std::string digits = std::to_string(number);
    for (std::size_t at = digits.size(); at > 3;) {
        at -= 3;
        digits.insert(at, ",");
    }
    return digits;
}

std::string Decimal(double value, int decimals) {
    char text[64];
    std::snprintf(text, sizeof text, "%.*f", decimals, value);
    return text;
}

std::string SizeText(std::uint64_t bytes) {
    const auto size = static_cast<double>(bytes);
    return size < 1e6   ? Decimal(size / 1e3, 1) + " kB"
           : size < 1e9 ? Decimal(size / 1e6, 1) + " MB"
                        : Decimal(size / 1e9, 1) + " GB";
}

void WriteText(const BatchSummary& summary, const BatchReportOptions& options, OutputFile& out) {
    const auto list = [&](const char* what, const std::vector<OpenFile>& files) {
        const std::size_t shown =
            options.most == 0 ? files.size() : std::min<std::size_t>(files.size(), options.most);
        for (std::size_t i = 0; i < shown; ++i) {
            const std::string reason = files[i].reason.empty() ? "" : ": " + files[i].reason;
            out.Write(OneLine(std::string(what) + ": " + files[i].input + " (part " +
                              std::to_string(files[i].shard) + " of " +
                              std::to_string(summary.shards) + ")" + reason) +
                      "\n");
        }
        if (shown < files.size()) {
            out.Write(std::string(what) + ": " + Grouped(files.size() - shown) +
                      " more; --max 0 shows all\n");
        }
    };
    list("failed", summary.failed);
    list("missing", summary.missing);
    out.Write("files     " + Grouped(summary.files) + " in " + Grouped(summary.shards) +
              (summary.shards == 1 ? " part\n" : " parts\n"));
    out.Write("done      " + Grouped(summary.done) + ": " + Grouped(summary.features) +
              " features, " + SizeText(summary.bytes) + " of input, " +
              Decimal(summary.seconds, 1) + " s of work\n");
    out.Write("failed    " + Grouped(summary.failed.size()) + "\n");
    out.Write("missing   " + Grouped(summary.missing.size()) + "\n");
    out.Write(summary.IsComplete() ? "complete\n"
                                   : "not complete: run the parts again with --resume\n");
}

void AppendFiles(JsonObjectWriter& object, const char* name, const std::vector<OpenFile>& files) {
    std::string& text = object.Member(name);
    text += "[";
    bool isFirst = true;
    for (const OpenFile& file : files) {
        text += isFirst ? "\n  " : ",\n  ";
        isFirst = false;
        JsonObjectWriter row(text);
        row.Text("input", file.input);
        row.Text("output", file.output);
        row.Integer("part", static_cast<std::int64_t>(file.shard));
        if (!file.reason.empty()) {
            row.Text("error", file.reason);
        }
        row.Close();
    }
    text += "]";
}

std::string JsonOf(const BatchSummary& summary) {
    std::string text;
    JsonObjectWriter object(text);
    object.Boolean("complete", summary.IsComplete());
    object.Integer("parts", static_cast<std::int64_t>(summary.shards));
    object.Integer("files", static_cast<std::int64_t>(summary.files));
    object.Integer("done", static_cast<std::int64_t>(summary.done));
    object.Integer("features", static_cast<std::int64_t>(summary.features));
    object.Integer("bytes", static_cast<std::int64_t>(summary.bytes));
    object.Number("seconds", summary.seconds);
    AppendFiles(object, "failed", summary.failed);
    AppendFiles(object, "missing", summary.missing);
    object.Close();
    return text + "\n";
}

}  // namespace

BatchSummary SummaryOf(const path& folder) {
    const ShardPlan plan = ReadShardPlan(folder);
    const LastLines lines = ReadLogs(folder);
    BatchSummary summary;
    summary.shards = plan.shards;
    summary.files = plan.files.size();
    for (const PlannedFile& file : plan.files) {
        const auto line = lines.find(file.output);
        OpenFile open{file.input, file.output, file.shard, ""};
        if (line == lines.end()) {
            summary.missing.push_back(std::move(open));
        } else if (!line->second.error.empty()) {
            open.reason = line->second.error;
            summary.failed.push_back(std::move(open));
        } else if (!IsThere(folder, line->second)) {
            summary.missing.push_back(std::move(open));
        } else {
            ++summary.done;
            summary.bytes += file.bytes;
            summary.features += line->second.features.value_or(0);
            summary.seconds += line->second.seconds;
        }
    }
    return summary;
}

int RunBatchReport(const BatchReportOptions& options) {
    const BatchSummary summary = SummaryOf(PathFromArgument(options.folder));
    OutputFile out("-", IfExists::Overwrite);
    if (options.json) {
        out.Write(JsonOf(summary));
    } else {
        WriteText(summary, options, out);
    }
    out.Finish();
    return summary.IsComplete() ? 0 : 1;
}

}  // namespace app
