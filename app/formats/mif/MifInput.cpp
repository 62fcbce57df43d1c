#include "app/formats/mif/MifInput.h"

#include "app/base/Paths.h"
#include "app/check/RepairMif.h"
#include "app/convert/SystemPlan.h"

#include <utility>

namespace app {

PreparedMif::PreparedMif(const ConvertOptions& options, const std::string& input,
                         Reporter& reporter)
    : path_(PathFromArgument(input)) {
    if (options.isRepaired) {
        repaired_.emplace();
        const std::filesystem::path copy = repaired_->File(path_.filename());
        std::filesystem::path rows = path_.filename();
        static_cast<void>(repaired_->File(rows.replace_extension(".mid")));
        const check::RepairReport report = check::RepairMif(path_, copy, IfExists::Overwrite);
        for (const check::Repair& repair : report.repairs) {
            reporter.Note(PathText(repair.file) + ":" + std::to_string(repair.line) + ": " +
                          repair.what);
        }
        path_ = copy;
    }
    if (!options.assumedCrs.empty()) {
        assumed_ = SystemOfDefinition("--assume-crs", options.assumedCrs, reporter);
        neutral_.emplace(path_);
        path_ = neutral_->Path();
    }
}

}  // namespace app
