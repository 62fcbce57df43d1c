// A host that throws at a chosen call, and knows whether its progress is shown.
#pragma once

#include "fuzz/FuzzInput.h"

namespace fuzz {

struct HostIsUnwilling {};

class UnwillingHost : private StoreOwner, public zeio::IoHost {
public:
    UnwillingHost() : IoHost(StoreOwner::store) {}

    // Throws at the call with this number from now on, counted from 1; 0: never.
    void ThrowAt(long number) { callsLeft_ = number; }

    bool isProgressShown() const { return isProgressShown_; }

    bool GetOption(const std::wstring& name, bool& value, bool persistent) override {
        Call();
        return IoHost::GetOption(name, value, persistent);
    }
    void SetOption(const std::wstring& name, bool value, bool persistent) override {
        Call();
        IoHost::SetOption(name, value, persistent);
    }
    bool GetStringOption(const std::wstring& options, const std::wstring& name,
                         bool& value) override {
        Call();
        return IoHost::GetStringOption(options, name, value);
    }
    int Warning(shr::IError::WarnStyle /*style*/, const std::wstring& /*text*/) override {
        Call();
        return 0;
    }
    void ProgressStart(const std::wstring& /*title*/, bool /*canCancel*/,
                       bool /*hasProportion*/) override {
        Call();
        isProgressShown_ = true;
    }
    void ProgressProportion(double /*fraction*/) override { Call(); }
    void ProgressIndeterminate() override { Call(); }
    void ProgressMessage(const std::wstring& /*text*/) override { Call(); }
    void ProgressEnd() override {
        isProgressShown_ = false;
        Call();
    }
    void ImportObject(zeio::TrBase& object) override {
        Call();
        CheckObject(object);
    }
    void ShowHelp(const std::wstring& /*topic*/, const std::wstring& /*anchor*/) override {
        Call();
    }

private:
    void Call() {
        if (callsLeft_ > 0 && --callsLeft_ == 0) {
            throw HostIsUnwilling();
        }
    }

    long callsLeft_ = 0;
    bool isProgressShown_ = false;
};

}  // namespace fuzz
