#include "app/batch/Shard.h"

#include "app/base/Errors.h"

#include <algorithm>
#include <charconv>
#include <numeric>
#include <queue>
#include <utility>

namespace app {
namespace {

// The bytes that take as long as a file takes to be opened and closed.
constexpr std::uint64_t kBytesPerFile = 100'000;

// The number that the whole text is; 0 for no such number.
std::size_t WholeNumberOf(std::string_view text) {
    std::size_t number = 0;
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    return result.ec == std::errc{} && result.ptr == end ? number : 0;
}

}  // namespace

Shard ShardOf(const std::string& text) {
    const std::size_t slash = std::min(text.find('/'), text.size());
    const std::string_view view = text;
    Shard shard;
    shard.number = WholeNumberOf(view.substr(0, slash));
    shard.count = WholeNumberOf(view.substr(std::min(slash + 1, view.size())));
    if (shard.number == 0 || shard.number > shard.count || shard.count > kMostShards) {
        throw UsageError("--shard takes a part and the number of parts, such as 3/8, not \"" +
                         text + "\"");
    }
    return shard;
}

std::vector<std::size_t> DealOut(std::span<const std::uint64_t> sizes, std::size_t shards) {
    std::vector<std::size_t> largestFirst(sizes.size());
    std::iota(largestFirst.begin(), largestFirst.end(), std::size_t{0});
    std::ranges::stable_sort(largestFirst, [sizes](std::size_t left, std::size_t right) {
        return sizes[left] > sizes[right];
    });
    // Each file goes to the part that has the least so far; of equal parts, to the first.
    using Load = std::pair<std::uint64_t, std::size_t>;
    std::priority_queue<Load, std::vector<Load>, std::greater<>> loads;
    for (std::size_t shard = 1; shard <= shards; ++shard) {
        loads.emplace(0, shard);
    }
    std::vector<std::size_t> parts(sizes.size());
    for (const std::size_t file : largestFirst) {
        const auto [load, shard] = loads.top();
        loads.pop();
        parts[file] = shard;
        loads.emplace(load + sizes[file] + kBytesPerFile, shard);
    }
    return parts;
}

}  // namespace app
