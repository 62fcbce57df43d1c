// Hosts whose callbacks throw, at every call in turn.
#include "host/zeio/IoImportFilter.h"
#include "host/zeio/IoManager.h"
#include "module/Module.h"
#include "standalone/IoHost.h"
#include "standalone/Log.h"
#include "tests/faults/Drawings.h"
#include "tests/faults/FailingAllocations.h"
#include "tests/faults/OpenFiles.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace fault_test {

namespace {

using testing::IsEmpty;

struct HostIsUnwilling {};

struct StoreOwner {
    standalone::OptionStore store;
};

// Throws at the call with the given number, counted from 1 over all its operations.
class ThrowingHost : private StoreOwner, public zeio::IoHost {
public:
    explicit ThrowingHost(long failingCall) : IoHost(store), failingCall_(failingCall) {}

    bool HasThrown() const { return calls_ >= failingCall_; }

    bool GetOption(const std::wstring& name, bool& value, bool persistent) override {
        Call();
        return IoHost::GetOption(name, value, persistent);
    }
    void SetOption(const std::wstring& name, bool value, bool persistent) override {
        Call();
        IoHost::SetOption(name, value, persistent);
    }
    int Warning(shr::IError::WarnStyle /*style*/, const std::wstring& /*text*/) override {
        Call();
        return 0;
    }
    void ProgressStart(const std::wstring& /*title*/, bool /*canCancel*/,
                       bool /*hasProportion*/) override {
        Call();
    }
    void ProgressProportion(double /*fraction*/) override { Call(); }
    void ProgressIndeterminate() override { Call(); }
    void ProgressMessage(const std::wstring& /*text*/) override { Call(); }
    void ProgressEnd() override { Call(); }
    void ImportObject(zeio::TrBase& /*object*/) override { Call(); }

private:
    void Call() {
        ++calls_;
        if (calls_ == failingCall_) {
            throw HostIsUnwilling();
        }
    }

    long failingCall_;
    long calls_ = 0;
};

// Drops what is logged while it lives: an end of the progress that throws is swallowed there.
class SilentLog {
public:
    SilentLog() : previous_(standalone::SetLogSink({})) {}
    ~SilentLog() { standalone::SetLogSink(previous_); }
    SilentLog(const SilentLog&) = delete;
    SilentLog& operator=(const SilentLog&) = delete;

private:
    standalone::LogSink previous_;
};

struct Outcome {
    bool hasThrown = false;  // the host, at the call that it was to throw at
    long blocksLeft = 0;
};

Outcome RunWith(const std::function<void(zeio::IoManager&)>& run, long failingCall) {
    Outcome outcome;
    const long before = LiveBlocks();
    {
        ThrowingHost host(failingCall);
        zeio::IoManager manager(host);
        try {
            run(manager);
        } catch (const HostIsUnwilling&) {  // NOLINT(bugprone-empty-catch): what it is about
        }
        outcome.hasThrown = host.HasThrown();
    }
    outcome.blocksLeft = LiveBlocks() - before;
    return outcome;
}

// What stayed behind when each call in turn threw. run makes a filter, uses and deletes it.
std::vector<std::string> LeftBehind(const std::function<void(zeio::IoManager&)>& run) {
    const SilentLog log;
    static_cast<void>(RunWith(run, 1'000'000));  // what the libraries keep for good
    const std::size_t openFiles = OpenFileCount();
    std::vector<std::string> left;
    for (long call = 1;; ++call) {
        const Outcome outcome = RunWith(run, call);
        if (!outcome.hasThrown) {
            return call > 1 ? left : std::vector<std::string>{"no call at all"};
        }
        if (outcome.blocksLeft != 0) {
            left.push_back("memory after call " + std::to_string(call));
        }
        if (OpenFileCount() != openFiles) {
            left.push_back("an open file after call " + std::to_string(call));
        }
    }
}

// Every kind of object, more than the progress is told at a time, and a warning.
std::string LargeMap() {
    std::string objects;
    for (int i = 0; i < 8; ++i) {
        for (const ImportRow& row : ImportRows()) {
            objects += row.objects;
        }
    }
    return "Unique 1\n" + MifWith(objects);
}

}  // namespace

TEST(AHostThatThrows, AtAnyCallOfAnImportLeavesNothingOpen) {
    const support::TemporaryFolder folder;
    const std::wstring path = folder.Write("map.mif", LargeMap());
    static_cast<void>(folder.Write("map.mid", MidRows()));

    const std::vector<std::string> left = LeftBehind([&](zeio::IoManager& manager) {
        const std::unique_ptr<zeio::IoImportFilter> filter(ImportMIF(manager));
        filter->Import(path);
    });

    EXPECT_THAT(left, IsEmpty());
}

TEST(AHostThatThrows, AtAnyCallOfAnExportLeavesNothingOpen) {
    const support::TemporaryFolder folder;
    Objects drawing = WholeDrawing();
    const zeio::TrMarkerSet markers;
    for (int i = 0; i < 300; ++i) {
        drawing.push_back(std::make_unique<zeio::TrMarkerSet>(markers));
    }

    const std::vector<std::string> left = LeftBehind([&](zeio::IoManager& manager) {
        const std::unique_ptr<zeio::IoExportFilter> filter(ExportMIF(manager));
        ExportAll(*filter, folder.PathOf("out.mif"), drawing);
    });

    EXPECT_THAT(left, IsEmpty());
}

TEST(AHostThatThrows, AtTheWarningOfAnExportLeavesNoFile) {
    const support::TemporaryFolder folder;
    Objects drawing = WholeDrawing();
    zeio::TrPolyline polyline;
    polyline.vertices = {{0, 0, 0}, {1, 1, 0}};
    polyline.attributes.Set(L"B", std::wstring(255, L'x'));
    drawing.push_back(std::make_unique<zeio::TrPolyline>(polyline));
    class WarnedHost : private StoreOwner, public zeio::IoHost {
    public:
        WarnedHost() : IoHost(store) {}
        int Warning(shr::IError::WarnStyle /*style*/, const std::wstring& /*text*/) override {
            throw HostIsUnwilling();
        }
    };

    {
        WarnedHost host;
        zeio::IoManager manager(host);
        const std::unique_ptr<zeio::IoExportFilter> filter(ExportMIF(manager));
        EXPECT_THROW(ExportAll(*filter, folder.PathOf("out.mif"), drawing), HostIsUnwilling);
    }

    EXPECT_FALSE(folder.Has("out.mif"));
    EXPECT_FALSE(folder.Has("out.mid"));
}

}  // namespace fault_test
