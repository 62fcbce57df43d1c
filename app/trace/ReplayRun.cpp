#include "app/trace/ReplayRun.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"
#include "app/base/RereadableInput.h"
#include "app/base/platform/System.h"
#include "app/json/JsonError.h"
#include "app/json/JsonText.h"
#include "app/run/CodePage.h"
#include "app/run/ExportRun.h"
#include "app/trace/ExtentOfObjects.h"
#include "app/trace/ObjectReader.h"
#include "app/trace/TraceHost.h"
#include "app/trace/TraceJson.h"

#include <functional>
#include <memory>
#include <vector>

namespace app {
namespace {

// Hands every object of the input to `take`, in order. Throws Failure with the number of the line.
void ForEachObject(const RereadableInput& input, Reporter& reporter,
                   const std::function<void(zeio::TrBase&)>& take) {
    InputStream stream(input);
    std::string line;
    while (stream.NextLine(line)) {
        if (line.find_first_not_of(" \t") == std::string::npos) {
            continue;
        }
        std::unique_ptr<zeio::TrBase> object;
        try {
            object = ObjectOfLine(line);
        } catch (const JsonError& error) {
            throw Failure(input.Name() + ": line " + std::to_string(stream.LineNumber()) + ": " +
                          error.what());
        }
        if (object != nullptr) {
            take(*object);
        }
        reporter.Progress(stream.Fraction());
    }
}

// Sends an object as the host of an export would, which begins an export in its own way.
zeio::ExportStatus SendAsHost(ExportRun& run, zeio::TrBase& object, const shr::Box3d& extent) {
    if (object.GetTypeId() != zeio::TrInitGraphicsImp::GetClassTypeId()) {
        return run.Send(object);
    }
    return run.Begin(extent);
}

// What the filter answered to the calls of an export.
struct Answers {
    zeio::ExportStatus begin = zeio::ExportStatus::Done;
    std::vector<zeio::ExportStatus> objects;  // kept for a trace only: inputs may be long
    bool isWritten = false;
};

std::string ResultLine(const Answers& answers) {
    std::string line = "{\"result\":{\"BeginExport\":";
    AppendJsonNumber(line, static_cast<std::int64_t>(answers.begin));
    line += ",\"ExportObject\":[";
    for (const zeio::ExportStatus& status : answers.objects) {
        line += &status == answers.objects.data() ? "" : ",";
        AppendJsonNumber(line, static_cast<std::int64_t>(status));
    }
    line += "],\"EndExport\":";
    line += answers.isWritten ? "0}}\n" : "1}}\n";
    return line;
}

ExportSettings SettingsOf(const ReplayOptions& options) {
    ExportSettings settings;
    settings.path = PathFromArgument(options.output);
    settings.ifExists = options.overwrite ? IfExists::Overwrite : IfExists::Refuse;
    settings.noStore = options.noStore;
    settings.optionString = options.optionString;
    settings.modulePath = options.modulePath;
    return settings;
}

// Exports the input. `trace`, unless it is null, is the filter's host.
Answers Export(const RereadableInput& input, const ReplayOptions& options, Reporter& reporter,
               TraceHost* trace) {
    // A first pass finds the extent, and faulty lines before anything is written.
    ExtentOfObjects extent;
    if (options.trace && IsTerminal(stdout)) {
        reporter.SetProgress(false);  // the trace goes to the terminal
    }
    reporter.StartProgress("reading", SizeOfFile(PathFromArgument(options.input)));
    ForEachObject(input, reporter, [&](zeio::TrBase& object) { extent.Add(object); });

    ExportRun run(SettingsOf(options), reporter, trace);
    Answers answers;
    answers.begin = run.BeginStatus();
    reporter.StartProgress(options.output, SizeOfFile(PathFromArgument(options.input)));
    ForEachObject(input, reporter, [&](zeio::TrBase& object) {
        const shr::Box3d box = options.noExtent ? ExportRun::kUnknownExtent : extent.Box();
        const zeio::ExportStatus status = SendAsHost(run, object, box);
        if (trace != nullptr) {
            answers.objects.push_back(status);
        }
    });
    answers.isWritten = run.Finish();
    reporter.EndProgress();
    return answers;
}

// Exports with the filter's calls and answers on standard output. After an error, the output ends
// with the calls before it.
Answers ExportWithTrace(const RereadableInput& input, const ReplayOptions& options,
                        Reporter& reporter) {
    const auto store = OpenOptionStore(options.noStore);
    OutputFile output("-", IfExists::Overwrite);
    TraceHost trace(*store, output);
    try {
        Answers answers = Export(input, options, reporter, &trace);
        output.Write(ResultLine(answers));
        output.Finish();
        return answers;
    } catch (const Failure&) {
        output.Finish();
        throw;
    }
}

}  // namespace

int RunReplay(const ReplayOptions& options, Reporter& reporter) {
    CheckMifOutput(options.output);
    if (!options.encoding.empty()) {
        SetEncoding(options.encoding);
    }
    const ExportSettings settings = SettingsOf(options);
    CheckNotInput(PathFromArgument(options.input), settings.path);
    CheckOutput(settings.path, settings.ifExists);
    const RereadableInput input(PathFromArgument(options.input));
    const Answers answers = options.trace ? ExportWithTrace(input, options, reporter)
                                          : Export(input, options, reporter, nullptr);
    if (!answers.isWritten) {
        reporter.Warning(input.Name() + ": holds no objects that are drawn; nothing was written");
    }
    return 0;
}

}  // namespace app
