#include "app/batch/BatchRun.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"
#include "app/base/ShownPlace.h"
#include "app/base/platform/RemovalList.h"
#include "app/batch/AbandonedFolders.h"
#include "app/batch/ChildProcesses.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <iterator>
#include <map>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <utility>

namespace app {
namespace {

constexpr std::string_view kErrorPrefix = "qolf: error: ";
constexpr std::string_view kWarningPrefix = "qolf: warning: ";

// A process says so how many features it has written, "-" when that is not known, and how many
// seconds that took.
constexpr std::string_view kOutcomePrefix = "qolf: outcome: ";

struct Tally {
    std::size_t converted = 0;
    std::size_t failed = 0;
    std::size_t doneBefore = 0;
};

std::filesystem::path FolderOf(const std::filesystem::path& file) {
    return file.has_parent_path() ? file.parent_path() : std::filesystem::path(".");
}

void MakeFolderOf(const std::filesystem::path& file) {
    const std::filesystem::path folder = file.parent_path();
    std::error_code error;
    if (!folder.empty() && !std::filesystem::is_directory(folder, error)) {
        std::filesystem::create_directories(folder, error);
        if (error) {
            throw Failure(PathText(folder) + ": can't make the folder: " + error.message());
        }
    }
}

// The work of one process. Its messages are plain lines, which ForwardMessages reads.
int ConvertItem(const BatchOptions& options, const BatchItem& item) {
    Reporter reporter(stderr, /*isTerminal=*/false, /*useColor=*/false);
    const IfExists ifExists = options.resume ? IfExists::Overwrite : options.ifExists;
    const auto start = std::chrono::steady_clock::now();
    ConvertedItem converted{1, std::nullopt};
    try {
        converted = options.convert(item, ifExists, reporter);
    } catch (const std::bad_alloc&) {
        reporter.Error("out of memory");
    } catch (const std::exception& error) {
        reporter.Error(error.what());
    }
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    const std::string features = converted.features ? std::to_string(*converted.features) : "-";
    std::fprintf(stderr, "%s%s %lld\n", std::string(kOutcomePrefix).c_str(), features.c_str(),
                 static_cast<long long>(taken.count() * 1e6));
    return converted.exitCode;
}

// Reads what ConvertItem has printed behind the prefix: features and microseconds.
void TakeOutcome(std::string_view text, BatchOutcome& outcome) {
    const char* const end = text.data() + text.size();
    const char* at = text.data();
    std::uint64_t features = 0;
    if (const auto result = std::from_chars(at, end, features); result.ec == std::errc{}) {
        outcome.features = features;
        at = result.ptr;
    } else {
        at += std::min<std::size_t>(1, text.size());
    }
    std::uint64_t microseconds = 0;
    at += at != end ? 1 : 0;
    if (std::from_chars(at, end, microseconds).ec == std::errc{}) {
        outcome.seconds = static_cast<double>(microseconds) / 1e6;
    }
}

// Repeats the warnings of a process as our own, and returns its outcome; the lines of its error
// become one.
BatchOutcome ForwardMessages(std::string_view messages, Reporter& reporter) {
    BatchOutcome outcome;
    std::string& error = outcome.error;
    while (!messages.empty()) {
        const std::size_t end = std::min(messages.find('\n'), messages.size());
        std::string_view line = messages.substr(0, end);
        messages.remove_prefix(std::min(end + 1, messages.size()));
        if (line.starts_with(kErrorPrefix)) {
            line.remove_prefix(kErrorPrefix.size());
            error += (error.empty() ? "" : " ") + std::string(line);
        } else if (line.starts_with(kWarningPrefix)) {
            reporter.Warning(line.substr(kWarningPrefix.size()));
        } else if (line.starts_with(kOutcomePrefix)) {
            TakeOutcome(line.substr(kOutcomePrefix.size()), outcome);
        }
    }
    return outcome;
}

BatchOutcome ReportEnd(const BatchItem& item, const ChildResult& result, Reporter& reporter,
                       Tally& tally) {
    BatchOutcome outcome = ForwardMessages(WithShownPlaces(result.messages), reporter);
    std::string& error = outcome.error;
    if (result.exitCode == 0 && result.signal == 0) {
        ++tally.converted;
        error.clear();
        return outcome;
    }
    ++tally.failed;
    if (result.signal != 0) {
        error = "ended by " + SignalText(result.signal);
        RemoveAbandonedFolders(FolderOf(item.output), {});
    } else if (error.empty()) {
        error = "ended with exit code " + std::to_string(result.exitCode);
    }
    const bool isNamed = error.find(PathText(item.input)) != std::string::npos ||
                         error.find(PathText(item.output)) != std::string::npos;
    reporter.Error(isNamed ? error : PathText(item.input) + ": " + error);
    return outcome;
}

std::string Summary(const Tally& tally, std::size_t total) {
    std::string text = "converted " + std::to_string(tally.converted) + " of " +
                       std::to_string(total) + (total == 1 ? " file" : " files");
    if (tally.doneBefore > 0) {
        text += ", " + std::to_string(tally.doneBefore) + " done before";
    }
    if (tally.failed > 0) {
        text += ", " + std::to_string(tally.failed) + " failed";
    }
    return text;
}

// What TaskOfThisProcess says in the process of an item: a line of text for each of its parts. No
// path of Windows has a line feed.
std::string TaskText(const BatchItem& item) {
    return ArgumentFromPath(item.input) + "\n" + ArgumentFromPath(item.output) + "\n" + item.layer;
}

BatchItem ItemOfTask(const std::string& task) {
    const std::size_t input = std::min(task.find('\n'), task.size());
    const std::size_t output = std::min(task.find('\n', input + 1), task.size());
    return {PathFromArgument(task.substr(0, input)),
            PathFromArgument(task.substr(std::min(input + 1, output), output - input - 1)),
            task.substr(std::min(output + 1, task.size()))};
}

std::vector<BatchItem> ItemsToDo(const BatchOptions& options) {
    std::vector<BatchItem> items;
    std::copy_if(options.items.begin(), options.items.end(), std::back_inserter(items),
                 [&](const BatchItem& item) { return !options.resume || !options.isDone(item); });
    return items;
}

void RemoveAbandoned(const BatchOptions& options) {
    std::map<std::filesystem::path, OwnNames> folders;
    for (const BatchItem& item : options.items) {
        OwnNames& names = folders[FolderOf(item.output)];
        if (options.ownsOutputs) {
            names.insert(item.output.filename().native());
        }
    }
    for (const auto& [folder, names] : folders) {
        RemoveAbandonedFolders(folder, names);
    }
}

}  // namespace

std::optional<int> RunBatchTask(const BatchOptions& options) {
    const std::optional<std::string> task = TaskOfThisProcess();
    return task ? std::optional(ConvertItem(options, ItemOfTask(*task))) : std::nullopt;
}

int RunBatch(const BatchOptions& options, Reporter& reporter) {
    if (options.resume) {
        RemoveAbandoned(options);
    }
    const std::vector<BatchItem> items = ItemsToDo(options);
    Tally tally;
    tally.doneBefore = options.items.size() - items.size();
    for (const BatchItem& item : items) {
        MakeFolderOf(item.output);
    }
    const std::size_t processors = std::max(1U, std::thread::hardware_concurrency());
    reporter.StartProgress("converting", static_cast<double>(items.size()), ProgressUnit::Files);
    const int signalNumber = RunChildren(
        items.size(), options.jobs == 0 ? processors : options.jobs,
        [&](std::size_t number) { return ConvertItem(options, items[number]); },
        [&](std::size_t number) { return TaskText(items[number]); },
        [&](std::size_t number, const ChildResult& result) {
            const BatchOutcome outcome = ReportEnd(items[number], result, reporter, tally);
            if (options.onEnd && !IsInterruption(result.signal)) {
                options.onEnd(items[number], outcome);
            }
            reporter.Progress(static_cast<double>(tally.converted + tally.failed) /
                              static_cast<double>(items.size()));
        });
    reporter.EndProgress();
    if (signalNumber != 0) {
        reporter.Note("interrupted: " + Summary(tally, options.items.size()) +
                      "; --resume goes on from here");
        EndBySignal(signalNumber);
    }
    reporter.Note(Summary(tally, options.items.size()));
    return tally.failed == 0 ? 0 : 1;
}

}  // namespace app
