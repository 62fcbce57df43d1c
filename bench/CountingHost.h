// A host that counts the objects it is given and drops them.
#pragma once

#include "standalone/IoHost.h"
#include "standalone/OptionStore.h"

#include <cstddef>

namespace bench {

// A base, so that the store exists before the host that refers to it.
struct MemoryOptions {
    standalone::OptionStore store;
};

class CountingHost : private MemoryOptions, public zeio::IoHost {
public:
    CountingHost() : zeio::IoHost(store) {}
    void ImportObject(zeio::TrBase& /*object*/) override { ++objects_; }
    std::size_t objects() const { return objects_; }

private:
    std::size_t objects_ = 0;
};

}  // namespace bench
