// The part of the pair check that runs the module.
#include "app/check/PairCheck.h"

#include "app/base/Paths.h"
#include "app/base/Reporter.h"
#include "app/run/ImportRun.h"
#include "app/run/Module.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

namespace app {
namespace {

void Pass(FindingCode code, const std::filesystem::path& mif, std::string message,
          FindingSink& sink, FindingCounts& counts) {
    FindingCount& count = counts[static_cast<std::size_t>(code)];
    ++count.found;
    ++count.reported;
    const FindingInfo& info = InfoOf(code);
    sink.Add({.code = &info,
              .file = mif,
              .line = 0,
              .object = 0,
              .message = std::move(message),
              .advice = info.advice,
              .isCaredFor = info.readBy == ReadByCommand::Yes});
}

std::string WithoutName(const std::string& text, const std::filesystem::path& mif) {
    const std::string prefix = PathText(mif) + ": ";
    return text.starts_with(prefix) ? text.substr(prefix.size()) : text;
}

// A warning begins with the file's name; the lines after it belong to it.
void PassWarnings(std::string_view kept, const std::filesystem::path& mif, FindingSink& sink,
                  FindingCounts& counts) {
    constexpr std::string_view kPrefix = "qolf: warning: ";
    std::string warning;
    while (!kept.empty()) {
        const std::size_t end = std::min(kept.find('\n'), kept.size());
        std::string_view line = kept.substr(0, end);
        kept.remove_prefix(std::min(end + 1, kept.size()));
        if (!line.starts_with(kPrefix)) {
            continue;
        }
        line.remove_prefix(kPrefix.size());
        warning += (warning.empty() ? "" : " ") + WithoutName(std::string(line), mif);
    }
    if (!warning.empty()) {
        Pass(FindingCode::ModuleWarning, mif, warning, sink, counts);
    }
}

}  // namespace

void CheckByImport(const std::filesystem::path& mif, const std::string& modulePath,
                   FindingSink& sink, FindingCounts& counts, std::uint64_t objects,
                   const ProgressSink& progress) {
    constexpr std::uint64_t kStep = 1024;  // objects between two reports
    const auto all = static_cast<double>(std::max<std::uint64_t>(1, objects));
    std::uint64_t imported = 0;
    std::string kept;
    Reporter reporter(kept);
    ImportSettings settings;
    settings.path = mif;
    settings.noStore = true;
    settings.modulePath = modulePath;
    std::string error;
    try {
        ImportRun(std::move(settings), reporter).Import(reporter, [&](zeio::TrBase&) {
            if (++imported % kStep == 0 && progress) {
                progress(std::min(1.0, static_cast<double>(imported) / all));
            }
        });
    } catch (const ImportFailure& failure) {
        error = failure.Reason();
    }
    PassWarnings(kept, mif, sink, counts);
    if (!error.empty()) {
        Pass(FindingCode::ModuleError, mif, WithoutName(error, mif), sink, counts);
    }
}

}  // namespace app
