#include "host/shr/CParamList.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>

namespace {

shr::CParamList ListOf(const std::vector<std::wstring>& names) {
    shr::CParamList list;
    for (const std::wstring& name : names) {
        list.Set(name, std::string("v"));
    }
    return list;
}

std::vector<std::wstring> NamesOf(const shr::CParamList& list) {
    std::vector<std::wstring> names;
    for (std::size_t i = 0; i < list.Size(); ++i) {
        names.push_back(list.Name(i));
    }
    return names;
}

std::wstring ValueOf(const shr::CParamList& list, const std::wstring& name) {
    std::wstring value = L"untouched";
    return list.Get(name, value) ? value : L"absent:" + value;
}

TEST(CParamList, KeepsNamesInTheOrderOfFirstUse) {
    EXPECT_EQ(NamesOf(ListOf({L"b", L"a", L"b", L"c"})),
              (std::vector<std::wstring>{L"b", L"a", L"c"}));
}

TEST(CParamList, ReplacesAValueInItsPlace) {
    shr::CParamList list = ListOf({L"a", L"b"});

    list.Set(L"a", std::string("new"));

    EXPECT_EQ(list.Size(), 2U);
    EXPECT_EQ(list.Value(0), L"new");
}

TEST(CParamList, ClearsTheResultForAnAbsentName) {
    EXPECT_EQ(ValueOf(ListOf({L"a"}), L"b"), L"absent:");
    EXPECT_EQ(ValueOf(shr::CParamList(), L"b"), L"absent:");
}

TEST(CParamList, TellsCaseApart) {
    EXPECT_EQ(ValueOf(ListOf({L"a"}), L"A"), L"absent:");
}

TEST(CParamList, ConvertsNarrowAndWideValuesBothWays) {
    shr::CParamList list;

    list.Set(L"narrow", std::string("\xE9"));
    list.Set(L"wide", std::wstring(L"\u20AC"));

    EXPECT_EQ(list.Value(0), L"\u00E9");
    EXPECT_EQ(list.NarrowValue(0), "\xE9");
    EXPECT_EQ(list.Value(1), L"\u20AC");
    EXPECT_EQ(list.NarrowValue(1), "\x80");
}

TEST(CParamList, KeepsTheLastKindOfValue) {
    shr::CParamList list;

    list.Set(L"a", std::wstring(L"wide"));
    list.Set(L"a", std::string("narrow"));

    EXPECT_EQ(list.Value(0), L"narrow");
}

TEST(CParamList, ForgetsNamesAndValues) {
    shr::CParamList list = ListOf({L"a"});

    list.Clear();

    EXPECT_EQ(list.Size(), 0U);
    EXPECT_EQ(ValueOf(list, L"a"), L"absent:");
}

TEST(CParamList, SharesItsNamesWithACopy) {
    const shr::CParamList list = ListOf({L"a", L"b"});

    const shr::CParamList copy = list;  // NOLINT: the copy is what is tested

    EXPECT_EQ(&copy.Name(1), &list.Name(1));
}

TEST(CParamList, SharesItsNamesWithTheNextListOfTheSameNames) {
    const shr::CParamList first = ListOf({L"a", L"b"});
    { const shr::CParamList remembered = first; }  // NOLINT: its end is what counts

    const shr::CParamList second = ListOf({L"a", L"b"});

    EXPECT_EQ(&second.Name(0), &first.Name(0));
    EXPECT_EQ(&second.Name(1), &first.Name(1));
}

TEST(CParamList, SharesItsNamesWithItselfAfterClear) {
    shr::CParamList list = ListOf({L"a", L"b"});
    const shr::CParamList copy = list;

    list.Clear();
    list.Set(L"a", std::string("1"));

    EXPECT_EQ(&list.Name(0), &copy.Name(0));
    EXPECT_EQ(list.Size(), 1U);
}

TEST(CParamList, DoesNotShowNamesThatOnlyAnotherListHas) {
    { const shr::CParamList longer = ListOf({L"a", L"b", L"c"}); }

    const shr::CParamList shorter = ListOf({L"a"});

    EXPECT_EQ(shorter.Size(), 1U);
    EXPECT_EQ(ValueOf(shorter, L"b"), L"absent:");
}

TEST(CParamList, LeavesACopyAloneWhenItGetsAnotherName) {
    shr::CParamList list = ListOf({L"a"});
    const shr::CParamList copy = list;

    list.Set(L"b", std::string("2"));

    EXPECT_EQ(NamesOf(copy), std::vector<std::wstring>{L"a"});
    EXPECT_EQ(NamesOf(list), (std::vector<std::wstring>{L"a", L"b"}));
}

TEST(CParamList, LeavesACopysValuesAlone) {
    shr::CParamList list = ListOf({L"a"});
    list.Set(L"w", std::wstring(L"old"));
    const shr::CParamList copy = list;

    list.Set(L"w", std::wstring(L"new"));

    EXPECT_EQ(ValueOf(copy, L"w"), L"old");
}

TEST(CParamList, TakesAnotherNameWhereTheLastListHadOne) {
    { const shr::CParamList last = ListOf({L"a", L"b", L"c"}); }

    const shr::CParamList list = ListOf({L"a", L"x", L"b"});

    EXPECT_EQ(NamesOf(list), (std::vector<std::wstring>{L"a", L"x", L"b"}));
}

TEST(CParamList, SkipsANameThatTheLastListHad) {
    { const shr::CParamList last = ListOf({L"a", L"b", L"c"}); }

    const shr::CParamList list = ListOf({L"a", L"c"});

    EXPECT_EQ(NamesOf(list), (std::vector<std::wstring>{L"a", L"c"}));
    EXPECT_EQ(ValueOf(list, L"c"), L"v");
}

TEST(CParamList, IsEmptyAfterItWasMovedFrom) {
    shr::CParamList list = ListOf({L"a"});

    const shr::CParamList moved = std::move(list);

    EXPECT_EQ(NamesOf(moved), std::vector<std::wstring>{L"a"});
    EXPECT_EQ(list.Size(), 0U);  // NOLINT: the moved-from list is what is tested
}

TEST(CParamList, CanBeFilledAgainAfterItWasMovedFrom) {
    shr::CParamList list = ListOf({L"a"});
    shr::CParamList target;
    target = std::move(list);

    list.Set(L"z", std::string("1"));  // NOLINT: the moved-from list is what is tested

    EXPECT_EQ(NamesOf(list), std::vector<std::wstring>{L"z"});
    EXPECT_EQ(NamesOf(target), std::vector<std::wstring>{L"a"});
}

TEST(CParamList, HoldsManyNames) {
    std::vector<std::wstring> names(20'000);
    for (std::size_t i = 0; i < names.size(); ++i) {
        names[i] = L"column" + std::to_wstring(i);
    }

    EXPECT_EQ(NamesOf(ListOf(names)), names);
}

TEST(CParamList, CanBeReadInOneThreadWhileAnotherFillsTheLike) {
    const shr::CParamList list = ListOf({L"a", L"b"});
    const shr::CParamList copy = list;
    std::wstring seen;

    std::thread reader([&] { seen = ValueOf(copy, L"b"); });
    shr::CParamList grown = list;
    grown.Set(L"c", std::string("3"));
    reader.join();

    EXPECT_EQ(seen, L"v");
    EXPECT_EQ(grown.Size(), 3U);
}

}  // namespace
