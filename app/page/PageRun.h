// A map as one page for the browser, which asks nothing of any network.
#pragma once

#include "app/base/Output.h"
#include "app/base/Reporter.h"
#include "app/feature/DrawnStyle.h"

#include <cstddef>
#include <string>

namespace app {

// A base map below the layers. Nothing is asked of a network without one.
struct BaseMap {
    std::string url;          // with {z}, {x} and {y}; https: or http:; empty: none
    std::string attribution;  // plain text, shown in a corner
};

struct PageLook {
    std::string title;  // UTF-8; empty: the layers' names
    StyleSource styleSource = StyleSource::Objects;
    BaseMap baseMap;
};

// How large a page may become: bytes. The vertices are thinned until it is reached; a page whose
// attributes and points alone are larger is refused.
inline constexpr std::size_t kPageBudget = std::size_t{20} << 20;

}  // namespace app
