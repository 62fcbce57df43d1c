// A host that records every call which a filter makes on it, in order, and keeps the objects.
#pragma once

#include "host/zeio/TrObjects.h"
#include "standalone/IoHost.h"
#include "standalone/OptionStore.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace support {

// Holds the option store, which has to exist before the host that is built on it.
struct StoreOwner {
    standalone::OptionStore store;
};

class RecordingHost : private StoreOwner, public zeio::IoHost {
public:
    // The options start empty and stay in memory.
    RecordingHost();

    // Every call as a line of text: "GetOption IgnoreStyles", "SetOption IgnoreStyles=false
    // persistent", "GetStringOption Defaults", "ProgressStart cancel proportion", "Message …",
    // "ProgressProportion 0.25", "ProgressIndeterminate", "ProgressEnd", "Warning 0 …",
    // "ShowHelp topic#anchor", and an object as DescribeObject writes it.
    const std::vector<std::string>& calls() const { return calls_; }

    // The calls that begin with the prefix.
    std::vector<std::string> CallsStartingWith(std::string_view prefix) const;

    // The imported objects alone, without the one that starts an import.
    std::vector<std::string> ImportedObjects() const;

    // Copies of the imported objects of one class, in order.
    template <typename Class> std::vector<const Class*> Received() const {
        std::vector<const Class*> found;
        for (const std::unique_ptr<zeio::TrBase>& object : objects_) {
            if (object->GetTypeId() == Class::GetClassTypeId()) {
                found.push_back(static_cast<const Class*>(object.get()));
            }
        }
        return found;
    }

    void ForgetCalls();
    standalone::OptionStore& optionStore() { return store; }

    // Called with each imported object after it was recorded; may throw, or move parts out of it.
    std::function<void(zeio::TrBase&)> onObject;

    // Called with each topic after it was recorded; may throw.
    std::function<void(const std::wstring&)> onHelp;

    bool GetOption(const std::wstring& name, bool& value, bool persistent) override;
    void SetOption(const std::wstring& name, bool value, bool persistent) override;
    bool GetStringOption(const std::wstring& options, const std::wstring& name,
                         bool& value) override;
    int Warning(shr::IError::WarnStyle style, const std::wstring& text) override;
    void ProgressStart(const std::wstring& title, bool canCancel, bool hasProportion) override;
    void ProgressProportion(double fraction) override;
    void ProgressIndeterminate() override;
    void ProgressMessage(const std::wstring& text) override;
    void ProgressEnd() override;
    void ImportObject(zeio::TrBase& object) override;
    void ShowHelp(const std::wstring& topic, const std::wstring& anchor) override;

private:
    void Record(std::string call) { calls_.push_back(std::move(call)); }

    std::vector<std::string> calls_;
    std::vector<std::string> imported_;
    std::vector<std::unique_ptr<zeio::TrBase>> objects_;
};

}  // namespace support
