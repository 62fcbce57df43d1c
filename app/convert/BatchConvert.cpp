#include "app/convert/BatchConvert.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"
#include "app/batch/BatchRun.h"
#include "app/convert/ConvertRun.h"
#include "app/formats/Formats.h"

namespace app {

int ConvertMany(const ConvertOptions& options, Reporter& reporter) {
    if (options.format.empty()) {
        throw UsageError("--output-dir needs --to, which names the format of the outputs");
    }
    const Format& format = FormatOfName(options.format);
    CheckStyles(options, format);
    const std::string_view extension = format.extensions.front();
    BatchOptions batch;
    batch.jobs = options.jobs;
    batch.resume = options.resume;
    batch.ifExists = options.overwrite ? IfExists::Overwrite : IfExists::Refuse;
    batch.convert = [&options](const BatchItem& item, IfExists ifExists, Reporter& itemReporter) {
        ConvertOptions one = options;
        one.paths = {ArgumentFromPath(item.input), ArgumentFromPath(item.output)};
        one.outputFolder.clear();
        one.overwrite = ifExists == IfExists::Overwrite;
        return RunConvert(one, itemReporter);
    };
    if (const std::optional<int> exitCode = RunBatchTask(batch)) {
        return *exitCode;
    }
    batch.items = PlanBatch(options.paths, PathFromArgument(options.outputFolder),
                            std::string(extension.substr(1)), FormatOfName("mif").extensions);
    return RunBatch(batch, reporter);
}

}  // namespace app
