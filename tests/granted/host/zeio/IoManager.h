// Made by the host only.
#pragma once

#include "host/platform/WindowSystem.h"
#include "host/shr/IError.h"

#include <string>

namespace zeio {

class IoManager {
public:
    IoManager(const IoManager&) = delete;
    IoManager& operator=(const IoManager&) = delete;

    bool GetOption(const std::wstring& name, bool& value, bool flag) const;
    void SetOption(const std::wstring& name, bool value, bool flag);
    bool GetStringOption(const std::wstring& options, const std::wstring& name, bool& value) const;
    int Warning(shr::IError::WarnStyle style, const std::wstring& text) const;
    void ProgressStart(const std::wstring& title, bool first, bool second);
    void ProgressProportion(double fraction);
    void ProgressIndeterminate();

    // What modal dialogs and pages need.
    HWND GetParentWindow() const;
    HINSTANCE GetModuleInstance() const;
};

}  // namespace zeio
