// What numbers an option takes.
#pragma once

#include <CLI/CLI.hpp>

#include <charconv>
#include <cstdint>
#include <limits>
#include <string>

namespace app {

// Accepts whole numbers from `least` to `most`. The parser reports others: "--limit: takes a whole
// number, 0 or more, not "-1"".
inline CLI::Validator WholeNumber(std::uint64_t least = 0,
                                  std::uint64_t most = std::numeric_limits<std::uint64_t>::max()) {
    const auto check = [least, most](const std::string& text) -> std::string {
        std::uint64_t number = 0;
        const char* const end = text.data() + text.size();
        const auto result = std::from_chars(text.data(), end, number);
        if (result.ec == std::errc{} && result.ptr == end && number >= least && number <= most) {
            return "";
        }
        const bool isEndless = most == std::numeric_limits<std::uint64_t>::max();
        const std::string range =
            isEndless ? ", " + std::to_string(least) + " or more"
                      : " from " + std::to_string(least) + " to " + std::to_string(most);
        return "takes a whole number" + range + ", not \"" + text + "\"";
    };
    return CLI::Validator(check, "");
}

}  // namespace app
