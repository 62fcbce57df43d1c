// A run's progress display: it starts with the object and ends with it. One at a time for a
// manager.
#pragma once

#include "host/platform/Export.h"
#include "host/shr/NonCopyable.h"

namespace zeio {

class IoManager;

class QOLF_HOST_API CProgress : public shr::NonCopyable {
public:
    // Calls IoManager::ProgressStart with an empty title and both flags true. The manager must
    // outlive the object. What the host throws passes; the display then never started.
    explicit CProgress(IoManager& manager);

    // Ends the display. An exception of the host is logged and ends here.
    ~CProgress();

    // Shows a status line, formatted as shr::FormatString does. May be called at any time.
    void MessageVA(const wchar_t* format, ...);

private:
    IoManager& manager_;
};

}  // namespace zeio
