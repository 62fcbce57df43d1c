// The two options: from an option string, and from and to the manager's store.
#include "tests/import/ImportRun.h"

#include <gmock/gmock.h>

namespace {

using import_test::Importing;
using import_test::Lines;
using mif::ImportOptions;
using testing::ElementsAre;

class ImportOptionStrings : public Importing {
protected:
    ImportOptions Set(const wchar_t* options) {
        Filter().SetOptionsFromString(options);
        return Filter().options();
    }
};

TEST_F(ImportOptionStrings, AFreshFilterHasBothOptionsOff) {
    EXPECT_EQ(Filter().options(), (ImportOptions{false, false}));
}

TEST_F(ImportOptionStrings, AnEmptyStringTakesTheStoredOptions) {
    Remember(L"AreasToCurves", true);
    Remember(L"IgnoreStyles", true);

    EXPECT_EQ(Set(L""), (ImportOptions{true, true}));
}

TEST_F(ImportOptionStrings, AValueInTheStringOverridesTheStoredOne) {
    Remember(L"AreasToCurves", true);
    Remember(L"IgnoreStyles", true);

    EXPECT_EQ(Set(L"AreasToCurves=0"), (ImportOptions{false, true}));
}

TEST_F(ImportOptionStrings, DefaultsWithAreasToCurvesSetsThatOptionAndClearsTheOther) {
    Remember(L"IgnoreStyles", true);

    EXPECT_EQ(Set(L"Defaults=1;AreasToCurves=1"), (ImportOptions{true, false}));
}

TEST_F(ImportOptionStrings, AnOptionThatIsNotStoredKeepsTheValueOfTheFilter) {
    static_cast<void>(Set(L"IgnoreStyles=1"));
    static_cast<void>(Host().optionStore().Clear());

    EXPECT_EQ(Set(L""), (ImportOptions{false, true}));
}

TEST_F(ImportOptionStrings, TheHostIsAskedInAFixedOrderAndTheResultIsStored) {
    static_cast<void>(Set(L"AreasToCurves=1"));

    EXPECT_THAT(Host().calls(),
                ElementsAre("GetStringOption Defaults", "GetStringOption ForgetOptions",
                            "GetOption AreasToCurves persistent",
                            "GetOption IgnoreStyles persistent", "GetStringOption AreasToCurves",
                            "GetStringOption IgnoreStyles",
                            "SetOption AreasToCurves=true persistent",
                            "SetOption IgnoreStyles=false persistent"));
}

TEST_F(ImportOptionStrings, DefaultsDoesNotAskForTheStoredOptions) {
    static_cast<void>(Set(L"Defaults=1"));

    EXPECT_EQ(Host().CallsStartingWith("GetOption"), Lines{});
}

TEST_F(ImportOptionStrings, ForgetOptionsStoresThemWithTheFlagFalse) {
    static_cast<void>(Set(L"ForgetOptions=1;IgnoreStyles=1"));

    EXPECT_THAT(Host().CallsStartingWith("SetOption"),
                ElementsAre("SetOption AreasToCurves=false", "SetOption IgnoreStyles=true"));
}

TEST_F(ImportOptionStrings, LoadingAndSavingPassTheirFlagOn) {
    Filter().LoadOptions(/*persistent=*/false);
    Filter().SaveOptions(/*persistent=*/false);

    EXPECT_THAT(Host().calls(),
                ElementsAre("GetOption AreasToCurves", "GetOption IgnoreStyles",
                            "SetOption AreasToCurves=false", "SetOption IgnoreStyles=false"));
}

TEST_F(ImportOptionStrings, AnImportTakesTheStoredOptionsAndStoresThemAgain) {
    Remember(L"IgnoreStyles", true);

    Import("");

    EXPECT_EQ(Filter().options(), (ImportOptions{false, true}));
    EXPECT_THAT(Host().CallsStartingWith("SetOption"),
                ElementsAre("SetOption AreasToCurves=false persistent",
                            "SetOption IgnoreStyles=true persistent"));
}

}  // namespace
