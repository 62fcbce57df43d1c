#include "host/shr/CPath.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct ExtensionRow {
    std::string name;
    std::wstring path;
    std::wstring changed;
};
class ChangeExtension : public testing::TestWithParam<ExtensionRow> {};

TEST_P(ChangeExtension, ToMid) {
    EXPECT_EQ(shr::CPath::ChangeExtension(GetParam().path, L".mid"), GetParam().changed);
}
INSTANTIATE_TEST_SUITE_P(
    , ChangeExtension,
    testing::Values(ExtensionRow{"OfAFile", L"a/roads.mif", L"a/roads.mid"},
                    ExtensionRow{"OfANameWithTwo", L"roads.v1.mif", L"roads.v1.mid"},
                    ExtensionRow{"OfANameWithNone", L"a/roads", L"a/roads.mid"},
                    ExtensionRow{"NotOfAFolder", L"a.b/roads", L"a.b/roads.mid"},
                    ExtensionRow{"OfANameThatOnlyBeginsWithAFullStop", L"a/.mif", L"a/.mif.mid"},
                    ExtensionRow{"OfAHiddenFile", L"a/.roads.mif", L"a/.roads.mid"},
                    ExtensionRow{"OfANameThatEndsWithAFullStop", L"roads.", L"roads.mid"},
                    ExtensionRow{"OfAnEmptyPath", L"", L".mid"}),
    [](const auto& row) { return row.param.name; });

struct NameRow {
    std::string name;
    std::wstring path;
    std::wstring last;
};
class NameAndExtension : public testing::TestWithParam<NameRow> {};

TEST_P(NameAndExtension, IsWhatStandsBehindTheFolders) {
    EXPECT_EQ(shr::CPath(GetParam().path).GetNameAndExtension(), GetParam().last);
}
INSTANTIATE_TEST_SUITE_P(, NameAndExtension,
                         testing::Values(NameRow{"InFolders", L"/a/b/roads.mif", L"roads.mif"},
                                         NameRow{"WithoutFolders", L"roads.mif", L"roads.mif"},
                                         NameRow{"OfAFolder", L"/a/b/", L""},
                                         NameRow{"OfNothing", L"", L""}),
                         [](const auto& row) { return row.param.name; });

TEST(CPath, ChangesItsOwnExtension) {
    shr::CPath path(L"roads.mif");

    path.SetExtension(L".mid");

    EXPECT_EQ(path.GetPath(), L"roads.mid");
}

TEST(CPath, TakesABackslashForAFolderOnWindowsOnly) {
#if defined(_WIN32)
    EXPECT_EQ(shr::CPath(L"a\\roads.mif").GetNameAndExtension(), L"roads.mif");
#else
    EXPECT_EQ(shr::CPath(L"a\\roads.mif").GetNameAndExtension(), L"a\\roads.mif");
#endif
}

}  // namespace
