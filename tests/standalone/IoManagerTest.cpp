#include "host/zeio/IoManager.h"

#include "host/zeio/CProgress.h"
#include "standalone/IoHost.h"
#include "tests/support/RecordingHost.h"

#include <gtest/gtest.h>

namespace {

using Calls = std::vector<std::string>;

TEST(AProgress, StartsAndEndsWithItsObject) {
    support::RecordingHost host;
    zeio::IoManager manager(host);

    {
        zeio::CProgress progress(manager);
        progress.MessageVA(L"Importing Mif file %s (%d)", L"roads.mif", 3);
    }

    EXPECT_EQ(host.calls(), (Calls{"ProgressStart cancel proportion",
                                   "Message Importing Mif file roads.mif (3)", "ProgressEnd"}));
}

TEST(AnIoManager, HandsProgressAndWarningsToItsHost) {
    support::RecordingHost host;
    zeio::IoManager manager(host);

    manager.ProgressProportion(0.25);
    manager.ProgressIndeterminate();
    manager.Warning(shr::IError::WarnStyle::Ordinary, L"too wide");

    EXPECT_EQ(host.calls(),
              (Calls{"ProgressProportion 0.25", "ProgressIndeterminate", "Warning 0 too wide"}));
}

TEST(AnIoManager, FindsAnOptionWhateverTheFlag) {
    standalone::OptionStore store;
    zeio::IoHost host(store);
    zeio::IoManager manager(host);
    bool value = false;

    manager.SetOption(L"IgnoreStyles", true, /*persistent=*/false);

    EXPECT_TRUE(manager.GetOption(L"IgnoreStyles", value, /*persistent=*/true));
    EXPECT_TRUE(value);
}

TEST(AnIoManager, LeavesTheValueOfAnUnknownOption) {
    standalone::OptionStore store;
    zeio::IoHost host(store);
    const zeio::IoManager manager(host);
    bool value = true;

    EXPECT_FALSE(manager.GetOption(L"IgnoreStyles", value, /*persistent=*/true));

    EXPECT_TRUE(value);
}

TEST(APlainHost, HasNoWindowAndNoModule) {
    standalone::OptionStore store;
    zeio::IoHost host(store);
    const zeio::IoManager manager(host);

    EXPECT_EQ(manager.GetParentWindow(), nullptr);
    EXPECT_EQ(manager.GetModuleInstance(), nullptr);
    EXPECT_EQ(manager.Warning(shr::IError::WarnStyle::Ordinary, L"too wide"), 0);
}

}  // namespace
