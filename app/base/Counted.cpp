#include "app/base/Counted.h"

namespace app {

std::string Counted(std::uint64_t count, const std::string& one, const std::string& many) {
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

}  // namespace app
