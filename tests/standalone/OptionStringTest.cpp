#include "host/zeio/IoManager.h"
#include "standalone/IoHost.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace {

// What the option string gives to the name IgnoreStyles; empty when it gives it nothing.
std::optional<bool> ValueIn(const std::wstring& options) {
    standalone::OptionStore store;
    zeio::IoHost host(store);
    const zeio::IoManager manager(host);
    bool value = false;
    bool opposite = true;
    const bool isFound = manager.GetStringOption(options, L"IgnoreStyles", value);
    EXPECT_EQ(manager.GetStringOption(options, L"IgnoreStyles", opposite), isFound);
    EXPECT_NE(value == opposite, !isFound);  // set exactly when it is found
    return isFound ? std::optional(value) : std::nullopt;
}

struct OptionRow {
    std::string name;
    std::wstring options;
    std::optional<bool> value;
};
class OptionString : public testing::TestWithParam<OptionRow> {};

TEST_P(OptionString, GivesTheName) {
    EXPECT_EQ(ValueIn(GetParam().options), GetParam().value);
}
INSTANTIATE_TEST_SUITE_P(
    , OptionString,
    testing::Values(OptionRow{"OneForTrue", L"IgnoreStyles=1", true},
                    OptionRow{"TheWordTrue", L"IgnoreStyles=true", true},
                    OptionRow{"YesForTrue", L"IgnoreStyles=yes", true},
                    OptionRow{"OnForTrue", L"IgnoreStyles=on", true},
                    OptionRow{"ZeroForFalse", L"IgnoreStyles=0", false},
                    OptionRow{"TheWordFalse", L"IgnoreStyles=false", false},
                    OptionRow{"NoForFalse", L"IgnoreStyles=no", false},
                    OptionRow{"OffForFalse", L"IgnoreStyles=off", false},
                    OptionRow{"TrueByTheBareName", L"IgnoreStyles", true},
                    OptionRow{"TrueAmongOthers", L"AreasToCurves=0;IgnoreStyles=1;Defaults", true},
                    OptionRow{"TrueWithBlanksAround", L" ; IgnoreStyles \t= yes ;", true},
                    OptionRow{"TrueInAnotherCase", L"IGNORESTYLES=TRUE", true},
                    OptionRow{"TheLastOfTwo", L"IgnoreStyles=1;IgnoreStyles=0", false},
                    OptionRow{"NothingWhenItIsEmpty", L"", std::nullopt},
                    OptionRow{"NothingWhenItIsNotThere", L"AreasToCurves=1", std::nullopt},
                    OptionRow{"NothingByALongerName", L"IgnoreStylesToo=1", std::nullopt},
                    OptionRow{"NothingByAShorterName", L"Ignore=1", std::nullopt},
                    OptionRow{"NothingByAnUnknownValue", L"IgnoreStyles=maybe", std::nullopt},
                    OptionRow{"NothingByAnEmptyValue", L"IgnoreStyles=", std::nullopt},
                    OptionRow{"TheLastThatIsAValue", L"IgnoreStyles=1;IgnoreStyles=2", true},
                    OptionRow{"NothingByAnotherDelimiter", L"AreasToCurves=1,IgnoreStyles=1",
                              std::nullopt}),
    [](const auto& row) { return row.param.name; });

}  // namespace
