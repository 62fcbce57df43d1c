// What stands behind an IoManager: options, progress, warnings and the receiver of imported
// objects. A program derives from it and overrides what it wants to see.
//
// A filter calls these operations from within its own, on the program's thread. An exception that
// one of them throws passes through the filter to the program; docs/integrating.md says what
// becomes of the filter.
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

    // Options, as IoManager describes them, from and to the store. Reading, a value is found
    // whatever the flag. An override may keep options elsewhere, or record the calls and then call
    // these.
    virtual bool GetOption(const std::wstring& name, bool& value, bool persistent);
    virtual void SetOption(const std::wstring& name, bool value, bool persistent);
    virtual bool GetStringOption(const std::wstring& options, const std::wstring& name,
                                 bool& value);

    // The rest does nothing unless overridden.

    // A text for the user; it may have several lines. The result is not looked at.
    virtual int Warning(shr::IError::WarnStyle style, const std::wstring& text);
    // The progress display. There is one for a filter: a second start before an end (an export
    // makes one) starts it anew, and the one end ends it. Proportions run from 0 to 1 and may
    // repeat. A program that wants to cancel a run throws out of one of them.
    virtual void ProgressStart(const std::wstring& title, bool canCancel, bool hasProportion);
    virtual void ProgressProportion(double fraction);
    virtual void ProgressIndeterminate();
    virtual void ProgressMessage(const std::wstring& text);
    virtual void ProgressEnd();

    // Receives every object of an import; must copy what it keeps. May move parts out of the
    // object instead: the filter expects nothing back.
    virtual void ImportObject(TrBase& object);

    // A dialog's help: a file name and a place in it, which may be empty.
    virtual void ShowHelp(const std::wstring& topic, const std::wstring& anchor);

    // For dialogs: the window over which they open, and the module whose resources have their
    // templates. Null, as here, where there are no windows.
    virtual HWND ParentWindow() const;
    virtual HINSTANCE ModuleInstance() const;

private:
    standalone::OptionStore& store_;
};

}  // namespace zeio
