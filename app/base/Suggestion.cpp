#include "app/base/Suggestion.h"

#include "app/base/Utf8.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace app {
namespace {

// How many characters have to be changed, added, taken away or swapped to make one of the other.
std::size_t Distance(const std::u32string& left, const std::u32string& right) {
    const std::size_t width = right.size() + 1;
    std::vector<std::size_t> steps((left.size() + 1) * width);
    const auto at = [&](std::size_t i, std::size_t j) -> std::size_t& {
        return steps[i * width + j];
    };
    for (std::size_t i = 0; i <= left.size(); ++i) {
        for (std::size_t j = 0; j <= right.size(); ++j) {
            if (i == 0 || j == 0) {
                at(i, j) = i + j;
                continue;
            }
            const std::size_t change = left[i - 1] == right[j - 1] ? 0 : 1;
            at(i, j) = std::min({at(i - 1, j) + 1, at(i, j - 1) + 1, at(i - 1, j - 1) + change});
            if (i > 1 && j > 1 && left[i - 1] == right[j - 2] && left[i - 2] == right[j - 1]) {
                at(i, j) = std::min(at(i, j), at(i - 2, j - 2) + 1);
            }
        }
    }
    return steps.back();
}

}  // namespace

std::optional<std::string> NearestName(std::string_view wanted,
                                       std::span<const std::string> names) {
    constexpr std::size_t kMostCharacters = 100;  // of a name that is compared
    const std::u32string letters = FoldedCase(wanted.substr(0, 4 * kMostCharacters));
    std::size_t nearest = std::max<std::size_t>(1, letters.size() / 3) + 1;
    std::optional<std::string> found;
    for (const std::string& name : names) {
        const std::u32string other = FoldedCase(name);
        if (other.size() > kMostCharacters || other.size() + nearest <= letters.size()) {
            continue;
        }
        const std::size_t distance = Distance(letters, other);
        // A name of which nothing stays is another name.
        if (distance < nearest && distance < std::max(letters.size(), other.size())) {
            nearest = distance;
            found = name;
        }
    }
    return found;
}

}  // namespace app
