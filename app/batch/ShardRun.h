// One part of a batch that several machines share.
#pragma once

#include "app/base/Reporter.h"
#include "app/batch/BatchRun.h"
#include "app/batch/Shard.h"

#include <filesystem>

namespace app {

// Runs those items of the batch that belong to the part, the largest first, as RunBatch does, and
// writes a line for each to the part's log. The part of each file is in the plan of the output
// folder (ShardPlan.h).
//
// With `options.resume`, files are done whose output is there and whose success some log of the
// folder tells; they get a line in this part's log, if they have none. Without it a log of this
// part is refused, unless outputs may be replaced, which begins it anew. Throws Failure and
// UsageError.
int RunShard(BatchOptions options, const std::filesystem::path& folder, const Shard& shard,
             Reporter& reporter);

}  // namespace app
