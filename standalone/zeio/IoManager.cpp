#include "host/zeio/IoManager.h"

#include "standalone/IoHost.h"

namespace zeio {

IoManager::IoManager(IoHost& host) : host_(host) {}

bool IoManager::GetOption(const std::wstring& name, bool& value, bool persistent) const {
    return host_.GetOption(name, value, persistent);
}

void IoManager::SetOption(const std::wstring& name, bool value, bool persistent) {
    host_.SetOption(name, value, persistent);
}

bool IoManager::GetStringOption(const std::wstring& options, const std::wstring& name,
                                bool& value) const {
    return host_.GetStringOption(options, name, value);
}

int IoManager::Warning(shr::IError::WarnStyle style, const std::wstring& text) const {
    return host_.Warning(style, text);
}

void IoManager::ProgressStart(const std::wstring& title, bool canCancel, bool hasProportion) {
    host_.ProgressStart(title, canCancel, hasProportion);
}

void IoManager::ProgressProportion(double fraction) {
    host_.ProgressProportion(fraction);
}

void IoManager::ProgressIndeterminate() {
    host_.ProgressIndeterminate();
}

void IoManager::ProgressMessage(const std::wstring& text) {
    host_.ProgressMessage(text);
}

void IoManager::ProgressEnd() {
    host_.ProgressEnd();
}

HWND IoManager::GetParentWindow() const {
    return host_.ParentWindow();
}

HINSTANCE IoManager::GetModuleInstance() const {
    return host_.ModuleInstance();
}

}  // namespace zeio
