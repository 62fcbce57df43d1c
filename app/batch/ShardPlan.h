// Which part of a batch has which file: written down once, so that all parts hold to it.
#pragma once

#include "app/batch/BatchPlan.h"
#include "app/batch/Shard.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace app {

struct PlannedFile {
    std::size_t shard = 0;  // from 1
    std::uint64_t bytes = 0;
    std::string input;   // as the user gave it
    std::string output;  // below the output folder, with "/" on every system
};

struct ShardPlan {
    std::size_t shards = 0;
    std::string inputs;  // a number that differs for other inputs, outputs and numbers of parts
    std::vector<PlannedFile> files;
};

// What becomes of a plan for other inputs that is there already.
enum class OtherPlan { Refuse, Replace };

// Returns the plan in `folder`/.qolf/plan.jsonl for these items, in their order. Without one, the
// items are dealt out by their sizes and the plan is written; of several processes that do so at a
// time, one wins, and all return its plan. Throws Failure; UsageError for a refused plan.
ShardPlan PlanShards(const std::vector<BatchItem>& items, std::size_t shards,
                     const std::filesystem::path& folder, OtherPlan other);

// Returns the plan of an output folder. Throws Failure when there is none, or no whole one.
ShardPlan ReadShardPlan(const std::filesystem::path& folder);

// Returns the place of an output below the output folder, as plans and logs have it.
std::string PlaceBelow(const std::filesystem::path& folder, const std::filesystem::path& output);

}  // namespace app
