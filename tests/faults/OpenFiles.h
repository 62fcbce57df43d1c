// The files that this process has open.
#pragma once

#include <cstddef>
#include <string>

namespace fault_test {

// How many descriptors are open.
std::size_t OpenFileCount();

// The descriptor of an open file whose name ends like this; -1 when there is none.
int DescriptorOf(const std::string& nameEnd);

}  // namespace fault_test
