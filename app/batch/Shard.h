// Parts of a batch, for several machines.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace app {

// Part `number` of `count`, from 1.
struct Shard {
    std::size_t number = 1;
    std::size_t count = 1;
};

inline constexpr std::size_t kMostShards = 100'000;

// Reads "3/8". Throws UsageError for anything else.
Shard ShardOf(const std::string& text);

// Deals files of these sizes out to so many parts and returns the part of each, from 1. Parts get
// about the same work, for which a file counts with its bytes and a little more, so that many small
// files weigh something, too. The answer depends on nothing but the arguments.
std::vector<std::size_t> DealOut(std::span<const std::uint64_t> sizes, std::size_t shards);

}  // namespace app
