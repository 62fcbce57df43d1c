#include "app/convert/BatchConvert.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"
#include "app/batch/BatchRun.h"
#include "app/convert/ConvertRun.h"

#include <array>
#include <string_view>

namespace app {

namespace {

constexpr std::array<std::string_view, 1> kMifExtensions = {".mif"};

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
    batch.convert = [&options](const BatchItem& item, IfExists ifExists, Reporter& itemReporter) {
        ConvertOptions one = options;
        one.paths = {item.input.string(), item.output.string()};
        one.outputFolder.clear();
        one.overwrite = ifExists == IfExists::Overwrite;
        return RunConvert(one, itemReporter);
    };
    return RunBatch(batch, reporter);
}

}  // namespace app
