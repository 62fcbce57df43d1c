#include "app/trace/TraceRun.h"

#include "app/base/Errors.h"
#include "app/base/Output.h"
#include "app/base/Paths.h"
#include "app/base/ShownPlace.h"
#include "app/run/CodePage.h"
#include "app/run/ImportRun.h"
#include "app/trace/TraceHost.h"
#include "standalone/Text.h"

namespace app {
namespace {

// A text of the module with the place of an unpacked file in its archive; others stay to the
// letter.
std::wstring AsShown(const std::wstring& text) {
    const std::string utf8 = standalone::Narrow(text);
    const std::string shown = WithShownPlaces(utf8);
    return shown == utf8 ? text : standalone::Widen(shown);
}

}  // namespace

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
        host.Thrown(error, AsShown);
        reporter.Error(standalone::Narrow(AsShown(error.Message())));
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
