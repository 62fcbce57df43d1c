// Bytes that come back as they were written, from memory and from a temporary file.
#include "app/base/Spool.h"

#include "app/base/Errors.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace {

std::string Numbered(int count) {
    std::string bytes;
    for (int i = 0; i < count; ++i) {
        bytes += static_cast<char>(i % 251);
    }
    return bytes;
}

TEST(Spool, GivesBackWhatIsInMemory) {
    app::Spool spool;
    spool.Put(42);
    spool.Write("text");

    app::Spool::Reader reader(spool);

    EXPECT_EQ(reader.Take<int>(), 42);
    EXPECT_EQ(reader.Read(4), "text");
    EXPECT_TRUE(reader.IsAtEnd());
}

TEST(Spool, GivesBackWhatIsInAFileAndBehindIt) {
    const std::string bytes = Numbered(3'000'000);
    app::Spool spool(/*mostInMemory=*/1000);
    for (std::size_t at = 0; at < bytes.size(); at += 700) {
        spool.Write(std::string_view(bytes).substr(at, 700));
    }

    for (int round = 0; round < 2; ++round) {
        app::Spool::Reader reader(spool);
        std::string back;
        while (!reader.IsAtEnd()) {
            back += reader.Read(std::min<std::size_t>(9999, bytes.size() - back.size()));
        }
        EXPECT_EQ(back, bytes);
    }
    EXPECT_EQ(spool.Size(), bytes.size());
}

TEST(Spool, IsAtItsEndWithoutBytes) {
    app::Spool spool;

    EXPECT_TRUE(app::Spool::Reader(spool).IsAtEnd());
}

TEST(Spool, ThrowsForMoreBytesThanThereAre) {
    app::Spool spool;
    spool.Write("abc");
    app::Spool::Reader reader(spool);

    EXPECT_THROW(static_cast<void>(reader.Read(4)), app::Failure);
}

}  // namespace
