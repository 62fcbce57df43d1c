// The page itself: markup, settings and policy around the layers.
#pragma once

#include "app/page/PageLayers.h"
#include "app/page/PageRun.h"

#include <string>

namespace app {

// All of the page before its layers: a page is this, the layers, each between the two texts below,
// and what comes behind them.
std::string DocumentHead(const PageOptions& options, const PageLayers& layers, PagePlane plane);

inline constexpr std::string_view kLayerBegin =
    "<script type=\"application/json\" class=\"layer\">";
inline constexpr std::string_view kLayerEnd = "</script>\n";

std::string DocumentEnd();

}  // namespace app
