#include "app/batch/ShardPlan.h"

#include "app/base/Errors.h"
#include "app/base/Output.h"
#include "app/base/Paths.h"
#include "app/base/TempFolder.h"
#include "app/batch/BatchLog.h"
#include "app/json/JsonFields.h"
#include "app/json/JsonObjectWriter.h"

#include <cstdio>
#include <fstream>
#include <optional>

namespace app {
namespace {

using std::filesystem::path;

path PlanPathOf(const path& folder) {
    return folder / kBatchFolder / "plan.jsonl";
}

// 64 bits of FNV-1a over texts.
class Digest {
public:
    void Add(std::string_view text) {
        for (const char c : text) {
            state_ = (state_ ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
        }
        state_ *= 0x100000001B3U;  // the text's end
    }
    std::string Text() const {
        char text[17];
        std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(state_));
        return text;
    }

private:
    std::uint64_t state_ = 0xCBF29CE484222325U;
};

std::string DigestOf(const ShardPlan& plan) {
    Digest digest;
    digest.Add(std::to_string(plan.shards));
    for (const PlannedFile& file : plan.files) {
        digest.Add(file.input);
        digest.Add(file.output);
    }
    return digest.Text();
}

// Of a pair: of both files.
std::uint64_t SizeOf(const path& input) {
    double size = SizeOfFile(input);
    if (LowerExtension(input) == ".mif") {
        const path rows = FindCompanion(input, ".mid");
        size += rows.empty() ? 0.0 : SizeOfFile(rows);
    }
    return static_cast<std::uint64_t>(size);
}

// All but the parts and the sizes.
ShardPlan WithoutParts(const std::vector<BatchItem>& items, std::size_t shards,
                       const path& folder) {
    ShardPlan plan;
    plan.shards = shards;
    for (const BatchItem& item : items) {
        plan.files.push_back({0, 0, PathText(item.input), PlaceBelow(folder, item.output)});
    }
    plan.inputs = DigestOf(plan);
    return plan;
}

void Deal(ShardPlan& plan, const std::vector<BatchItem>& items) {
    std::vector<std::uint64_t> sizes;
    for (const BatchItem& item : items) {
        sizes.push_back(item.bytes ? *item.bytes : SizeOf(item.input));
    }
    const std::vector<std::size_t> parts = DealOut(sizes, plan.shards);
    for (std::size_t i = 0; i < items.size(); ++i) {
        plan.files[i].shard = parts[i];
        plan.files[i].bytes = sizes[i];
    }
}

std::string TextOf(const ShardPlan& plan) {
    std::string text;
    JsonObjectWriter head(text);
    head.Integer("shards", static_cast<std::int64_t>(plan.shards));
    head.Integer("files", static_cast<std::int64_t>(plan.files.size()));
    head.Text("inputs", plan.inputs);
    head.Close();
    text += "\n";
    for (const PlannedFile& file : plan.files) {
        JsonObjectWriter line(text);
        line.Integer("shard", static_cast<std::int64_t>(file.shard));
        line.Integer("bytes", static_cast<std::int64_t>(file.bytes));
        line.Text("input", file.input);
        line.Text("output", file.output);
        line.Close();
        text += "\n";
    }
    return text;
}

// Absent for what is no line of a plan.
std::optional<PlannedFile> FileOf(const std::string& text) {
    const std::optional<JsonFields> line = JsonFields::Parse(text);
    if (!line) {
        return std::nullopt;
    }
    const auto shard = line->Whole("shard");
    const auto bytes = line->Whole("bytes");
    const auto input = line->Text("input");
    const auto output = line->Text("output");
    return shard && bytes && input && output
               ? std::optional(
                     PlannedFile{static_cast<std::size_t>(*shard), *bytes, *input, *output})
               : std::nullopt;
}

// Absent when the file is not there or is no whole plan.
std::optional<ShardPlan> Read(const path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::string text;
    std::getline(stream, text);
    const std::optional<JsonFields> head = JsonFields::Parse(text);
    const auto shards = head ? head->Whole("shards") : std::nullopt;
    const auto inputs = head ? head->Text("inputs") : std::nullopt;
    if (!shards || !inputs) {
        return std::nullopt;
    }
    ShardPlan plan;
    plan.shards = static_cast<std::size_t>(*shards);
    plan.inputs = *inputs;
    while (std::getline(stream, text)) {
        std::optional<PlannedFile> planned = FileOf(text);
        if (!planned) {
            return std::nullopt;
        }
        plan.files.push_back(std::move(*planned));
    }
    return head->Whole("files") == plan.files.size() ? std::optional(std::move(plan))
                                                     : std::nullopt;
}

// Puts the plan into its place, unless `mayReplace` is false and another process was faster.
void Write(const ShardPlan& plan, const path& file, bool mayReplace) {
    std::error_code error;
    std::filesystem::create_directories(file.parent_path(), error);
    const TempFolder folder(file.parent_path());
    const path work = folder.File(file.filename());
    OutputFile out(work, IfExists::Overwrite);
    out.Write(TextOf(plan));
    out.Finish();
    if (!mayReplace) {
        std::filesystem::create_hard_link(work, file, error);
        if (!error || error == std::errc::file_exists) {
            return;
        }
        // There are file systems without links.
    }
    std::filesystem::rename(work, file, error);
    if (error) {
        throw Failure(PathText(file) + ": can't write: " + error.message());
    }
}

}  // namespace

std::string PlaceBelow(const path& folder, const path& output) {
    const std::u8string place = output.lexically_relative(folder).generic_u8string();
    return {place.begin(), place.end()};
}

ShardPlan PlanShards(const std::vector<BatchItem>& items, std::size_t shards, const path& folder,
                     OtherPlan other) {
    const path file = PlanPathOf(folder);
    ShardPlan plan = WithoutParts(items, shards, folder);
    std::optional<ShardPlan> there = Read(file);
    if (there && there->inputs != plan.inputs && other == OtherPlan::Refuse) {
        throw UsageError(PathText(file) + ": is the plan of other files or of another number of "
                                          "parts; --resume goes on with these");
    }
    if (!there || there->inputs != plan.inputs) {
        Deal(plan, items);
        Write(plan, file, /*mayReplace=*/there.has_value());
        there = Read(file);
    }
    // The files are those of the items; names that are no UTF-8 differ in the plan.
    const bool isOurs = there && there->inputs == plan.inputs;
    if (!isOurs || there->files.size() != items.size()) {
        throw Failure(PathText(file) + ": was replaced by another run with other files");
    }
    return std::move(*there);
}

ShardPlan ReadShardPlan(const path& folder) {
    std::optional<ShardPlan> plan = Read(PlanPathOf(folder));
    if (!plan) {
        throw Failure(PathText(folder) + ": holds no batch: convert --shard writes its plan to " +
                      PathText(PlanPathOf(folder)));
    }
    return std::move(*plan);
}

}  // namespace app
