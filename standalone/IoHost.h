// What stands behind an IoManager: options, progress, warnings and the receiver of imported
// objects. A program derives from it and overrides what it wants to see.
#pragma once

#include "host/platform/Export.h"
#include "host/platform/WindowSystem.h"
#include "host/shr/IError.h"
#include "standalone/OptionStore.h"

#include <string>

namespace zeio {

class TrBase;

class QOLF_HOST_API IoHost {
public:
    // The store must outlive the host.
    explicit IoHost(standalone::OptionStore& store);
    virtual ~IoHost();
    IoHost(const IoHost&) = delete;
    IoHost& operator=(const IoHost&) = delete;

    // Options, as IoManager describes them. Reading, a value is found whatever the flag.
    virtual bool GetOption(const std::wstring& name, bool& value, bool persistent);
    virtual void SetOption(const std::wstring& name, bool value, bool persistent);
    virtual bool GetStringOption(const std::wstring& options, const std::wstring& name,
                                 bool& value);

    // The rest does nothing unless overridden.
    virtual int Warning(shr::IError::WarnStyle style, const std::wstring& text);
    virtual void ProgressStart(const std::wstring& title, bool canCancel, bool hasProportion);
    virtual void ProgressProportion(double fraction);
    virtual void ProgressIndeterminate();
    virtual void ProgressMessage(const std::wstring& text);
    virtual void ProgressEnd();

    // Receives every object of an import; must copy what it keeps. May move parts out of the
    // object instead: the filter expects nothing back.
    virtual void ImportObject(TrBase& object);

    virtual void ShowHelp(const std::wstring& topic, const std::wstring& anchor);
    virtual HWND ParentWindow() const;
    virtual HINSTANCE ModuleInstance() const;

private:
    standalone::OptionStore& store_;
};

}  // namespace zeio
