// The host object behind one filter: options, progress, warnings and the windows' parent.
//
// A program makes one over a host of its own (standalone/IoHost.h) and hands it to the module's
// factory; the filter calls it. Each operation goes to the host's operation of that name, and what
// that throws passes through the filter to the program.
#pragma once

#include "host/platform/Export.h"
#include "host/platform/WindowSystem.h"
#include "host/shr/IError.h"
#include "host/shr/NonCopyable.h"

#include <string>

namespace zeio {

class IoHost;  // what a program plugs in behind a manager (standalone/IoHost.h)

class QOLF_HOST_API IoManager : public shr::NonCopyable {
public:
    // The host must outlive the manager.
    explicit IoManager(IoHost& host);
    ~IoManager() = default;

    // Stores the remembered value of a boolean option and returns true; leaves value alone and
    // returns false when there is none. A value is found whatever persistent says.
    bool GetOption(const std::wstring& name, bool& value, bool persistent) const;

    // Remembers a value: with persistent false for the running program only.
    void SetOption(const std::wstring& name, bool value, bool persistent);

    // Takes one boolean out of an option string: "name=value" pairs separated by ';', blanks
    // around names and values ignored, names matched without regard to case; true for 1, true, yes
    // and on, false for 0, false, no and off; a bare name means true. value is set, and true
    // returned, only when the name is there with one of these values; the last one counts.
    bool GetStringOption(const std::wstring& options, const std::wstring& name, bool& value) const;

    // Shows or logs a warning. The result is the host's; filters ignore it.
    int Warning(shr::IError::WarnStyle style, const std::wstring& text) const;

    // Starts the progress display. The booleans say whether the run may be cancelled and whether
    // its proportion is known. A start while the display runs starts the same display anew: an
    // export does so at once, when it knows that there will be no proportion.
    void ProgressStart(const std::wstring& title, bool canCancel, bool hasProportion);
    void ProgressProportion(double fraction);        // 0 to 1
    void ProgressIndeterminate();                    // under way, without a proportion
    void ProgressMessage(const std::wstring& text);  // the status line
    void ProgressEnd();

    HWND GetParentWindow() const;         // for modal dialogs; may be null
    HINSTANCE GetModuleInstance() const;  // of the filter module; may be null

    IoHost& Host() const { return host_; }

private:
    IoHost& host_;
};

}  // namespace zeio
