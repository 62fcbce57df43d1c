#include "app/trace/TraceCommand.h"

#include "app/base/Errors.h"
#include "app/base/Output.h"
#include "app/base/Paths.h"
#include "app/run/ImportRun.h"
#include "app/trace/TraceHost.h"
#include "standalone/Text.h"

#include <memory>

namespace app {
namespace {

constexpr const char* kFooter = R"(
The file is handed to the module as it is: no line is put into its header, and texts are read as
Windows-1252 unless --encoding says otherwise.

Examples:
  qolf trace roads.mif | head
  qolf trace --no-store --option-string "AreasToCurves=1" roads.mif
  qolf trace a.mif | qolf replay - b.mif)";

}  // namespace

int RunTrace(const TraceOptions& options, Reporter& reporter) {
    if (!options.encoding.empty()) {
        ChooseCodePage({}, "", options.encoding, reporter);
    }
    const std::filesystem::path path = PathFromArgument(options.file);
    const Module module(options.modulePath);
    const auto store = OpenOptionStore(options.noStore);
    OutputFile output("-", IfExists::Overwrite);
    TraceHost host(*store, output);
    zeio::IoManager manager(host);
    ImportFilterPtr filter = module.NewImportFilter(manager);
    bool hasFailed = false;
    try {
        if (options.optionString) {
            filter->SetOptionsFromString(standalone::Widen(*options.optionString));
        }
        filter->Import(WidePath(path));
    } catch (const shr::IError& error) {
        host.Thrown(error);
        reporter.Error(standalone::Narrow(error.Message()));
        hasFailed = true;
    }
    filter.reset();
    output.Finish();
    if (!hasFailed && host.ObjectCount() == 0) {
        reporter.Warning(PathText(path) + ": holds no objects");
    }
    return hasFailed ? 1 : 0;
}

void AddTraceCommand(CLI::App& program, CommandContext& context) {
    auto options = std::make_shared<TraceOptions>();
    CLI::App* command =
        program.add_subcommand("trace", "Print what the import filter tells its host");
    command->add_option("file", options->file, "The file to import")->type_name("FILE")->required();
    command
        ->add_option("--option-string", options->optionString,
                     "Options for the filter: \"AreasToCurves=1;IgnoreStyles=1\"")
        ->type_name("TEXT");
    command->add_flag("--no-store", options->noStore, "Neither read nor write stored options");
    command->add_option("--encoding", options->encoding, "Encoding of the texts")
        ->type_name("NAME");
    command->footer(kFooter);
    command->callback([options, &context] {
        context.run = [options, &context] {
            options->modulePath = context.modulePath;
            return RunTrace(*options, context.reporter);
        };
    });
}

}  // namespace app
