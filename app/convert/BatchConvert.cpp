#include "app/convert/BatchConvert.h"

#include "app/Errors.h"
#include "app/Json.h"
#include "app/Paths.h"
#include "app/batch/BatchRun.h"

#include <array>
#include <string_view>

namespace app {

namespace {

constexpr std::array<std::string_view, 1> kMifExtensions = {".mif"};

void AddFlag(ChildCommand& command, bool isWanted, const char* flag) {
    if (isWanted) {
        command.emplace_back(flag);
    }
}

void AddOption(ChildCommand& command, const char* name, const std::string& value) {
    if (!value.empty()) {
        command.emplace_back(name);
        command.push_back(value);
    }
}

std::string Joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) {
        text += (text.empty() ? "" : ",") + word;
    }
    return text;
}

// The command that converts one file as these options say; whether it may overwrite is added when
// it runs.
ChildCommand CommandFor(const ConvertOptions& options, Format format) {
    ChildCommand command = {kThisProgram};
    AddOption(command, "--module", options.modulePath);
    command.insert(command.end(), {"--no-progress", "convert"});
    AddOption(command, "--to", ExtensionOf(format) + 1);
    AddFlag(command, options.asIs, "--as-is");
    AddFlag(command, options.noStore, "--no-store");
    AddFlag(command, options.withStyles, "--styles");
    AddOption(command, "--segments", std::to_string(options.segments));
    AddOption(command, "--crs", options.crs);
    AddOption(command, "--encoding", options.encoding);
    AddOption(command, "--layer", options.layer);
    AddOption(command, "--select", Joined(options.select));
    if (!options.box.empty()) {
        std::string box;
        for (const double number : options.box) {
            box += box.empty() ? "" : ",";
            AppendJsonNumber(box, number);
        }
        command.push_back("--bbox=" + box);
    }
    if (options.limit) {
        AddOption(command, "--limit", std::to_string(*options.limit));
    }
    AddOption(command, "--option-string", options.optionString.value_or(""));
    AddFlag(command, options.useDefaults, "--defaults");
    AddFlag(command, options.areasToCurves, "--areas-to-curves");
    AddFlag(command, options.noRenderText, "--no-render-text");
    AddFlag(command, options.noRenderMarkers, "--no-render-markers");
    return command;
}

}  // namespace

int ConvertMany(const ConvertOptions& options, Reporter& reporter) {
    if (options.format.empty()) {
        throw UsageError("--output-dir needs --to, which names the format of the outputs");
    }
    const Format format = FormatOfName(options.format);
    BatchOptions batch;
    batch.items = PlanBatch(options.paths, PathFromArgument(options.outputFolder),
                            ExtensionOf(format) + 1, kMifExtensions);
    batch.jobs = options.jobs;
    batch.resume = options.resume;
    batch.ifExists = options.overwrite ? IfExists::Overwrite : IfExists::Refuse;
    batch.command = CommandFor(options, format);
    return RunBatch(batch, reporter);
}

}  // namespace app
