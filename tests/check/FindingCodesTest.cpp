#include "app/mif/FindingCodes.h"
#include "tests/check/KeptFindings.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <set>
#include <string>

namespace {

TEST(FindingCodes, StandInTheOrderOfTheirEnumerators) {
    std::size_t place = 0;
    for (const app::FindingInfo& info : app::AllFindings()) {
        EXPECT_EQ(static_cast<std::size_t>(info.code), place++) << info.id;
    }
    EXPECT_EQ(place, static_cast<std::size_t>(app::FindingCode::ModuleError) + 1);
}

TEST(FindingCodes, HaveIdsAndNamesOfTheirOwn) {
    std::set<std::string> seen;
    for (const app::FindingInfo& info : app::AllFindings()) {
        EXPECT_TRUE(seen.insert(info.id).second) << info.id;
        EXPECT_TRUE(seen.insert(info.name).second) << info.name;
    }
}

TEST(FindingCodes, AreAllDocumented) {
    EXPECT_EQ(BytesOf(std::filesystem::path(QOLF_DOCS) / "findings.md"), app::FindingsAsMarkdown())
        << "update it with: qolf check --codes > docs/findings.md";
}

}  // namespace
