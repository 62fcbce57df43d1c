// A map as one page for the browser, which asks nothing of any network.
#pragma once

#include "app/base/Reporter.h"
#include "app/map/MapArguments.h"

#include <cstddef>
#include <string>

namespace app {

// A base map below the layers. Nothing is asked of a network without one.
struct BaseMap {
    std::string url;          // with {z}, {x} and {y}; https: or http:; empty: none
    std::string origin;       // of the content policy: "https://tile.example.org"
    std::string attribution;  // plain text, shown in a corner
};

// How large a page may become without --size: bytes.
inline constexpr std::size_t kPageBudget = std::size_t{20} << 20;

struct PageOptions : MapRequest {
    std::string title;  // UTF-8; empty: the layers' names
    bool showsLegend = false;
    BaseMap baseMap;
    // Vertices are left out until the page is no larger than that; a page whose attributes and
    // points alone are larger is refused. Bytes.
    std::size_t budget = kPageBudget;
};

// Returns the exit code. Reads every input once. Throws Failure.
int RunPage(const PageOptions& options, Reporter& reporter);

}  // namespace app
