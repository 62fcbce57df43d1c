// The header reader over a block of memory.
#include "fuzz/FuzzInput.h"
#include "reader/CMifReader.h"

#include <cstdint>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    mif::CMifReader reader;
    std::wstring message;
    reader.OpenMemory(std::vector<unsigned char>(data, data + size));
    const bool isRead = reader.ReadHeader(message);
    fuzz::Require(reader.columnNames().size() <= size, "a column takes a byte at least");
    fuzz::Require(reader.delimiter().size() <= 2, "a delimiter has two characters at most");
    fuzz::Require(!isRead || !reader.hasEarthProjection() || !reader.projection().IsUnknown(true) ||
                      !reader.datum().IsUnknown(),
                  "an Earth system has a projection or a datum");
    static_cast<void>(reader.BoundsDiagonal());
    static_cast<void>(reader.projection().CheckParameters());
    return 0;
}
