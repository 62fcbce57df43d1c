#include "app/trace/TraceRun.h"

#include "app/base/Errors.h"
#include "app/base/Output.h"
#include "app/base/Paths.h"
#include "app/run/CodePage.h"
#include "app/run/ImportRun.h"
#include "app/trace/TraceHost.h"
#include "standalone/Text.h"

namespace app {

int RunTrace(const TraceOptions& options, Reporter& reporter) {
    if (!options.encoding.empty()) {
        SetEncoding(options.encoding);
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

}  // namespace app
