#include "host/zeio/FilterIdentity.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

namespace {

constexpr zeio::FilterIdentity kRecord = {
    "$ZEIO_FILT$", 100, u"qolf", zeio::FilterKind::Export, {}};

std::vector<unsigned char> BytesOf(const zeio::FilterIdentity& record) {
    std::vector<unsigned char> bytes(sizeof record);
    std::memcpy(bytes.data(), &record, sizeof record);
    return bytes;
}

TEST(FilterIdentity, HoldsItsTagItsVersionItsNameAndItsKindAtFixedOffsets) {
    const std::vector<unsigned char> bytes = BytesOf(kRecord);

    EXPECT_EQ(std::string(bytes.begin(), bytes.begin() + 12), std::string("$ZEIO_FILT$\0", 12));
    EXPECT_EQ(std::string(bytes.begin() + 12, bytes.begin() + 16), std::string("d\0\0\0", 4));
    EXPECT_EQ(std::string(bytes.begin() + 16, bytes.begin() + 26),
              std::string("q\0o\0l\0f\0\0\0", 10));
    EXPECT_EQ(std::string(bytes.begin() + 96, bytes.begin() + 100), std::string("\2\0\0\0", 4));
}

TEST(FilterIdentity, IsPaddedWithZeros) {
    const std::vector<unsigned char> bytes = BytesOf(kRecord);

    EXPECT_EQ(std::string(bytes.begin() + 24, bytes.begin() + 96), std::string(72, '\0'));
    EXPECT_EQ(std::string(bytes.begin() + 100, bytes.end()), std::string(12, '\0'));
}

}  // namespace
