#include "app/batch/ShardRun.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"
#include "app/batch/BatchLog.h"
#include "app/batch/ShardPlan.h"

#include <algorithm>
#include <numeric>
#include <unordered_map>
#include <utility>

namespace app {
namespace {

using std::filesystem::path;
using Successes = std::unordered_map<std::string, BatchLogLine>;  // by output

// The items of the part, the largest first: a large file at the end would be waited for.
std::vector<BatchItem> ItemsOf(const Shard& shard, const std::vector<BatchItem>& items,
                               const ShardPlan& plan) {
    std::vector<std::size_t> numbers(items.size());
    std::iota(numbers.begin(), numbers.end(), std::size_t{0});
    std::erase_if(numbers,
                  [&](std::size_t number) { return plan.files[number].shard != shard.number; });
    std::ranges::stable_sort(numbers, [&plan](std::size_t left, std::size_t right) {
        return plan.files[left].bytes > plan.files[right].bytes;
    });
    std::vector<BatchItem> own;
    for (const std::size_t number : numbers) {
        own.push_back(items[number]);
    }
    return own;
}

// The last line of each output that succeeded.
void AddSuccesses(const path& log, Successes& successes) {
    for (BatchLogLine& line : ReadBatchLog(log)) {
        if (line.error.empty()) {
            successes.insert_or_assign(line.output, std::move(line));
        } else {
            successes.erase(line.output);
        }
    }
}

// What earlier runs have done of the items: this part's, and, when the files were dealt out
// otherwise before, those of other parts, whose lines are added to the log of this one.
Successes EarlierSuccesses(const std::vector<BatchItem>& items, const path& folder,
                           const path& ownLog, BatchLog& log) {
    Successes own;
    AddSuccesses(ownLog, own);
    const auto isOpen = [&](const BatchItem& item) {
        return !own.contains(PlaceBelow(folder, item.output)) && IsDone(item);
    };
    if (std::ranges::none_of(items, isOpen)) {
        return own;
    }
    Successes others;
    for (const path& file : LogsIn(folder)) {
        if (file != ownLog) {
            AddSuccesses(file, others);
        }
    }
    for (const BatchItem& item : items) {
        const auto found = others.find(PlaceBelow(folder, item.output));
        if (found != others.end() && isOpen(item)) {
            log.Add(found->second);
            own.insert(*found);
        }
    }
    return own;
}

}  // namespace

int RunShard(BatchOptions options, const path& folder, const Shard& shard, Reporter& reporter) {
    const path file = LogPathOf(folder, shard);
    const bool mayReplace = options.resume || options.ifExists == IfExists::Overwrite;
    std::error_code error;
    if (!mayReplace && std::filesystem::exists(file, error)) {
        throw UsageError(PathText(file) + ": this part has been run; --resume goes on with it, "
                                          "--overwrite begins it anew");
    }
    const ShardPlan plan = PlanShards(options.items, shard.count, folder,
                                      mayReplace ? OtherPlan::Replace : OtherPlan::Refuse);
    options.items = ItemsOf(shard, options.items, plan);
    BatchLog log(file, options.resume ? BatchLog::Begin::BehindWhatIsThere : BatchLog::Begin::Anew);
    const Successes earlier =
        options.resume ? EarlierSuccesses(options.items, folder, file, log) : Successes();
    options.ownsOutputs = true;
    options.isDone = [&](const BatchItem& item) {
        const auto found = earlier.find(PlaceBelow(folder, item.output));
        if (found == earlier.end()) {
            return false;
        }
        const bool hadNothingToWrite = found->second.features == 0U;
        return IsDone(item) || (hadNothingToWrite && !std::filesystem::exists(item.output));
    };
    options.onEnd = [&](const BatchItem& item, const BatchOutcome& outcome) {
        log.Add({PathText(item.input), PlaceBelow(folder, item.output), outcome.features,
                 outcome.seconds, outcome.error});
    };
    return RunBatch(options, reporter);
}

}  // namespace app
