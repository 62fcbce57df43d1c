#include "app/Projections.h"

#include <algorithm>
#include <array>

namespace app {
namespace {

constexpr std::array kProjections = {
    Projection{1, 0, false},  Projection{3, 6, false},    Projection{4, 2, true},
    Projection{5, 2, true},   Projection{6, 6, false},    Projection{7, 6, false},
    Projection{8, 5, false},  Projection{9, 7, false},    Projection{10, 1, false},
    Projection{11, 1, false}, Projection{12, 1, false},   Projection{13, 1, false},
    Projection{14, 1, false}, Projection{15, 1, false},   Projection{16, 1, false},
    Projection{18, 2, false}, Projection{20, 5, false},   Projection{27, 4, false},
    Projection{28, 2, true},  Projection{29, 2, true},    Projection{30, 4, false},
    Projection{33, 4, false}, Projection{2003, 6, false},
};

}  // namespace

const Projection* FindProjection(std::int64_t code) {
    const auto* const found = std::ranges::find(kProjections, code, &Projection::code);
    return found == kProjections.end() ? nullptr : found;
}

}  // namespace app
